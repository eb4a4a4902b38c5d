#include "QuorvelWidgets/WidgetSupport/TintedColors.hpp"

#include <algorithm>
#include <array>

#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetEnvironment.hpp"

namespace quorvel {
namespace {

using viewkit::Color;
using viewkit::Node;
using viewkit::View;

constexpr std::array kMarks{palette::statusGood,
                            palette::statusWarning,
                            palette::statusCritical,
                            palette::changeFavorable,
                            palette::assetGreen,
                            palette::liabilityPink};

Color tinted(const Color& color) {
  const auto names = [&](const Color& other) { return color.value == other.value; };
  Color result = color;
  if (names(palette::textSecondary)) result.value = viewkit::ColorRole::secondary;
  if (std::ranges::any_of(kMarks, names)) result.value = viewkit::ColorRole::primary;
  return result;
}

void tint(viewkit::Paint& paint) {
  if (auto* color = std::get_if<Color>(&paint)) *color = tinted(*color);
}

/// The symbol may have a document's colour, of any lightness.
View tintedTile(const View& view) {
  Node node = view.node();
  for (viewkit::Modifier& modifier : node.modifiers) {
    if (auto* style = std::get_if<viewkit::ForegroundStyle>(&modifier)) {
      style->paint = Color::primary();
    } else if (auto* ground = std::get_if<viewkit::Background>(&modifier)) {
      Node shape = ground->content.node();
      auto* drawn = std::get_if<viewkit::ShapeElement>(&shape.element);
      const Color* color = drawn ? std::get_if<Color>(&drawn->paint) : nullptr;
      if (color && std::holds_alternative<Color::Pair>(color->value)) {
        drawn->paint = Color::primary().withOpacity(kTintedGround);
      }
      ground->content = View::of(std::move(shape));
    }
  }
  return View::of(std::move(node));
}

}  // namespace

View withTintedColors(const View& view) {
  if (view.node().component == "WidgetIconTile") return tintedTile(view);
  Node node = view.node();
  for (View& child : node.children) child = withTintedColors(child);
  if (auto* shape = std::get_if<viewkit::ShapeElement>(&node.element)) tint(shape->paint);
  for (viewkit::Modifier& modifier : node.modifiers) {
    if (auto* style = std::get_if<viewkit::ForegroundStyle>(&modifier)) tint(style->paint);
    if (auto* m = std::get_if<viewkit::Background>(&modifier)) {
      m->content = withTintedColors(m->content);
    }
    if (auto* m = std::get_if<viewkit::Overlay>(&modifier))
      m->content = withTintedColors(m->content);
  }
  return View::of(std::move(node));
}

}  // namespace quorvel
