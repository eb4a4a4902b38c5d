#include <gmock/gmock.h>

#include "QuorvelWidgets/Due/DueTile.hpp"
#include "QuorvelWidgets/Due/DueWidgetView.hpp"
#include "QuorvelWidgets/Due/UpcomingDues.hpp"
#include "Tests/Support/Snapshots.hpp"
#include "Tests/Support/ViewInspection.hpp"
#include "ViewKit/Dump.hpp"

namespace quorvel {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using widgetruntime::Environment;
using widgetruntime::RenderingMode;
using widgetruntime::WidgetFamily;

foundation::Instant now() {
  return *foundation::parseInternetDateTime("2025-03-14T09:30:00Z");
}

WidgetSnapshot::Due due(std::string name, std::string date, double amount = 125) {
  WidgetSnapshot::Due result;
  result.id = name;
  result.name = std::move(name);
  result.amount = amount;
  result.dueDate = std::move(date);
  result.kind = "bill";
  return result;
}

SnapshotEntry entryOf(std::vector<WidgetSnapshot::Due> dues, std::string lang = "en") {
  WidgetSnapshot snapshot = testsupport::emptySnapshot(std::move(lang));
  snapshot.dues = std::move(dues);
  return {now(), std::move(snapshot)};
}

viewkit::View view(const SnapshotEntry& entry, WidgetFamily family, Environment environment = {}) {
  environment.widgetFamily = family;
  return DueWidgetView{{.entry = entry, .environment = environment, .urlScheme = "quorvel-widget"}};
}

std::vector<std::pair<std::string, std::int64_t>> upcoming(
    const std::vector<WidgetSnapshot::Due>& dues, std::size_t most = 10) {
  const foundation::Calendar calendar{foundation::TimeZone{}};
  std::vector<std::pair<std::string, std::int64_t>> result;
  for (const auto& each : upcomingDues(dues, now(), calendar, most)) {
    result.emplace_back(each.due->name, each.days);
  }
  return result;
}

TEST(UpcomingDues, EarlierMonthsArePastUnlessTheirDaysCarryOver) {
  using Pair = std::pair<std::string, std::int64_t>;
  EXPECT_THAT(
      upcoming({due("last month", "2025-02-28"),
                due("long ago", "1999-12-01"),
                due("February 45 is March 17", "2025-02-45"),
                due("month 15 of 2024 is March", "2024-15-20"),
                due("February 29 is March 1", "2025-02-29")}),
      ElementsAre(Pair{"February 45 is March 17", 3}, Pair{"month 15 of 2024 is March", 6}));
}

TEST(UpcomingDues, YesterdayIsOverTodayIsNot) {
  using Pair = std::pair<std::string, std::int64_t>;
  EXPECT_THAT(upcoming({due("yesterday", "2025-03-13"),
                        due("today", "2025-03-14"),
                        due("tomorrow", "2025-03-15"),
                        due("later", "2025-03-19")}),
              ElementsAre(Pair{"today", 0}, Pair{"tomorrow", 1}, Pair{"later", 5}));
  EXPECT_EQ(relativeLabel(0, "en"), "Today");
  EXPECT_EQ(relativeLabel(1, "en"), "Tomorrow");
  EXPECT_EQ(relativeLabel(2, "en"), "in 2 days");
  EXPECT_EQ(relativeLabel(5, "en"), "in 5 days");
}

TEST(UpcomingDues, ShortLabels) {
  EXPECT_EQ(shortRelativeLabel(3, "en"), "3d left");
  EXPECT_EQ(shortRelativeLabel(2, "en"), "2d left");
  EXPECT_EQ(shortRelativeLabel(1, "en"), "Tomorrow");
  EXPECT_EQ(shortRelativeLabel(0, "en"), "Today");
  EXPECT_EQ(shortRelativeLabel(-1, "en"), "Today");
}

TEST(UpcomingDues, SpokenLabelsCountFromTheSecondDay) {
  EXPECT_EQ(spokenRelativeLabel(0, "en"), "Today");
  EXPECT_EQ(spokenRelativeLabel(1, "en"), "Tomorrow");
  // "2 дн." on screen.
  EXPECT_EQ(spokenRelativeLabel(2, "ru"), "через 2 дня");
}

TEST(UpcomingDues, UnreadableDatesAreSkippedAndTheOrderIsKept) {
  using Pair = std::pair<std::string, std::int64_t>;
  EXPECT_THAT(upcoming({due("far", "2025-04-14"),
                        due("broken", "2025/03/20"),
                        due("none", ""),
                        due("near", "2025-03-16")}),
              ElementsAre(Pair{"far", 31}, Pair{"near", 2}));
}

TEST(UpcomingDues, OnlyAsManyAsAskedFor) {
  const std::vector<WidgetSnapshot::Due> dues(100000, due("one", "2025-03-20"));
  EXPECT_THAT(upcoming(dues, 3), SizeIs(3));
}

TEST(DueWidgetView, AllOverdueSaysThatNothingIsDue) {
  const auto entry = entryOf({due("a", "2025-03-01"), due("b", "2025-02-01")});
  EXPECT_THAT(testsupport::texts(view(entry, WidgetFamily::systemSmall)),
              ElementsAre("Next due", "Nothing due soon", "All clear"));
  EXPECT_THAT(testsupport::texts(view(entry, WidgetFamily::accessoryInline)),
              ElementsAre("Nothing due soon"));
  EXPECT_THAT(testsupport::texts(view(entry, WidgetFamily::accessoryRectangular)),
              ElementsAre("Nothing due soon"));
}

TEST(DueWidgetView, FiveUpcomingGiveThreeRowsInOrder) {
  const auto entry = entryOf({due("A", "2025-03-20"),
                              due("B", "2025-03-18"),
                              due("C", "2025-03-19"),
                              due("D", "2025-03-16"),
                              due("E", "2025-03-17")});
  const auto texts = testsupport::texts(view(entry, WidgetFamily::systemMedium));
  EXPECT_THAT(texts, AllOf(Contains("A"), Contains("B"), Contains("C")));
  EXPECT_THAT(texts, AllOf(Not(Contains("D")), Not(Contains("E"))));
}

TEST(DueWidgetView, InlineUnderPrivacyKeepsLabelAndName) {
  auto entry = entryOf({due("Netflix", "2025-03-17", 15.99)});
  entry.snapshot->isHidden = true;
  const auto texts = testsupport::texts(view(entry, WidgetFamily::accessoryInline));
  ASSERT_THAT(texts, SizeIs(1));
  // The name and the amount each keep their own direction.
  EXPECT_EQ(texts[0], "in 3 days · \u2068Netflix\u2069 · \u2066••••\u2069");
}

TEST(DueWidgetView, WithoutASnapshot) {
  const SnapshotEntry none{now(), std::nullopt};
  EXPECT_THAT(testsupport::texts(view(none, WidgetFamily::systemMedium)),
              ElementsAre("Next due", "Open Quorvel to get started", "Open Quorvel"));
  for (const auto family : {WidgetFamily::accessoryRectangular, WidgetFamily::accessoryInline}) {
    EXPECT_THAT(testsupport::texts(view(none, family)), ElementsAre("Open Quorvel to get started"));
  }
}

TEST(DueWidgetView, OpensBillsAndACardsRowOpensItsCard) {
  auto dues = std::vector{due("Card", "2025-03-17"), due("Bill", "2025-03-18")};
  dues[0].cardId = "a b";
  const auto shown = view(entryOf(dues), WidgetFamily::systemMedium);
  EXPECT_EQ(testsupport::modifier<viewkit::WidgetURL>(shown)->url, "quorvel-widget://open/bills");
  std::vector<std::string> links;
  for (const auto* node : testsupport::nodes(shown)) {
    if (const auto* link = testsupport::modifier<viewkit::Link>(*node)) links.push_back(link->url);
  }
  EXPECT_THAT(links, ElementsAre("quorvel-widget://open/card/a b"));
}

TEST(DueWidgetView, AmountsAreNeverShortened) {
  const auto entry = entryOf({due("Loan", "2025-03-17", 12345678901234)});
  EXPECT_THAT(testsupport::texts(view(entry, WidgetFamily::systemSmall)),
              Contains("$12,345,678,901,234"));
}

TEST(DueWidgetView, TheSmallLayoutNamesTheDay) {
  auto entry = entryOf({due("Netflix", "2025-03-17")});
  EXPECT_THAT(testsupport::texts(view(entry, WidgetFamily::systemSmall)),
              ElementsAre("N", "3d left", "Netflix", "$125", "Due Mar 17"));
  entry.snapshot->dues[0].subtitle = "Monthly";
  EXPECT_THAT(testsupport::texts(view(entry, WidgetFamily::systemLarge)),
              Contains("\u2068Monthly\u2069"));
}

DueTile tile(const WidgetSnapshot::Due& due, RenderingMode mode = RenderingMode::fullColor) {
  return {.due = due, .size = 28, .renderingMode = mode};
}

TEST(DueTile, ABrandComesBeforeASymbolBeforeALetter) {
  auto payment = due("straße", "2025-03-17");
  EXPECT_THAT(testsupport::texts(tile(payment).body()), ElementsAre("S"));
  payment.symbol = "wifi";
  EXPECT_THAT(testsupport::symbols(tile(payment).body()), ElementsAre("wifi"));
  payment.brandId = "netflix";
  const viewkit::View branded = tile(payment);
  ASSERT_THAT(testsupport::nodesWith<viewkit::ImageElement>(branded), SizeIs(1));
  const auto* image = testsupport::nodesWith<viewkit::ImageElement>(branded)[0];
  EXPECT_EQ(std::get<viewkit::ImageElement>(image->element).path, "widget-brands/netflix.png");
  // What stands in for a file that cannot be read.
  EXPECT_THAT(testsupport::symbols(branded), ElementsAre("wifi"));
}

TEST(DueTile, AnAccentedHostGetsNoBrandImage) {
  auto payment = due("Netflix", "2025-03-17");
  payment.brandId = "netflix";
  const viewkit::View accented = tile(payment, RenderingMode::accented);
  EXPECT_THAT(testsupport::nodesWith<viewkit::ImageElement>(accented), IsEmpty());
}

TEST(DueTile, AHostWithoutPicturesDrawsTheFirstPlainCharacter) {
  const auto initial = [](const char* name) {
    const viewkit::View body = tile(due(name, "2025-03-17")).body();
    const auto* node = testsupport::nodesWith<viewkit::TextElement>(body).front();
    const auto& text = std::get<viewkit::TextElement>(node->element);
    return std::pair{text.text, text.fallback};
  };
  EXPECT_EQ(initial("🏠 rent"), (std::pair<std::string, std::string>{"🏠", "R"}));
  EXPECT_EQ(initial("👨‍👩‍👧🇫🇷 école"),
            (std::pair<std::string, std::string>{"👨‍👩‍👧", "É"}));
  EXPECT_EQ(initial("& co"), (std::pair<std::string, std::string>{"&", ""}));
  EXPECT_EQ(initial("🏠"), (std::pair<std::string, std::string>{"🏠", ""}));
}

// Under the veil that a white mark needs, a white or yellow face would be brown.
TEST(DueTile, APaleFaceGivesWayToTheDefaultOne) {
  const auto groundOf = [](std::vector<std::string> face) {
    auto payment = due("Rent", "2025-03-17");
    payment.face = std::move(face);
    return viewkit::dump(tile(payment).body());
  };
  EXPECT_THAT(groundOf({"#FFFFFF", "#F2CF66"}), HasSubstr("#3F3F46 at 0"));
  EXPECT_THAT(groundOf({"#F2CF66"}), HasSubstr("#3F3F46 at 0"));
  EXPECT_THAT(groundOf({"#E50914", "#60040A"}), HasSubstr("#E50914 at 0"));
}

TEST(DueTile, OneLetterMayBecomeTwo) {
  EXPECT_THAT(testsupport::texts(tile(due("ßtraße", "2025-03-17")).body()), ElementsAre("SS"));
}

}  // namespace
}  // namespace quorvel
