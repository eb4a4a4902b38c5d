// Symbols: every row of the table has an outline in its box; unknown names fall back in a fixed
// order.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>

#include "Rendering/Symbols/SymbolData.hpp"
#include "Rendering/Symbols/SymbolLibrary.hpp"

namespace rendering {
namespace {

std::vector<std::string> tableNames() {
  std::ifstream in(QUORVEL_SOURCE_DIR "/Host/Rendering/Symbols/symbols.tsv");
  std::vector<std::string> names;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line[0] != '#') names.push_back(line.substr(0, line.find('\t')));
  }
  return names;
}

/// The box of the outline itself, by points along its curves; control points may lie far outside.
Rect curveBounds(const Path& path) {
  Path points;
  Point from;
  const Point* next = path.points.data();
  for (PathVerb verb : path.verbs) {
    if (verb == PathVerb::close) continue;
    if (verb != PathVerb::cubic) {
      points.moveTo(from = *next++);
      continue;
    }
    for (int i = 1; i <= 32; ++i) {
      const double t = i / 32.0;
      const double u = 1 - t;
      const auto at = [&](double a, double b, double c, double d) {
        return u * u * u * a + 3 * u * u * t * b + 3 * u * t * t * c + t * t * t * d;
      };
      points.moveTo({at(from.x, next[0].x, next[1].x, next[2].x),
                     at(from.y, next[0].y, next[1].y, next[2].y)});
    }
    from = next[2];
    next += 3;
  }
  return points.bounds();
}

TEST(Symbol, EveryRowResolvesToAnOutlineInItsBox) {
  const auto names = tableNames();
  ASSERT_EQ(names.size(), symboldata::kNameCount);
  ASSERT_GT(names.size(), 1600u);
  for (const std::string& name : names) {
    const auto recipe = findSymbol(name);
    ASSERT_TRUE(recipe) << name;
    const auto layers = iconLayers(recipe->icon);
    ASSERT_FALSE(layers.empty()) << name;
    for (const SymbolLayer& layer : layers) {
      ASSERT_FALSE(layer.path.empty()) << name;
      // Outlines stay in the box of 16 units around the origin; a few drawings touch or overstep it
      // slightly.
      const Rect b = curveBounds(layer.path);
      EXPECT_GE(b.x, -9.01) << name;
      EXPECT_GE(b.y, -9.01) << name;
      EXPECT_LE(b.right(), 9.01) << name;
      EXPECT_LE(b.bottom(), 9.01) << name;
    }
    const Rect all = layers[0].path.bounds();
    EXPECT_GT(all.width + all.height, 0.5) << name;
  }
}

TEST(Symbol, NamesAreSortedForTheSearch) {
  for (unsigned i = 1; i < symboldata::kNameCount; ++i) {
    EXPECT_LT(std::string(symboldata::kNameText + symboldata::kNames[i - 1].name),
              std::string(symboldata::kNameText + symboldata::kNames[i].name));
  }
}

TEST(Symbol, UnknownNamesLoseTheirModifiersFirst) {
  EXPECT_EQ(resolveSymbol("creditcard.fill.badge.plus"), *findSymbol("creditcard.fill"));
  EXPECT_EQ(resolveSymbol("wifi.slash.inverse"), resolveSymbol("wifi.slash"));
  EXPECT_FALSE(findSymbol("drop.fill.2"));
  EXPECT_EQ(resolveSymbol("drop.fill.2"), *findSymbol("drop.fill"));
}

TEST(Symbol, ThenTheLongestKnownBeginningCounts) {
  ASSERT_FALSE(findSymbol("house.lightning.blue"));
  EXPECT_EQ(resolveSymbol("house.lightning.blue"), *findSymbol("house"));
}

TEST(Symbol, LettersAndNumbersStandInTheirContainer) {
  const SymbolRecipe seven = resolveSymbol("7.circle.fill");
  EXPECT_EQ(seven.letters, "7");
  EXPECT_EQ(seven.container, SymbolContainer::solidCircle);
  const SymbolRecipe q = resolveSymbol("q.square");
  EXPECT_EQ(q.letters, "Q");
  EXPECT_EQ(q.container, SymbolContainer::square);
}

TEST(Symbol, TheGivenFallbackComesBeforeTheTag) {
  EXPECT_EQ(resolveSymbol("quite-unknown", "drop.fill"), *findSymbol("drop.fill"));
  EXPECT_EQ(resolveSymbol("quite-unknown", "also-unknown"), *findSymbol("tag.fill"));
  EXPECT_EQ(resolveSymbol(""), *findSymbol("tag.fill"));
  EXPECT_EQ(resolveSymbol("."), *findSymbol("tag.fill"));
  EXPECT_EQ(resolveSymbol("...."), *findSymbol("tag.fill"));
  EXPECT_EQ(resolveSymbol("house.fill", "drop.fill"), *findSymbol("house.fill"));
}

TEST(Symbol, OnlyDirectionalSymbolsMirror) {
  EXPECT_TRUE(mirrorsInRightToLeft("arrow.up.right"));
  EXPECT_TRUE(mirrorsInRightToLeft("chevron.forward"));
  EXPECT_TRUE(mirrorsInRightToLeft("arrow.backward.circle"));
  EXPECT_FALSE(mirrorsInRightToLeft("cart.fill"));
  EXPECT_FALSE(mirrorsInRightToLeft("chevron.forwarder"));
}

class SymbolDrawings : public testing::Test {
 protected:
  FontLibrary fonts;
  SymbolLibrary library{fonts};
};

TEST_F(SymbolDrawings, WeightThickensLinesAndLeavesSolidDrawings) {
  using viewkit::FontWeight;
  EXPECT_EQ(library.drawing("wifi", "", FontWeight::regular).layers[0].stroke, 0);
  // 0.65 of 16 units, the box being 1.15 em.
  EXPECT_NEAR(
      library.drawing("wifi", "", FontWeight::bold).layers[0].stroke, 0.65 / 16 * 1.15, 1e-9);
  EXPECT_EQ(library.drawing("house.fill", "", FontWeight::bold).layers[0].stroke, 0);
  EXPECT_EQ(library.drawing("fork.knife", "", FontWeight::bold).layers[0].stroke, 0);
}

TEST_F(SymbolDrawings, SolidContainersAndBadgesAreCutOut) {
  using viewkit::FontWeight;
  const auto& solid = library.drawing("airplane.circle.fill", "", FontWeight::regular);
  EXPECT_FALSE(solid.layers[0].erases);
  EXPECT_TRUE(solid.layers[1].erases);
  EXPECT_NEAR(solid.bounds.width, 1.24, 1e-9);
  const auto& badged = library.drawing("calendar.badge.clock", "", FontWeight::regular);
  const auto rings = std::ranges::count_if(badged.layers, &SymbolLayer::erases);
  EXPECT_EQ(rings, 1);
  EXPECT_NEAR(badged.bounds.right(), 0.42 + 0.58 * 1.15 / 2, 0.01)
      << "the badge reaches farthest right";
}

TEST_F(SymbolDrawings, AreMadeOnce) {
  const auto& first = library.drawing("wifi", "", viewkit::FontWeight::bold);
  EXPECT_EQ(&first, &library.drawing("wifi", "", viewkit::FontWeight::bold));
  EXPECT_NE(first.id, library.drawing("wifi", "", viewkit::FontWeight::heavy).id);
}

}  // namespace
}  // namespace rendering
