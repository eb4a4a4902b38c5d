#include "Resident/Operations.hpp"

#include <cmath>
#include <utility>

#include "Foundation/JsonWriter.hpp"
#include "Opening/LinkOpener.hpp"
#include "Resident/Status.hpp"
#include "Surfaces/Cells.hpp"

namespace resident {

using foundation::JsonValue;
using foundation::JsonWriter;
using widgetruntime::IntentValues;
using widgetruntime::RpcError;
using widgetruntime::RpcErrorCode;
using widgetruntime::WidgetFamily;

namespace {

constexpr std::string_view kDone = "{}";
constexpr std::size_t kMostShown = 40;  ///< bytes of a name that nobody knows

std::unexpected<RpcError> refused(std::string line) {
  return std::unexpected(RpcError{RpcErrorCode::internalError, std::move(line)});
}

std::unexpected<RpcError> invalid(std::string line) {
  return std::unexpected(RpcError{RpcErrorCode::invalidParameters, std::move(line)});
}

ControlServer::Answer answer(Done done) {
  if (!done) return refused(std::move(done.error()));
  return std::string(kDone);
}

const JsonValue* present(const JsonValue& parameters, std::string_view key) {
  const JsonValue* value = parameters.member(key);
  return value == nullptr || value->isNull() ? nullptr : value;
}

/// Empty: missing, or no string.
std::string text(const JsonValue& parameters, std::string_view key) {
  const JsonValue* value = present(parameters, key);
  return value != nullptr && value->string() != nullptr ? *value->string() : std::string{};
}

std::optional<int> cell(const JsonValue& parameters, std::string_view key) {
  const JsonValue* value = present(parameters, key);
  const double* number = value != nullptr ? value->number() : nullptr;
  if (number == nullptr || *number != std::floor(*number) || *number < 0 ||
      *number > surfaces::kMaximumCell) {
    return std::nullopt;
  }
  return static_cast<int>(*number);
}

using Family = std::expected<std::optional<WidgetFamily>, RpcError>;
Family familyIn(const JsonValue& parameters) {
  if (present(parameters, "family") == nullptr) return std::nullopt;
  const auto family = widgetruntime::named<widgetruntime::WidgetFamily>(text(parameters, "family"));
  if (!family) return invalid("family: a family is expected");
  return family;
}

using Configuration = std::expected<std::optional<IntentValues>, RpcError>;
Configuration configurationIn(const JsonValue& parameters) {
  const JsonValue* json = present(parameters, "configuration");
  if (json == nullptr) return std::nullopt;
  if (json->object() == nullptr) return invalid("configuration: an object is expected");
  IntentValues values;
  for (const auto& [name, value] : *json->object()) {
    if (value.string() == nullptr) return invalid("configuration: strings are expected");
    values.emplace(name, *value.string());
  }
  return values;
}

}  // namespace

void Operations::handle(ControlServer::Client client,
                        const std::string& method,
                        const Parameters& parameters,
                        ControlServer::Reply reply) {
  if (method == "status") return reply(status());
  if (method == "reload") return reply(reload(parameters));
  if (method == "hide") return reply(hide(parameters));
  if (method == "add") return reply(add(parameters));
  if (method == "remove") return reply(remove(parameters));
  if (method == "configure") return reply(configure(parameters));
  if (method == "move") return reply(move(parameters));
  if (method == "board") return reply(board());
  if (method == "watch") return reply(watch(client, parameters));
  if (method == "open") return open(parameters, std::move(reply));
  if (method == "perform") return perform(parameters, reply);
  reply(std::unexpected(RpcError{RpcErrorCode::methodNotFound,
                                 "there is no method \"" + method.substr(0, kMostShown) + "\""}));
}

Operations::Answer Operations::status() const {
  return statusJson(host_);
}

Operations::Answer Operations::reload(const Parameters& parameters) {
  const auto count = host_.reload(text(parameters, "target"));
  if (!count) return refused(count.error());
  JsonWriter json;
  json.beginObject().member("asked", static_cast<int>(*count)).endObject();
  return json.take();
}

Operations::Answer Operations::hide(const Parameters& parameters) {
  const std::string how = text(parameters, "hide");
  if (how != "on" && how != "off" && how != "toggle") {
    return invalid("hide: on, off or toggle is expected");
  }
  host_.hide(how == "on" ? Hide::on : how == "off" ? Hide::off : Hide::toggle);
  JsonWriter json;
  json.beginObject().member("hidden", host_.privacy().isHidden()).key("because").beginArray();
  for (const std::string_view reason : host_.privacy().reasons()) json.value(reason);
  json.endArray().endObject();
  return json.take();
}

Operations::Answer Operations::add(const Parameters& parameters) {
  const auto family = familyIn(parameters);
  if (!family) return std::unexpected(family.error());
  auto configuration = configurationIn(parameters);
  if (!configuration) return std::unexpected(configuration.error());
  const auto id =
      host_.add(text(parameters, "kind"), *family, (*configuration).value_or(IntentValues{}));
  if (!id) return refused(id.error());
  JsonWriter json;
  json.beginObject().member("id", *id).endObject();
  return json.take();
}

Operations::Answer Operations::remove(const Parameters& parameters) {
  return answer(host_.remove(text(parameters, "id")));
}

Operations::Answer Operations::configure(const Parameters& parameters) {
  const auto family = familyIn(parameters);
  if (!family) return std::unexpected(family.error());
  auto configuration = configurationIn(parameters);
  if (!configuration) return std::unexpected(configuration.error());
  return answer(host_.configure(text(parameters, "id"), *family, *std::move(configuration)));
}

Operations::Answer Operations::move(const Parameters& parameters) {
  const auto column = cell(parameters, "column");
  const auto row = cell(parameters, "row");
  if (!column || !row) return invalid("column, row: whole numbers from 0 to 999 are expected");
  const std::string id = text(parameters, "id");
  const std::string surface = text(parameters, "surface");
  if (surface == "board") return answer(host_.moveOnBoard(id, {*column, *row}));
  if (surface != "desktop") return invalid("surface: desktop or board is expected");
  return answer(host_.moveOnDesktop(id, {text(parameters, "output"), *column, *row}));
}

Operations::Answer Operations::board() {
  const auto url = openBoard();
  if (!url) return refused(url.error());
  JsonWriter json;
  json.beginObject().member("url", *url).endObject();
  return json.take();
}

Operations::Answer Operations::watch(ControlServer::Client client, const Parameters& parameters) {
  return answer(watchers_.watch(client, text(parameters, "target")));
}

void Operations::open(const Parameters& parameters, ControlServer::Reply reply) {
  std::optional<std::size_t> region;
  if (present(parameters, "region") != nullptr) {
    const auto index = cell(parameters, "region");
    if (!index) return reply(invalid("region: a whole number is expected"));
    region = static_cast<std::size_t>(*index);
  }
  const auto link = host_.linkOf(text(parameters, "target"), region);
  if (!link) return reply(refused(link.error()));
  openThen(*link, std::move(reply));
}

void Operations::perform(const Parameters& parameters, const ControlServer::Reply& reply) {
  const auto then = [this, reply](Asked<widgetruntime::PerformAnswer> done) {
    if (!done) return reply(refused("the extension: " + done.error().reason));
    const auto* offer = host_.offer();
    if (!done->openApp || offer == nullptr) return reply(std::string(kDone));
    const auto link = opening::applicationLink(offer->urlScheme);
    if (!link) return reply(refused(link.error()));
    openThen(*link, reply);
  };
  asker_.perform({.intent = text(parameters, "intent")}, then);
}

void Operations::openThen(const std::string& link, ControlServer::Reply reply) {
  host_.openLink(link, [reply = std::move(reply)](const std::string& problem) {
    reply(problem.empty() ? Answer{std::string(kDone)} : refused(problem));
  });
}

}  // namespace resident
