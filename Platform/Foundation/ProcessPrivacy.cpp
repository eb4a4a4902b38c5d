// The limit alone would leave memory readable, and a core may be piped to a program whatever the
// limit says.
#include "Foundation/ProcessPrivacy.hpp"

#include <sys/prctl.h>

namespace foundation {

void keepMemoryPrivate() {
  ::prctl(PR_SET_DUMPABLE, 0);
}

}  // namespace foundation
