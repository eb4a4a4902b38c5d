#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"

namespace quorvel {

using viewkit::Color;

namespace {

constexpr double kTintedTrack = 0.18;

}  // namespace

Color ModeColors::text() const {
  return mark(palette::textPrimary);
}

Color ModeColors::caption() const {
  return isTinted() ? Color::secondary() : palette::textSecondary;
}

Color ModeColors::mark(const Color& color) const {
  return isTinted() ? Color::primary() : color;
}

Color ModeColors::ground(const Color& color) const {
  return isTinted() ? Color::primary().withOpacity(kTintedGround) : color;
}

Color ModeColors::track() const {
  return isTinted() ? Color::primary().withOpacity(kTintedTrack) : palette::meterTrack;
}

WAccent ModeColors::accent(const std::optional<WidgetSnapshot::Accent>& accent) const {
  WAccent result{accent};
  result.ink = mark(result.ink);
  result.soft = ground(result.soft);
  result.glyph = mark(result.glyph);
  return result;
}

}  // namespace quorvel
