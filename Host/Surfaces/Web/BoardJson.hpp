// What the board's page and its host say to each other, as JSON.
#pragma once

#include <expected>
#include <map>
#include <string>
#include <vector>

#include "Surfaces/Web/BoardHost.hpp"

namespace surfaces {

[[nodiscard]] std::string stateJson(const BoardState& state);
[[nodiscard]] std::string pictureJson(const std::string& id, const BoardPicture& picture);
[[nodiscard]] std::string optionsJson(const widgetruntime::OptionsAnswer& answer);
[[nodiscard]] std::string errorJson(std::string_view line);
/// The event of a widget whose picture has changed.
[[nodiscard]] std::string changeJson(const std::string& id, std::uint64_t version);

/// The page's settings in a query; absent ones have their defaults. The error is one line.
[[nodiscard]] std::expected<BoardView, std::string> readView(
    const std::map<std::string, std::string>& query);

/// What a POST may hold; which of it is needed depends on the path.
struct BoardChange {
  std::optional<std::string> id;
  std::optional<std::string> kind;
  std::optional<widgetruntime::WidgetFamily> family;
  widgetruntime::IntentValues configuration;
  std::optional<int> column;
  std::optional<int> row;
  std::optional<std::vector<BoardMove>> cells;
  std::optional<std::size_t> region;
  std::optional<bool> hidden;
  std::optional<std::string> intent;
};
[[nodiscard]] std::expected<BoardChange, std::string> readChange(std::string_view body);

/// {"card": "id"} as a configuration.
[[nodiscard]] std::expected<widgetruntime::IntentValues, std::string> readConfiguration(
    std::string_view json);

}  // namespace surfaces
