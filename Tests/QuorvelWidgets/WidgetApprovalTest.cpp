// The trees of the widgets, state by state, as a person has approved them.
#include <gtest/gtest.h>

#include "QuorvelWidgets/SafeToSpend/SafeToSpendWidget.hpp"
#include "Tests/Support/Approval.hpp"
#include "Tests/Support/WidgetLayouts.hpp"
#include "Tests/Support/WidgetSamples.hpp"
#include "ViewKit/Dump.hpp"

namespace quorvel {
namespace {

using testsupport::ApprovalCase;
using testsupport::WidgetLayout;
using testsupport::WidgetState;

std::vector<WidgetState> approvedStates() {
  const auto now = testsupport::februaryTenth();
  std::vector<WidgetState> states{{"full", now, testsupport::smallSnapshot(), {}},
                                  {"hidden", now, testsupport::smallSnapshot(), {}},
                                  {"empty", now, testsupport::smallSnapshot(), {}},
                                  {"arabic", now, testsupport::smallSnapshot("ar"), {}},
                                  {"accented", now, testsupport::smallSnapshot(), {}}};
  states[1].snapshot->isHidden = true;
  states[2].snapshot->cards.clear();
  states[2].snapshot->dues.resize(1);
  states[2].snapshot->netWorth.reset();
  states[2].snapshot->spending->month = "2025-01";
  states[4].environment.widgetRenderingMode = widgetruntime::RenderingMode::accented;
  states[4].environment.showsWidgetContainerBackground = false;
  return states;
}

/// Safe-to-spend has states of its own.
bool isApprovedHere(const WidgetLayout& layout) {
  return layout.kind != SafeToSpendWidget::kKind;
}

std::vector<ApprovalCase> cases() {
  std::vector<ApprovalCase> cases;
  for (const WidgetLayout& layout : testsupport::layouts()) {
    if (!isApprovedHere(layout)) continue;
    for (const WidgetState& state : approvedStates()) {
      cases.push_back({layout.widget + "/" + layout.form + "-" + std::string{state.name},
                       [=] { return viewkit::dump(testsupport::viewOf(layout, state)); }});
    }
  }
  return cases;
}

class WidgetApproval : public ::testing::TestWithParam<ApprovalCase> {};

TEST_P(WidgetApproval, IsAsApproved) {
  EXPECT_TRUE(matchesExpected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Trees,
                         WidgetApproval,
                         ::testing::ValuesIn(cases()),
                         testsupport::testName);

TEST(WidgetApprovals, EveryFileHasItsCase) {
  std::set<std::string> files;
  for (const WidgetLayout& layout : testsupport::layouts()) {
    if (isApprovedHere(layout)) files.merge(testsupport::expectedNames(layout.widget));
  }
  EXPECT_EQ(files, testsupport::namesOf(cases()));
}

}  // namespace
}  // namespace quorvel
