// The layout tree's dump.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"
#include "Rendering/Layout/PlacedDump.hpp"

namespace rendering {
namespace {

using namespace viewkit;

struct Tile {
  static constexpr std::string_view kName = "Tile";
  [[nodiscard]] View body() const {
    return Symbol("tag.fill").font(10).frame({.width = 20, .height = 20}).background(Capsule());
  }
};

TEST(LayoutDump, OneElementALineWithFramesOfViewAndModifiers) {
  const View view = HStack{{.spacing = 4},
                           Tile{},
                           VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
                                  Text("aaaa bbbb").font(10),
                                  Text("cccccccccc").font(10).lineLimit(1)},
                           Spacer{}};
  // The column is offered all but the tile, the gap and the spacer's 8: 40 of 76 with two gaps
  // of 4.
  EXPECT_EQ(dumpPlaced(placed(view, {76, 40})),
            "HStack 0 1.85 76 36.3\n"
            "  Symbol tag.fill <Tile> 4.5 13.95 11 12.1 in 0 10 20 20\n"
            "    background Capsule 0 10 20 20\n"
            "  VStack 24 1.85 36 36.3\n"
            "    Text \"aaaa\" / \"bbbb\" 24 1.85 24 24.2\n"
            "    Text \"ccccc…\" cut 24 26.05 36 12.1\n"
            "  Spacer 64 20 12 0\n");
}

TEST(LayoutDump, ShrunkTextsSayTheirScale) {
  const View view = Text("aaaaaaaaaa").font(10).lineLimit(1).minimumScaleFactor(0.5);
  EXPECT_EQ(dumpPlaced(placed(view, {45, 20})), "Text \"aaaaaaaaaa\" scale 0.75 0 5.46 45 9.07\n");
}

TEST(LayoutDump, AnEmptyViewIsALine) {
  EXPECT_EQ(dumpPlaced(placed(View{}, {40, 20})), "Empty 20 10 0 0\n");
}

}  // namespace
}  // namespace rendering
