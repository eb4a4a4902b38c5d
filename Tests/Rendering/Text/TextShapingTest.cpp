// Shaping: fonts by script, direction, tracking, the short way against the long way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>
#include <set>
#include <string>

#include "Rendering/Recording/LineGlyphs.hpp"
#include "Rendering/Renderer.hpp"
#include "Rendering/Text/FontMeasurer.hpp"

namespace rendering {
namespace {

using testing::ElementsAre;
using viewkit::FontWeight;
using viewkit::LayoutDirection;

class TextShaping : public testing::Test {
 protected:
  std::shared_ptr<const GlyphParagraph> shape(std::string_view text, const TextStyle& style = {}) {
    return std::dynamic_pointer_cast<const GlyphParagraph>(measurer.shape(text, style));
  }
  /// The file names that the glyphs of a text come from.
  std::set<std::string> filesOf(std::string_view text, const TextStyle& style) {
    std::set<std::string> files;
    for (const ShapedGlyph& glyph : shape(text, style)->glyphs) {
      const std::string& path = fonts.byId(glyph.font).path();
      files.insert(path.substr(path.rfind('/') + 1));
    }
    return files;
  }
  /// The glyphs of a text on one line, in visual order.
  std::vector<LineGlyph> line(std::string_view text, const TextStyle& style, double tracking = 0) {
    PlacedText placed;
    const auto paragraph = shape(text, style);
    placed.paragraph = paragraph;
    placed.size = 1;
    placed.tracking = tracking;
    std::vector<LineGlyph> glyphs;
    const auto count = static_cast<std::uint32_t>(paragraph->clusters.size());
    appendLine(*paragraph, placed, {.first = 0, .last = count}, glyphs);
    return glyphs;
  }

