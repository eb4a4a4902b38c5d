#include "Cli/Links.hpp"

#include <poll.h>

#include "Opening/LinkOpener.hpp"

namespace cli {

Result<void> openLink(const std::string& link, const std::string& program) {
  opening::LinkOpener opener{link, program};
  for (;;) {
    if (const auto opened = opener.proceed()) {
      if (!*opened) return refused(opened->error());
      return {};
    }
    pollfd polled{opener.descriptor(), POLLIN, 0};
    ::poll(&polled, 1, -1);
  }
}

}  // namespace cli
