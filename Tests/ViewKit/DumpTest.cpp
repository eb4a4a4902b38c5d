// The form of approval files: every element and modifier, lengths, numbers and quoting.
#include <gtest/gtest.h>

#include <set>

#include "Samples.hpp"
#include "ViewKit/Dump.hpp"
#include "ViewKit/ViewKit.hpp"

namespace viewkit {
namespace {

class DumpSample : public ::testing::TestWithParam<Sample> {};

TEST_P(DumpSample, isAsWritten) {
  EXPECT_EQ(dump(GetParam().view), GetParam().dump);
}

INSTANTIATE_TEST_SUITE_P(All,
                         DumpSample,
                         ::testing::ValuesIn(allSamples()),
                         [](const auto& sample) { return sample.param.name; });

TEST(Samples, coverEveryElementShapeAndModifier) {
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

TEST(Dump, indentsChildrenAndLabelsContents) {
  const View icon = Symbol{"cart"}.background(Circle().overlay(Capsule()));
  const View tree =
      VStack{{}, View{HStack{{}, icon, Text{"x"}}}.named("Row"), Spacer{}}.containerBackground(
          Rectangle());
  EXPECT_EQ(dump(tree),
            "VStack .containerBackground\n"
            "  containerBackground: Rectangle\n"
            "  Row HStack\n"
            "    Symbol \"cart\" .background\n"
            "      background: Circle .overlay\n"
            "        overlay: Capsule\n"
            "    Text \"x\"\n"
            "  Spacer\n");
}

TEST(Dump, contentsFollowTheOrderOfTheModifiers) {
  EXPECT_EQ(dump(Text{"x"}.overlay(Circle()).background(Capsule())),
            "Text \"x\" .overlay .background\n"
            "  overlay: Circle\n"
            "  background: Capsule\n");
}

TEST(Dump, numbersAreShort) {
  EXPECT_EQ(dump(Length{0.1 + 0.2}), "0.3");
  EXPECT_EQ(dump(Length{12.0}), "12");
  EXPECT_EQ(dump(Length{-0.0}), "0");
  EXPECT_EQ(dump(Length{0.0625}), "0.0625");
  EXPECT_EQ(dump(Length{2.0 / 3}), "0.666667");
  EXPECT_EQ(dump(Length{7391.42}), "7391.42");
}

TEST(Dump, charactersThatCannotBeSeenAreWrittenOut) {
  EXPECT_EQ(dump(Text{"1\u00A0\u20AC \u2066x\u2069\n\t\\\""}),
            "Text \"1\\u00A0\u20AC \\u2066x\\u2069\\n\\u0009\\\\\\\"\"\n");
  EXPECT_EQ(dump(Text{"\xF0\x9F\x98\x80 \xC3\xA9"}), "Text \"\xF0\x9F\x98\x80 \xC3\xA9\"\n");
}

TEST(Dump, textsThatAreNotUtf8PassThrough) {
  EXPECT_EQ(dump(Text{"a\xFF\xE2"}), "Text \"a\xFF\xE2\"\n");
}

TEST(Dump, aNameNeverBreaksTheLine) {
  EXPECT_EQ(dump(View{SpacerElement{}}.named("A\nB")), "A?B Spacer\n");
}

TEST(Dump, colors) {
  EXPECT_EQ(dump(Color::white()), "#FFFFFF");
  EXPECT_EQ(dump(Color::dynamic(0x6B1F3A, 0xB4416A)), "#6B1F3A/#B4416A");
  EXPECT_EQ(dump(Color::black().withOpacity(0.88 * 0.9)), "#000000 0.792");
  EXPECT_EQ(dump(Color::secondary().withOpacities(1, 0.5)), "secondary 1/0.5");
  EXPECT_EQ(dump(Color::clear()), "#000000 0");
}

// ---- lengths

TEST(DumpLength, sums) {
  EXPECT_EQ(dump(kWidth * 0.5 - 4.5), "0.5W - 4.5");
  EXPECT_EQ(dump(kWidth), "W");
  EXPECT_EQ(dump(-kWidth), "-W");
  EXPECT_EQ(dump(3 - kHeight), "-H + 3");
  EXPECT_EQ(dump(kWidth * 0.25 - kHeight * 2 + 1), "0.25W - 2H + 1");
  EXPECT_EQ(dump(Length{0}), "0");
  EXPECT_EQ(dump(Length{-4.5}), "-4.5");
}

TEST(DumpLength, fractionsWithoutAShortDecimalForm) {
  EXPECT_EQ(dump(kWidth / 62), "W/62");
  EXPECT_EQ(dump(kWidth / 3 - kHeight / 7), "W/3 - H/7");
  EXPECT_EQ(dump(kWidth / 8), "0.125W");
  EXPECT_EQ(dump(kWidth * 2 / 3), "0.666667W");
}

TEST(DumpLength, choices) {
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