  FontLibrary fonts;
  FontMeasurer measurer{fonts};
};

struct LanguageRow {
  const char* language;
  const char* text;
  std::set<std::string> files;
};
void PrintTo(const LanguageRow& languageRow, std::ostream* out) {
  *out << languageRow.language;
}

class TextShapingLanguages : public TextShaping, public testing::WithParamInterface<LanguageRow> {};

TEST_P(TextShapingLanguages, FindsEveryGlyphInTheExpectedFile) {
  const auto& [language, text, files] = GetParam();
  const bool arabic = std::string_view(language) == "ar";
  const TextStyle style{
      .language = language,
      .direction = arabic ? LayoutDirection::rightToLeft : LayoutDirection::leftToRight};
  EXPECT_EQ(filesOf(text, style), files);
  const auto paragraph = shape(text, style);
  for (const TextCluster& cluster : paragraph->clusters) {
    EXPECT_GT(cluster.advance, 0) << paragraph->text.substr(cluster.begin,
                                                            cluster.end - cluster.begin);
  }
}

const std::string kLatin = "Inter-Regular.otf";
const std::string kCjk = "NotoSansCJK-Regular.ttc";

INSTANTIATE_TEST_SUITE_P(
    Thirteen,
    TextShapingLanguages,
    testing::Values(LanguageRow{"en", "Safe to spend $1,171.41", {kLatin}},
                    LanguageRow{"id", "Pengeluaran bulan ini / hari", {kLatin}},
                    LanguageRow{"es", "¿Cuánto queda? Año", {kLatin}},
                    LanguageRow{"pt-BR", "Próximo vencimento: ação", {kLatin}},
                    LanguageRow{"fr", "Dépensé ce mois-ci : 1 171 €", {kLatin}},
                    LanguageRow{"de", "Verfügbar – größer als ₿ ₺ ₫ ₱", {kLatin}},
                    LanguageRow{"ru", "Осталось потратить 1 171 ₽", {kLatin}},
                    LanguageRow{"ja", "今月の支出、残り", {kCjk}},
                    LanguageRow{"ko", "이번 달 지출 ₩", {kLatin, kCjk}},
                    LanguageRow{"zh-Hans", "本月支出", {kCjk}},
                    LanguageRow{"zh-Hant", "本月支出 ••••", {kLatin, kCjk}},
                    LanguageRow{
                        "hi", "इस महीने का खर्च ₹1", {kLatin, "NotoSansDevanagariUI-Regular.ttf"}},
                    LanguageRow{"ar", "بعد 3 يوم", {kLatin, "NotoSansArabicUI-Regular.ttf"}}),
    [](const auto& row) {
      std::string name = row.param.language;
      std::erase(name, '-');
      return name;
    });

TEST_F(TextShaping, TakesTheFileOfTheWeight) {
  EXPECT_THAT(filesOf("a", {.weight = FontWeight::medium}), ElementsAre("Inter-Medium.otf"));
  EXPECT_THAT(filesOf("a", {.weight = FontWeight::semibold}), ElementsAre("Inter-SemiBold.otf"));
  EXPECT_THAT(filesOf("a", {.weight = FontWeight::bold}), ElementsAre("Inter-Bold.otf"));
  EXPECT_THAT(filesOf("a", {.weight = FontWeight::heavy}), ElementsAre("Inter-ExtraBold.otf"));
  EXPECT_THAT(filesOf("日", {.weight = FontWeight::semibold, .language = "ja"}),
              ElementsAre("NotoSansCJK-Bold.ttc"));
}

TEST_F(TextShaping, GivesHanCharactersTheFormsOfTheLanguage) {
  const auto glyph = [&](const char* language) {
    return shape("骨", {.language = language})->glyphs.at(0).glyph;
  };
  EXPECT_NE(glyph("ja"), glyph("zh-Hans"));
  EXPECT_EQ(glyph("ja"), glyph("en")) << "foreign names take the Japanese forms";
  EXPECT_EQ(glyph("zh-Hant-TW"), glyph("zh-Hant"));
}

// The merchant and the amount keep their own order inside a right-to-left line.
TEST_F(TextShaping, OrdersAMixedArabicLineVisually) {
  const TextStyle rtl{.language = "ar", .direction = LayoutDirection::rightToLeft};
  const auto glyphs = line("\u0628\u0639\u062F 3 \u00B7 Ab \u00B7 $15", rtl);
  const Font* latin = fonts.font(FontFamily::latin, FontWeight::regular);
  std::string seen;
  for (const LineGlyph& glyph : glyphs) {
    char sign = '?';  // an Arabic letter
    for (char c : {'3', 'A', 'b', '$', '1', '5'}) {
      if (glyph.font == latin->id() && glyph.glyph == latin->glyph(static_cast<char32_t>(c)))
        sign = c;
    }
    if (glyph.font == latin->id() && glyph.glyph == latin->glyph(0xB7)) sign = '.';
    seen += sign;
  }
  // Three Arabic letters at the right; "Ab · $15" is one left-to-right stretch of the line.
  EXPECT_EQ(seen, "Ab.$15.3???");
  for (std::size_t i = 1; i < glyphs.size(); ++i) EXPECT_GE(glyphs[i].x, glyphs[i - 1].x);
}

TEST_F(TextShaping, IsolatesDrawNothingAndKeepTheirOrder) {
  const TextStyle rtl{.language = "ar", .direction = LayoutDirection::rightToLeft};
  const auto plain = shape("$15", {});
  const auto isolated = shape("\u2066$15\u2069", rtl);
  ASSERT_EQ(isolated->clusters.size(), 5u);
  EXPECT_EQ(isolated->clusters.front().advance, 0);
  EXPECT_EQ(isolated->clusters.back().advance, 0);
  EXPECT_FALSE(isolated->clusters.front().takesTracking);
  EXPECT_EQ(isolated->glyphs.size(), plain->glyphs.size());
  std::vector<std::uint16_t> order;
  for (const LineGlyph& glyph : line("\u2066$15\u2069", rtl)) order.push_back(glyph.glyph);
  std::vector<std::uint16_t> expected;
  for (const ShapedGlyph& glyph : plain->glyphs) expected.push_back(glyph.glyph);
  EXPECT_EQ(order, expected);
}

TEST_F(TextShaping, TracksLatinAndHanButNeverJoinedScripts) {
  const auto tracked = [&](const char* text, const char* language) {
    const auto paragraph = shape(text, {.language = language});
    return std::ranges::all_of(paragraph->clusters, &TextCluster::takesTracking);
  };
  EXPECT_TRUE(tracked("$1,171", "en"));
  EXPECT_TRUE(tracked("支出", "ja"));
  EXPECT_FALSE(tracked("يوم", "ar"));
  EXPECT_FALSE(tracked("खर्च", "hi"));
}

TEST_F(TextShaping, AddsTrackingAfterEveryCluster) {
  const auto loose = line("100", {}, 0.5);
  const auto tight = line("100", {}, 0);
  ASSERT_EQ(loose.size(), 3u);
  EXPECT_NEAR(loose[1].x - tight[1].x, 0.5, 1e-9);
  EXPECT_NEAR(loose[2].x - tight[2].x, 1.0, 1e-9);
}

// A letter extender belongs to several scripts, so that its own script says nothing about its font.
TEST_F(TextShaping, DrawsSharedCharactersInTheFontOfTheirScript) {
  const TextStyle arabic{.language = "ar", .direction = LayoutDirection::rightToLeft};
  EXPECT_THAT(filesOf("بـ", arabic), ElementsAre("NotoSansArabicUI-Regular.ttf"));
  EXPECT_THAT(filesOf("क।", {.language = "hi"}), ElementsAre("NotoSansDevanagariUI-Regular.ttf"));
}

TEST_F(TextShaping, KeepsCombiningMarksInOneCluster) {
  const auto paragraph = shape("e\u0301a", {});
  ASSERT_EQ(paragraph->clusters.size(), 2u);
  EXPECT_EQ(paragraph->clusters[0].end, 3u);
  EXPECT_EQ(shape("क्षि", {.language = "hi"})->clusters.size(), 1u) << "a conjunct";
}

TEST_F(TextShaping, DrawsABoxForUnknownLetters) {
  const auto unknown = shape("\U00012000", {});  // a cuneiform sign
  ASSERT_EQ(unknown->glyphs.size(), 1u);
  EXPECT_EQ(unknown->glyphs[0].glyph, fonts.byId(unknown->glyphs[0].font).glyph(0x25A1));
  EXPECT_GT(unknown->clusters[0].advance, 0);
}

TEST_F(TextShaping, BreaksWhereTheLanguageBreaks) {
  const auto breaks = [&](const char* text, const char* language) {
    std::string result;
    const auto paragraph = shape(text, {.language = language});
    for (const TextCluster& c : paragraph->clusters) {
      result += paragraph->text.substr(c.begin, c.end - c.begin);
      if (c.mustBreakAfter)
        result += '!';
      else if (c.breakAfter)
        result += '|';
    }
    return result;
  };
  EXPECT_EQ(breaks("Set a budget", "en"), "Set |a |budget");
  EXPECT_EQ(breaks("$106 / day", "en"), "$106 / |day");
  EXPECT_EQ(breaks("well-known", "en"), "well-|known");
  EXPECT_EQ(breaks("a\nb", "en"), "a\n!b");
  EXPECT_EQ(breaks("1\u00A0171 €", "fr"), "1\u00A0171 |€");
  EXPECT_EQ(breaks("今月、残", "ja"), "今月、|残") << "no line begins with a comma";
  EXPECT_EQ(breaks("月の予算を設定", "ja"), "月の|予算を|設定") << "a phrase stays whole";
  EXPECT_EQ(breaks("카드를 추가", "ko"), "카드를 |추가") << "a word stays whole";
  EXPECT_EQ(breaks("预算", "zh-Hans"), "预|算");
}

constexpr const char* kLabels[] = {"$1,171.41",
                                   "-$1,234",
                                   "61% used",
                                   "$106 / day",
                                   "/ day",
                                   "Left to spend",
                                   "a (b) c",
                                   "(a",
                                   "a!",
                                   "a! b",
                                   "don't stop",
                                   "\"x\" y",
                                   "Año – más",
                                   "3 • 4 … 5",
                                   "\u2066$5\u2069 left",
                                   "left \u2066$5\u2069",
                                   "x: y, z",
                                   "12:30",
                                   "and/or 1/2",
                                   " leading",
                                   "trailing ",
                                   "a  b",
                                   "1 171,50 €",
                                   "€ 5",
                                   "R$ 1.166",
                                   "Rp 1.166",
                                   "it’s",
                                   "é ü ß",
                                   "A-1",
                                   "x [y] {z} | w",
                                   "+5 %",
                                   "",
                                   "\u2068Ab\u2069 x"};

void expectSameClusters(const GlyphParagraph& a, const GlyphParagraph& b) {
  ASSERT_EQ(a.clusters.size(), b.clusters.size());
  for (std::size_t i = 0; i < a.clusters.size(); ++i) {
    const TextCluster& one = a.clusters[i];
    const TextCluster& other = b.clusters[i];
    EXPECT_EQ(one.begin, other.begin) << i;
    EXPECT_EQ(one.end, other.end) << i;
    EXPECT_EQ(one.advance, other.advance) << i;
    EXPECT_EQ(one.breakAfter, other.breakAfter) << i;
    EXPECT_EQ(one.mustBreakAfter, other.mustBreakAfter) << i;
    EXPECT_EQ(one.isSpace, other.isSpace) << i;
    EXPECT_EQ(one.takesTracking, other.takesTracking) << i;
  }
}

void expectSameGlyphs(const GlyphParagraph& a, const GlyphParagraph& b) {
  ASSERT_EQ(a.glyphs.size(), b.glyphs.size());
  for (std::size_t i = 0; i < a.glyphs.size(); ++i) {
    EXPECT_EQ(a.glyphs[i].glyph, b.glyphs[i].glyph) << i;
    EXPECT_EQ(a.glyphs[i].x, b.glyphs[i].x) << i;
  }
}

/// Holds texts that are shaped the short way to the long way.
class ShortWay : public TextShaping {
 protected:
  /// Whether the text is one of them.
  bool agrees(const std::string& text) {
    if (!analyzeSimple(text, {}, quick_)) return false;
    SCOPED_TRACE('"' + text + '"');
    const auto shortWay = shape(text, {});
    const auto longWay = measurer.shapeByUnicode(text, {});
    expectSameClusters(*shortWay, *longWay);
    expectSameGlyphs(*shortWay, *longWay);
    return true;
  }

