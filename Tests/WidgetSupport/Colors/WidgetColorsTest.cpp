// Hex strings, lightening, appearances, the palette, contrast and what is derived from an accent.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WAccent.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WidgetContrast.hpp"

namespace quorvel {
namespace {

using viewkit::Appearance;
using viewkit::Color;
using viewkit::Rgb;

Rgb light(const Color& color) {
  return std::get<Color::Pair>(color.value).light;
}
Rgb dark(const Color& color) {
  return std::get<Color::Pair>(color.value).dark;
}

TEST(HexColor, HashesAreRemovedWhereverTheyStand) {
  for (const char* text : {"#6B1F3A", "6B1F3A", "##6B1F3A", "#6b1f3a", "#6B#1F#3A", "6B1F3A#"}) {
    EXPECT_EQ(parseHexColor(text), 0x6B1F3AU) << text;
  }
}

TEST(HexColor, MalformedTextNeverFails) {
  struct Row {
    const char* text;
    Rgb rgb;
  };
  for (const Row& row : std::initializer_list<Row>{{"#GG0000", 0},
                                                   {"", 0},
                                                   {"#", 0},
                                                   {"red", 0},
                                                   {"blue", 0x00000B},
                                                   {"#FFF", 0x000FFF},
                                                   {"#FF6B1F3A", 0x6B1F3A},
                                                   {"#6B 1F3A", 0x00006B},
                                                   {" 6B1F3A", 0x6B1F3A},
                                                   {"\n\t6B1F3A", 0x6B1F3A},
                                                   {"0x6B1F3A", 0x6B1F3A},
                                                   {"0X6B1F3A", 0x6B1F3A},
                                                   {"0x", 0},
                                                   {"x6B", 0},
                                                   {"-6B1F3A", 0},
                                                   {"+6B1F3A", 0},
                                                   {"#12345678123456781", 0xFFFFFF},
                                                   {"00000000000000000000006B1F3A", 0x6B1F3A},
                                                   {"＃6B1F3A", 0}}) {
    EXPECT_EQ(parseHexColor(row.text), row.rgb) << row.text;
  }
}

TEST(Lighten, ThirtyPercentTowardsWhite) {
  EXPECT_EQ(lighten30(0x000000), 0x4D4D4DU);
  EXPECT_EQ(lighten30(0xFFFFFF), 0xFFFFFFU);
  EXPECT_EQ(lighten30(0xB4416A), 0xCB7A97U);
}

TEST(Lighten, ChannelsAreRoundedHalvesUpInIntegers) {
  for (Rgb c = 0; c <= 0xFF; ++c) {
    // (10 c + 3 (255 - c)) / 10 to the nearest, halves up: c' = floor((7 c + 765 + 5) / 10).
    const Rgb expected = (7 * c + 770) / 10;
    EXPECT_EQ(lighten30(c << 16), (expected << 16) | 0x4D4D) << c;
    EXPECT_EQ(lighten30(c) & 0xFF, expected) << c;
  }
}

TEST(Mixed, EndsAndMiddle) {
  EXPECT_EQ(mixed(0x102030, 0xA0B0C0, 0), 0x102030U);
  EXPECT_EQ(mixed(0x102030, 0xA0B0C0, 1), 0xA0B0C0U);
  EXPECT_EQ(mixed(0x000000, 0x0000FF, 0.5), 0x000080U);
  EXPECT_EQ(mixed(0xFF0000, 0x000000, 0.5), 0x800000U);
}

TEST(PaletteColours, AreAsNamedAndOpaque) {
  struct Row {
    Color color;
    Rgb light;
    Rgb dark;
  };
  for (const Row& row : std::initializer_list<Row>{{palette::textPrimary, 0x0B0B0B, 0xFFFFFF},
                                                   {palette::textSecondary, 0x6B6A65, 0x8F8D87},
                                                   {palette::canvas, 0xFCFCFB, 0x1A1A19},
                                                   {palette::surface, 0xF0EFEA, 0x262523},
                                                   {palette::surfaceAlt, 0xE7E6E1, 0x302F2C},
                                                   {palette::meterTrack, 0xE9E8E3, 0x34332F},
                                                   {palette::cellEmpty, 0xECEBE6, 0x2A2926},
                                                   {palette::cellMuted, 0xD6D5CF, 0x3B3A36},
                                                   {palette::statusGood, 0x006300, 0x0CA30C},
                                                   {palette::statusWarning, 0xB4750B, 0xF2B341},
                                                   {palette::statusCritical, 0xD03B3B, 0xE66767},
                                                   {palette::changeFavorable, 0x2A78D6, 0x3987E5},
                                                   {palette::assetGreen, 0x1BAF7A, 0x199E70},
                                                   {palette::liabilityPink, 0xE87BA4, 0xD55181}}) {
    EXPECT_EQ(row.color, Color::dynamic(row.light, row.dark));
    EXPECT_EQ(row.color.opacityIn(Appearance::light), 1);
    EXPECT_EQ(row.color.opacityIn(Appearance::dark), 1);
  }
}

TEST(Resolution, ChannelsAreDividedBy255AndAlphaApplied) {
  const Color color = Color::dynamic(0x336699, 0xFF0080).withOpacities(0.5, 0.25);
  EXPECT_EQ(resolved(color, Appearance::light),
            (ResolvedColor{51 / 255.0, 102 / 255.0, 153 / 255.0, 0.5}));
  EXPECT_EQ(resolved(color, Appearance::dark), (ResolvedColor{1, 0, 128 / 255.0, 0.25}));
}

TEST(Resolution, RolesAreTheHosts) {
  EXPECT_FALSE(resolved(Color::primary(), Appearance::dark));
}

TEST(Resolution, DarkAppearanceShowsTextPrimaryInWhite) {
  EXPECT_EQ(resolved(palette::textPrimary, appearanceNamed("NSAppearanceNameDarkAqua")),
            (ResolvedColor{1, 1, 1, 1}));
}

TEST(Resolution, AppearanceThatMatchesNeitherNameIsLight) {
  for (const char* name : {"", "NSAppearanceNameSepia", "nsappearancenamedarkaqua", "dark"}) {
    EXPECT_EQ(resolved(palette::textPrimary, appearanceNamed(name)),
              (ResolvedColor{11 / 255.0, 11 / 255.0, 11 / 255.0, 1}))
        << name;
  }
}

TEST(Resolution, FamiliesMatchTheirBase) {
  for (const char* name : {"NSAppearanceNameDarkAqua",
                           "NSAppearanceNameVibrantDark",
                           "NSAppearanceNameAccessibilityHighContrastDarkAqua",
                           "NSAppearanceNameAccessibilityHighContrastVibrantDark"}) {
    EXPECT_EQ(appearanceNamed(name), Appearance::dark) << name;
  }
  for (const char* name : {"NSAppearanceNameAqua",
                           "NSAppearanceNameVibrantLight",
                           "NSAppearanceNameAccessibilityHighContrastAqua",
                           "NSAppearanceNameAccessibilityHighContrastVibrantLight"}) {
    EXPECT_EQ(appearanceNamed(name), Appearance::light) << name;
  }
}

TEST(Resolution, BestMatchIsTheClosestOfTheNamesGiven) {
  constexpr std::array<std::string_view, 2> kBoth{NSAppearanceNameDarkAqua, NSAppearanceNameAqua};
  constexpr std::array<std::string_view, 1> kOnlyLight{NSAppearanceNameAqua};
  EXPECT_EQ(bestMatchFromAppearancesWithNames("NSAppearanceNameVibrantDark", kBoth),
            NSAppearanceNameDarkAqua);
  EXPECT_EQ(bestMatchFromAppearancesWithNames("NSAppearanceNameAqua", kBoth), NSAppearanceNameAqua);
  EXPECT_FALSE(bestMatchFromAppearancesWithNames(NSAppearanceNameDarkAqua, kOnlyLight));
  EXPECT_FALSE(bestMatchFromAppearancesWithNames("", kBoth));
  EXPECT_FALSE(bestMatchFromAppearancesWithNames(NSAppearanceNameDarkAqua, {}));
}

TEST(Resolution, EveryAppearanceIsItsOwnBestMatch) {
  for (const std::string_view name : {"NSAppearanceNameAqua",
                                      "NSAppearanceNameDarkAqua",
                                      "NSAppearanceNameVibrantLight",
                                      "NSAppearanceNameVibrantDark",
                                      "NSAppearanceNameAccessibilityHighContrastAqua",
                                      "NSAppearanceNameAccessibilityHighContrastDarkAqua",
                                      "NSAppearanceNameAccessibilityHighContrastVibrantLight",
                                      "NSAppearanceNameAccessibilityHighContrastVibrantDark"}) {
    const std::array<std::string_view, 3> names{
        "NSAppearanceNameDarkAqua", "NSAppearanceNameAqua", name};
    EXPECT_EQ(bestMatchFromAppearancesWithNames(name, names), name);
  }
}

TEST(Resolution, HighContrastIsCloserToVibrantThanToPlain) {
  constexpr std::array<std::string_view, 4> kNames{"NSAppearanceNameDarkAqua",
                                                   "NSAppearanceNameAqua",
                                                   "NSAppearanceNameVibrantDark",
                                                   "NSAppearanceNameVibrantLight"};
  EXPECT_EQ(bestMatchFromAppearancesWithNames(
                "NSAppearanceNameAccessibilityHighContrastVibrantDark", kNames),
            "NSAppearanceNameVibrantDark");
  EXPECT_EQ(bestMatchFromAppearancesWithNames(
                "NSAppearanceNameAccessibilityHighContrastVibrantLight", kNames),
            "NSAppearanceNameVibrantLight");
}

TEST(Contrast, DarkChannelsAreLinear) {
  // 10 / 255 = 0.03922 lies on the line, 0.03922 / 12.92; 11 and 12 on the curve:
  // ((0.04314 + 0.055) / 1.055)^2.4 and ((0.04706 + 0.055) / 1.055)^2.4.
  EXPECT_NEAR(relativeLuminance(0x0A0A0A), 0.00303527, 1e-7);
  EXPECT_NEAR(relativeLuminance(0x0B0B0B), 0.00334654, 1e-7);
  EXPECT_NEAR(relativeLuminance(0x0C0C0C), 0.00367651, 1e-7);
}

TEST(Contrast, KnownRatios) {
  EXPECT_DOUBLE_EQ(contrastRatio(0x000000, 0xFFFFFF), 21);
  EXPECT_DOUBLE_EQ(contrastRatio(0xFFFFFF, 0x000000), 21);
  EXPECT_DOUBLE_EQ(contrastRatio(0x336699, 0x336699), 1);
  EXPECT_NEAR(contrastRatio(0x777777, 0xFFFFFF), 4.48, 0.005);  // the well-known near miss
  EXPECT_NEAR(contrastRatio(0x767676, 0xFFFFFF), 4.54, 0.005);
  EXPECT_NEAR(relativeLuminance(0xFF0000), 0.2126, 1e-9);
  EXPECT_NEAR(relativeLuminance(0x00FF00), 0.7152, 1e-9);
  EXPECT_NEAR(relativeLuminance(0x0000FF), 0.0722, 1e-9);
}

TEST(Contrast, VeilIsTheLeastThatSuffices) {
  constexpr std::array<Rgb, 2> kNavy{0x23477C, 0x152D50};
  EXPECT_EQ(leastVeil(kNavy, 0xFFFFFF), 0);
  constexpr std::array<Rgb, 1> kWhite{0xFFFFFF};
  // White needs the grey of 4.5:1, #767676 = 118: 255 (1 - v) < 118.5 from v = 0.54 on (117).
  EXPECT_DOUBLE_EQ(leastVeil(kWhite, 0xFFFFFF), 0.54);
  EXPECT_EQ(leastVeil({}, 0xFFFFFF), 0);
  EXPECT_EQ(leastVeil(kWhite, 0x000000), 0);
}

TEST(Contrast, NoVeilHelpsADarkText) {
  constexpr std::array<Rgb, 1> kGrey{0x404040};
  EXPECT_EQ(leastVeil(kGrey, 0x101010), 1);
}

TEST(Contrast, ExactlyTheRatioSuffices) {
  constexpr std::array<Rgb, 1> kFace{0x777777};
  EXPECT_EQ(leastVeil(kFace, 0xFFFFFF, 1, contrastRatio(0x777777, 0xFFFFFF)), 0);
}

TEST(Contrast, VeilSufficesAndOneStepLessDoesNot) {
  std::mt19937 random(7);
  for (int i = 0; i < 300; ++i) {
    const std::array<Rgb, 2> face{static_cast<Rgb>(random() & 0xFFFFFF),
                                  static_cast<Rgb>(random() & 0xFFFFFF)};
    for (const double opacity : {1.0, 0.85}) {
      const double veil = leastVeil(face, 0xFFFFFF, opacity);
      const auto weakest = [&](double v) {
        double ratio = 21;
        for (const Rgb color : face) {
          const Rgb ground = mixed(color, 0, v);
          ratio = std::min(ratio, contrastRatio(mixed(ground, 0xFFFFFF, opacity), ground));
        }
        return ratio;
      };
      EXPECT_GE(weakest(veil), 4.5);
      if (veil > 0) {
        EXPECT_LT(weakest(veil - 0.01), 4.5);
      }
    }
  }
}

TEST(Accent, DefaultColours) {
  const WAccent accent;
  EXPECT_EQ(accent.fill, Color::dynamic(0x6B1F3A, 0xCB7A97));
  // #B4416A has 3.2:1 with the dark canvas, so the ink is lightened there.
  EXPECT_EQ(accent.ink, Color::dynamic(0x6B1F3A, 0xCB7A97));
  EXPECT_EQ(accent.soft, Color::dynamic(0x6B1F3A, 0xB4416A).withOpacities(0.1, 0.24));
  EXPECT_EQ(accent.glyph, Color::dynamic(0xFFFFFF, 0x0B0B0B));
}

TEST(Accent, DefaultHeatEndsInTheInk) {
  // White vanishes on the light canvas and equals the primary text in dark.
  const WAccent accent;
  ASSERT_EQ(accent.heat.size(), 4U);
  EXPECT_EQ(light(accent.heat[3]), 0x6B1F3AU);
  EXPECT_EQ(dark(accent.heat[3]), 0xCB7A97U);
  // #ECEBE6 to #6B1F3A at 0.3: EC - 0.3 (EC - 6B) = 197.3, EB: 173.8, E6: 178.4.
  EXPECT_EQ(light(accent.heat[0]), 0xC5AEB2U);
  // #2A2926 to #CB7A97 at 0.53: 42 + 85.33, 41 + 42.93, 38 + 59.89.
  EXPECT_EQ(dark(accent.heat[1]), 0x7F5462U);
}

WidgetSnapshot::Accent accentOf(WidgetSnapshot::Shade shade) {
  return {shade, shade, shade};
}

TEST(Accent, AbsentAndDefaultStringsAgree) {
  EXPECT_EQ(WAccent(std::nullopt), WAccent());
  const WidgetSnapshot::Accent stated{
      {"#6B1F3A", "#B4416A"}, {"#6B1F3A", "#B4416A"}, {"#FFFFFF", "#FFFFFF"}};
  EXPECT_EQ(WAccent(stated), WAccent());
}

TEST(Accent, EachMemberComesFromItsOwnShade) {
  const WAccent accent(WidgetSnapshot::Accent{
      {"#102030", "#000000"}, {"#004080", "#80C0FF"}, {"#C00000", "#FF4040"}});
  EXPECT_EQ(accent.fill, Color::dynamic(0x102030, 0x4D4D4D));
  EXPECT_EQ(accent.ink, Color::dynamic(0x004080, 0x80C0FF));
  EXPECT_EQ(accent.soft, Color::dynamic(0x004080, 0x80C0FF).withOpacities(0.1, 0.24));
  EXPECT_EQ(accent.heat.back(), Color::dynamic(0xC00000, 0xFF4040));
}

TEST(Accent, InkStaysWhileItCanBeReadOnTheDarkCanvas) {
  EXPECT_EQ(dark(WAccent(accentOf({"#000000", "#80C0FF"})).ink), 0x80C0FFU);
  EXPECT_EQ(dark(WAccent(accentOf({"#000000", "#202020"})).ink), lighten30(0x202020));
}

TEST(Accent, GlyphContrastsWithTheFillInEachAppearance) {
  const WAccent accent(accentOf({"#FFE000", "#101010"}));
  EXPECT_EQ(light(accent.glyph), 0x0B0B0BU);
  EXPECT_EQ(dark(accent.glyph), 0xFFFFFFU);
  std::mt19937 random(11);
  for (int i = 0; i < 500; ++i) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(random() & 0xFFFFFF));
    const WAccent drawn(accentOf({text, text}));
    EXPECT_GE(contrastRatio(light(drawn.glyph), light(drawn.fill)), 4.3) << text;
    EXPECT_GE(contrastRatio(dark(drawn.glyph), dark(drawn.fill)), 4.3) << text;
  }
}

