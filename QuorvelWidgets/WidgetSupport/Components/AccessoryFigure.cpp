#include "QuorvelWidgets/WidgetSupport/Components/AccessoryFigure.hpp"

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

Color accessoryCaption(const widgetruntime::Environment& environment) {
  if (environment.showsWidgetContainerBackground) {
    return ModeColors{environment.widgetRenderingMode}.caption();
  }
  return Color::secondary();
}

View accessoryLabel(std::string_view symbol,
                    std::string words,
                    std::string_view lang,
                    const Color& color) {
  constexpr double kSize = 11.5;
  return HStack{
      {.spacing = 4},
      Symbol{std::string{symbol}}.font(kSize, FontWeight::semibold).accessibilityHidden(),
      Text{std::move(words)}
          .font(kSize, FontWeight::semibold)
          .lineLimit(1)
          .minimumScaleFactor(0.8)
          .language(std::string{lang}),
  }
      .foregroundStyle(color);
}

View accessoryFigure(std::string_view symbol,
                     double amount,
                     const WidgetSnapshot& snapshot,
                     WidgetFamily family) {
  const auto mark = [&](double size) {
    return Symbol{std::string{symbol}}.font(size, FontWeight::semibold).accessibilityHidden();
  };
  const auto figure = [&](double size) {
    return Amount{.value = amount, .snapshot = snapshot, .size = size};
  };
  if (family == WidgetFamily::accessoryCircular) {
    const View both = VStack{{.spacing = 2}, mark(16), figure(15)}.padding(Insets::horizontal(10));
    return Fitting{both, mark(24)}.foregroundStyle(Color::primary());
  }
  if (family == WidgetFamily::accessoryInline) {
    const View both = HStack{{.spacing = 5}, mark(13), figure(13)};
    return Fitting{both, mark(13)}.foregroundStyle(Color::primary());
  }
  const View both = HStack{{.spacing = 8}, mark(19), figure(21)};
  return Fitting{both, mark(24)}
      .frame(filling(Alignment::leading))
      .padding({.top = 6, .leading = 10, .bottom = 6, .trailing = 10})
      .foregroundStyle(Color::primary());
}

}  // namespace quorvel
