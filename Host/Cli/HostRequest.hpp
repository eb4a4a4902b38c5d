// Requests to the resident host, with its refusals as lines for a person.
#pragma once

#include <string>
#include <string_view>

#include "Cli/Program.hpp"
#include "Cli/Result.hpp"
#include "Control/Client.hpp"

namespace cli {

/// Where it listens; refused without XDG_RUNTIME_DIR.
[[nodiscard]] Result<std::string> controlSocket(const Program& program);

/// What to do when nobody listens.
inline constexpr std::string_view kStartAdvice =
    "no resident host runs; start it with `systemctl --user enable --now quorvel-hostd.socket`, or "
    "`quorvel-hostd &` where there is no systemd";

/// One request and its result.
[[nodiscard]] Result<foundation::JsonDocument> askHost(const Program& program,
                                                       std::string_view method,
                                                       std::string_view parametersJson);

}  // namespace cli
