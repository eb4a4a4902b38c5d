// `status`, `reload`, `hide`, `add`, `remove`, `configure`, `move`, `open`, `board`: what a person
// asks of the resident host.
#include <fmt/format.h>

#include <charconv>

#include "Cli/Commands/Commands.hpp"
#include "Cli/HostRequest.hpp"
#include "Cli/Links.hpp"
#include "Cli/Output.hpp"
#include "Control/Requests.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Foundation/Printable.hpp"

namespace cli {
namespace {

using foundation::JsonDocument;
using foundation::JsonValue;
using foundation::JsonWriter;

bool isTrue(const JsonValue& json, std::string_view key) {
  const JsonValue* value = json.member(key);
  return value != nullptr && value->boolean() != nullptr && *value->boolean();
}

/// "spending, small, style=ring"
std::string describe(const JsonValue& placement) {
  std::string text = placement.textOf("kind") + " " + placement.textOf("family");
  const JsonValue* configuration = placement.member("configuration");
  if (configuration == nullptr || configuration->object() == nullptr) return text;
  for (const auto& [name, value] : *configuration->object()) {
    if (value.string() != nullptr) text += fmt::format(" {}={}", name, *value.string());
  }
  return text;
}

std::string placementText(const JsonValue& placement) {
  std::string line = fmt::format(
      "{:<5}{:<12}{}", placement.textOf("id"), placement.textOf("state"), describe(placement));
  if (const auto asOf = placement.textOf("asOf"); !asOf.empty()) line += ", as of " + asOf;
  line = foundation::printable(line) + "\n";
  if (const auto next = placement.textOf("nextReload"); !next.empty()) {
    line += "     asked again " + foundation::printable(next) + "\n";
  }
  if (const auto reason = placement.textOf("reason"); !reason.empty()) {
    const auto since = placement.textOf("since");
    line += "     -> " +
            foundation::printable((since.empty() ? "" : "since " + since + ": ") + reason) + "\n";
  }
  return line;
}

std::string joined(const JsonValue* list) {
  std::string text;
  if (list == nullptr || list->array() == nullptr) return text;
  for (const JsonValue& item : *list->array()) {
    if (item.string() == nullptr) continue;
    if (!text.empty()) text += ", ";
    text += *item.string();
  }
  return text;
}

std::string hiddenText(const JsonValue& json, std::string_view because) {
  if (!isTrue(json, "hidden")) return "amounts are shown\n";
  return foundation::printable(
             fmt::format("amounts are hidden ({})", joined(json.member(because)))) +
         "\n";
}

std::string statusText(const JsonValue& status) {
  std::string text;
  if (const auto problem = status.textOf("problem"); !problem.empty()) {
    text += "the extension does not start: " + foundation::printable(problem) + "\n";
  }
  text += hiddenText(status, "hiddenBecause");
  const JsonValue* placements = status.member("placements");
  if (placements == nullptr || placements->array() == nullptr) return text;
  for (const JsonValue& placement : *placements->array()) text += placementText(placement);
  return text;
}

std::optional<widgetruntime::IntentValues> configurationOf(const PictureOptions& picture) {
  if (picture.configuration.empty()) return std::nullopt;
  return picture.configuration;
}

template <class Request>
Result<JsonDocument> ask(const Program& program, const Request& request) {
  return askHost(program, Request::kMethod, control::encode(request));
}

std::optional<int> wholeNumber(const std::string& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || number < 0) return std::nullopt;
  return number;
}

Result<void> done(const Result<JsonDocument>& result) {
  if (!result) return std::unexpected(result.error());
  return {};
}

}  // namespace

Result<void> status(const Options& options, const Program& program) {
  const auto status = askHost(program, "status", "{}");
  if (!status) return std::unexpected(status.error());
  if (!options.json) return print(statusText(*status));
  JsonWriter json;
  status->write(json);
  return print(json.take() + "\n");
}

Result<void> reload(const Options& options, const Program& program) {
  return done(ask(program, control::ReloadRequest{.target = options.host.target}));
}

Result<void> hide(const Options& options, const Program& program) {
  const auto result = ask(program, control::HideRequest{.hide = options.host.hide});
  if (!result) return std::unexpected(result.error());
  return print(hiddenText(*result, "because"));
}

Result<void> add(const Options& options, const Program& program) {
  const auto result = ask(program,
                          control::AddRequest{.kind = options.kind,
                                              .family = options.picture.family,
                                              .configuration = configurationOf(options.picture)});
  if (!result) return std::unexpected(result.error());
  return print(foundation::printable(result->textOf("id")) + "\n");
}

Result<void> board(const Options& options, const Program& program) {
  const auto result = askHost(program, "board", "{}");
  if (!result) return std::unexpected(result.error());
  const std::string url = result->textOf("url");
  // The address lets its bearer see every amount: it is handed to the person's browser alone.
  return options.open ? openLink(url) : print(foundation::printable(url) + "\n");
}

Result<void> removePlacement(const Options& options, const Program& program) {
  return done(ask(program, control::RemoveRequest{.id = options.host.target}));
}

Result<void> configure(const Options& options, const Program& program) {
  return done(ask(program,
                  control::ConfigureRequest{.id = options.host.target,
                                            .family = options.picture.family,
                                            .configuration = configurationOf(options.picture)}));
}

Result<void> move(const Options& options, const Program& program) {
  using control::PlaceSurface;
  const HostOptions& host = options.host;
  const auto column = wholeNumber(host.column);
  const auto row = wholeNumber(host.row);
  if (!column || !row) return misused("COLUMN and ROW are whole numbers, counted from 0");
  const auto surface = host.output.empty() ? PlaceSurface::board : PlaceSurface::desktop;
  return done(ask(program,
                  control::MoveRequest{.id = host.target,
                                       .surface = surface,
                                       .output = host.output,
                                       .column = *column,
                                       .row = *row}));
}

Result<void> open(const Options& options, const Program& program) {
  control::OpenRequest request{.target = options.host.target};
  if (!options.host.region.empty()) {
    const auto region = wholeNumber(options.host.region);
    if (!region) return misused("--region: a whole number, counted from 0");
    request.region = static_cast<std::size_t>(*region);
  }
  return done(ask(program, request));
}

}  // namespace cli
