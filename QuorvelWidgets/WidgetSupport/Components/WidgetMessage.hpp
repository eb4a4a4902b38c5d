// What a widget shows while it has nothing to show: its title, a message and what to do about it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WAccent.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Fills the proposal: the title beside its tile on top, message and label at the foot. Texts
/// arrive localized.
struct WidgetMessage : viewkit::Modifiers<WidgetMessage> {
  static constexpr std::string_view kName = "WidgetMessage";

  std::string symbol;
  std::string text;
  std::optional<std::string> label;
  std::string title;
  bool titleIsStatus = false;  ///< the label says how things are, not what to do
  WAccent accent = WAccent{};
  std::string lang;  ///< of the texts
  std::string link;  ///< where the action leads; empty: it leads nowhere
  ModeColors colors{};

  [[nodiscard]] viewkit::View body() const;
};

/// The same message where there is hardly any room: the symbol, a line, or title and message.
[[nodiscard]] viewkit::View accessoryMessage(const WidgetMessage& message,
                                             const widgetruntime::Environment& environment);

}  // namespace quorvel
