#include "Session/Answer.hpp"

#include <fmt/format.h>

#include <utility>
#include <variant>

#include "Session/Diagnostics.hpp"
#include "WidgetRuntime/JsonRpc.hpp"

namespace session {

Result<foundation::JsonDocument> readResult(std::string_view bytes, std::int64_t id) {
  auto answer = widgetruntime::readAnswer(bytes);
  if (!answer) {
    return std::unexpected(
        SessionError{SessionError::Kind::malformed, "no answer: " + asciiLine(answer.error())});
  }
  if (answer->id != widgetruntime::RpcId{id}) {
    return std::unexpected(
        SessionError{SessionError::Kind::malformed, "the answer is to another request"});
  }
  if (!answer->result) {
    const widgetruntime::RpcError& error = answer->result.error();
    return std::unexpected(SessionError{
        SessionError::Kind::refused,
        fmt::format("{} ({})", asciiLine(error.message), static_cast<int>(error.code))});
  }
  return std::move(*answer->result);
}

}  // namespace session
