#include "QuorvelWidgets/WidgetSupport/Components/AccessoryBackdrop.hpp"

namespace quorvel {

using namespace viewkit;

View AccessoryBackdrop::body() const {
  return RoundedRectangle(14).fill(showsBackground ? Color::clear()
                                                   : Color::white().withOpacity(0.14));
}

}  // namespace quorvel
