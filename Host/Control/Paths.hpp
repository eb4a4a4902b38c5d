// Where the resident host keeps its files and listens (XDG base directories).
#pragma once

#include <optional>
#include <string>

#include "Foundation/Locale.hpp"

namespace control {

/// Absolute folders; each is made by whoever writes there first.
struct Paths {
  std::string runtime;  ///< control socket and lock; empty: there is no folder for them
  std::string config;   ///< placements
  std::string state;    ///< redacted pictures

  [[nodiscard]] std::string socket() const { return runtime + "/control"; }
  [[nodiscard]] std::string lock() const { return runtime + "/host.lock"; }
  [[nodiscard]] std::string placements() const { return config + "/placements.json"; }
  [[nodiscard]] std::string pictures() const { return state + "/pictures"; }
};

/// $XDG_RUNTIME_DIR, $XDG_CONFIG_HOME and $XDG_STATE_HOME where they are absolute, else the last
/// two below $HOME; nothing stands in for a missing runtime folder.
[[nodiscard]] Paths pathsFrom(const foundation::ProcessEnvironment& environment);

/// Makes the folder and those above it, for its owner alone; what is wrong in one line.
[[nodiscard]] std::optional<std::string> makePrivateFolder(const std::string& folder);

}  // namespace control
