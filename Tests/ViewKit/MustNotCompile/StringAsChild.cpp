// A raw string is no view: a text says how it is set.
#include "ViewKit/ViewKit.hpp"

namespace viewkit {

View example() {
#ifdef QUORVEL_MISTAKE
  return HStack{{.spacing = 4}, "Due"};
#else
  return HStack{{.spacing = 4}, Text{"Due"}};
#endif
}

}  // namespace viewkit
