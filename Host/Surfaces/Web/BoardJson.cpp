#include "Surfaces/Web/BoardJson.hpp"

#include <charconv>
#include <cmath>

#include "Control/GridCells.hpp"
#include "Foundation/JsonValueReader.hpp"
#include "Foundation/JsonWriter.hpp"

namespace surfaces {
namespace {

using control::kCell;
using foundation::AtMost;
using foundation::Bounds;
using foundation::JsonValue;
using foundation::JsonWriter;
using foundation::kRequired;
using widgetruntime::IntentParameter;

constexpr std::size_t kMaximumDepth = 4;
constexpr std::size_t kMaximumString = 4096;  ///< bytes

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
      json.beginObject().member("role", foundation::nameOf(element.role));
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

template <class T>
struct MembersOf;
template <>
struct MembersOf<BoardMove> {
  static void list(auto&& member) {
    member("id", &BoardMove::id, kRequired);
    member("column", &BoardMove::column, kRequired, kCell);
    member("row", &BoardMove::row, kRequired, kCell);
  }
};
template <>
struct MembersOf<BoardChange> {
  static constexpr Bounds kRegion{.least = 0, .most = 4096};
  static constexpr AtMost kMoves{256};
  static void list(auto&& member) {
    member("id", &BoardChange::id);
    member("kind", &BoardChange::kind);
    member("family", &BoardChange::family);
    member("configuration", &BoardChange::configuration);
    member("column", &BoardChange::column, kCell);
    member("row", &BoardChange::row, kCell);
    member("cells", &BoardChange::cells, kMoves);
    member("region", &BoardChange::region, kRegion);
    member("hidden", &BoardChange::hidden);
    member("intent", &BoardChange::intent);
  }
};

/// Null counts as absent, but a member that nobody knows is a mistake of the page's.
class ChangeReader : public foundation::JsonRecordReader<ChangeReader, MembersOf> {
 public:
  static constexpr bool kLenient = false;

  ChangeReader() : JsonRecordReader(kMaximumString) {}

  using JsonRecordReader::read;
  template <class T, class... Rules>
  bool read(const JsonValue& json, std::optional<T>& out, const Rules&... rules) {
    return json.isNull() || JsonRecordReader::read(json, out, rules...);
  }

 private:
  friend JsonRecordReader;
};

template <class T>
std::expected<T, std::string> readAs(std::string_view text) {
  const auto json = foundation::parseJson(text, kMaximumDepth, kMaximumString);
  if (!json || !json->object()) return std::unexpected("a request is a JSON object");
  ChangeReader reader;
  T read;
  if (!reader.read(*json, read)) return std::unexpected(reader.failure());
  return read;
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
  json.member("state", foundation::nameOf(shown.state)).member("reason", shown.reason);
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
  return readAs<BoardChange>(body);
}

std::expected<widgetruntime::IntentValues, std::string> readConfiguration(std::string_view text) {
  return readAs<widgetruntime::IntentValues>(text);
}

}  // namespace surfaces
