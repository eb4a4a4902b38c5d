#include "Resident/Placements.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>

#include "Foundation/JsonValue.hpp"
#include "Foundation/JsonWriter.hpp"

namespace resident {
namespace {

using foundation::JsonValue;
using foundation::JsonWriter;

constexpr std::array<std::string_view, 3> kLooks{"paper", "glass", "tinted"};

std::string idOf(std::uint32_t number) {
  return fmt::format("w{}", number);
}

std::optional<std::uint32_t> numberOf(std::string_view id) {
  std::uint32_t number = 0;
  if (!id.starts_with('w')) return std::nullopt;
  const auto [end, error] = std::from_chars(id.data() + 1, id.data() + id.size(), number);
  const bool isWhole = error == std::errc{} && end == id.data() + id.size();
  return isWhole && number > 0 && idOf(number) == id ? std::optional(number) : std::nullopt;
}

/// Reads the members of one object and keeps the first problem; whoever reads on gets defaults.
class Members {
 public:
  using Problem = std::optional<std::string>;
  using Names = std::initializer_list<std::string_view>;

  Members(const JsonValue& json, std::string path, Problem& problem, Names known)
      : json_(json), path_(std::move(path)), problem_(problem) {
    if (json.object() == nullptr) {
      fail("", "an object is expected");
    } else {
      checkNames(*json.object(), known);
    }
  }

  void checkNames(const JsonValue::Object& object, Names known) {
    for (const auto& [key, value] : object) {
      if (std::ranges::find(known, key) == known.end()) fail(key.substr(0, 40), "unknown member");
    }
  }

  [[nodiscard]] const JsonValue* find(std::string_view key) const { return json_.member(key); }

  void fail(std::string_view key, std::string_view what) {
    if (!problem_) problem_ = fmt::format("{}{}: {}", path_, key, what);
  }

  std::string string(std::string_view key) {
    const JsonValue* value = json_.member(key);
    if (value != nullptr && value->string() != nullptr) return *value->string();
    fail(key, "a string is expected");
    return {};
  }

  bool boolean(std::string_view key) {
    const JsonValue* value = json_.member(key);
    if (value != nullptr && value->boolean() != nullptr) return *value->boolean();
    fail(key, "true or false is expected");
    return false;
  }

  std::uint32_t whole(std::string_view key, std::uint32_t most) {
    const JsonValue* value = json_.member(key);
    const double* number = value != nullptr ? value->number() : nullptr;
    if (number != nullptr && *number >= 0 && *number <= most && *number == std::floor(*number)) {
      return static_cast<std::uint32_t>(*number);
    }
    fail(key, fmt::format("a whole number from 0 to {} is expected", most));
    return 0;
  }

