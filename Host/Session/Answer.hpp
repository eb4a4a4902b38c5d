// Takes the result out of an answer's bytes.
#pragma once

#include <cstdint>
#include <string_view>

#include "Foundation/JsonValue.hpp"
#include "Session/SessionError.hpp"

namespace session {

/// `malformed` when the bytes are no answer to the request of that id, `refused` when they are an
/// error.
[[nodiscard]] Result<foundation::JsonDocument> readResult(std::string_view bytes, std::int64_t id);

}  // namespace session
