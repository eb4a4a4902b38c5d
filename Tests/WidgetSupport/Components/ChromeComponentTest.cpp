#include <gtest/gtest.h>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetChrome.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetLink.hpp"
#include "Tests/Support/Snapshots.hpp"
#include "Tests/Support/ViewInspection.hpp"

namespace quorvel {
namespace {

using namespace viewkit;
using widgetruntime::Environment;
using widgetruntime::RenderingMode;
using widgetruntime::WidgetFamily;

WidgetChrome chrome() {
  return {.background = Rectangle().fill(palette::canvas),
          .content = Text{"content"},
          .link = "quorvel-widget://open/budget"};
}

TEST(ChromeComponent, PadsByTheHostsMarginsAndLeavesTheBackgroundToTheHost) {
  WidgetChrome widget = chrome();
  widget.environment.systemMargins = {.top = 11, .leading = 12, .bottom = 13, .trailing = 14};
  const View view = widget;
  EXPECT_EQ(testsupport::modifier<Padding>(view)->insets, widget.environment.systemMargins);
  EXPECT_NE(testsupport::modifier<ContainerBackground>(view), nullptr);
  EXPECT_EQ(testsupport::modifier<Background>(view), nullptr);
}

TEST(ChromeComponent, DrawsItsOwnBackgroundInAPreview) {
  WidgetChrome widget = chrome();
  widget.preview = true;
  widget.environment.systemMargins = Insets::all(9);
  const View view = widget;
  EXPECT_EQ(testsupport::modifier<Padding>(view)->insets, Insets::all(16));
  EXPECT_EQ(testsupport::modifier<FlexibleFrame>(view)->maxWidth, kInfinity);
  EXPECT_EQ(testsupport::modifier<FlexibleFrame>(view)->maxHeight, kInfinity);
  EXPECT_EQ(testsupport::modifier<ContainerBackground>(view), nullptr);
  EXPECT_NE(testsupport::modifier<Background>(view), nullptr);
}

TEST(ChromeComponent, PadsNothingWhenNotAsked) {
  for (const bool preview : {false, true}) {
    WidgetChrome widget = chrome();
    widget.padded = false;
    widget.preview = preview;
    EXPECT_EQ(testsupport::modifier<Padding>(widget), nullptr);
  }
}

TEST(ChromeComponent, CarriesLinkAndDirection) {
  WidgetChrome widget = chrome();
  widget.direction = LayoutDirection::rightToLeft;
  const View view = widget;
  EXPECT_EQ(testsupport::modifier<WidgetURL>(view)->url, "quorvel-widget://open/budget");
  EXPECT_EQ(testsupport::modifier<Direction>(view)->direction, LayoutDirection::rightToLeft);
}

TEST(WidgetLink, IsSchemeAndDestination) {
  EXPECT_EQ(widgetLink("quorvel-widget", "budget"), "quorvel-widget://open/budget");
}

}  // namespace
}  // namespace quorvel
