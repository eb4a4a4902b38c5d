#include "WidgetRuntime/JsonRpc.hpp"

#include <cmath>
#include <utility>

#include "Foundation/Overloaded.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace widgetruntime {

using foundation::JsonDocument;
using foundation::JsonValue;
using foundation::JsonWriter;

namespace {

// The largest whole number that a double holds without a gap below it.
constexpr double kMaximumId = 9007199254740991.0;
constexpr std::size_t kMaximumIdText = 256;

std::optional<RpcId> readId(const JsonValue& json) {
  if (json.isNull()) return RpcId{nullptr};
  if (const std::string_view* text = json.string(); text && text->size() <= kMaximumIdText) {
    return RpcId{std::string(*text)};
  }
  const double* number = json.number();
  if (number == nullptr || std::abs(*number) > kMaximumId || *number != std::trunc(*number)) {
    return std::nullopt;
  }
  return RpcId{static_cast<std::int64_t>(*number)};
}

bool isVersionTwo(const JsonValue& json) {
  const JsonValue* version = json.member("jsonrpc");
  return version != nullptr && version->string() != nullptr && *version->string() == "2.0";
}

std::string describe(const foundation::JsonProblem& problem) {
  return std::to_string(problem.line) + ":" + std::to_string(problem.column) + ": expected " +
         problem.expected + ", found " + problem.found;
}

void beginEnvelope(JsonWriter& writer) {
  writer.beginObject().member("jsonrpc", "2.0");
}

void writeId(JsonWriter& writer, const RpcId& id) {
  writer.key("id");
  std::visit(foundation::Overloaded{[&](std::nullptr_t) { writer.null(); },
                                    [&](std::int64_t number) { writer.value(number); },
                                    [&](const std::string& text) { writer.value(text); }},
             id);
}

}  // namespace

std::expected<RpcRequest, RpcFailure> readRequest(std::string_view text) {
  const auto fail = [](RpcId id, RpcErrorCode code, std::string message) {
    return std::unexpected(RpcFailure{std::move(id), {code, std::move(message)}});
  };
  auto json = foundation::parseJson(text, kMaximumRequestDepth, kMaximumMessage);
  if (!json) return fail(nullptr, RpcErrorCode::parseError, describe(json.error()));

  RpcRequest request;
  const JsonValue* id = json->member("id");
  if (id != nullptr) request.id = readId(*id);
  const RpcId answered = request.id.value_or(nullptr);
  if (!isVersionTwo(*json)) {
    return fail(answered, RpcErrorCode::invalidRequest, "/jsonrpc: expected \"2.0\"");
  }
  if (id != nullptr && !request.id) {
    return fail(
        nullptr, RpcErrorCode::invalidRequest, "/id: expected a whole number or a short string");
  }
  const JsonValue* name = json->member("method");
  if (name == nullptr || name->string() == nullptr || name->string()->size() > kMaximumIdText) {
    return fail(answered, RpcErrorCode::invalidRequest, "/method: expected a short string");
  }
  request.method = *name->string();
  if (const JsonValue* parameters = json->member("params")) {
    request.parameters = JsonDocument(*std::move(json), *parameters);
  }
  return request;
}

std::expected<RpcAnswer, std::string> readAnswer(std::string_view text) {
  auto json = foundation::parseJson(text, kMaximumAnswerDepth, kMaximumMessage);
  if (!json) return std::unexpected(describe(json.error()));
  if (!isVersionTwo(*json)) return std::unexpected("no JSON-RPC 2.0 message");
  const JsonValue* idJson = json->member("id");
  const auto id = idJson != nullptr ? readId(*idJson) : std::nullopt;
  if (!id) return std::unexpected("no readable id");

  const JsonValue* result = json->member("result");
  const JsonValue* error = json->member("error");
  if ((result != nullptr) == (error != nullptr)) {
    return std::unexpected("either a result or an error is expected");
  }
  if (result != nullptr) return RpcAnswer{*id, JsonDocument(*std::move(json), *result)};
  const JsonValue* code = error->member("code");
  const JsonValue* message = error->member("message");
  if (code == nullptr || code->number() == nullptr || std::abs(*code->number()) > 1e6 ||
      message == nullptr || message->string() == nullptr) {
    return std::unexpected("/error: expected code and message");
  }
  return RpcAnswer{
      *id,
      std::unexpected(RpcError{static_cast<RpcErrorCode>(*code->number()),
                               std::string(message->string()->substr(0, kMaximumString))})};
}

std::optional<RpcId> readCancelledId(const JsonValue& parameters) {
  const JsonValue* id = parameters.member("id");
  return id != nullptr ? readId(*id) : std::nullopt;
}

std::string writeRequest(std::int64_t id,
                         std::string_view method,
                         std::string_view parametersJson) {
  JsonWriter writer;
  beginEnvelope(writer);
  writer.member("id", id).member("method", method).key("params").raw(parametersJson).endObject();
  return writer.take();
}

std::string writeNotification(std::string_view method, std::string_view parametersJson) {
  JsonWriter writer;
  beginEnvelope(writer);
  writer.member("method", method).key("params").raw(parametersJson).endObject();
  return writer.take();
}

std::string writeResult(const RpcId& id, std::string_view resultJson) {
  JsonWriter writer;
  beginEnvelope(writer);
  writeId(writer, id);
  writer.key("result").raw(resultJson).endObject();
  return writer.take();
}

std::string writeError(const RpcFailure& failure) {
  JsonWriter writer;
  beginEnvelope(writer);
  writeId(writer, failure.id);
  writer.key("error").beginObject();
  writer.member("code", static_cast<int>(failure.error.code));
  writer.member("message", std::string_view{failure.error.message}).endObject().endObject();
  return writer.take();
}

}  // namespace widgetruntime
