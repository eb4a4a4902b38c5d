// What the HTTP library has read of a request before its body.
#pragma once

#include <map>
#include <string>

#include "Surfaces/Web/WebGate.hpp"

struct MHD_Connection;

namespace surfaces {

[[nodiscard]] RequestHead headOf(MHD_Connection* connection,
                                 std::string method,
                                 std::string target);
/// Decoded; the last of a name counts.
[[nodiscard]] std::map<std::string, std::string> queryOf(MHD_Connection* connection);

}  // namespace surfaces
