// Every shared component in its variants, for a person to look at side by side.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ViewKit/View.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

struct ComponentSample {
  std::string_view component;
  std::string_view variant;
  viewkit::View view;
};

/// Samples of one component stand together.
[[nodiscard]] std::vector<ComponentSample> componentSamples(
    const widgetruntime::Environment& environment = {});

inline constexpr double kComponentSheetWidth = 900;

/// All samples with their names: one row per component, `kComponentSheetWidth` points wide and as
/// high as it needs.
[[nodiscard]] viewkit::View componentSheet(const widgetruntime::Environment& environment = {});

}  // namespace quorvel
