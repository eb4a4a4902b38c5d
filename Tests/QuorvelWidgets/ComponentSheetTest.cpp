#include <gmock/gmock.h>

#include <map>
#include <set>
#include <string>

#include "QuorvelWidgets/Gallery/ComponentSheet.hpp"
#include "Tests/Support/Approval.hpp"
#include "Tests/Support/ViewInspection.hpp"
#include "ViewKit/Dump.hpp"

namespace quorvel {
namespace {

TEST(ComponentSheet, ShowsEveryComponent) {
  std::set<std::string_view> components;
  for (const ComponentSample& sample : componentSamples()) components.insert(sample.component);
  EXPECT_THAT(components,
              ::testing::IsSupersetOf({"Amount",
                                       "WidgetChange",
                                       "WidgetIconTile",
                                       "WidgetHeader",
                                       "WidgetPill",
                                       "WidgetPrivacyNote",
                                       "WidgetMeter",
                                       "WidgetUsageGauge",
                                       "WidgetMessage",
                                       "CardArtTile",
                                       "AccessoryBackdrop",
                                       "SpentGauge"}));
}

TEST(ComponentSheet, NamesEverySampleOnTheSheet) {
  const viewkit::View sheet = componentSheet();
  const auto texts = testsupport::texts(sheet);
  for (const ComponentSample& sample : componentSamples()) {
    EXPECT_THAT(texts, ::testing::Contains(std::string{sample.variant}));
  }
}

TEST(ComponentSheet, EveryVariantIsTheApprovedTree) {
  std::map<std::string, std::string> dumps;
  for (const ComponentSample& sample : componentSamples()) {
    dumps[std::string{sample.component}] +=
        "== " + std::string{sample.variant} + "\n" + viewkit::dump(sample.view);
  }
  std::set<std::string> names;
  for (const auto& [component, text] : dumps) {
    names.insert("Components/" + component);
    EXPECT_TRUE(testsupport::matchesExpected("Components/" + component, text));
  }
  EXPECT_EQ(testsupport::expectedNames("Components"), names);
}

}  // namespace
}  // namespace quorvel
