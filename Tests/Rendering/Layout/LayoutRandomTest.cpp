// Trees made at random: whatever comes in, sizes are numbers, nothing is lost, and no question is
// worked out too often.
#include <gtest/gtest.h>

#include <set>

#include "PlacedNodes.hpp"
#include "RandomTrees.hpp"

namespace rendering {
namespace {

using namespace viewkit;

/// Counts the view's nodes and modifiers as placed: of a Fitting's children the one that was taken.
class Counter {
 public:
  explicit Counter(const PlacedNode& root) { find(root); }

  [[nodiscard]] std::size_t count(const View& view) const {
    if (view.isEmpty()) return 1;
    const Node& node = view.node();
    std::size_t sum = 1 + node.modifiers.size();
    const bool takesOne = std::holds_alternative<FittingElement>(node.element);
    for (const View& child : node.children) {
      if (!takesOne || placed_.contains(&child.node())) sum += count(child);
    }
    for (const Modifier& modifier : node.modifiers) {
      if (const auto* m = std::get_if<Background>(&modifier)) sum += count(m->content);
      if (const auto* m = std::get_if<Overlay>(&modifier)) sum += count(m->content);
    }
    return sum;
  }

 private:
  void find(const PlacedNode& node) {
    if (node.element()) placed_.insert(node.source);
    const bool isFitting =
        node.element() && std::holds_alternative<FittingElement>(*node.element());
    EXPECT_TRUE(!isFitting || node.children.size() <= 1);
    for (const PlacedNode& child : node.children) find(child);
  }
  std::set<const Node*> placed_;
};

std::size_t checkedCount(const PlacedNode& node) {
  const Rect& f = node.frame;
  EXPECT_TRUE(std::isfinite(f.x) && std::isfinite(f.y)) << f.x << " " << f.y;
  EXPECT_TRUE(std::isfinite(f.width) && f.width >= 0) << f.width;
  EXPECT_TRUE(std::isfinite(f.height) && f.height >= 0) << f.height;
  EXPECT_TRUE(std::isfinite(node.proposal.width) && std::isfinite(node.proposal.height));
  EXPECT_NE(node.source, nullptr);
  if (node.text) {
    EXPECT_FALSE(node.text->lines.empty());
    EXPECT_GE(node.text->size, 0);
    for (const PlacedLine& line : node.text->lines) {
      EXPECT_LE(line.first, line.last);
      EXPECT_TRUE(std::isfinite(line.x) && std::isfinite(line.baseline) && line.width >= 0);
    }
  }
  std::size_t count = 1;
  for (const PlacedNode& child : node.children) count += checkedCount(child);
  return count;
}

TEST(LayoutRandom, SizesAreNumbersAndNothingIsLost) {
  FixedCellMeasurer measurer;
  for (unsigned seed = 0; seed < 1500 && !testing::Test::HasFailure(); ++seed) {
    const View view = TreeMaker(seed, false).view(4);
    for (const LayoutDirection direction : {kLtr, kRtl}) {
      const LayoutTree tree = layOut(view, {.size = {170, 120}, .direction = direction}, measurer);
      EXPECT_EQ(checkedCount(tree.root), Counter(tree.root).count(view)) << "seed " << seed;
    }
  }
}

TEST(LayoutRandom, AnswersToEveryKindOfProposal) {
  FixedCellMeasurer measurer;
  const std::optional<double> offers[] = {
      std::nullopt, 0, 1, 17.5, 200, 1e300, kInfinity, -3, kNan};
  for (unsigned seed = 0; seed < 150 && !testing::Test::HasFailure(); ++seed) {
    const View view = TreeMaker(seed, seed % 2 == 0).view(3);
    for (const auto width : offers) {
      for (const auto height : offers) {
        const Size size = sizeThatFits(view, {width, height}, kLtr, measurer);
        EXPECT_GE(size.width, 0) << "seed " << seed;
        EXPECT_GE(size.height, 0) << "seed " << seed;
      }
    }
  }
}

TEST(LayoutRandom, RightToLeftIsTheMirrorImage) {
  // Only trees without a direction of their own mirror as a whole.
  struct Compare {
    static void nodes(const PlacedNode& a, const PlacedNode& b, double width) {
      ASSERT_EQ(a.children.size(), b.children.size());
      EXPECT_NEAR(a.frame.x, width - b.frame.right(), 1e-6);
      EXPECT_NEAR(a.frame.y, b.frame.y, 1e-6);
      EXPECT_NEAR(a.frame.width, b.frame.width, 1e-6);
      EXPECT_NEAR(a.frame.height, b.frame.height, 1e-6);
      for (std::size_t i = 0; i < a.children.size(); ++i)
        nodes(a.children[i], b.children[i], width);
    }
    static bool hasDirection(const PlacedNode& node) {
      if (node.modifier() && std::holds_alternative<Direction>(*node.modifier())) return true;
      return std::ranges::any_of(node.children, hasDirection);
    }
  };
  int compared = 0;
  for (unsigned seed = 0; seed < 400; ++seed) {
    const View view = TreeMaker(seed, true).view(3);
    const LayoutTree left = placed(view, {170, 120});
    if (Compare::hasDirection(left.root)) continue;
    Compare::nodes(left.root, placed(view, {170, 120}, kRtl).root, 170);
    ++compared;
  }
  EXPECT_GT(compared, 50);
}

/// A Fitting of one child, which takes it cut or not.
bool mayBeCut(const PlacedNode& node) {
  if (!node.element() || !std::holds_alternative<FittingElement>(*node.element())) return false;
  const auto isPresent = [](const View& view) { return !view.isEmpty(); };
  return std::ranges::count_if(node.source->children, isPresent) == 1;
}

/// A text that ends in an ellipsis or leaves out clusters other than spaces.
bool hasCutText(const PlacedNode& node) {
  if (mayBeCut(node)) return false;
  if (node.text && node.text->isCut()) return true;
  return std::ranges::any_of(node.children, hasCutText);
}

/// A line that ends before a cluster behind which no line may end.
bool hasBrokenWord(const PlacedNode& node) {
  if (mayBeCut(node)) return false;
  if (node.text) {
    const auto& lines = node.text->lines;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
      std::uint32_t last = lines[i + 1].first;
      if (last > 0 && !node.text->paragraph->clusters[last - 1].breakAfter) return true;
    }
  }
  return std::ranges::any_of(node.children, hasBrokenWord);
}

// Second method: what a Fitting took is compared with each child laid out by itself.
TEST(LayoutRandom, AFittingTakesTheFirstChildThatFitsByItself) {
  int taken[4] = {};
  for (unsigned seed = 0; seed < 1500; ++seed) {
    TreeMaker maker(seed, true);
    std::vector<View> views;
    for (int i = 0; i < 4; ++i) views.push_back(maker.view(2));
    const Size size{20.0 + seed % 300, 15.0 + seed % 130};
    const LayoutTree tree = placed(Fitting{views}, size);
    std::size_t first = 0;
    for (; first < 3; ++first) {
      const LayoutTree alone = placed(views[first], size);
      const Rect& frame = alone.root.frame;
      if (frame.width > size.width + 1e-6 || frame.height > size.height + 1e-6) continue;
      if (!hasCutText(alone.root) && !hasBrokenWord(alone.root)) break;
    }
    EXPECT_EQ(elementOf(tree.root.children.at(0)).source, &views[first].node()) << "seed " << seed;
    ++taken[first];
  }
  for (const int count : taken) EXPECT_GT(count, 20);
}

// Second method: the group's scale is read off the placed texts.
TEST(LayoutRandom, TheTextsOfAGroupHaveOneScaleOrTheirMinimum) {
  int shrunk = 0;
  for (unsigned seed = 0; seed < 3000; ++seed) {
    const View view = TreeMaker(seed, true).view(3).sharedScale();
    const LayoutTree tree = placed(view, {20.0 + seed % 200, 15.0 + seed % 90});
    double most = 0;
    double least = 1;
    const auto find = [&](const auto& self, const PlacedNode& node) -> void {
      const auto* text = node.element() ? std::get_if<TextElement>(node.element()) : nullptr;
      if (text && text->lineLimit == 1 && text->minimumScaleFactor > 0 &&
          text->minimumScaleFactor < 1) {
        least = std::min(least, node.text->scale);
        if (node.text->scale > text->minimumScaleFactor + 1e-6) {
          most = std::max(most, node.text->scale);
        }
      }
      for (const PlacedNode& child : node.children) self(self, child);
    };
    find(find, tree.root);
    if (most > 0) {
      EXPECT_LE(most, least + 1e-5) << "seed " << seed;
    }
    shrunk += most > 0 && most < 1 ? 1 : 0;
  }
  EXPECT_GT(shrunk, 5);
}

std::size_t questions(const View& view) {
  FixedCellMeasurer measurer;
  std::size_t count = 0;
  const LayoutOptions options{.size = {364, 382}, .trace = [&](const LayoutStep&) { ++count; }};
  static_cast<void>(layOut(view, options, measurer));
  return count;
}

View alternating(int depth) {
  View view = Text("leaf");
  for (int i = 0; i < depth; ++i) {
    if (i % 2 == 0) {
      view = HStack{{}, Text("a").lineLimit(1), view, Rectangle()};
    } else {
      view = VStack{{}, Text("words that wrap"), view, Spacer{}};
    }
  }
  return view;
}

TEST(LayoutRandom, NestedStacksAskLessThanTheSquareOfTheirDepth) {
  const std::size_t shallow = questions(alternating(16));
  const std::size_t deep = questions(alternating(64));
  EXPECT_LT(shallow, 16u * 16 * 4);
  EXPECT_LT(deep, shallow * 16) << "growth above the square of the depth";
}

TEST(LayoutRandom, FourThousandNodesAskAFewTimesEach) {
  std::vector<View> rows;
  for (int i = 0; i < 800; ++i) {
    rows.push_back(HStack{{}, Symbol("tag"), Text("name"), Spacer{}, Text("amount").lineLimit(1)});
  }
  EXPECT_LT(questions(VStack{{}, rows}), 4001u * 12);
}

TEST(LayoutRandom, TheTraceTellsProposalsAndAnswers) {
  FixedCellMeasurer measurer;
  std::vector<LayoutStep> steps;
  const View view = box(20, 10).padding(5);
  const LayoutOptions options{.size = {100, 50},
                              .trace = [&](const LayoutStep& step) { steps.push_back(step); }};
  static_cast<void>(layOut(view, options, measurer));
  ASSERT_EQ(steps.size(), 3u);
  EXPECT_EQ(steps[0].depth, 2);
  EXPECT_EQ(steps[0].proposal, (Proposal{20, 10}));
  EXPECT_EQ(steps[1].proposal, (Proposal{90, 40}));
  EXPECT_EQ(steps[2].proposal, (Proposal{100, 50}));
  EXPECT_EQ(steps[2].answer, (Size{30, 20}));
  EXPECT_EQ(steps[2].depth, 0);
}

}  // namespace
}  // namespace rendering
