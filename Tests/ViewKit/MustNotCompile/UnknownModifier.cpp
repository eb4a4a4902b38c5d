// A modifier that the kit does not have is found.
#include "ViewKit/ViewKit.hpp"

namespace viewkit {

View example() {
#ifdef QUORVEL_MISTAKE
  return Text{"Due"}.paddding(8);
#else
  return Text{"Due"}.padding(8);
#endif
}

}  // namespace viewkit
