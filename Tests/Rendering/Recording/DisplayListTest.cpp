// Display lists as text: what is recorded, in which order, in which colours.
#include <gtest/gtest.h>

#include "Rendering/Layout/Layout.hpp"
#include "Rendering/Recording/DisplayList.hpp"
#include "Rendering/Recording/Recorder.hpp"
#include "ViewKit/ViewKit.hpp"

namespace rendering {
namespace {

using namespace viewkit;

class DisplayLists : public testing::Test {
 protected:
  std::string recorded(const View& view, RenderOptions options = {}) {
    options.size = {40, 20};
    const LayoutTree tree =
        layOut(view, {.size = options.size, .direction = options.direction}, measurer);
    DisplayList list;
    EXPECT_TRUE(record(tree, options, {measurer, symbols, images, colorGlyphs}, list));
    return describe(list);
  }

  FontLibrary fonts;
  FontMeasurer measurer{fonts};
  SymbolLibrary symbols{fonts};
  ImageCache images;
  ColorGlyphs colorGlyphs{fonts};
};

View box(Color color) {
  return Rectangle().fill(color).frame({.width = Length(10), .height = Length(10)});
}

TEST_F(DisplayLists, BackgroundsComeBeforeAndOverlaysAfter) {
  const View view = box(Color::same(0x00FF00))
                        .background(box(Color::same(0xFF0000)))
                        .overlay(box(Color::same(0x0000FF)));
  EXPECT_EQ(recorded(view),
            "rect 15.00,5.00 10.00x10.00 #FF0000\n"
            "rect 15.00,5.00 10.00x10.00 #00FF00\n"
            "rect 15.00,5.00 10.00x10.00 #0000FF\n");
}

TEST_F(DisplayLists, OpacityFoldsIntoTheColour) {
  EXPECT_EQ(recorded(box(Color::same(0xFF0000)).opacity(0.5).opacity(0.5)),
            "rect 15.00,5.00 10.00x10.00 #FF0000@0.25\n");
}

TEST_F(DisplayLists, OverlappingViewsFadeAsAGroup) {
  const View view = ZStack{{}, box(Color::same(0xFF0000)), box(Color::same(0x0000FF))}.opacity(0.5);
  EXPECT_EQ(recorded(view),
            "group @0.50\n"
            "  rect 15.00,5.00 10.00x10.00 #FF0000\n"
            "  rect 15.00,5.00 10.00x10.00 #0000FF\n");
}

TEST_F(DisplayLists, WhatCannotBeSeenIsNotRecorded) {
  EXPECT_EQ(recorded(box(Color::same(0xFF0000)).opacity(0)), "");
  EXPECT_EQ(recorded(Circle().fill(Color::clear())), "");
  EXPECT_EQ(recorded(Circle().fill(Color::clear()).clip(CapsuleShape{})), "");
}

TEST_F(DisplayLists, TheInnerForegroundStyleWins) {
  const View view = VStack{{.spacing = 0},
                           Circle().frame({.width = Length(10), .height = Length(10)}),
                           Circle()
                               .frame({.width = Length(10), .height = Length(10)})
                               .foregroundStyle(Color::same(0x00FF00))}
                        .foregroundStyle(Color::same(0xFF0000));
  EXPECT_EQ(recorded(view),
            "fill 15.00,0.00 10.00x10.00 #FF0000\n"
            "fill 15.00,10.00 10.00x10.00 #00FF00\n");
}

TEST_F(DisplayLists, OpacityMayDifferByAppearance) {
  const Color soft = Color::dynamic(0x102030, 0x405060).withOpacities(0.1, 0.24);
  EXPECT_EQ(recorded(box(soft)), "rect 15.00,5.00 10.00x10.00 #102030@0.10\n");
  EXPECT_EQ(recorded(box(soft), {.appearance = Appearance::dark}),
            "rect 15.00,5.00 10.00x10.00 #405060@0.24\n");
}

TEST_F(DisplayLists, AShadowOfAnOpaqueClipIsThatOfItsShape) {
  const View view = box(Color::same(0xFF0000))
                        .clip(CircleShape{})
                        .shadow({Color::black().withOpacity(0.3), 4, 1, 2});
  EXPECT_EQ(recorded(view),
            "shadow 15.00,5.00 10.00x10.00 blur 4.00 by 1.00,2.00 #000000@0.30\n"
            "clip 15.00,5.00 10.00x10.00\n"
            "  rect 15.00,5.00 10.00x10.00 #FF0000\n");
}

TEST_F(DisplayLists, AVeilOfTheSameShapeThrowsNoShadowOfItsOwn) {
  const View veil = Circle().fill(Color::black().withOpacity(0.2));
  const Shadow shadow{Color::black(), 4, 0, 0};
  for (const View& ground : {View{box(Color::same(0xFF0000)).clip(CircleShape{})},
                             View{Circle().fill(Color::white())}}) {
    const View view =
        ground.overlay(veil).shadow(shadow).frame(FixedFrame{.width = 10, .height = 10});
    EXPECT_TRUE(recorded(view).starts_with("shadow 15.00,5.00 10.00x10.00 ")) << recorded(view);
  }
  const View wider = View{Circle().fill(Color::white())}
                         .overlay(Rectangle().fill(Color::black().withOpacity(0.2)))
                         .shadow(shadow)
                         .frame(FixedFrame{.width = 10, .height = 10});
  EXPECT_TRUE(recorded(wider).starts_with("shadow of 2 ")) << recorded(wider);
}

TEST_F(DisplayLists, AShadowOfATranslucentViewIsThatOfItsPixels) {
  const View view = box(Color::same(0xFF0000).withOpacity(0.5)).shadow({Color::black(), 4, 0, 0});
  EXPECT_EQ(recorded(view),
            "shadow of 1 blur 4.00 by 0.00,0.00 #000000\n"
            "  rect 15.00,5.00 10.00x10.00 #FF0000@0.50\n");
}

TEST_F(DisplayLists, TrendArrowsMirrorAndCartsDoNot) {
  const RenderOptions rtl{.direction = LayoutDirection::rightToLeft};
  EXPECT_NE(recorded(Symbol{"arrow.up.right"}, rtl).find("mirrored"), std::string::npos);
  EXPECT_EQ(recorded(Symbol{"cart.fill"}, rtl).find("mirrored"), std::string::npos);
  EXPECT_EQ(recorded(Symbol{"arrow.up.right"}).find("mirrored"), std::string::npos);
}

}  // namespace
}  // namespace rendering
