// The trees of the card limit, due, net worth and spending widgets, state by state, as a person has
// approved them.
#include <gtest/gtest.h>

#include <set>

#include "Tests/Support/Approval.hpp"
#include "Tests/Support/WidgetSamples.hpp"
#include "Tests/Support/WidgetStates.hpp"
#include "ViewKit/Dump.hpp"

namespace quorvel {
namespace {

using testsupport::WidgetKind;
using testsupport::WidgetLayout;
using testsupport::WidgetState;

struct Folder {
  std::string name;
  WidgetKind kind;
};

const Folder kFolders[] = {{"CardLimit", WidgetKind::cardLimit},
                           {"Due", WidgetKind::due},
                           {"NetWorth", WidgetKind::netWorth},
                           {"Spending", WidgetKind::spending}};

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

TEST(WidgetApproval, EveryLayoutInEveryState) {
  for (const Folder& folder : kFolders) {
    std::set<std::string> names;
    for (const WidgetLayout& layout : testsupport::kLayouts) {
      if (layout.kind != folder.kind) continue;
      const auto family = layout.name.substr(layout.name.rfind('-') + 1);
      for (const WidgetState& state : approvedStates()) {
        const std::string name =
            folder.name + "/" + std::string{family} + "-" + std::string{state.name};
        names.insert(name);
        EXPECT_TRUE(
            testsupport::matchesExpected(name, viewkit::dump(testsupport::viewOf(layout, state))));
      }
    }
    EXPECT_EQ(testsupport::expectedNames(folder.name), names);
  }
}

}  // namespace
}  // namespace quorvel
