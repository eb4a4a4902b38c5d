#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"

namespace quorvel {

std::optional<ChangeDescription> describeChange(double percent,
                                                int precision,
                                                bool favorableWhenPositive) {
  if (!std::isfinite(percent)) return std::nullopt;
  const std::string text = fmt::format("{:.{}f}%", std::fabs(percent), std::max(precision, 0));
  if (percent == 0) {
    return ChangeDescription{"arrow.right", text, palette::textSecondary, Trend::none};
  }
  const bool rises = percent > 0;
  const bool favorable = rises == favorableWhenPositive;
  return ChangeDescription{rises ? "arrow.up.right" : "arrow.down.right",
                           text,
                           favorable ? palette::changeFavorable : palette::statusCritical,
                           rises ? Trend::rise : Trend::fall};
}

}  // namespace quorvel
