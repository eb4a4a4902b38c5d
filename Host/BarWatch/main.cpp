// quorvel-watch: `quorvel-host watch` as a program of its own. It stays as long as its bar does, so
// it loads nothing that draws.
#include <unistd.h>

#include <tuple>

#include "BarWatch/BarWatch.hpp"
#include "Foundation/FileWriting.hpp"
#include "Foundation/Printable.hpp"
#include "Foundation/ProcessPrivacy.hpp"

namespace {

constexpr int kRefused = 1;
constexpr int kMisused = 2;

int fail(int status, std::string_view line) {
  std::ignore = foundation::writeAll(STDERR_FILENO,
                                     "quorvel-host watch: " + foundation::printable(line) + "\n");
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  foundation::keepMemoryPrivate();
  const auto format = argc == 4 ? foundation::named<surfaces::BarFormat>(argv[3]) : std::nullopt;
  if (!format) return fail(kMisused, "started by quorvel-host with SOCKET TARGET FORMAT");
  const auto ended = watch::BarWatch{argv[1], argv[2], *format}.run();
  return ended ? 0 : fail(kRefused, ended.error());
}
