#include "WidgetRuntime/WidgetSummary.hpp"

#include <algorithm>
#include <array>

namespace widgetruntime {
namespace {

using State = WidgetSummary::State;

/// In the order of the enumeration.
constexpr std::array<std::string_view, 4> kNames{"none", "good", "warning", "critical"};

}  // namespace

std::string_view name(State state) {
  return kNames.at(static_cast<std::size_t>(state));
}

std::optional<State> summaryStateNamed(std::string_view name) {
  const auto found = std::ranges::find(kNames, name);
  if (found == kNames.end()) return std::nullopt;
  return static_cast<State>(found - kNames.begin());
}

}  // namespace widgetruntime
