// The JSON form: as written by hand for every element and modifier, and there and back for trees
// made of chance.
#include <gtest/gtest.h>

#include "RandomTree.hpp"
#include "Samples.hpp"
#include "ViewKit/Dump.hpp"
#include "ViewKit/TreeJson.hpp"
#include "ViewKit/ViewKit.hpp"

namespace viewkit {
namespace {

std::string written(const View& view) {
  foundation::JsonWriter writer;
  writeView(writer, view);
  return writer.take();
}

std::expected<View, std::string> reread(const std::string& json) {
  const auto value = foundation::parseJson(json);
  if (!value) return std::unexpected("not JSON: " + value.error().expected);
  return readView(*value);
}

class TreeJsonSample : public ::testing::TestWithParam<Sample> {};

TEST_P(TreeJsonSample, IsWritten) {
  EXPECT_EQ(written(GetParam().view), GetParam().json);
}

TEST_P(TreeJsonSample, IsReadBack) {
  const auto view = reread(GetParam().json);
  ASSERT_TRUE(view.has_value()) << view.error();
  EXPECT_EQ(*view, GetParam().view);
  EXPECT_EQ(dump(*view), GetParam().dump);
}

INSTANTIATE_TEST_SUITE_P(All,
                         TreeJsonSample,
                         ::testing::ValuesIn(allSamples()),
                         [](const auto& sample) { return sample.param.name; });

TEST(TreeJson, RandomTreesSurviveTheWayThereAndBack) {
  for (std::uint32_t seed = 1; seed <= 400; ++seed) {
    const View view = RandomTree(seed).view();
    const auto back = reread(written(view));
    ASSERT_TRUE(back.has_value()) << "seed " << seed << ": " << back.error();
    ASSERT_EQ(*back, view) << "seed " << seed;
    ASSERT_EQ(dump(*back), dump(view)) << "seed " << seed;
    ASSERT_EQ(written(*back), written(view)) << "seed " << seed;
  }
}

TEST(TreeJson, RandomTreesDiffer) {
  EXPECT_NE(RandomTree(1).view(), RandomTree(2).view());
  EXPECT_EQ(RandomTree(1).view(), RandomTree(1).view());
}

TEST(TreeJson, MembersMayStandInAnyOrder) {
  const auto view = reread(
      R"({"modifiers":[{"alignment":"top","background":{"type":"Circle"}}],"text":"x","type":"Text"})");
  ASSERT_TRUE(view.has_value()) << view.error();
  EXPECT_EQ(*view, Text{"x"}.background(Circle(), Alignment::top));
}

TEST(TreeJson, ASharedPartIsWrittenWhereverItStands) {
  const View dot = Circle();
  EXPECT_EQ(written(HStack{{}, dot, dot}),
            R"({"type":"HStack","children":[{"type":"Circle"},{"type":"Circle"}]})");
}

TEST(TreeJson, NumbersKeepEveryBit) {
  const View view = Text{"x"}.font(1.0 / 3).opacity(0.1 + 0.2);
  const auto back = reread(written(view));
  ASSERT_TRUE(back.has_value()) << back.error();
  EXPECT_EQ(*back, view);
}

TEST(TreeJson, ColorsKeepEveryBit) {
  const View view = Circle().fill(Color::primary().withOpacities(1.0 / 3, 0.1 + 0.2));
  const auto back = reread(written(view));
  ASSERT_TRUE(back.has_value()) << back.error();
  EXPECT_EQ(*back, view);
}

TEST(TreeJson, WhatIsNotFiniteIsWrittenAndRefused) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(written(Text{"x"}.opacity(nan)),
            R"({"type":"Text","text":"x","modifiers":[{"opacity":null}]})");
  for (const double number : {nan, kInfinity, -kInfinity}) {
    EXPECT_FALSE(reread(written(Text{"x"}.opacity(number))).has_value());
    EXPECT_FALSE(reread(written(Text{"x"}.offset(number, 0))).has_value());
    EXPECT_FALSE(reread(written(Text{"x"}.offset(kWidth * number, 0))).has_value());
    EXPECT_FALSE(reread(written(Circle().fill(Color::white().withOpacity(number)))).has_value());
  }
}

TEST(TreeJson, AnOverlongTextIsCutBetweenCharacters) {
  // 1,024 bytes end in the middle of a two-byte letter behind one single byte.
  std::string name = "x";
  for (int i = 0; i < 500000; ++i) name += "é";
  const auto back = reread(written(Text{name}.link(name)));
  ASSERT_TRUE(back.has_value()) << back.error();
  const auto& text = std::get<TextElement>(back->node().element).text;
  EXPECT_EQ(text.size(), 1023U);
  EXPECT_EQ(text, name.substr(0, 1023));
}

// A row as the widgets have them; the bound is the size that keeps a timeline small.
TEST(TreeJson, ARowIsSmall) {
  const Color ink = Color::dynamic(0x6B1F3A, 0xB4416A);
  const View tile = ZStack{{}, Symbol{"cart.fill"}.font(13, FontWeight::semibold)}
                        .frame(FixedFrame{.width = 26, .height = 26})
                        .foregroundStyle(ink)
                        .background(RoundedRectangle(6).fill(ink.withOpacities(0.1, 0.24)));
  const View row = HStack{{.spacing = 6},
                          tile,
                          Text{"Groceries"}.font(13.5).lineLimit(1).minimumScaleFactor(0.85),
                          Spacer{4},
                          Text{"1.204,50"}.font(13, FontWeight::semibold).layoutPriority(1)};
  const std::size_t nodes = 7;
  EXPECT_LT(written(row).size() / nodes, 150u);
}

}  // namespace
}  // namespace viewkit
