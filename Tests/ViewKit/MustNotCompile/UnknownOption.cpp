// A misspelt option of a modifier is found.
#include "ViewKit/ViewKit.hpp"

namespace viewkit {

View example() {
#ifdef QUORVEL_MISTAKE
  return Text{"Due"}.padding({.tpo = 8});
#else
  return Text{"Due"}.padding({.top = 8});
#endif
}

}  // namespace viewkit
