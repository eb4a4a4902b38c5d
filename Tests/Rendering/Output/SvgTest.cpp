// The SVG form: well-formed, self-contained, without a letter of what is covered.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <vector>

#include "Rendering/Renderer.hpp"
#include "ViewKit/ViewKit.hpp"

namespace rendering {
namespace {

using namespace viewkit;

/// Tags are balanced and properly nested, attributes quoted; the ids that are referred to exist,
/// once.
void expectWellFormed(const std::string& svg) {
  std::vector<std::string> open;
  const std::regex tag(R"re(<(/?)([A-Za-z]+)((?:\s+[A-Za-z0-9_:-]+="[^"<>&]*")*)\s*(/?)>)re");
  std::size_t at = 0;
  while ((at = svg.find('<', at)) != std::string::npos) {
    std::smatch match;
    const std::size_t end = svg.find('>', at);
    ASSERT_NE(end, std::string::npos);
    const std::string text = svg.substr(at, end + 1 - at);
    // Path data would exhaust the matcher's stack; it has neither quotes nor brackets.
    std::string shortened = text;
    const std::size_t d = shortened.find(" d=\"");
    if (d != std::string::npos) shortened.erase(d + 4, shortened.find('"', d + 4) - d - 4);
    const std::size_t href = shortened.find("base64,");
    if (href != std::string::npos) shortened.erase(href, shortened.find('"', href) - href);
    ASSERT_TRUE(std::regex_match(shortened, match, tag)) << shortened;
    if (match[1] == "/") {
      ASSERT_FALSE(open.empty());
      ASSERT_EQ(open.back(), match[2]);
      open.pop_back();
    } else if (match[4] != "/") {
      open.push_back(match[2]);
    }
    at = end;
  }
  EXPECT_TRUE(open.empty());
  std::set<std::string> ids;
  const std::regex id(" id=\"([^\"]+)\"");
  for (auto i = std::sregex_iterator(svg.begin(), svg.end(), id); i != std::sregex_iterator();
       ++i) {
    EXPECT_TRUE(ids.insert((*i)[1]).second) << (*i)[1];
  }
  const std::regex reference("(?:url\\(|href=\")#([^)\"]+)");
  for (auto i = std::sregex_iterator(svg.begin(), svg.end(), reference);
       i != std::sregex_iterator();
       ++i) {
    EXPECT_TRUE(ids.contains((*i)[1])) << (*i)[1];
  }
}

View everything() {
  return VStack{
      {.spacing = 2},
      Text{"<&> \"7391\""}.font(14, FontWeight::bold),
      Symbol{"calendar.badge.clock"}.font(20, FontWeight::bold),
      Symbol{"house.fill"}.font(20),
      RoundedRectangle(6, CornerStyle::continuous)
          .fill(Gradient::even({Color::same(0xFF0000), Color::clear()}, {0, 0}, {1, 1}))
          .shadow({Color::black(), 3, 0, 1}),
      ZStack{{}, Circle().fill(Color::primary()), Circle().fill(Color::secondary())}.opacity(0.5),
      Rectangle().fill(Color::primary()).cutout(CircleShape{}).clip(CapsuleShape{}),
      Gauge{{.fraction = 0.5}, Text{"5"}}.frame({.width = Length(40), .height = Length(40)}),
      Text{"a b"}.foregroundStyle(Gradient::even({Color::black(), Color::white()}, {0, 0}, {1, 0}))}
      .containerBackground(Rectangle().fill(Color::white()));
}

TEST(Svg, IsWellFormed) {
  Renderer renderer;
  const std::string svg = renderer.svg(everything(), {.size = {120, 300}}).value();
  expectWellFormed(svg);
  EXPECT_NE(svg.find("viewBox=\"0 0 120 300\""), std::string::npos);
  EXPECT_EQ(svg.find("<text"), std::string::npos) << "outlines only";
  EXPECT_EQ(svg.find("7391"), std::string::npos);
  EXPECT_EQ(svg.find("nan"), std::string::npos);
}

TEST(Svg, DoesNotDependOnWhatIsCovered) {
  Renderer renderer;
  const auto svg = [&](const char* amount, bool privacy) {
    const View view = VStack{{},
                             Text{"Spent"},
                             Text{amount}
                                 .font(20)
                                 .frame({.width = Length(80)})
                                 .privacySensitive(PrivacyTreatment::covered)};
    return renderer.svg(view, {.size = {120, 60}, .redaction = {.privacy = privacy}}).value();
  };
  EXPECT_NE(svg("$7,391", false), svg("$2,458", false));
  EXPECT_EQ(svg("$7,391", true), svg("$2,458", true));
}

TEST(Svg, EachGlyphStandsOnce) {
  Renderer renderer;
  const std::string svg =
      renderer.svg(Text{"aaaa"}, {.size = {120, 60}, .showsBackground = false}).value();
  const std::regex definition("<path id=\"f");
  const std::regex use("<use ");
  const auto count = [&](const std::regex& what) {
    return std::distance(std::sregex_iterator(svg.begin(), svg.end(), what),
                         std::sregex_iterator());
  };
  EXPECT_EQ(count(definition), 1);
  EXPECT_EQ(count(use), 4);
}

std::set<std::string> idsOf(const std::string& svg) {
  std::set<std::string> ids;
  const std::regex id(" id=\"([^\"]+)\"");
  for (auto i = std::sregex_iterator(svg.begin(), svg.end(), id); i != std::sregex_iterator(); ++i)
    ids.insert((*i)[1]);
  return ids;
}

TEST(Svg, TitleIsWhatAScreenReaderSays) {
  Renderer renderer;
  const std::string svg =
      renderer
          .svg(everything(), {.size = {120, 300}}, {.title = "Rent & <care>\n", .idPrefix = "w-"})
          .value();
  expectWellFormed(svg);
  EXPECT_NE(svg.find(" role=\"img\" aria-labelledby=\"w-title\""), std::string::npos);
  EXPECT_NE(svg.find("<title id=\"w-title\">Rent &amp; &lt;care&gt;</title>"), std::string::npos);
}

TEST(Svg, WithoutATitleThereIsNoRole) {
  Renderer renderer;
  const std::string svg = renderer.svg(everything(), {.size = {120, 300}}).value();
  EXPECT_EQ(svg.find("role="), std::string::npos);
  EXPECT_EQ(svg.find("<title"), std::string::npos);
}

TEST(Svg, PicturesWithPrefixesOfTheirOwnShareNoId) {
  Renderer renderer;
  const RenderOptions options{.size = {120, 300}};
  const std::string first =
      renderer.svg(everything(), options, {.title = "A", .idPrefix = "a-"}).value();
  const std::string second =
      renderer.svg(everything(), options, {.title = "B", .idPrefix = "b-"}).value();
  const auto ids = idsOf(first);
  EXPECT_GT(ids.size(), 5U);
  for (const std::string& id : idsOf(second)) {
    EXPECT_FALSE(ids.contains(id)) << id;
    EXPECT_TRUE(id.starts_with("b-")) << id;
  }
  expectWellFormed("<div>" + first + second + "</div>");
}

TEST(Svg, PrefixesAreNames) {
  for (const char* text : {"", "a", "_", "card-1.", "Widget_2"})
    EXPECT_TRUE(isIdPrefix(text)) << text;
  for (const char* text : {"1", "-a", ".a", "a b", "a\"", "a#", "ä"})
    EXPECT_FALSE(isIdPrefix(text)) << text;
  EXPECT_TRUE(isIdPrefix(std::string(64, 'a')));
  EXPECT_FALSE(isIdPrefix(std::string(65, 'a')));
}

}  // namespace
}  // namespace rendering
