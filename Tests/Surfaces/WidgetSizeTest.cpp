// The sizes of the families on the three screens, and which family stands for a widget.
#include <gtest/gtest.h>

#include "Session/HostEnvironment.hpp"
#include "Surfaces/WidgetSize.hpp"

namespace surfaces {
namespace {

using rendering::Size;
using widgetruntime::WidgetFamily;

struct Row {
  WidgetFamily family;
  Size standard;
  Size compact;
  Size stress;
};

TEST(Sizes, AreThoseOfTheScreens) {
  const Row rows[] = {
      {WidgetFamily::systemSmall, {170, 170}, {158, 158}, {141, 141}},
      {WidgetFamily::systemMedium, {364, 170}, {338, 158}, {292, 141}},
      {WidgetFamily::systemLarge, {364, 382}, {338, 354}, {292, 311}},
      {WidgetFamily::accessoryCircular, {76, 76}, {72, 72}, {68, 68}},
      {WidgetFamily::accessoryRectangular, {172, 76}, {160, 72}, {153, 68}},
      {WidgetFamily::accessoryInline, {257, 26}, {234, 26}, {225, 26}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(presetSize(row.family, Preset::standard), row.standard);
    EXPECT_EQ(presetSize(row.family, Preset::compact), row.compact);
    EXPECT_EQ(presetSize(row.family, Preset::stress), row.stress);
  }
}

TEST(Sizes, SmallStandsForAWidgetThatDeclaresIt) {
  EXPECT_EQ(session::defaultFamily({WidgetFamily::systemLarge, WidgetFamily::systemSmall}),
            WidgetFamily::systemSmall);
  EXPECT_EQ(session::defaultFamily({WidgetFamily::accessoryInline, WidgetFamily::systemLarge}),
            WidgetFamily::accessoryInline);
  EXPECT_EQ(session::defaultFamily({}), WidgetFamily::systemSmall);
}

}  // namespace
}  // namespace surfaces
