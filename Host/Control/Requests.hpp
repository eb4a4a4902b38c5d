// What the command line and bars ask of the resident host over its control socket: the parameters
// of each method that has any, with one spelling for who writes and who reads them.
//
//     client.call(MoveRequest::kMethod, encode(MoveRequest{.id = "w1", .column = 2}));
//     const auto request = read<MoveRequest>(parameters);
#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/JsonValue.hpp"
#include "Foundation/Names.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/Intents.hpp"

namespace control {

/// A target is an id or a kind, in full or short.
struct ReloadRequest {
  static constexpr std::string_view kMethod = "reload";
  std::string target;  ///< empty: all
};
struct WatchRequest {
  static constexpr std::string_view kMethod = "watch";
  std::string target;
};
struct OpenRequest {
  static constexpr std::string_view kMethod = "open";
  std::string target;
  std::optional<std::size_t> region;
};

enum class Hide : std::uint8_t { on, off, toggle };
constexpr auto namesOf(Hide) {
  return foundation::names("on", "off", "toggle");
}
struct HideRequest {
  static constexpr std::string_view kMethod = "hide";
  Hide hide = Hide::on;
};

struct AddRequest {
  static constexpr std::string_view kMethod = "add";
  std::string kind;
  std::optional<widgetruntime::WidgetFamily> family;
  std::optional<widgetruntime::IntentValues> configuration;
};
struct RemoveRequest {
  static constexpr std::string_view kMethod = "remove";
  std::string id;
};
struct ConfigureRequest {
  static constexpr std::string_view kMethod = "configure";
  std::string id;
  std::optional<widgetruntime::WidgetFamily> family;
  std::optional<widgetruntime::IntentValues> configuration;
};

enum class PlaceSurface : std::uint8_t { board, desktop };
constexpr auto namesOf(PlaceSurface) {
  return foundation::names("board", "desktop");
}
struct MoveRequest {
  static constexpr std::string_view kMethod = "move";
  std::string id;
  PlaceSurface surface = PlaceSurface::board;
  std::string output;  ///< of the desktop
  int column = 0;
  int row = 0;
};

struct PerformRequest {
  static constexpr std::string_view kMethod = "perform";
  std::string intent;
};

template <class Request>
[[nodiscard]] std::string encode(const Request& request);
/// Absent parameters count as an empty object. The error is one line.
template <class Request>
[[nodiscard]] std::expected<Request, std::string> read(const foundation::JsonValue& parameters);

}  // namespace control
