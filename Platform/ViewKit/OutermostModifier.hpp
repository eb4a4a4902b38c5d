// What a tree says to the host about the whole widget: the outermost modifier of its kind.
#pragma once

#include <optional>
#include <ranges>
#include <string>
#include <variant>

#include "ViewKit/View.hpp"

namespace viewkit {

/// On the view itself, else in the first of its children that has one; null without any.
template <class Sought>
[[nodiscard]] const Sought* outermostModifier(const View& view) {
  for (const Modifier& modifier : view.node().modifiers | std::views::reverse) {
    if (const auto* found = std::get_if<Sought>(&modifier)) return found;
  }
  for (const View& child : view.node().children) {
    if (const auto* found = outermostModifier<Sought>(child)) return found;
  }
  return nullptr;
}

/// The widget's tap link.
[[nodiscard]] inline std::optional<std::string> widgetURL(const View& view) {
  const auto* link = outermostModifier<WidgetURL>(view);
  return link == nullptr ? std::nullopt : std::optional(link->url);
}

/// Empty without one.
[[nodiscard]] inline View containerBackground(const View& view) {
  const auto* background = outermostModifier<ContainerBackground>(view);
  return background == nullptr ? View{} : background->content;
}

}  // namespace viewkit
