// quorvel-hostd: the resident host.
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "Control/Paths.hpp"
#include "Foundation/ProcessPrivacy.hpp"
#include "Resident/HostOptions.hpp"
#include "Resident/Program.hpp"

extern char** environ;  // POSIX leaves it to the user

namespace {

foundation::ProcessEnvironment processEnvironment() {
  foundation::ProcessEnvironment environment;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const auto equals = text.find('=');
    if (equals != std::string_view::npos)
      environment.emplace(text.substr(0, equals), text.substr(equals + 1));
  }
  return environment;
}

std::filesystem::path programFolder() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

}  // namespace

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
  return resident::run(*options, processEnvironment(), programFolder());
}
