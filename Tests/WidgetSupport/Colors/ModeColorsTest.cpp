#include <gtest/gtest.h>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"

namespace quorvel {
namespace {

using viewkit::Color;
using widgetruntime::RenderingMode;

constexpr std::array kTintedModes{RenderingMode::accented, RenderingMode::vibrant};

TEST(ModeColors, FullColorTakesThePaletteAndTheAccent) {
  const ModeColors colors;
  EXPECT_FALSE(colors.isTinted());
  EXPECT_EQ(colors.text(), palette::textPrimary);
  EXPECT_EQ(colors.caption(), palette::textSecondary);
  EXPECT_EQ(colors.mark(palette::statusGood), palette::statusGood);
  EXPECT_EQ(colors.ground(palette::surface), palette::surface);
  EXPECT_EQ(colors.track(), palette::meterTrack);
  EXPECT_EQ(colors.accent(std::nullopt), WAccent{});
}

TEST(ModeColors, TintedModesKnowThreeStrengthsOfThePrimaryColour) {
  for (const RenderingMode mode : kTintedModes) {
    const ModeColors colors{mode};
    EXPECT_TRUE(colors.isTinted());
    EXPECT_EQ(colors.text(), Color::primary());
    EXPECT_EQ(colors.caption(), Color::secondary());
    EXPECT_EQ(colors.mark(palette::liabilityPink), Color::primary());
    EXPECT_EQ(colors.ground(palette::surfaceAlt), Color::primary().withOpacity(0.14));
    EXPECT_EQ(colors.track(), Color::primary().withOpacity(0.18));
  }
}

TEST(ModeColors, ATintedAccentKeepsItsHeat) {
  for (const RenderingMode mode : kTintedModes) {
    const WAccent accent = ModeColors{mode}.accent(std::nullopt);
    EXPECT_EQ(accent.ink, Color::primary());
    EXPECT_EQ(accent.glyph, Color::primary());
    EXPECT_EQ(accent.soft, Color::primary().withOpacity(0.14));
    EXPECT_EQ(accent.heat, WAccent{}.heat);
  }
}

}  // namespace
}  // namespace quorvel
