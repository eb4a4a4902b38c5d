#include "Session/InProcess.hpp"

#include <utility>

#include "Session/Answer.hpp"
#include "WidgetRuntime/JsonRpc.hpp"

namespace session {

InProcess::InProcess(std::function<Handler()> connect) : connect_(std::move(connect)) {}

Result<void> InProcess::start() {
  handler_ = connect_();
  return {};
}

Result<foundation::JsonDocument> InProcess::call(std::string_view method,
                                                 std::string_view parametersJson,
                                                 std::chrono::milliseconds /*deadline*/) {
  if (!handler_) {
    return std::unexpected(SessionError{SessionError::Kind::notStarted, "not started"});
  }
  const std::int64_t id = ++lastId_;
  auto result = readResult(handler_(widgetruntime::writeRequest(id, method, parametersJson)), id);
  if (!result) result.error().message.insert(0, std::string(method) + ": ");
  return result;
}

}  // namespace session
