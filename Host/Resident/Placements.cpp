#include "Resident/Placements.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

#include "Control/GridCells.hpp"
#include "Foundation/JsonRecordWriter.hpp"
#include "Foundation/JsonValueReader.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace resident {
namespace {

using foundation::AtMost;
using foundation::Bounds;
using foundation::JsonValue;
using foundation::kAlways;
using foundation::kRequired;

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

/// The file: which version wrote it, and what it holds.
struct File {
  int version = Placements::kVersion;
  Placements placements;
};

template <class T>
struct MembersOf;
template <>
struct MembersOf<DesktopPlace> {
  static void list(auto&& member) {
    member("output", &DesktopPlace::output, kRequired);
    member("column", &DesktopPlace::column, kRequired, control::kCell);
    member("row", &DesktopPlace::row, kRequired, control::kCell);
  }
};
template <>
struct MembersOf<BoardPlace> {
  static void list(auto&& member) {
    member("column", &BoardPlace::column, kRequired, control::kCell);
    member("row", &BoardPlace::row, kRequired, control::kCell);
  }
};
template <>
struct MembersOf<Placement> {
  static void list(auto&& member) {
    member("id", &Placement::id, kRequired);
    member("kind", &Placement::kind, kRequired);
    member("family", &Placement::family, kRequired);
    member("configuration", &Placement::configuration, kAlways);
    member("desktop", &Placement::desktop);
    member("board", &Placement::board);
  }
};
template <>
struct MembersOf<Placements> {
  static constexpr Bounds kIds{.least = 0, .most = 4e9};
  static void list(auto&& member) {
    member("hidden", &Placements::hidden, kRequired);
    member("desktop", &Placements::desktop, kRequired);
    member("look", &Placements::look, kRequired);
    member("nextId", &Placements::nextId, kRequired, kIds);
    member("placements", &Placements::placements, kRequired, AtMost{Placements::kMaximum});
  }
};
template <>
struct MembersOf<File> {
  static void list(auto&& member) {
    member("version", &File::version, kRequired, Bounds{});
    member(&File::placements);
  }
};

class PlacementsReader : public foundation::JsonRecordReader<PlacementsReader, MembersOf> {
 public:
  static constexpr bool kLenient = false;

  PlacementsReader() : JsonRecordReader(widgetruntime::kMaximumString) {}

  bool read(const JsonValue& json, File& out) {
    return JsonRecordReader::read(json, out) && checkIds(out.placements);
  }

 private:
  friend JsonRecordReader;
  using JsonRecordReader::read;

  bool read(const JsonValue& json, Placement& out) {
    if (!JsonRecordReader::read(json, out)) return false;
    if (!numberOf(out.id)) return failAt("id", "expected an id such as \"w1\"");
    return !out.kind.empty() || failAt("kind", "expected a kind");
  }
  bool read(const JsonValue& json, std::uint32_t& out, const Bounds& bounds) {
    double number = 0;
    if (!read(json, number, bounds)) return false;
    out = static_cast<std::uint32_t>(number);
    return out == number || fail("expected a whole number");
  }

  bool failAt(std::string_view key, std::string message) {
    fail(std::move(message));
    return at(key);
  }

  /// No id stands twice, and the next one is above all, whoever wrote the file.
  bool checkIds(Placements& all) {
    std::set<std::uint32_t> numbers{0};
    for (std::size_t i = 0; i < all.placements.size(); ++i) {
      const bool isNew = numbers.insert(numberOf(all.placements[i].id).value_or(0)).second;
      if (isNew) continue;
      failAt("id", "used twice");
      at(i);
      return at("placements");
    }
    all.nextId = std::max(all.nextId, *numbers.rbegin() + 1);
    return true;
  }
};

class PlacementsWriter : public foundation::JsonRecordWriter<PlacementsWriter, MembersOf> {
 public:
  using JsonRecordWriter::JsonRecordWriter;
  using JsonRecordWriter::put;

  void put(std::uint32_t number) { json_.value(static_cast<std::int64_t>(number)); }
};

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
  foundation::JsonWriter json;
  PlacementsWriter(json).put(File{.placements = placements});
  return json.take() + "\n";
}

std::expected<Placements, PlacementsProblem> decodePlacements(std::string_view text) {
  constexpr std::size_t kMaximumDepth = 16;
  const auto json = foundation::parseJson(text, kMaximumDepth);
  if (!json) {
    const auto& at = json.error();
    return std::unexpected(PlacementsProblem{
        fmt::format("{}:{}: expected {}, found {}", at.line, at.column, at.expected, at.found)});
  }
  // Asked first: of another version nothing else can be said.
  const JsonValue* version = json->member("version");
  const double* number = version != nullptr ? version->number() : nullptr;
  if (number == nullptr) return std::unexpected(PlacementsProblem{"/version: missing"});
  if (*number > Placements::kVersion) {
    return std::unexpected(PlacementsProblem{"/version: written by a later host", true});
  }
  if (*number != Placements::kVersion) {
    return std::unexpected(PlacementsProblem{"/version: never written by any host"});
  }
  PlacementsReader reader;
  File file;
  if (!reader.read(*json, file)) return std::unexpected(PlacementsProblem{reader.failure()});
  return std::move(file.placements);
}

}  // namespace resident
