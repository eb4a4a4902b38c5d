// quorvel-hostd: the resident host.
#include <cstdio>

#include "Foundation/ProcessPrivacy.hpp"
#include "Foundation/ThisProcess.hpp"
#include "Resident/HostOptions.hpp"
#include "Resident/Program.hpp"

int main(int argc, char** argv) {
  foundation::keepMemoryPrivate();
  const auto options = resident::readOptions(
      std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)));
  if (!options) {
    std::fputs((options.error().status == 0 ? options.error().text
                                            : "quorvel-hostd: " + options.error().text + "\n")
                   .c_str(),
               options.error().status == 0 ? stdout : stderr);
    return options.error().status;
  }
  return resident::run(*options, foundation::processEnvironment(), foundation::programFolder());
}
