#include "Foundation/ThisProcess.hpp"

#include <string_view>

extern char** environ;  // POSIX leaves it to the user

namespace foundation {

ProcessEnvironment processEnvironment() {
  ProcessEnvironment environment;
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

}  // namespace foundation
