// What a screen reader says of each widget, as a person has read and approved it.
#include <gtest/gtest.h>

#include "Rendering/Output/AccessibilityTree.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/Approval.hpp"
#include "Tests/Support/WidgetLayouts.hpp"
#include "Tests/Support/WidgetSamples.hpp"

namespace quorvel {
namespace {

using testsupport::ApprovalCase;
using testsupport::WidgetLayout;
using testsupport::WidgetState;

/// A host gives accessory families little room; the elements do not depend on it.
constexpr rendering::Size kSize{364, 382};

std::string spoken(rendering::Renderer& renderer,
                   const WidgetLayout& layout,
                   const WidgetState& state) {
  const auto tree = renderer.place(testsupport::viewOf(layout, state), {.size = kSize}).value();
  std::string lines;
  for (const auto& element : rendering::accessibleElements(
           tree, {.redaction = state.environment.redactionReasons, .name = "The widget"})) {
    lines += element.label;
    if (!element.value.empty()) lines += " = " + element.value;
    if (!element.link.empty()) lines += " -> " + element.link;
    lines += "\n";
  }
  return lines;
}

std::vector<WidgetState> englishStates() {
  const auto now = testsupport::februaryTenth();
  std::vector<WidgetState> states;
  const auto add = [&](std::string_view name, const auto& change) {
    states.push_back({name, now, testsupport::smallSnapshot(), {}});
    change(states.back());
  };
  add("fallen, overspent, with art", [](WidgetState& s) {
    s.snapshot->netWorth->changePercent = -3.26;
    s.snapshot->spending->lastMonthSpent = 1000;
    s.snapshot->budget->spent = 2010;
    for (auto& card : s.snapshot->cards) card.hasImage = true;
  });
  add("long amounts", [](WidgetState& s) {
    s.snapshot->money.showDecimals = true;
    s.snapshot->totalRemaining = s.snapshot->cards[0].remaining = 1234567890.5;
    s.snapshot->netWorth->value = -1234567890.5;
    s.snapshot->spending->spent = 1234567890.5;
    s.snapshot->dues[1].amount = 1234567890.5;
    s.snapshot->budget->total = 1234567890.5;
  });
  add("one day left", [](WidgetState& s) { s.snapshot->budget->periodEnd = "2025-02-11"; });
  add("last day", [](WidgetState& s) { s.snapshot->budget->periodEnd = "2025-02-10"; });
  add("unchanged", [](WidgetState& s) {
    s.snapshot->netWorth->changePercent = 0;
    s.snapshot->spending->lastMonthSpent = s.snapshot->spending->spent;
  });
  add("hidden", [](WidgetState& s) { s.snapshot->isHidden = true; });
  add("redacted", [](WidgetState& s) { s.environment.redactionReasons.privacy = true; });
  add("placeholder", [](WidgetState& s) { s.environment.redactionReasons.placeholder = true; });
  add("empty", [](WidgetState& s) {
    s.snapshot->cards.clear();
    s.snapshot->dues.clear();
    s.snapshot->budget.reset();
    s.snapshot->netWorth.reset();
    s.snapshot->spending.reset();
  });
  add("no snapshot", [](WidgetState& s) { s.snapshot.reset(); });
  return states;
}

std::string spokenInEveryState(const WidgetLayout& layout) {
  rendering::Renderer renderer;
  std::string text;
  for (const std::string_view lang : kLanguageCodes) {
    const WidgetState full{
        lang, testsupport::februaryTenth(), testsupport::smallSnapshot(lang), {}};
    text += "== " + std::string{lang} + "\n" + spoken(renderer, layout, full);
  }
  for (const WidgetState& state : englishStates()) {
    text += "== " + std::string{state.name} + "\n" + spoken(renderer, layout, state);
  }
  return text;
}

std::vector<ApprovalCase> cases() {
  std::vector<ApprovalCase> cases;
  for (const WidgetLayout& layout : testsupport::layouts()) {
    cases.push_back({"Accessibility/" + layout.name, [=] { return spokenInEveryState(layout); }});
  }
  return cases;
}

class AccessibilityApproval : public ::testing::TestWithParam<ApprovalCase> {};

TEST_P(AccessibilityApproval, IsAsApproved) {
  EXPECT_TRUE(matchesExpected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Spoken,
                         AccessibilityApproval,
                         ::testing::ValuesIn(cases()),
                         testsupport::testName);

TEST(AccessibilityApprovals, EveryFileHasItsCase) {
  EXPECT_EQ(testsupport::expectedNames("Accessibility"), testsupport::namesOf(cases()));
}

}  // namespace
}  // namespace quorvel
