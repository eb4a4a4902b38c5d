#include "WidgetRuntime/Messages.hpp"

#include <algorithm>
#include <string>

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

}  // namespace widgetruntime
