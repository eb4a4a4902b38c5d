#include "Cli/Sizes.hpp"

#include <array>

#include "Surfaces/WidgetSize.hpp"

namespace cli {
namespace {

using Row = std::array<rendering::Size, widgetruntime::kAllFamilies.size()>;

// In the order of the families: small, medium, large, circular, rectangular, inline.
constexpr Row kCompact{{{158, 158}, {338, 158}, {338, 354}, {72, 72}, {160, 72}, {234, 26}}};
constexpr Row kStress{{{141, 141}, {292, 141}, {292, 311}, {68, 68}, {153, 68}, {225, 26}}};

}  // namespace

rendering::Size sizeOf(widgetruntime::WidgetFamily family, Preset preset) {
  const auto index = static_cast<std::size_t>(family);
  switch (preset) {
    case Preset::compact:
      return kCompact[index];
    case Preset::stress:
      return kStress[index];
    case Preset::standard:
      break;
  }
  return surfaces::standardSize(family);
}

}  // namespace cli
