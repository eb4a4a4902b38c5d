// A number is no view: it must be formatted first.
#include "ViewKit/ViewKit.hpp"

namespace viewkit {

View example() {
#ifdef QUORVEL_MISTAKE
  return HStack{{.spacing = 4}, 42};
#else
  return HStack{{.spacing = 4}, Text{std::to_string(42)}};
#endif
}

}  // namespace viewkit
