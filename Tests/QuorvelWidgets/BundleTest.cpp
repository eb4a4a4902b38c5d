#include <gmock/gmock.h>

#include <set>

#include "Foundation/Bundle.hpp"
#include "QuorvelWidgets/QuorvelWidgetsBundle.hpp"

namespace quorvel {
namespace {

using enum widgetruntime::WidgetFamily;
using Families = std::vector<widgetruntime::WidgetFamily>;

widgetruntime::WidgetBundle bundle(bool offersControls = true) {
  const auto files = foundation::FileManager::withContainer("/nonexistent");
  return makeQuorvelWidgetsBundle(
      SnapshotStore{foundation::Bundle{}, files}, files, offersControls);
}

struct Declared {
  std::string kind;
  std::string name;
  std::string description;
  Families families;
  std::string intent;
};

TEST(Bundle, DeclaresFiveWidgetsInTheGallerysOrder) {
  const std::vector<Declared> declared{
      {"QuorvelCardLimitWidget",
       "Remaining Limit",
       "How much limit is left on your cards.",
       {systemSmall, systemMedium, systemLarge},
       "SelectCardIntent"},
      {"QuorvelDueWidget",
       "Next Due",
       "Card bills, bills and loans due next.",
       {systemSmall, systemMedium},
       ""},
      {"QuorvelNetWorthWidget",
       "Net Worth",
       "Your net worth and how it's trending.",
       {systemSmall, systemMedium, systemLarge},
       ""},
      {"QuorvelSafeToSpendWidget",
       "Safe to Spend",
       "How much you can spend per day to stay on budget.",
       {systemSmall, systemMedium},
       "SafeToSpendIntent"},
      {"QuorvelSpendingWidget",
       "Spending This Month",
       "This month's spending vs last month.",
       {systemSmall, systemMedium, systemLarge},
       ""},
  };
  const auto widgets = bundle().widgets;
  ASSERT_EQ(widgets.size(), declared.size());
  for (std::size_t i = 0; i < declared.size(); ++i) {
    EXPECT_EQ(widgets[i].description.kind, declared[i].kind);
    EXPECT_EQ(widgets[i].description.displayName, declared[i].name);
    EXPECT_EQ(widgets[i].description.description, declared[i].description);
    EXPECT_EQ(widgets[i].description.families, declared[i].families);
    EXPECT_TRUE(widgets[i].description.contentMarginsDisabled);
    EXPECT_EQ(widgets[i].configuration ? widgets[i].configuration->name : "", declared[i].intent);
  }
}

TEST(Bundle, TheSixKindsAreDistinct) {
  std::set<std::string> kinds;
  for (const auto& widget : bundle().widgets) kinds.insert(widget.description.kind);
  for (const auto& control : bundle().controls) kinds.insert(control.kind);
  EXPECT_EQ(kinds.size(), 6U);
}

TEST(Bundle, AHostWithoutControlsGetsTheWidgetsAlone) {
  EXPECT_EQ(bundle(false).widgets.size(), 5U);
  EXPECT_TRUE(bundle(false).controls.empty());
  EXPECT_TRUE(bundle(false).actions.empty());
  EXPECT_EQ(bundle().controls.size(), 1U);
}

}  // namespace
}  // namespace quorvel
