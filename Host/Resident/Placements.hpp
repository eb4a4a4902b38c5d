// Which widgets a person keeps, where, and whether amounts are hidden: placements.json.
#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Names.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/Intents.hpp"

namespace resident {

struct DesktopPlace {
  std::string output;
  int column = 0;
  int row = 0;
  friend bool operator==(const DesktopPlace&, const DesktopPlace&) = default;
};

struct BoardPlace {
  int column = 0;
  int row = 0;
  friend bool operator==(const BoardPlace&, const BoardPlace&) = default;
};

struct Placement {
  std::string id;
  std::string kind;
  widgetruntime::WidgetFamily family = widgetruntime::WidgetFamily::systemSmall;
  widgetruntime::IntentValues configuration;
  std::optional<DesktopPlace> desktop;
  std::optional<BoardPlace> board;
  friend bool operator==(const Placement&, const Placement&) = default;
};

enum class Look : std::uint8_t { paper, glass, tinted };
constexpr auto namesOf(Look) {
  return foundation::names("paper", "glass", "tinted");
}

struct Placements {
  static constexpr int kVersion = 1;
  static constexpr std::size_t kMaximum = 64;  ///< placements

  bool hidden = false;
  bool desktop = false;
  Look look = Look::paper;
  std::uint32_t nextId = 1;  ///< ids are never used again
  std::vector<Placement> placements;

  /// A placement under a new id; null when there are too many.
  Placement* add(std::string kind,
                 widgetruntime::WidgetFamily family,
                 widgetruntime::IntentValues configuration);
  [[nodiscard]] Placement* find(std::string_view id);
  [[nodiscard]] const Placement* find(std::string_view id) const;
  bool remove(std::string_view id);

  friend bool operator==(const Placements&, const Placements&) = default;
};

/// What is wrong with a file, in one line, and whether a later version wrote it.
struct PlacementsProblem {
  std::string line;
  bool isLater = false;
};

[[nodiscard]] std::string encodePlacements(const Placements& placements);
/// Unknown members, names and doubled ids are problems, not surprises.
[[nodiscard]] std::expected<Placements, PlacementsProblem> decodePlacements(std::string_view text);

}  // namespace resident
