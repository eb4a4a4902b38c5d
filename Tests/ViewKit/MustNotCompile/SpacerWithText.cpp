// A spacer holds no text.
#include "ViewKit/ViewKit.hpp"

namespace viewkit {

View example() {
#ifdef QUORVEL_MISTAKE
  return Spacer{"Due"};
#else
  return Spacer{8};
#endif
}

}  // namespace viewkit
