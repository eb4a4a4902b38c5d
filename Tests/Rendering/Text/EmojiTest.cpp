// Emoji: pictures of the colour font where it is installed, nothing and one space less where not.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Rendering/Renderer.hpp"
#include "Rendering/Text/ColorGlyphs.hpp"
#include "Rendering/Text/FontMeasurer.hpp"
#include "ViewKit/ViewKit.hpp"

namespace rendering {
namespace {

using namespace viewkit;

struct Shaper {
  explicit Shaper(EmojiFont emoji) : fonts(emoji) {}
  std::shared_ptr<const GlyphParagraph> shape(std::string_view text) {
    return std::dynamic_pointer_cast<const GlyphParagraph>(measurer.shape(text, {}));
  }
  double width(std::string_view text) {
    double width = 0;
    for (const TextCluster& cluster : shape(text)->clusters) width += cluster.advance;
    return width;
  }
  FontLibrary fonts;
  FontMeasurer measurer{fonts};
};

TEST(EmojiWithoutAFont, DrawNothing) {
  Shaper shaper{EmojiFont::none};
  for (const char* text : {"🎉", "👨\u200D👩\u200D👧", "🇫🇷", "👍🏽", "🌶️"}) {
    const auto paragraph = shaper.shape(text);
    EXPECT_EQ(paragraph->clusters.size(), 1U) << text;
    EXPECT_TRUE(paragraph->glyphs.empty()) << text;
    EXPECT_EQ(paragraph->clusters[0].advance, 0) << text;
  }
}

TEST(EmojiWithoutAFont, OneSpaceBesideThemGoesToo) {
  Shaper shaper{EmojiFont::none};
  const double rent = shaper.width("Rent");
  const double rentHome = shaper.width("Rent home");
  EXPECT_DOUBLE_EQ(shaper.width("🏠 Rent"), rent);
  EXPECT_DOUBLE_EQ(shaper.width("Rent 🏠"), rent);
  EXPECT_DOUBLE_EQ(shaper.width("\u2068🏠 Rent\u2069"), rent);
  EXPECT_DOUBLE_EQ(shaper.width("🏠 Rent 🏠 🏡"), rent);
  EXPECT_DOUBLE_EQ(shaper.width("Rent 🏠 home"), rentHome);
  EXPECT_DOUBLE_EQ(shaper.width("Rent 🏠 🏡 home"), rentHome);
  EXPECT_DOUBLE_EQ(shaper.width("Rent🏠 home"), rentHome) << "no space to spare";
  EXPECT_DOUBLE_EQ(shaper.width("🏠"), 0);
}

TEST(EmojiWithoutAFont, NoLetterSpacingIsLeftBehind) {
  Shaper shaper{EmojiFont::none};
  const auto paragraph = shaper.shape("🏠 Rent");
  EXPECT_FALSE(paragraph->clusters.at(0).takesTracking);
  EXPECT_FALSE(paragraph->clusters.at(1).takesTracking);
  EXPECT_TRUE(paragraph->clusters.at(2).takesTracking);
}

TEST(EmojiWithoutAFont, SignsThatTextFontsHaveStayText) {
  Shaper shaper{EmojiFont::none};
  for (const char* text : {"©", "™", "1"}) EXPECT_FALSE(shaper.shape(text)->glyphs.empty()) << text;
}

/// Tests need the colour font, as `./dev` installs it.
class Emoji : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(fontSource(FontFamily::emoji, FontWeight::regular)) << "fonts-noto-color-emoji";
  }
  Shaper shaper{EmojiFont::installed};
};

TEST_F(Emoji, SequencesAreOneClusterAndOneGlyph) {
  for (const char* text : {"🎉",
                           "👨\u200D👩\u200D👧",
                           "🇫🇷",
                           "👍🏽",
                           "❤\uFE0F",
                           "1\uFE0F\u20E3",
                           "🏴\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F"}) {
    const auto paragraph = shaper.shape(text);
    EXPECT_EQ(paragraph->clusters.size(), 1U) << text;
    ASSERT_EQ(paragraph->glyphs.size(), 1U) << text;
    EXPECT_EQ(shaper.fonts.byId(paragraph->glyphs[0].font).family(), FontFamily::emoji) << text;
    EXPECT_GT(paragraph->clusters[0].advance, 1) << text;
  }
}

TEST_F(Emoji, SelectorsChooseBetweenTextAndPicture) {
  const auto family = [&](const char* text) {
    return shaper.fonts.byId(shaper.shape(text)->glyphs.at(0).font).family();
  };
  EXPECT_EQ(family("©"), FontFamily::latin);
  EXPECT_EQ(family("©\uFE0F"), FontFamily::emoji);
  EXPECT_EQ(family("©\uFE0E"), FontFamily::latin);
  EXPECT_EQ(family("1"), FontFamily::latin);
}

TEST_F(Emoji, SpacesBesideThemStay) {
  EXPECT_NEAR(
      shaper.width("🏠 Rent"), shaper.width("🏠") + shaper.width(" ") + shaper.width("Rent"), 1e-6);
}

