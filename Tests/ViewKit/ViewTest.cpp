// Views as values: equality, immutability, and what containers make of their children.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ViewKit/ViewKit.hpp"

namespace viewkit {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

struct Badge {
  static constexpr std::string_view kName = "Badge";
  std::string text;
  [[nodiscard]] View body() const { return Text{text}.padding(2); }
};

struct Sticker : Modifiers<Sticker> {
  static constexpr std::string_view kName = "Sticker";
  std::string text{};
  [[nodiscard]] View body() const { return asView(Badge{text}); }
};

View sample() {
  return HStack{{.spacing = 4}, Text{"Due"}.font(13), Spacer{}, Circle().fill(Color::white())}
      .padding({.top = 8})
      .background(Capsule());
}

const TextElement& text(const View& view) {
  return std::get<TextElement>(view.node().element);
}

// ---- equality

TEST(View, EqualConstructionsAreEqual) {
  EXPECT_EQ(sample(), sample());
  EXPECT_NE(&sample().node(), nullptr);
}

TEST(View, EveryPartCountsForEquality) {
  const View base = sample();
  EXPECT_NE(base, base.padding(1));
  EXPECT_NE(base, View(VStack{{.spacing = 4}}));
  EXPECT_NE(View(Text{"a"}), View(Text{"b"}));
  EXPECT_NE(View(HStack{{}, Text{"a"}}), View(HStack{{}, Text{"a"}, Text{"a"}}));
  EXPECT_NE(base.opacity(0.5).padding(2), base.padding(2).opacity(0.5)) << "modifiers are ordered";
  EXPECT_NE(base.background(Circle()), base.overlay(Circle()));
}

TEST(View, TheComponentsNameDoesNotCount) {
  EXPECT_EQ(sample().named("Header"), sample());
  EXPECT_EQ(asView(Badge{"x"}), Text{"x"}.padding(2));
}

TEST(View, TheInnermostNameStays) {
  Sticker sticker;
  sticker.text = "x";
  EXPECT_EQ(asView(sticker).node().component, "Badge");
  EXPECT_EQ(sample().named("A").named("B").node().component, "A");
}

TEST(View, EmptyViewsAreEqual) {
  EXPECT_EQ(View{}, View{});
  EXPECT_EQ(View{}, View{EmptyElement{}});
  EXPECT_NE(View{}, View(Text{""}));
  EXPECT_TRUE(View{}.isEmpty());
  EXPECT_FALSE(View(Text{""}).isEmpty());
}

// ---- immutability

TEST(View, AModifiedCopyLeavesTheOriginalUntouched) {
  const View original = sample();
  const View copy = original;
  const View modified = copy.opacity(0.5).named("Changed");
  EXPECT_EQ(original, sample());
  EXPECT_THAT(original.node().modifiers, SizeIs(2));
  EXPECT_THAT(modified.node().modifiers, SizeIs(3));
  EXPECT_EQ(original.node().component, "");
}

TEST(View, ModifyingATemporaryThatIsSharedLeavesTheOthersUntouched) {
  const View original = sample();
  const View modified = View{original}.opacity(0.5).padding(1);
  EXPECT_EQ(original, sample());
  EXPECT_THAT(modified.node().modifiers, SizeIs(4));
}

TEST(View, AnUnsharedTemporaryIsModifiedInPlace) {
  View view = sample();
  const Node* const node = &view.node();
  const View modified = std::move(view).opacity(0.5);
  EXPECT_EQ(&modified.node(), node);
}

TEST(View, ANamedViewIsNeverModifiedInPlace) {
  View view = sample();
  const View modified = view.opacity(0.5);
  EXPECT_NE(&modified.node(), &view.node());
  EXPECT_EQ(view, sample());
}

TEST(View, AViewCanCarryItself) {
  View view = sample();
  const View copy = view;
  const View doubled = std::move(view).background(copy);
  EXPECT_EQ(copy, sample());
  EXPECT_EQ(std::get<Background>(doubled.node().modifiers.back()).content, sample());
}

TEST(View, MovedFromViewsAreEmpty) {
  View view = sample();
  const View other = std::move(view);
  EXPECT_TRUE(view.isEmpty());  // NOLINT(bugprone-use-after-move): that is the promise
  EXPECT_EQ(other, sample());
}

TEST(View, LeavesAreRefinedInCopies) {
  const Text plain{"Due"};
  const Text large = plain.font(32, FontWeight::bold);
  EXPECT_EQ(text(plain).size, 17);
  EXPECT_EQ(text(large).size, 32);
  const Shape circle = Circle();
  EXPECT_NE(View(circle.stroke(Color::black(), 2)), View(circle));
  EXPECT_EQ(View(circle), View(Circle()));
}

// ---- modifiers

TEST(View, NothingWrapsTheEmptyView) {
  EXPECT_EQ(View{}.padding(4), View{});
  EXPECT_EQ(View{}.containerBackground(Circle()), View{});
}

TEST(View, AnEmptyBackgroundOrOverlayIsNone) {
  EXPECT_EQ(sample().background(View{}), sample());
  EXPECT_EQ(sample().overlay(View{}), sample());
  const View named = sample();
  EXPECT_EQ(named.background(View{}), sample());
}

TEST(View, ModifiersStandInOrderInnermostFirst) {
  const View view = Text{"x"}.padding(1).opacity(0.5).zIndex(2);
  ASSERT_THAT(view.node().modifiers, SizeIs(3));
  EXPECT_EQ(view.node().modifiers[0], Modifier{Padding{Insets::all(1)}});
  EXPECT_EQ(view.node().modifiers[1], Modifier{Opacity{0.5}});
  EXPECT_EQ(view.node().modifiers[2], Modifier{ZIndex{2}});
}

// ---- children

TEST(Children, StandInTheirOrder) {
  const View stack = VStack{{}, Text{"a"}, Badge{"b"}, Text{"c"}.opacity(0.5)};
  EXPECT_THAT(
      stack.node().children,
      ElementsAre(View(Text{"a"}), View(Text{"b"}.padding(2)), View(Text{"c"}.opacity(0.5))));
}

TEST(Children, EmptyOnesAreDropped) {
  const View stack = VStack{{}, View{}, Text{"a"}, View{EmptyElement{}}};
  EXPECT_THAT(stack.node().children, ElementsAre(View(Text{"a"})));
}

TEST(Children, WhenAddsOnlyIfTrueAndAsksOnlyThen) {
  int asked = 0;
  const auto make = [&] {
    ++asked;
    return Text{"a"};
  };
  EXPECT_THAT(View(ZStack{{}, when(false, make)}).node().children, SizeIs(0));
  EXPECT_EQ(asked, 0);
  EXPECT_THAT(View(ZStack{{}, when(true, make)}).node().children, ElementsAre(View(Text{"a"})));
  EXPECT_EQ(asked, 1);
}

TEST(Children, ForEachAddsOneAnItemAndDropsEmptyOnes) {
  const std::vector<std::string> items{"a", "", "b"};
  const View canvas = Canvas{forEach(items, [](const std::string& item) -> View {
    if (item.empty()) return {};
    return Text{item};
  })};
  EXPECT_THAT(canvas.node().children, ElementsAre(View(Text{"a"}), View(Text{"b"})));
}

TEST(Children, ForEachTakesComponents) {
  const View stack =
      VStack{{}, forEach(std::vector<int>{1, 2}, [](int i) { return Badge{std::to_string(i)}; })};
  ASSERT_THAT(stack.node().children, SizeIs(2));
  EXPECT_EQ(stack.node().children[1].node().component, "Badge");
}

TEST(Children, OptionsReachTheElement) {
  const View row = HStack{{.alignment = VerticalAlignment::firstTextBaseline, .spacing = 3}};
  const auto& stack = std::get<StackElement>(row.node().element);
  EXPECT_EQ(stack.axis, StackElement::Axis::horizontal);
  EXPECT_EQ(stack.alignment.vertical, VerticalAlignment::firstTextBaseline);
  EXPECT_EQ(stack.spacing, 3);
}

TEST(Children, ImageAndGaugeHoldOneChildOrNone) {
  EXPECT_THAT(View(Image{{.path = "a.png"}, View{}}).node().children, SizeIs(0));
  EXPECT_THAT(View(Image{{.path = "a.png"}, Circle()}).node().children,
              ElementsAre(View(Circle())));
  EXPECT_THAT(View(Gauge{{.fraction = 1}, Text{"5"}}).node().children,
              ElementsAre(View(Text{"5"})));
}

// ---- colours

TEST(Color, OpacityMultipliesInBothAppearances) {
  const Color soft = Color::black().withOpacities(0.5, 0.25).withOpacity(0.5);
  EXPECT_EQ(soft.opacityIn(Appearance::light), 0.25);
  EXPECT_EQ(soft.opacityIn(Appearance::dark), 0.125);
  EXPECT_EQ(Color::white().withOpacity(0.5).opacityIn(Appearance::dark), 0.5);
}

TEST(Gradient, EvenStopsReachFromZeroToOne) {
  const Color c = Color::white();
  EXPECT_THAT(Gradient::even({c, c, c}, {0, 0}, {1, 1}).stops,
              ElementsAre(GradientStop{c, 0}, GradientStop{c, 0.5}, GradientStop{c, 1}));
  EXPECT_THAT(Gradient::even({c}, {0, 0}, {1, 1}).stops, ElementsAre(GradientStop{c, 0}));
  EXPECT_THAT(Gradient::even({}, {0, 0}, {1, 1}).stops, SizeIs(0));
}

}  // namespace
}  // namespace viewkit
