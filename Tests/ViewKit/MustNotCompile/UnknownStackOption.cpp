// A misspelt option of a container is found.
#include "ViewKit/ViewKit.hpp"

namespace viewkit {

View example() {
#ifdef QUORVEL_MISTAKE
  return HStack{{.spaceing = 4}, Text{"Due"}};
#else
  return HStack{{.spacing = 4}, Text{"Due"}};
#endif
}

}  // namespace viewkit
