// What each bar is handed. Expected lines are written by hand from the bars' own documentation.
#include <gtest/gtest.h>

#include "Surfaces/Bar/BarLine.hpp"

namespace surfaces {
namespace {

BarLine food() {
  return {.kind = "spending",
          .text = "$391 ↓ 4% <Food & drinks>",
          .state = "warning",
          .tooltip = "Food & drinks\n$391\n",
          .status = "live",
          .json = R"({"kind":"spending"})"};
}

TEST(BarLine, EscapesMarkupForWaybar) {
  EXPECT_EQ(format(food(), BarFormat::waybar),
            R"({"text":"$391 ↓ 4% &lt;Food &amp; drinks&gt;",)"
            R"("tooltip":"Food &amp; drinks\n$391\n","alt":"warning","class":["warning"]})"
            "\n");
}

TEST(BarLine, NamesHiddenAndStaleAsClasses) {
  BarLine line = food();
  line.isHidden = true;
  line.status = "stale";
  line.reason = "the extension died";
  EXPECT_EQ(format(line, BarFormat::waybar),
            R"({"text":"$391 ↓ 4% &lt;Food &amp; drinks&gt;",)"
            R"("tooltip":"Food &amp; drinks\n$391\nstale: the extension died",)"
            R"("alt":"warning","class":["warning","hidden","stale"]})"
            "\n");
}

TEST(BarLine, IsOneElementOfI3barsArray) {
  EXPECT_EQ(opening(BarFormat::i3bar), "{\"version\":1,\"click_events\":true}\n[\n");
  EXPECT_EQ(format(food(), BarFormat::i3bar),
            R"([{"full_text":"$391 ↓ 4% <Food & drinks>","color":"#C98500","urgent":false,)"
            R"("name":"quorvel","instance":"spending"}],)"
            "\n");
}

TEST(BarLine, IsAnObjectForI3blocks) {
  BarLine line = food();
  line.state = "critical";
  EXPECT_EQ(opening(BarFormat::i3blocks), "");
  EXPECT_EQ(format(line, BarFormat::i3blocks),
            R"({"full_text":"$391 ↓ 4% <Food & drinks>","color":"#D9534F","urgent":true})"
            "\n");
}

TEST(BarLine, ColoursForPolybarAndBeginsNoTagOfItsOwn) {
  BarLine line = food();
  line.text = "50%{F#f00} & more";
  EXPECT_EQ(format(line, BarFormat::polybar), "%{F#C98500}50%\u200B{F#f00} & more%{F-}\n");
  line.state = "none";
  line.text = "Due";
  EXPECT_EQ(format(line, BarFormat::polybar), "Due\n");
}

TEST(BarLine, LeavesIsolatesOutForPolybar) {
  BarLine line = food();
  line.state = "good";
  line.text = "\u2066$189\u2069 / day";
  EXPECT_EQ(format(line, BarFormat::polybar), "$189 / day\n");
  EXPECT_EQ(format(line, BarFormat::plain), "\u2066$189\u2069 / day\n");
}

TEST(BarLine, IsOneLineInPlainText) {
  BarLine line = food();
  line.text = "two\nlines";
  EXPECT_EQ(format(line, BarFormat::plain), "two lines\n");
}

TEST(BarLine, PassesJsonOnAsItCame) {
  EXPECT_EQ(format(food(), BarFormat::json), "{\"kind\":\"spending\"}\n");
}

TEST(BarLine, NamesTheWidgetWhereThereIsNoText) {
  const BarLine failed{.kind = "due", .status = "failed"};
  EXPECT_EQ(format(failed, BarFormat::plain), "due: no answer\n");
  const BarLine missing{.kind = "due", .status = "missing"};
  EXPECT_EQ(format(missing, BarFormat::plain), "due\n");
}

TEST(BarFormat, HasSixNames) {
  for (const char* name : {"waybar", "i3bar", "i3blocks", "polybar", "plain", "json"}) {
    EXPECT_TRUE(foundation::named<BarFormat>(name)) << name;
  }
  EXPECT_FALSE(foundation::named<BarFormat>("dwm"));
}

}  // namespace
}  // namespace surfaces