 private:
  const JsonValue& json_;
  std::string path_;
  Problem& problem_;
};

void readConfiguration(const JsonValue* json, Placement& placement, Members& members) {
  if (json == nullptr) return;
  if (json->object() == nullptr) return members.fail("configuration", "an object is expected");
  for (const auto& [name, value] : *json->object()) {
    if (value.string() == nullptr) return members.fail("configuration", "strings are expected");
    placement.configuration.emplace(name, *value.string());
  }
}

int cell(Members& members, std::string_view key) {
  return static_cast<int>(members.whole(key, Placements::kMaximumCell));
}

Placement readPlacement(const JsonValue& json, const std::string& path, Members::Problem& problem) {
  Members members{
      json, path, problem, {"id", "kind", "family", "configuration", "desktop", "board"}};
  Placement placement;
  placement.id = members.string("id");
  if (!numberOf(placement.id)) members.fail("id", "an id such as \"w1\" is expected");
  placement.kind = members.string("kind");
  if (placement.kind.empty()) members.fail("kind", "a kind is expected");
  const auto family = widgetruntime::named<widgetruntime::WidgetFamily>(members.string("family"));
  if (!family) members.fail("family", "a family is expected");
  placement.family = family.value_or(placement.family);
  readConfiguration(members.find("configuration"), placement, members);
  if (const JsonValue* desktop = members.find("desktop")) {
    Members place{*desktop, path + "desktop.", problem, {"output", "column", "row"}};
    placement.desktop =
        DesktopPlace{place.string("output"), cell(place, "column"), cell(place, "row")};
  }
  if (const JsonValue* board = members.find("board")) {
    Members place{*board, path + "board.", problem, {"column", "row"}};
    placement.board = BoardPlace{cell(place, "column"), cell(place, "row")};
  }
  return placement;
}

void readAll(Members& members, Placements& result, Members::Problem& problem) {
  result.hidden = members.boolean("hidden");
  result.desktop = members.boolean("desktop");
  const auto look = std::ranges::find(kLooks, members.string("look"));
  if (look == kLooks.end()) return members.fail("look", "paper, glass or tinted is expected");
  result.look = static_cast<Look>(look - kLooks.begin());
  result.nextId = std::max(members.whole("nextId", 4'000'000'000), 1U);
  const JsonValue* list = members.find("placements");
  if (list == nullptr || list->array() == nullptr) {
    return members.fail("placements", "an array is expected");
  }
  if (list->array()->size() > Placements::kMaximum) {
    return members.fail("placements", fmt::format("at most {}", Placements::kMaximum));
  }
  for (std::size_t i = 0; i < list->array()->size() && !problem; ++i) {
    const std::string path = fmt::format("placements[{}].", i);
    Placement placement = readPlacement((*list->array())[i], path, problem);
    if (result.find(placement.id) != nullptr) members.fail(path + "id", "used twice");
    result.nextId = std::max(result.nextId, numberOf(placement.id).value_or(0) + 1);
    result.placements.push_back(std::move(placement));
  }
}

void write(JsonWriter& json, const Placement& placement) {
  json.beginObject().member("id", placement.id).member("kind", placement.kind);
  json.member("family", widgetruntime::nameOf(placement.family));
  json.key("configuration").beginObject();
  for (const auto& [name, value] : placement.configuration) json.member(name, value);
  json.endObject();
  if (const auto& place = placement.desktop) {
    json.key("desktop").beginObject().member("output", place->output);
    json.member("column", place->column).member("row", place->row).endObject();
  }
  if (const auto& place = placement.board) {
    json.key("board").beginObject();
    json.member("column", place->column).member("row", place->row).endObject();
  }
  json.endObject();
}

}  // namespace

Placement* Placements::add(std::string kind,
                           widgetruntime::WidgetFamily family,
                           widgetruntime::IntentValues configuration) {
  if (placements.size() >= kMaximum) return nullptr;
  placements.push_back({.id = idOf(nextId++),
                        .kind = std::move(kind),
                        .family = family,
                        .configuration = std::move(configuration)});
  return &placements.back();
}

Placement* Placements::find(std::string_view id) {
  const auto found = std::ranges::find(placements, id, &Placement::id);
  return found == placements.end() ? nullptr : &*found;
}

const Placement* Placements::find(std::string_view id) const {
  return const_cast<Placements*>(this)->find(id);
}

bool Placements::remove(std::string_view id) {
  return std::erase_if(placements, [&](const Placement& p) { return p.id == id; }) > 0;
}

std::string encodePlacements(const Placements& placements) {
  JsonWriter json;
  json.beginObject().member("version", Placements::kVersion);
  json.member("hidden", placements.hidden).member("desktop", placements.desktop);
  json.member("look", kLooks[static_cast<std::size_t>(placements.look)]);
  json.member("nextId", static_cast<std::int64_t>(placements.nextId));
  json.key("placements").beginArray();
  for (const Placement& placement : placements.placements) write(json, placement);
  json.endArray().endObject();
  return json.take() + "\n";
}

std::expected<Placements, PlacementsProblem> decodePlacements(std::string_view text) {
  const auto json = foundation::parseJson(text, 16);
  if (!json) {
    const auto& at = json.error();
    return std::unexpected(PlacementsProblem{
        fmt::format("{}:{}: expected {}, found {}", at.line, at.column, at.expected, at.found)});
  }
  Members::Problem problem;
  const JsonValue* version = json->member("version");
  const double* number = version != nullptr ? version->number() : nullptr;
  if (number == nullptr) return std::unexpected(PlacementsProblem{"version: missing"});
  if (*number > Placements::kVersion) {
    return std::unexpected(PlacementsProblem{"version: written by a later host", true});
  }
  if (*number != Placements::kVersion) {
    return std::unexpected(PlacementsProblem{"version: never written by any host"});
  }
  Placements result;
  Members members{
      *json, "", problem, {"version", "hidden", "desktop", "look", "nextId", "placements"}};
  if (!problem) readAll(members, result, problem);
  if (problem) return std::unexpected(PlacementsProblem{*problem});
  return result;
}

}  // namespace resident
