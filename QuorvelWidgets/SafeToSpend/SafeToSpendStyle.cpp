#include "QuorvelWidgets/SafeToSpend/SafeToSpendStyle.hpp"

namespace quorvel {

std::string_view rawValue(SafeToSpendStyle style) {
  return style == SafeToSpendStyle::ring ? "ring" : "accent";
}

std::string_view displayTitle(SafeToSpendStyle style) {
  return style == SafeToSpendStyle::ring ? "Budget Ring" : "Accent Tile";
}

std::optional<SafeToSpendStyle> safeToSpendStyle(std::string_view value) {
  for (const SafeToSpendStyle style : kSafeToSpendStyles) {
    if (rawValue(style) == value) return style;
  }
  return std::nullopt;
}

}  // namespace quorvel