 private:
  std::vector<AnalyzedCluster> quick_;
};

TEST_F(ShortWay, ShapesLabelsAsTheLongWayDoes) {
  EXPECT_GT(std::ranges::count_if(kLabels, [&](const char* label) { return agrees(label); }), 25)
      << "most labels should take the short way";
}

TEST_F(ShortWay, ShapesTextsMadeByChanceAsTheLongWayDoes) {
  const std::vector<std::string> alphabet{
      "a", "B",      "1",      "7",      " ", " ", ",", ".", "$", "%", "/", "(", ")",
      "-", "!",      "'",      "\"",     ":", "+", "é", "€", "•", "…", "–", "’", "\u00A0",
      "·", "\u2066", "\u2068", "\u2069", "&", "[", "]", "}", "|", "?", "£"};
  std::mt19937 random(7);
  int simple = 0;
  for (int round = 0; round < 20000 && !HasFailure(); ++round) {
    std::string text;
    const std::size_t length = 1 + random() % 8;
    for (std::size_t i = 0; i < length; ++i) text += alphabet[random() % alphabet.size()];
    simple += agrees(text) ? 1 : 0;
  }
  EXPECT_GT(simple, 2000);
}

TEST_F(TextShaping, FontFilesNameTheirPackages) {
  const auto files = fontFiles();
  const auto find = [&](std::string_view end) {
    const auto found =
        std::ranges::find_if(files, [&](const FontFile& f) { return f.path.ends_with(end); });
    return found == files.end() ? FontFile{} : *found;
  };
  EXPECT_EQ(find("Inter-SemiBold.otf").package, "fonts-inter");
  EXPECT_FALSE(find("Inter-SemiBold.otf").optional);
  EXPECT_EQ(find("NotoSansCJK-Bold.ttc").package, "fonts-noto-cjk");
  EXPECT_EQ(find("NotoSansArabicUI-Bold.ttf").package, "fonts-noto-ui-core");
  EXPECT_TRUE(find("NotoSansArabicUI-SemiBold.ttf").optional);
  EXPECT_EQ(find("NotoSansArabicUI-SemiBold.ttf").package, "fonts-noto-ui-extra");
}

}  // namespace
}  // namespace rendering