TEST(Accent, HeatPeakIsDecidedInEachAppearanceAlone) {
  // Near-white vanishes on the light canvas only; near-black equals the light text only.
  const WAccent pale(WidgetSnapshot::Accent{
      {"#004080", "#80C0FF"}, {"#004080", "#80C0FF"}, {"#F8F8F0", "#909090"}});
  EXPECT_EQ(pale.heat.back(), Color::dynamic(0x004080, 0x909090));
  const WAccent inky(WidgetSnapshot::Accent{
      {"#004080", "#80C0FF"}, {"#004080", "#80C0FF"}, {"#101010", "#202020"}});
  EXPECT_EQ(inky.heat.back(), Color::dynamic(0x004080, 0x80C0FF));
}

TEST(Accent, AHeatOfOneAndAHalfToOneStands) {
  // #CFCFCF has about 1.51:1 with the light canvas, #D1D1D1 about 1.49:1; #383838 and #393939 have
  // 1.49:1 and 1.51:1 with the dark one.
  const auto heatOf = [](const char* lightHeat, const char* darkHeat) {
    return WAccent(WidgetSnapshot::Accent{
                       {"#004080", "#80C0FF"}, {"#004080", "#80C0FF"}, {lightHeat, darkHeat}})
        .heat.back();
  };
  EXPECT_EQ(heatOf("#CFCFCF", "#393939"), Color::dynamic(0xCFCFCF, 0x393939));
  EXPECT_EQ(heatOf("#D1D1D1", "#383838"), Color::dynamic(0x004080, 0x80C0FF));
}

TEST(Accent, HeatStepsRunFromTheEmptyCellToThePeak) {
  const WAccent accent(accentOf({"#C00000", "#FF4040"}));
  const std::array<double, 4> steps{0.30, 0.53, 0.76, 1};
  for (std::size_t i = 0; i < 4; ++i) {
    const auto channel = [&](int from, int to) {
      return static_cast<Rgb>(std::lround(from + (to - from) * steps[i]));
    };
    EXPECT_EQ(light(accent.heat[i]),
              channel(0xEC, 0xC0) << 16 | channel(0xEB, 0) << 8 | channel(0xE6, 0));
    EXPECT_EQ(dark(accent.heat[i]),
              channel(0x2A, 0xFF) << 16 | channel(0x29, 0x40) << 8 | channel(0x26, 0x40));
  }
}

TEST(Accent, MalformedShadesAreBlackNotAFailure) {
  const WAccent accent(accentOf({"#GG0000", ""}));
  EXPECT_EQ(light(accent.fill), 0U);
  EXPECT_EQ(dark(accent.fill), 0x4D4D4DU);
}

}  // namespace
}  // namespace quorvel
