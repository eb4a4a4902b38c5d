// The trees of the safe-to-spend widget, state by state, as a person has approved them.
#include <gtest/gtest.h>

#include "Tests/Support/Approval.hpp"
#include "Tests/Support/SafeToSpendCases.hpp"
#include "ViewKit/Dump.hpp"

namespace quorvel {
namespace {

using testsupport::ApprovalCase;
using widgetruntime::Environment;
using widgetruntime::RenderingMode;
using widgetruntime::WidgetFamily;

constexpr const char* kElevenDaysAfter = "2025-03-25";
constexpr const char* kFirst = "2025-02-24";
constexpr const char* kToday = "2025-03-14";

/// 61 % of 3000 is spent, 1166 is left; 19 of 30 days have passed, 63 %.
WidgetSnapshot normal(std::string lang = "en") {
  return testsupport::snapshotWith(testsupport::budgetOf(3000, 1834, kElevenDaysAfter, kFirst),
                                   std::move(lang));
}
WidgetSnapshot exceeded() {
  return testsupport::snapshotWith(testsupport::budgetOf(3000, 3210, kElevenDaysAfter, kFirst));
}
WidgetSnapshot lastDay() {
  return testsupport::snapshotWith(testsupport::budgetOf(3000, 1834, kToday, kFirst));
}
WidgetSnapshot hidden() {
  WidgetSnapshot snapshot = normal();
  snapshot.isHidden = true;
  return snapshot;
}

WidgetSnapshot aBitFast() {
  return testsupport::snapshotWith(testsupport::budgetOf(3000, 2100, kElevenDaysAfter, kFirst));
}

struct State {
  std::string name;
  std::optional<WidgetSnapshot> snapshot;
  Environment environment;
};

std::vector<State> states() {
  std::vector<State> all{{"normal", normal(), {}},
                         {"exceeded", exceeded(), {}},
                         {"last-day", lastDay(), {}},
                         {"a-bit-fast", aBitFast(), {}},
                         {"hidden", hidden(), {}},
                         {"indonesian", normal("id"), {}},
                         {"arabic", normal("ar"), {}}};
  State bare{"without-background", normal(), {}};
  bare.environment.showsWidgetContainerBackground = false;
  State accented{"accented", normal(), bare.environment};
  accented.environment.widgetRenderingMode = RenderingMode::accented;
  State vibrant{"vibrant", normal(), bare.environment};
  vibrant.environment.widgetRenderingMode = RenderingMode::vibrant;
  State redacted{"redacted-arabic", normal("ar"), {}};
  redacted.environment.redactionReasons.privacy = true;
  all.insert(all.end(), {bare, accented, vibrant, redacted});
  return all;
}

struct Layout {
  std::string name;
  WidgetFamily family;
  SafeToSpendStyle style;
};

std::string dumpOf(const State& state, const Layout& layout) {
  Environment environment = state.environment;
  environment.widgetFamily = layout.family;
  return viewkit::dump(testsupport::safeToSpendView(
      testsupport::entryWith(state.snapshot, layout.style), environment));
}

std::vector<ApprovalCase> cases() {
  std::vector<ApprovalCase> cases;
  const auto add = [&](const Layout& layout, const State& state) {
    cases.push_back(
        {"SafeToSpend/" + layout.name + "-" + state.name, [=] { return dumpOf(state, layout); }});
  };
  const Layout accent{"accent", WidgetFamily::systemSmall, SafeToSpendStyle::accent};
  const Layout ring{"ring", WidgetFamily::systemSmall, SafeToSpendStyle::ring};
  const Layout medium{"medium", WidgetFamily::systemMedium, SafeToSpendStyle::accent};
  for (const Layout& layout : {accent, ring, medium}) {
    for (const State& state : states()) add(layout, state);
  }
  add(accent, {"no-budget", testsupport::emptySnapshot(), {}});
  add(accent, {"no-snapshot", std::nullopt, {}});
  for (const auto& [name, family] : {std::pair{"circular", WidgetFamily::accessoryCircular},
                                     {"rectangular", WidgetFamily::accessoryRectangular},
                                     {"inline", WidgetFamily::accessoryInline}}) {
    State vibrant{"vibrant", normal(), {}};
    vibrant.environment.widgetRenderingMode = RenderingMode::vibrant;
    vibrant.environment.showsWidgetContainerBackground = false;
    add({name, family, SafeToSpendStyle::accent}, vibrant);
  }
  return cases;
}

class SafeToSpendApproval : public ::testing::TestWithParam<ApprovalCase> {};

TEST_P(SafeToSpendApproval, IsAsApproved) {
  EXPECT_TRUE(matchesExpected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Trees,
                         SafeToSpendApproval,
                         ::testing::ValuesIn(cases()),
                         testsupport::testName);

TEST(SafeToSpendApprovals, EveryFileHasItsCase) {
  EXPECT_EQ(testsupport::expectedNames("SafeToSpend"), testsupport::namesOf(cases()));
}

}  // namespace
}  // namespace quorvel
