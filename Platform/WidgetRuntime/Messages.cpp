#include "WidgetRuntime/Messages.hpp"

#include <algorithm>
#include <string>
#include <variant>

namespace widgetruntime {

BundleDescription describe(const WidgetBundle& bundle) {
  BundleDescription description;
  for (const Widget& widget : bundle.widgets) {
    description.widgets.push_back({widget.description, widget.configuration});
  }
  for (const Control& control : bundle.controls) {
    const auto action = std::ranges::find(bundle.actions, control.intent, &Action::name);
    description.controls.push_back(
        {control, action == bundle.actions.end() ? std::string{} : action->title});
  }
  return description;
}

std::optional<std::string> widgetURL(const viewkit::View& view) {
  const viewkit::Node& node = view.node();
  for (auto modifier = node.modifiers.rbegin(); modifier != node.modifiers.rend(); ++modifier) {
    if (const auto* link = std::get_if<viewkit::WidgetURL>(&*modifier)) return link->url;
  }
  for (const viewkit::View& child : node.children) {
    if (auto link = widgetURL(child)) return link;
  }
  return std::nullopt;
}

}  // namespace widgetruntime
