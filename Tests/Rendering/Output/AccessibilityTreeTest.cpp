// What assistive technology hears.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"
#include "Rendering/Output/AccessibilityTree.hpp"

namespace rendering {
namespace {

using namespace viewkit;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<AccessibleElement> heard(const View& view, AccessibilityOptions options = {}) {
  return accessibleElements(placed(view, {200, 100}), options);
}

std::vector<std::string> labels(const View& view, AccessibilityOptions options = {}) {
  std::vector<std::string> result;
  for (const AccessibleElement& element : heard(view, options)) result.push_back(element.label);
  return result;
}

constexpr RedactionReasons kPrivacy{.privacy = true};

TEST(AccessibilityTree, TextsInTreeOrder) {
  const View view = VStack{{}, Text("one"), HStack{{}, Text("two"), Text("three")}, Text("")};
  EXPECT_THAT(labels(view), ElementsAre("one", "two", "three"));
  EXPECT_EQ(heard(view)[0].role, AccessibleRole::text);
}

TEST(AccessibilityTree, TreeOrderHoldsWhateverIsDrawnFirst) {
  EXPECT_THAT(labels(ZStack{{}, Text("a").zIndex(2), Text("b"), Text("c").zIndex(-1)}),
              ElementsAre("a", "b", "c"));
}

TEST(AccessibilityTree, BackgroundsComeBeforeAndOverlaysAfter) {
  EXPECT_THAT(labels(Text("b").background(Text("a")).overlay(Text("c"))),
              ElementsAre("a", "b", "c"));
}

TEST(AccessibilityTree, ACutTextIsReadWhole) {
  EXPECT_THAT(labels(Text("a rather long text").lineLimit(1).frame({.width = 40})),
              ElementsAre("a rather long text"));
}

TEST(AccessibilityTree, PicturesAreSilentUnlessLabelled) {
  EXPECT_THAT(
      labels(HStack{{}, Symbol("tag"), Circle(), Image{{.path = "a.png"}, Text("stand-in")}}),
      IsEmpty());
  const auto symbol = heard(Symbol("tag").accessibilityLabel("Category"));
  ASSERT_EQ(symbol.size(), 1u);
  EXPECT_EQ(symbol[0].label, "Category");
  EXPECT_EQ(symbol[0].role, AccessibleRole::image);
}

TEST(AccessibilityTree, HiddenAndInvisibleViewsAreDropped) {
  EXPECT_THAT(labels(HStack{{}, Text("a").accessibilityHidden(), Text("b"), Text("c").opacity(0)}),
              ElementsAre("b"));
}

TEST(AccessibilityTree, ALabelReplacesTheText) {
  const auto amount = heard(Text("$12.3M").accessibilityLabel("$12,345,678.90").padding(2));
  ASSERT_EQ(amount.size(), 1u);
  EXPECT_EQ(amount[0].label, "$12,345,678.90");
  EXPECT_EQ(amount[0].role, AccessibleRole::text);
}

TEST(AccessibilityTree, ALabelledContainerIsOneElement) {
  const View chart =
      Canvas{Text("1"), Text("8")}.accessibility({.label = "Chart", .value = "rising"});
  const auto elements = heard(chart);
  ASSERT_EQ(elements.size(), 1u);
  EXPECT_EQ(elements[0].label, "Chart");
  EXPECT_EQ(elements[0].value, "rising");
}

TEST(AccessibilityTree, ControlsOfTheDirectionAreNotSaid) {
  EXPECT_THAT(labels(Text("\u2066 16%\u2069 used\u200F\u200E")), ElementsAre(" 16% used"));
  EXPECT_THAT(labels(Text("\u202Aa\u202Bb\u202Cc\u202Dd\u202Ee\u2067f\u2068g\u061C")),
              ElementsAre("abcdefg"));
  EXPECT_THAT(labels(Text("\u2068\u2069")), IsEmpty());
  const auto gauge =
      heard(Circle().accessibility({.label = "\u2068Food\u2069", .value = "\u20665\u2069"}));
  ASSERT_EQ(gauge.size(), 1u);
  EXPECT_EQ(gauge[0].label, "Food");
  EXPECT_EQ(gauge[0].value, "5");
}

// Those join or part letters: without them a word is another word.
TEST(AccessibilityTree, JoinersStay) {
  EXPECT_THAT(labels(Text("\u0915\u094D\u200D\u0937 a\u200Cb\u2026")),
              ElementsAre("\u0915\u094D\u200D\u0937 a\u200Cb\u2026"));
}

TEST(AccessibilityTree, CombinedChildrenAreJoined) {
  const View row = HStack{{},
                          Text("Rent"),
                          Symbol("tag"),
                          Text("$5").accessibility({.value = "due"}),
                          Text("x").accessibilityHidden()};
  const auto elements = heard(row.accessibility({.children = Accessibility::Children::combine}));
  ASSERT_EQ(elements.size(), 1u);
  EXPECT_EQ(elements[0].label, "Rent, $5, due");
  EXPECT_EQ(elements[0].role, AccessibleRole::group);
}

TEST(AccessibilityTree, IgnoredChildrenSayNothing) {
  const View row = HStack{{}, Text("a"), Text("b")};
  EXPECT_THAT(labels(row.accessibility({.children = Accessibility::Children::ignore})), IsEmpty());
  EXPECT_THAT(
      labels(row.accessibility({.label = "both", .children = Accessibility::Children::ignore})),
      ElementsAre("both"));
}

TEST(AccessibilityTree, ALinkIsOneElementWithItsTarget) {
  const auto elements = heard(HStack{{}, Text("Open"), Text("it")}.link("quorvel://open/due"));
  ASSERT_EQ(elements.size(), 1u);
  EXPECT_EQ(elements[0].role, AccessibleRole::link);
  EXPECT_EQ(elements[0].label, "Open, it");
  EXPECT_EQ(elements[0].link, "quorvel://open/due");
}

TEST(AccessibilityTree, CoveredViewsAreSilentUnderPrivacy) {
  const auto covered = PrivacyTreatment::covered;
  const View amount = Text("$7391.42").privacySensitive(covered);
  const View labelledInside = Text("x").accessibilityLabel("$7391.42").privacySensitive(covered);
  const View labelledOutside = Text("x").privacySensitive(covered).accessibilityLabel("$7391.42");
  const View container = HStack{{}, Text("7391")}.privacySensitive(covered);
  const View all = VStack{{}, Text("Spent"), amount, labelledInside, labelledOutside, container};
  EXPECT_THAT(labels(all, {.redaction = kPrivacy}), ElementsAre("Spent"));
  EXPECT_EQ(labels(all).size(), 5u);
  EXPECT_THAT(labels(all.accessibility({.children = Accessibility::Children::combine}),
                     {.redaction = kPrivacy}),
              ElementsAre("Spent"));
}

TEST(AccessibilityTree, MaskedViewsSayTheirMask) {
  EXPECT_THAT(labels(Text("••••")
                         .accessibilityLabel("Amounts hidden")
                         .privacySensitive(PrivacyTreatment::masked),
                     {.redaction = kPrivacy}),
              ElementsAre("Amounts hidden"));
}

TEST(AccessibilityTree, APlaceholderSaysTheWidgetsNameOnly) {
  const RedactionReasons placeholder{.placeholder = true};
  EXPECT_THAT(labels(Text("a"), {.redaction = placeholder, .name = "Due"}), ElementsAre("Due"));
  EXPECT_THAT(labels(Text("a"), {.redaction = placeholder}), IsEmpty());
}

TEST(AccessibilityTree, TheWidgetItselfComesFirstWithItsLink) {
  const View view = Text("$5").widgetURL("quorvel://open/budget");
  const auto elements = heard(view, {.name = "Safe to Spend"});
  ASSERT_EQ(elements.size(), 2u);
  EXPECT_EQ(elements[0].role, AccessibleRole::link);
  EXPECT_EQ(elements[0].label, "Safe to Spend");
  EXPECT_EQ(elements[0].link, "quorvel://open/budget");
  EXPECT_EQ(elements[0].frame.width, 200);
  EXPECT_EQ(elements[0].frame.height, 100);
  EXPECT_EQ(heard(Text("$5"), {.name = "Safe to Spend"})[0].role, AccessibleRole::group);
}

TEST(AccessibilityTree, ListsAreSeparatedAsTheirLanguageDoes) {
  const auto joined = [](const char* language) {
    const View row = HStack{{}, Symbol("tag"), Text("a").language(language), Text("b")};
    return labels(row.accessibility({.children = Accessibility::Children::combine})).front();
  };
  EXPECT_EQ(joined("ar"), "a، b");
  EXPECT_EQ(joined("ja"), "a、b");
  EXPECT_EQ(joined("zh-Hans"), "a，b");
  EXPECT_EQ(joined("ko"), "a, b");
  EXPECT_EQ(joined(""), "a, b");
}

TEST(AccessibilityTree, OneElementALine) {
  const View view = VStack{
      {.spacing = 0},
      Text("Days\nleft").font(10),
      Text("Open").font(10).link("quorvel://open/due"),
      Circle().frame({.width = 20, .height = 20}).accessibility({.label = "Used", .value = "61%"})};
  FixedCellMeasurer measurer;
  const LayoutTree tree = layOut(view.fixedSize(), {.size = {24, 56.3}}, measurer);
  EXPECT_EQ(accessibilityTree(tree, {}),
            "text \"Days left\" [0 0 24 24]\n"
            "link \"Open\" link quorvel://open/due [0 24 24 12]\n"
            "image \"Used\" value \"61%\" [2 36 20 20]\n");
}

}  // namespace
}  // namespace rendering
