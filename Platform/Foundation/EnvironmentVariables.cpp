#include "Foundation/EnvironmentVariables.hpp"

namespace foundation {

std::string valueOf(const ProcessEnvironment& environment, const std::string& name) {
  const auto found = environment.find(name);
  return found == environment.end() ? std::string{} : found->second;
}

std::string baseDirectory(const ProcessEnvironment& environment,
                          const std::string& variable,
                          const std::string& belowHome) {
  std::string set = valueOf(environment, variable);
  if (set.starts_with('/')) return set;
  const std::string home = valueOf(environment, "HOME");
  return home.starts_with('/') ? home + "/" + belowHome : std::string{};
}

}  // namespace foundation
