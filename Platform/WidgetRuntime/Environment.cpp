#include "WidgetRuntime/Environment.hpp"

#include <cstddef>

namespace widgetruntime {

namespace {

constexpr std::array<std::string_view, kAllFamilies.size()> kFamilyNames{"systemSmall",
                                                                         "systemMedium",
                                                                         "systemLarge",
                                                                         "accessoryCircular",
                                                                         "accessoryRectangular",
                                                                         "accessoryInline"};
constexpr std::array<std::string_view, 3> kModeNames{"fullColor", "accented", "vibrant"};

template <class Enum, std::size_t Count>
std::optional<Enum> valueNamed(const std::array<std::string_view, Count>& names,
                               std::string_view name) {
  for (std::size_t i = 0; i < Count; ++i) {
    if (names[i] == name) return static_cast<Enum>(i);
  }
  return std::nullopt;
}

}  // namespace

std::string_view name(WidgetFamily family) {
  return kFamilyNames[static_cast<std::size_t>(family)];
}

std::string_view name(RenderingMode mode) {
  return kModeNames[static_cast<std::size_t>(mode)];
}

std::optional<WidgetFamily> widgetFamilyNamed(std::string_view name) {
  return valueNamed<WidgetFamily>(kFamilyNames, name);
}

std::optional<RenderingMode> renderingModeNamed(std::string_view name) {
  return valueNamed<RenderingMode>(kModeNames, name);
}

}  // namespace widgetruntime