TEST_F(Emoji, StrikesAreScaledDownNearTheSizeThatIsDrawn) {
  ColorGlyphs glyphs{shaper.fonts};
  const ShapedGlyph house = shaper.shape("🏠")->glyphs.at(0);
  const ColorGlyph small = glyphs.glyph(house.font, house.glyph, 26);
  const ColorGlyph large = glyphs.glyph(house.font, house.glyph, 500);
  ASSERT_TRUE(small.image);
  ASSERT_TRUE(large.image);
  EXPECT_GE(small.image->width, 26);
  EXPECT_LT(small.image->width, 2 * 26 * 1.3);
  EXPECT_GT(large.image->width, 3 * small.image->width);
  EXPECT_NEAR(small.box.width, large.box.width, 0.05);
  EXPECT_LT(large.box.y, -0.7) << "it stands on the line";
  EXPECT_GT(large.box.bottom(), 0);
}

std::vector<std::uint32_t> pixelsOf(const View& view,
                                    EmojiFont emoji,
                                    RenderingMode mode = RenderingMode::fullColor) {
  Renderer renderer{emoji};
  return renderer.bitmap(view, {.size = {40, 40}, .mode = mode, .showsBackground = false})
      .value()
      .pixels;
}

/// Red is not the text's colour: what is coloured comes from the picture.
int coloredPixels(const std::vector<std::uint32_t>& pixels) {
  int count = 0;
  for (const std::uint32_t pixel : pixels) {
    const int red = (pixel >> 16) & 255;
    const int green = (pixel >> 8) & 255;
    if (red > green + 40) ++count;
  }
  return count;
}

TEST_F(Emoji, AreDrawnInTheirOwnColoursAndGreyWhereTheHostTints) {
  const View heart = Text{"❤\uFE0F"}.font(20);
  EXPECT_GT(coloredPixels(pixelsOf(heart, EmojiFont::installed)), 200);
  EXPECT_EQ(coloredPixels(pixelsOf(heart, EmojiFont::installed, RenderingMode::vibrant)), 0);
  EXPECT_NE(pixelsOf(heart, EmojiFont::installed, RenderingMode::vibrant),
            pixelsOf(Text{""}, EmojiFont::installed, RenderingMode::vibrant));
}

/// The mean of the pixels that a picture covers whole.
double meanGrey(const std::vector<std::uint32_t>& pixels) {
  double sum = 0;
  int count = 0;
  for (const std::uint32_t pixel : pixels) {
    if (pixel >> 24 != 255) continue;
    sum += pixel & 255;
    ++count;
  }
  return count == 0 ? 0 : sum / count;
}

// A grey moves 0.45 of the way to the text's colour, black in light and white in dark: from the
// same greys the two means are 0.45 * 255 apart.
TEST_F(Emoji, ComeNearTheTextsColourWhereTheHostTints) {
  Renderer renderer;
  const View heart = Text{"❤\uFE0F"}.font(30);
  const auto mean = [&](RenderingMode mode, viewkit::Appearance appearance) {
    return meanGrey(renderer
                        .bitmap(heart,
                                {.size = {40, 40},
                                 .appearance = appearance,
                                 .mode = mode,
                                 .showsBackground = false})
                        .value()
                        .pixels);
  };
  for (const RenderingMode mode : {RenderingMode::accented, RenderingMode::vibrant}) {
    const double light = mean(mode, viewkit::Appearance::light);
    const double dark = mean(mode, viewkit::Appearance::dark);
    EXPECT_GT(light, 0);
    EXPECT_NEAR(dark - light, 0.45 * 255, 1);
  }
  const std::string svg = renderer
                              .svg(heart,
                                   {.size = {40, 40},
                                    .appearance = viewkit::Appearance::light,
                                    .mode = RenderingMode::accented})
                              .value();
  EXPECT_NE(svg.find("filter:grayscale(1) brightness(0.55)"), std::string::npos);
}

TEST_F(Emoji, AreEmbeddedInSvg) {
  Renderer renderer;
  const std::string svg = renderer.svg(Text{"Rent 🏠"}, {.size = {80, 40}}).value();
  EXPECT_NE(svg.find("href=\"data:image/png;base64,"), std::string::npos);
  EXPECT_EQ(svg.find("🏠"), std::string::npos);
}

TEST_F(Emoji, AFallbackIsDrawnOnlyWhereNoFontDrawsTheText) {
  const View initial = Text{"🏠"}.fallback("R").font(20);
  EXPECT_EQ(pixelsOf(initial, EmojiFont::installed),
            pixelsOf(Text{"🏠"}.font(20), EmojiFont::installed));
  EXPECT_EQ(pixelsOf(initial, EmojiFont::none), pixelsOf(Text{"R"}.font(20), EmojiFont::none));
  EXPECT_EQ(pixelsOf(Text{"R 🏠"}.fallback("X").font(20), EmojiFont::none),
            pixelsOf(Text{"R"}.font(20), EmojiFont::none));
  EXPECT_EQ(pixelsOf(Text{" "}.fallback("R").font(20), EmojiFont::none),
            pixelsOf(Text{"R"}.font(20), EmojiFont::none));
}

TEST_F(Emoji, TextIsCutBesideThemNotInside) {
  const auto paragraph = shaper.shape("👨\u200D👩\u200D👧👨\u200D👩\u200D👧");
  ASSERT_EQ(paragraph->clusters.size(), 2U);
  EXPECT_EQ(paragraph->clusters[0].end, 18U);
}

}  // namespace
}  // namespace rendering
