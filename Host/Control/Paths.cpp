#include "Control/Paths.hpp"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace control {
namespace {

constexpr const char* kFolder = "/quorvel-host";

std::string absoluteSetting(const foundation::ProcessEnvironment& environment, const char* name) {
  const auto found = environment.find(name);
  return found != environment.end() && found->second.starts_with('/') ? found->second
                                                                      : std::string{};
}

std::string below(const std::string& base, const std::string& home, const char* fallback) {
  if (!base.empty()) return base + kFolder;
  return home.empty() ? std::string{} : home + fallback + kFolder;
}

}  // namespace

Paths pathsFrom(const foundation::ProcessEnvironment& environment) {
  const std::string home = absoluteSetting(environment, "HOME");
  const std::string runtime = absoluteSetting(environment, "XDG_RUNTIME_DIR");
  return {.runtime = runtime.empty() ? std::string{} : runtime + kFolder,
          .config = below(absoluteSetting(environment, "XDG_CONFIG_HOME"), home, "/.config"),
          .state = below(absoluteSetting(environment, "XDG_STATE_HOME"), home, "/.local/state")};
}

std::optional<std::string> makePrivateFolder(const std::string& folder) {
  for (std::size_t at = 1; at != std::string::npos;) {
    at = folder.find('/', at + 1);
    const std::string part = folder.substr(0, at);
    if (::mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) {
      return "cannot make " + part + ": " + std::strerror(errno);
    }
  }
  struct stat status {};
  if (::stat(folder.c_str(), &status) != 0) return folder + ": " + std::strerror(errno);
  if (!S_ISDIR(status.st_mode)) return folder + ": not a folder";
  return std::nullopt;
}

}  // namespace control
