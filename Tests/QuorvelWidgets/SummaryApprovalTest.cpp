// What each widget says in one line, approved in every state and language.
#include <gtest/gtest.h>

#include "Tests/Support/Approval.hpp"
#include "Tests/Support/Isolates.hpp"
#include "Tests/Support/WidgetLayouts.hpp"
#include "Tests/Support/WidgetSamples.hpp"

namespace quorvel {
namespace {

using testsupport::ApprovalCase;
using testsupport::WidgetLayout;
using testsupport::WidgetState;

std::vector<WidgetState> statesIn(std::string_view lang) {
  std::vector<WidgetState> states;
  const auto add = [&](std::string_view name, const auto& change) {
    states.push_back({name, testsupport::februaryTenth(), testsupport::smallSnapshot(lang), {}});
    change(*states.back().snapshot);
  };
  add("full", [](auto&) {});
  add("less", [](auto& s) {
    s.spending->lastMonthSpent = 1000;
    s.netWorth->changePercent = -3.26;
    s.budget->spent = 2010;
    s.totalRemaining = 1000;
    s.dues.erase(s.dues.begin(), s.dues.begin() + 3);
  });
  add("last-day", [](auto& s) {
    s.budget->periodEnd = "2025-02-10";
    s.dues.erase(s.dues.begin(), s.dues.begin() + 2);
  });
  add("hidden", [](auto& s) { s.isHidden = true; });
  add("hidden-over", [](auto& s) {
    s.isHidden = true;
    s.budget->spent = 2010;
  });
  add("empty", [](auto& s) {
    s.cards.clear();
    s.dues.clear();
    s.budget.reset();
    s.spending.reset();
    s.netWorth.reset();
  });
  states.push_back({"no-document", testsupport::februaryTenth(), std::nullopt, {}});
  states.back().environment.preferredLanguages = {std::string{lang}};
  return states;
}

/// State by state, a line per language.
std::string summariesOf(const WidgetLayout& layout) {
  std::string text;
  for (std::size_t i = 0; i < statesIn("en").size(); ++i) {
    text += "== " + std::string{statesIn("en")[i].name} + "\n";
    for (const std::string_view lang : kLanguageCodes) {
      const auto summary = testsupport::contentOf(layout, statesIn(lang)[i]).summary;
      text += std::string{lang} + ": " + testsupport::withoutIsolates(summary.text) + " [" +
              std::string{nameOf(summary.state)} + "]\n";
    }
  }
  return text;
}

std::vector<ApprovalCase> cases() {
  std::vector<ApprovalCase> cases;
  for (const auto& widget : testsupport::bundle().widgets) {
    const WidgetLayout layout =
        testsupport::layoutOf(widget.description.kind, widgetruntime::WidgetFamily::systemSmall);
    cases.push_back({"Summaries/" + layout.widget, [=] { return summariesOf(layout); }});
  }
  return cases;
}

class SummaryApproval : public ::testing::TestWithParam<ApprovalCase> {};

TEST_P(SummaryApproval, IsAsApproved) {
  EXPECT_TRUE(matchesExpected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Lines,
                         SummaryApproval,
                         ::testing::ValuesIn(cases()),
                         testsupport::testName);

TEST(SummaryApprovals, EveryFileHasItsCase) {
  EXPECT_EQ(testsupport::expectedNames("Summaries"), testsupport::namesOf(cases()));
}

}  // namespace
}  // namespace quorvel
