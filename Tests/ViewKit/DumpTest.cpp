// The form of approval files: every element and modifier, lengths, numbers and quoting.
#include <gtest/gtest.h>

#include <set>

#include "Samples.hpp"
#include "ViewKit/Dump.hpp"
#include "ViewKit/ViewKit.hpp"

namespace viewkit {
namespace {

class DumpSample : public ::testing::TestWithParam<Sample> {};

TEST_P(DumpSample, IsAsWritten) {
  EXPECT_EQ(dump(GetParam().view), GetParam().dump);
}

INSTANTIATE_TEST_SUITE_P(All,
                         DumpSample,
                         ::testing::ValuesIn(allSamples()),
                         [](const auto& sample) { return sample.param.name; });

TEST(Samples, CoverEveryElementShapeAndModifier) {
  std::set<std::size_t> elements;
  std::set<std::size_t> shapes;
  std::set<std::size_t> modifiers;
  for (const Sample& sample : allSamples()) {
    const Node& node = sample.view.node();
    elements.insert(node.element.index());
    if (const auto* shape = std::get_if<ShapeElement>(&node.element)) {
      shapes.insert(shape->geometry.index());
    }
    for (const Modifier& modifier : node.modifiers) modifiers.insert(modifier.index());
  }
  EXPECT_EQ(elements.size(), std::variant_size_v<Element>);
  EXPECT_EQ(shapes.size(), std::variant_size_v<ShapeGeometry>);
  EXPECT_EQ(modifiers.size(), std::variant_size_v<Modifier>);
}

TEST(Dump, IndentsModifiersTheirContentsAndChildren) {
  const View icon = Symbol{"cart"}.background(Circle().overlay(Capsule()));
  const View tree =
      VStack{{}, View{HStack{{}, icon, Text{"x"}}}.named("Row"), Spacer{}}.containerBackground(
          Rectangle());
  EXPECT_EQ(dump(tree),
            "VStack\n"
            "  .containerBackground\n"
            "    Rectangle\n"
            "  Row HStack\n"
            "    Symbol \"cart\"\n"
            "      .background\n"
            "        Circle\n"
            "          .overlay\n"
            "            Capsule\n"
            "    Text \"x\"\n"
            "  Spacer\n");
}

TEST(Dump, ContentsStandBelowTheirModifier) {
  EXPECT_EQ(dump(Text{"x"}.overlay(Circle()).padding(3).background(Capsule())),
            "Text \"x\"\n"
            "  .overlay\n"
            "    Circle\n"
            "  .padding(3)\n"
            "  .background\n"
            "    Capsule\n");
}

TEST(Dump, AModifierThatChangesNothingIsLeftOut) {
  EXPECT_EQ(dump(Text{"x"}.padding(0).opacity(1).offset(0, 0).zIndex(0).layoutPriority(0)),
            "Text \"x\"\n");
  EXPECT_EQ(dump(Text{"x"}.offset(0, kHeight)), "Text \"x\"\n  .offset(y H)\n");
}

TEST(Dump, WhatAModifierIsAboutIsWrittenThoughItIsTheDefault) {
  EXPECT_EQ(dump(Text{"x"}.privacySensitive(PrivacyTreatment::masked)),
            "Text \"x\"\n  .privacy(masked)\n");
  EXPECT_EQ(dump(Text{"x"}.layoutDirection(LayoutDirection::leftToRight)),
            "Text \"x\"\n  .layoutDirection(leftToRight)\n");
}

// ---- long lines

/// `Text "éé..." size 20 lineLimit 1` has so many characters in its text that the first line ends
/// after `size 20` in column `columns`.
View textWithSizeEndingAt(std::size_t columns) {
  constexpr std::size_t kOthers = std::string_view{"Text \"\" size 20"}.size();
  std::string text;
  for (std::size_t i = kOthers; i < columns; ++i) text += "\u00E9";
  return Text{text}.font(20).lineLimit(1);
}

TEST(Dump, ALineEndsInColumn100AtTheLatest) {
  const std::string fits = dump(textWithSizeEndingAt(100));
  EXPECT_TRUE(fits.ends_with("\" size 20\n    lineLimit 1\n")) << fits;
  const std::string tooLong = dump(textWithSizeEndingAt(101));
  EXPECT_TRUE(tooLong.ends_with("\"\n    size 20 lineLimit 1\n")) << tooLong;
}

TEST(Dump, IndentationCountsAndWhatFollowsIsIndentedTwice) {
  const View row = HStack{{}, textWithSizeEndingAt(99)};
  EXPECT_TRUE(dump(row).ends_with("\"\n      size 20 lineLimit 1\n")) << dump(row);
}

TEST(Dump, OneLongTextStaysInOneLine) {
  const std::string label(200, 'x');
  EXPECT_EQ(dump(Circle().accessibilityLabel(label)),
            "Circle\n  .accessibility(label \"" + label + "\")\n");
}

TEST(Dump, PathsAndGradientsBreakBetweenStepsAndStops) {
  const std::vector<PathStep> steps(30, {PathStep::Verb::line, {1, 2}});
  std::string expected = "Path";
  for (int i = 0; i < 12; ++i) expected += " L(1, 2)";  // 4 + 12 * 8 = 100 columns
  expected += "\n   ";
  for (int i = 0; i < 12; ++i) expected += " L(1, 2)";  // 3 + 12 * 8 = 99
  expected += "\n   ";
  for (int i = 0; i < 6; ++i) expected += " L(1, 2)";
  EXPECT_EQ(dump(Path(steps)), expected + "\n");

  const std::vector<Color> colors(5, Color::dynamic(0x6B1F3A, 0xB4416A));
  EXPECT_EQ(dump(LinearGradient(Gradient::even(colors, {0, 0}, {1, 1}))),
            "Rectangle fill gradient (0, 0) to (1, 1), #6B1F3A/#B4416A at 0, "
            "#6B1F3A/#B4416A at 0.25,\n"
            "    #6B1F3A/#B4416A at 0.5, #6B1F3A/#B4416A at 0.75, #6B1F3A/#B4416A at 1\n");
}

TEST(Dump, NumbersAreShort) {
  EXPECT_EQ(dump(Length{0.1 + 0.2}), "0.3");
  EXPECT_EQ(dump(Length{12.0}), "12");
  EXPECT_EQ(dump(Length{-0.0}), "0");
  EXPECT_EQ(dump(Length{0.0625}), "0.0625");
  EXPECT_EQ(dump(Length{2.0 / 3}), "0.666667");
  EXPECT_EQ(dump(Length{7391.42}), "7391.42");
}

TEST(Dump, CharactersThatCannotBeSeenAreWrittenOut) {
  EXPECT_EQ(dump(Text{"1\u00A0\u20AC \u2066x\u2069\n\t\\\""}),
            "Text \"1\\u00A0\u20AC \\u2066x\\u2069\\n\\u0009\\\\\\\"\"\n");
  EXPECT_EQ(dump(Text{"\xF0\x9F\x98\x80 \xC3\xA9"}), "Text \"\xF0\x9F\x98\x80 \xC3\xA9\"\n");
}

TEST(Dump, TextsThatAreNotUtf8PassThrough) {
  EXPECT_EQ(dump(Text{"a\xFF\xE2"}), "Text \"a\xFF\xE2\"\n");
}

TEST(Dump, ANameNeverBreaksTheLine) {
  EXPECT_EQ(dump(View{SpacerElement{}}.named("A\nB")), "A?B Spacer\n");
}

TEST(Dump, Colors) {
  EXPECT_EQ(dump(Color::white()), "#FFFFFF");
  EXPECT_EQ(dump(Color::dynamic(0x6B1F3A, 0xB4416A)), "#6B1F3A/#B4416A");
  EXPECT_EQ(dump(Color::black().withOpacity(0.88 * 0.9)), "#000000 0.792");
  EXPECT_EQ(dump(Color::secondary().withOpacities(1, 0.5)), "secondary 1/0.5");
  EXPECT_EQ(dump(Color::clear()), "#000000 0");
}

// ---- lengths

TEST(DumpLength, Sums) {
  EXPECT_EQ(dump(kWidth * 0.5 - 4.5), "0.5W - 4.5");
  EXPECT_EQ(dump(kWidth), "W");
  EXPECT_EQ(dump(-kWidth), "-W");
  EXPECT_EQ(dump(3 - kHeight), "-H + 3");
  EXPECT_EQ(dump(kWidth * 0.25 - kHeight * 2 + 1), "0.25W - 2H + 1");
  EXPECT_EQ(dump(Length{0}), "0");
  EXPECT_EQ(dump(Length{-4.5}), "-4.5");
}

TEST(DumpLength, FractionsWithoutAShortDecimalForm) {
  EXPECT_EQ(dump(kWidth / 62), "W/62");
  EXPECT_EQ(dump(kWidth / 3 - kHeight / 7), "W/3 - H/7");
  EXPECT_EQ(dump(kWidth / 8), "0.125W");
  EXPECT_EQ(dump(kWidth * 2 / 3), "0.666667W");
}

TEST(DumpLength, Choices) {
  const Length gap = min(kWidth / 62, 1.5);
  EXPECT_EQ(dump(gap), "min(W/62, 1.5)");
  EXPECT_EQ(dump(min(1.5, kWidth / 62)), "min(W/62, 1.5)");
  EXPECT_EQ(dump(max((kWidth - gap * 30) / 31, 0)), "max(W/31 - 0.967742 min(W/62, 1.5), 0)");
  EXPECT_EQ(dump(kWidth - 2 * gap + 3), "W - 2 min(W/62, 1.5) + 3");
  EXPECT_EQ(dump(-max(kWidth, kHeight)), "-max(W, H)");
  EXPECT_EQ(dump(max(kWidth, kHeight) / 3), "max(W, H)/3");
}

}  // namespace
}  // namespace viewkit
