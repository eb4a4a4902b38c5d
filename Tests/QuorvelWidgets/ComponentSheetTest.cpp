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

/// A file per component, with its variants one below the other.
std::vector<testsupport::ApprovalCase> cases() {
  std::map<std::string, std::string> dumps;
  for (const ComponentSample& sample : componentSamples()) {
    dumps["Components/" + std::string{sample.component}] +=
        "== " + std::string{sample.variant} + "\n" + viewkit::dump(sample.view);
  }
  std::vector<testsupport::ApprovalCase> cases;
  for (const auto& [name, text] : dumps) cases.push_back({name, [=] { return text; }});
  return cases;
}

class ComponentApproval : public ::testing::TestWithParam<testsupport::ApprovalCase> {};

TEST_P(ComponentApproval, IsAsApproved) {
  EXPECT_TRUE(matchesExpected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Trees,
                         ComponentApproval,
                         ::testing::ValuesIn(cases()),
                         testsupport::testName);

TEST(ComponentApprovals, EveryFileHasItsCase) {
  EXPECT_EQ(testsupport::expectedNames("Components"), testsupport::namesOf(cases()));
}

}  // namespace
}  // namespace quorvel
