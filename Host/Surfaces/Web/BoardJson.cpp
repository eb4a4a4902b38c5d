#include "Surfaces/Web/BoardJson.hpp"

#include <array>
#include <charconv>
#include <cmath>

#include "Foundation/JsonValue.hpp"
#include "Foundation/JsonWriter.hpp"

namespace surfaces {
namespace {

using foundation::JsonValue;
using foundation::JsonWriter;
using widgetruntime::IntentParameter;

constexpr std::size_t kMaximumDepth = 4;
constexpr std::size_t kMaximumString = 4096;  ///< bytes
constexpr int kMaximumCell = 999;
constexpr std::array<std::string_view, 4> kRoles{"text", "image", "link", "group"};

void writeConfiguration(JsonWriter& json, const widgetruntime::IntentValues& values) {
  json.key("configuration").beginObject();
  for (const auto& [name, value] : values) json.member(name, value);
  json.endObject();
}

void writeOptions(JsonWriter& json, std::string_view key, const auto& options) {
  json.key(key).beginArray();
  for (const auto& option : options)
    json.beginObject().member("id", option.id).member("title", option.title).endObject();
  json.endArray();
}

void writeParameter(JsonWriter& json, const IntentParameter& parameter) {
  const bool isEnumeration = parameter.type == IntentParameter::Type::enumeration;
  json.beginObject().member("name", parameter.name).member("title", parameter.title);
  json.member("type", isEnumeration ? "enumeration" : "entity");
  if (parameter.defaultValue) json.member("default", *parameter.defaultValue);
  writeOptions(json, "cases", parameter.cases);
  json.endObject();
}

void writeListing(JsonWriter& json, const widgetruntime::WidgetListing& listing) {
  const auto& description = listing.description;
  json.beginObject().member("kind", description.kind).member("name", description.displayName);
  json.member("description", description.description).key("families").beginArray();
  for (const auto family : description.families) json.value(widgetruntime::nameOf(family));
  json.endArray().key("parameters").beginArray();
  if (listing.configuration)
    for (const auto& parameter : listing.configuration->parameters) writeParameter(json, parameter);
  json.endArray().endObject();
}

void writeCard(JsonWriter& json, const BoardCard& card) {
  json.beginObject().member("id", card.subject.id).member("kind", card.subject.kind);
  json.member("family", widgetruntime::nameOf(card.subject.family));
  writeConfiguration(json, card.subject.configuration);
  json.member("column", card.column).member("row", card.row).endObject();
}

void writeRect(JsonWriter& json, const rendering::Rect& frame) {
  json.member("x", frame.x).member("y", frame.y);
  json.member("width", frame.width).member("height", frame.height);
}

void writeElements(JsonWriter& json, const Picture* picture) {
  json.key("elements").beginArray();
  if (picture) {
    for (const auto& element : picture->elements) {
      json.beginObject().member("role", kRoles[static_cast<std::size_t>(element.role)]);
      json.member("label", element.label).member("value", element.value).endObject();
    }
  }
  json.endArray().key("regions").beginArray();
  for (std::size_t i = 0; picture && i < picture->elements.size(); ++i) {
    const auto& element = picture->elements[i];
    if (element.link.empty()) continue;
    json.beginObject().member("id", static_cast<std::int64_t>(i)).member("link", element.link);
    json.member("label", element.label);
    writeRect(json, element.frame);
    json.endObject();
  }
  json.endArray();
}

std::unexpected<std::string> wrong(std::string_view name, std::string_view expected) {
  return std::unexpected(std::string(name) + ": expected " + std::string(expected));
}

/// "#RRGGBB", with or without its sign.
std::optional<viewkit::Rgb> tintOf(std::string_view text) {
  if (text.starts_with('#')) text.remove_prefix(1);
  viewkit::Rgb tint = 0;
  const auto [at, error] = std::from_chars(text.data(), text.data() + text.size(), tint, 16);
  if (text.size() != 6 || error != std::errc{} || at != text.end()) return std::nullopt;
  return tint;
}

/// A whole number from 0 to `most`.
std::optional<int> wholeNumber(const JsonValue& value, int most) {
  const double* number = value.number();
  if (!number || !(*number >= 0) || *number > most || std::floor(*number) != *number)
    return std::nullopt;
  return static_cast<int>(*number);
}

std::expected<widgetruntime::IntentValues, std::string> configurationOf(const JsonValue& value) {
  const auto* object = value.object();
  if (!object) return wrong("configuration", "an object of texts");
  widgetruntime::IntentValues values;
  for (const auto& [name, chosen] : *object) {
    if (!chosen.string()) return wrong("configuration." + name, "a text");
    values[name] = *chosen.string();
  }
  return values;
}

/// One {"id", "column", "row"} per widget.
std::optional<std::vector<BoardMove>> movesOf(const JsonValue& value) {
  const auto* array = value.array();
  if (!array) return std::nullopt;
  std::vector<BoardMove> moves;
  for (const JsonValue& one : *array) {
    const auto* object = one.object();
    if (!object || object->size() != 3) return std::nullopt;
    BoardMove& move = moves.emplace_back();
    for (const auto& [name, member] : *object) {
      const auto cell = wholeNumber(member, kMaximumCell);
      if (name == "id" && member.string()) {
        move.id = *member.string();
      } else if ((name == "column" || name == "row") && cell) {
        (name == "row" ? move.row : move.column) = *cell;
      } else {
        return std::nullopt;
      }
    }
  }
  return moves;
}

std::expected<void, std::string> readMember(BoardChange& change,
                                            const std::string& name,
                                            const JsonValue& value) {
  const auto text = [&](std::optional<std::string>& to) -> std::expected<void, std::string> {
    if (!value.string()) return wrong(name, "a text");
    to = *value.string();
    return {};
  };
  const auto whole = [&](auto& to, int most) -> std::expected<void, std::string> {
    const auto number = wholeNumber(value, most);
    if (!number) return wrong(name, "a whole number from 0 to " + std::to_string(most));
    to = *number;
    return {};
  };
  if (value.isNull()) return {};
  if (name == "id") return text(change.id);
  if (name == "kind") return text(change.kind);
  if (name == "intent") return text(change.intent);
  if (name == "column") return whole(change.column, kMaximumCell);
  if (name == "row") return whole(change.row, kMaximumCell);
  if (name == "region") return whole(change.region, 4096);
  if (name == "cells") {
    change.cells = movesOf(value);
    if (!change.cells) return wrong(name, "an id, a column and a row for each widget");
    return {};
  }
  if (name == "hidden") {
    if (!value.boolean()) return wrong(name, "true or false");
    change.hidden = *value.boolean();
    return {};
  }
  if (name == "family") {
    const auto family = value.string()
                            ? widgetruntime::named<widgetruntime::WidgetFamily>(*value.string())
                            : std::nullopt;
    if (!family) return wrong(name, "a family's name");
    change.family = *family;
    return {};
  }
  if (name == "configuration") {
    auto values = configurationOf(value);
    if (!values) return std::unexpected(values.error());
    change.configuration = *std::move(values);
    return {};
  }
  return std::unexpected(name + ": unknown member");
}

}  // namespace

std::string errorJson(std::string_view line) {
  JsonWriter json;
  json.beginObject().member("error", line).endObject();
  return json.take();
}

std::string changeJson(const std::string& id, std::uint64_t version) {
  JsonWriter json;
  json.beginObject().member("id", id);
  json.member("version", static_cast<std::int64_t>(version)).endObject();
  return json.take();
}

std::string stateJson(const BoardState& state) {
  JsonWriter json;
  json.beginObject();
  if (!state.problem.empty()) json.member("problem", state.problem);
  json.member("container", state.container).member("zone", state.timeZone);
  json.key("clockChanges").beginArray();
  for (const auto& change : state.clockChanges)
    json.value(foundation::formatInternetDateTime(change));
  json.endArray().member("hidden", state.isHidden).member("locked", state.isLocked);
  if (state.took)
    json.member("milliseconds", std::round(static_cast<double>(state.took->count()) / 1000));
  if (state.control) {
    json.key("control").beginObject().member("name", state.control->displayName);
    json.member("description", state.control->description);
    json.member("intent", state.control->intent).endObject();
  }
  json.key("gallery").beginArray();
  for (const auto& listing : state.gallery) writeListing(json, listing);
  json.endArray().key("placements").beginArray();
  for (const auto& card : state.cards) writeCard(json, card);
  json.endArray().endObject();
  return json.take();
}

std::string pictureJson(const std::string& id, const BoardPicture& picture) {
  const Shown& shown = picture.shown;
  JsonWriter json;
  json.beginObject().member("id", id).member("version", static_cast<std::int64_t>(picture.version));
  json.member("state", name(shown.state)).member("reason", shown.reason);
  json.member("label", picture.name);
  const auto time = [&](std::string_view key, const std::optional<foundation::Instant>& instant) {
    if (instant) json.member(key, foundation::formatInternetDateTime(*instant));
  };
  time("asOf", shown.asOf);
  time("since", picture.since);
  time("nextTry", picture.nextTry);
  json.member("width", picture.size.width).member("height", picture.size.height);
  if (!shown.link.empty()) json.member("link", shown.link);
  if (shown.picture) json.member("svg", shown.picture->text);
  writeElements(json, shown.picture.get());
  json.endObject();
  return json.take();
}

std::string optionsJson(const widgetruntime::OptionsAnswer& answer) {
  JsonWriter json;
  json.beginObject();
  writeOptions(json, "options", answer.options);
  if (answer.defaultOption) json.member("default", *answer.defaultOption);
  json.member("more", answer.more);
  json.endObject();
  return json.take();
}

std::expected<BoardView, std::string> readView(const std::map<std::string, std::string>& query) {
  BoardView view;
  for (const auto& [name, value] : query) {
    if (name == "appearance") {
      const auto appearance = foundation::named<viewkit::Appearance>(value);
      if (!appearance) return wrong(name, "light or dark");
      view.appearance = *appearance;
    } else if (name == "mode") {
      const auto mode = widgetruntime::named<widgetruntime::RenderingMode>(value);
      if (!mode) return wrong(name, "fullColor, accented or vibrant");
      view.mode = *mode;
    } else if (name == "tint") {
      const auto tint = tintOf(value);
      if (!tint) return wrong(name, "#RRGGBB");
      view.tint = *tint;
    } else if (name == "background") {
      if (value != "0" && value != "1") return wrong(name, "0 or 1");
      view.showsBackground = value == "1";
    } else if (name == "privacy") {
      if (value != "off" && value != "hidden" && value != "locked")
        return wrong(name, "off, hidden or locked");
      view.hidesAmounts = value != "off";
      view.hidesEverything = value == "locked";
    } else if (name == "preset") {
      const auto preset = foundation::named<Preset>(value);
      if (!preset) return wrong(name, "standard, compact or stress");
      view.preset = *preset;
    } else if (name == "now") {
      view.now = foundation::parseInternetDateTime(value);
      if (!view.now) return wrong(name, "a date-time such as 2025-03-14T09:30:00Z");
    }
  }
  return view;
}

std::expected<BoardChange, std::string> readChange(std::string_view body) {
  const auto json = foundation::parseJson(body, kMaximumDepth, kMaximumString);
  if (!json || !json->object()) return std::unexpected("a request is a JSON object");
  BoardChange change;
  for (const auto& [name, value] : *json->object())
    if (auto read = readMember(change, name, value); !read) return std::unexpected(read.error());
  return change;
}

std::expected<widgetruntime::IntentValues, std::string> readConfiguration(std::string_view text) {
  const auto json = foundation::parseJson(text, kMaximumDepth, kMaximumString);
  if (!json) return wrong("configuration", "an object of texts");
  return configurationOf(*json);
}

}  // namespace surfaces
