// The envelope of JSON-RPC 2.0: requests, notifications and answers, without batches.
#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "Foundation/JsonValue.hpp"

namespace widgetruntime {

enum class RpcErrorCode : std::int32_t {
  parseError = -32700,
  invalidRequest = -32600,
  methodNotFound = -32601,
  invalidParameters = -32602,
  internalError = -32603,
  notInitialized = -32002,
  requestCancelled = -32800,
  answerTooLarge = -32803
};

struct RpcError {
  RpcErrorCode code = RpcErrorCode::internalError;
  std::string message;

  friend bool operator==(const RpcError&, const RpcError&) = default;
};

/// Null is the id of an answer to something that had no readable id.
using RpcId = std::variant<std::nullptr_t, std::int64_t, std::string>;

struct RpcRequest {
  std::optional<RpcId> id;  ///< absent: a notification
  std::string method;
  foundation::JsonDocument parameters;
};

/// A request that could not be read, with its id as far as it was readable.
struct RpcFailure {
  RpcId id;
  RpcError error;
};

struct RpcAnswer {
  RpcId id;
  std::expected<foundation::JsonDocument, RpcError> result;
};

[[nodiscard]] std::expected<RpcRequest, RpcFailure> readRequest(std::string_view text);
/// What is wrong in one line, when it is no answer.
[[nodiscard]] std::expected<RpcAnswer, std::string> readAnswer(std::string_view text);

/// Whom a cancellation means.
[[nodiscard]] std::optional<RpcId> readCancelledId(const foundation::JsonValue& parameters);

/// Parameters and results are JSON already.
[[nodiscard]] std::string writeRequest(std::int64_t id,
                                       std::string_view method,
                                       std::string_view parametersJson);
[[nodiscard]] std::string writeNotification(std::string_view method,
                                            std::string_view parametersJson);
[[nodiscard]] std::string writeResult(const RpcId& id, std::string_view resultJson);
[[nodiscard]] std::string writeError(const RpcFailure& failure);

}  // namespace widgetruntime
