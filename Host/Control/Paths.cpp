#include "Control/Paths.hpp"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "Foundation/EnvironmentVariables.hpp"

namespace control {
namespace {

/// The host's own folder; empty without one around it.
std::string ownFolder(const std::string& base) {
  return base.empty() ? std::string{} : base + "/quorvel-host";
}

}  // namespace

Paths pathsFrom(const foundation::ProcessEnvironment& environment) {
  std::string runtime = foundation::valueOf(environment, "XDG_RUNTIME_DIR");
  if (!runtime.starts_with('/')) runtime.clear();
  return {
      .runtime = ownFolder(runtime),
      .config = ownFolder(foundation::baseDirectory(environment, "XDG_CONFIG_HOME", ".config")),
      .state = ownFolder(foundation::baseDirectory(environment, "XDG_STATE_HOME", ".local/state"))};
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
