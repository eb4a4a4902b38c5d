// Our own calls name keys that the string table has.
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

std::string example() {
#ifdef QUORVEL_MISTAKE
  return WidgetStrings::text("nextdue", "de");
#else
  return WidgetStrings::text("nextDue", "de");
#endif
}

}  // namespace quorvel
