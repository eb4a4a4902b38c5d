#include <gmock/gmock.h>

#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"
#include "QuorvelWidgets/SnapshotDiagnosis.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"
#include "Tests/Support/SafeToSpendCases.hpp"

namespace quorvel {
namespace {

using ::testing::HasSubstr;
using widgetruntime::DiagnoseAnswer;
using widgetruntime::DiagnoseParameters;

DiagnoseAnswer diagnose(const WidgetSnapshot& snapshot) {
  DiagnoseParameters parameters;
  parameters.text = encodeWidgetSnapshot(snapshot);
  parameters.device.now = testsupport::marchFourteenth();
  return diagnoseSnapshot(parameters);
}

std::string outlook(const DiagnoseAnswer& answer, std::string_view kind) {
  for (const auto& widget : answer.widgets) {
    if (widget.kind == kind) return widget.shows;
  }
  return "";
}

TEST(SnapshotDiagnosis, NamesTheWidgetsAsTheBundleDoes) {
  std::vector<std::string> kinds;
  for (const auto& widget : diagnose(testsupport::emptySnapshot()).widgets) {
    kinds.push_back(widget.kind);
  }
  std::vector<std::string> offered;
  for (const auto& widget : quorvelWidgetsExtension().makeBundle({}).widgets) {
    offered.push_back(widget.description.kind);
  }
  EXPECT_EQ(kinds, offered);
}

TEST(SnapshotDiagnosis, TellsWhatEachWidgetWillShow) {
  foundation::Device device;
  device.now = testsupport::marchFourteenth();
  const DiagnoseAnswer answer = diagnose(sampleSnapshot(device));
  EXPECT_TRUE(answer.accepted);
  EXPECT_TRUE(answer.problems.empty());
  EXPECT_EQ(outlook(answer, "QuorvelCardLimitWidget"), "The remaining limit of 3 cards.");
  EXPECT_EQ(outlook(answer, "QuorvelDueWidget"), "What falls due next, out of 3 payments.");
  EXPECT_EQ(outlook(answer, "QuorvelSafeToSpendWidget"), "What may be spent a day, for 17 days.");
  EXPECT_EQ(outlook(answer, "QuorvelSpendingWidget"),
            "This month's spending against last month's.");
  EXPECT_THAT(outlook(answer, "QuorvelNetWorthWidget"), HasSubstr("Net worth"));
}

TEST(SnapshotDiagnosis, SaysWhyAWidgetHasNothingToShow) {
  WidgetSnapshot snapshot =
      testsupport::snapshotWith(testsupport::budgetOf(1000, 400, "2025-03-13"));
  snapshot.spending = WidgetSnapshot::Spending{.month = "2025-02"};
  snapshot.dues = {{.id = "d1", .name = "Rent", .dueDate = "2025-03-13", .kind = "bill"}};
  const DiagnoseAnswer answer = diagnose(snapshot);
  EXPECT_THAT(outlook(answer, "QuorvelSafeToSpendWidget"), HasSubstr("period is over"));
  EXPECT_THAT(outlook(answer, "QuorvelSpendingWidget"), HasSubstr("another month"));
  EXPECT_THAT(outlook(answer, "QuorvelDueWidget"), HasSubstr("no due lies ahead"));
  EXPECT_THAT(outlook(answer, "QuorvelCardLimitWidget"), HasSubstr("has none"));
  EXPECT_THAT(outlook(answer, "QuorvelNetWorthWidget"), HasSubstr("no net worth"));
}

TEST(SnapshotDiagnosis, NamesNoAmount) {
  const DiagnoseAnswer answer =
      diagnose(testsupport::snapshotWith(testsupport::budgetOf(9876.54, 7391.42, "2025-03-24")));
  for (const auto& widget : answer.widgets) {
    for (const char* secret : {"9876", "9,876", "7391", "7,391", "2485", "2,485", "248", "%"}) {
      EXPECT_EQ(widget.shows.find(secret), std::string::npos) << widget.shows;
    }
  }
}

TEST(SnapshotDiagnosis, SaysThatAmountsAreHidden) {
  WidgetSnapshot snapshot = testsupport::emptySnapshot();
  snapshot.isHidden = true;
  for (const auto& widget : diagnose(snapshot).widgets) {
    EXPECT_THAT(widget.shows, HasSubstr("Amounts are hidden."));
  }
}

TEST(SnapshotDiagnosis, ARejectedDocumentLeavesEveryWidgetAsking) {
  DiagnoseParameters parameters;
  parameters.text = R"({"lang": 7})";
  const DiagnoseAnswer answer = diagnoseSnapshot(parameters);
  EXPECT_FALSE(answer.accepted);
  EXPECT_FALSE(answer.problems.empty());
  for (const auto& widget : answer.widgets) EXPECT_THAT(widget.shows, HasSubstr("open Quorvel"));
}

TEST(SnapshotDiagnosis, AMissingFileIsAProblem) {
  DiagnoseParameters parameters;
  parameters.path = "/nonexistent/widget-snapshot.json";
  const DiagnoseAnswer answer = diagnoseSnapshot(parameters);
  EXPECT_FALSE(answer.accepted);
  ASSERT_EQ(answer.problems.size(), 1U);
  EXPECT_EQ(answer.problems[0].expected, "a readable document");
}

TEST(QuorvelWidgetsExtension, SaysWhereTheApplicationAndItsFilesAre) {
  const auto extension = quorvelWidgetsExtension();
  const auto fallback = extension.makeBundle({.containerRoot = "/data"});
  EXPECT_EQ(fallback.urlScheme, "quorvel-widget");
  EXPECT_EQ(fallback.container, "/data/" + fallback.appGroup);
  EXPECT_EQ(extension.makeBundle({.containerRoot = "/data", .container = "/own"}).container,
            "/own");
  EXPECT_EQ(extension.makeBundle({}).container, "");
}

TEST(QuorvelWidgetsExtension, TakesItsSettingsFromThePropertyListItIsInstalledWith) {
  const auto bundle = quorvelWidgetsExtension().makeBundle(
      {.containerRoot = "/data",
       .infoPlist = std::string{QUORVEL_SOURCE_DIR} + "/QuorvelWidgets/Info.plist"});
  EXPECT_EQ(bundle.appGroup, "group.app.quorvel.widgets");
  EXPECT_EQ(bundle.urlScheme, "quorvel-widget");
}

}  // namespace
}  // namespace quorvel
