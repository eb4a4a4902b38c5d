// What each widget says in one line.
#include <gtest/gtest.h>

#include <string>

#include "QuorvelWidgets/CardLimit/CardLimitView.hpp"
#include "QuorvelWidgets/Due/DueWidgetView.hpp"
#include "QuorvelWidgets/NetWorth/NetWorthWidgetView.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendView.hpp"
#include "QuorvelWidgets/Spending/SpendingWidgetView.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"
#include "Tests/Support/Isolates.hpp"
#include "Tests/Support/WidgetSamples.hpp"

namespace quorvel {
namespace {

using testsupport::februaryTenth;
using testsupport::smallSnapshot;
using widgetruntime::Environment;
using widgetruntime::WidgetSummary;
using State = WidgetSummary::State;

struct Case {
  std::optional<WidgetSnapshot> snapshot = smallSnapshot();
  Environment environment{};
  std::optional<std::string> cardId{};
};

template <class View, class Entry>
WidgetSummary summaryOf(const Entry& entry, const Environment& environment) {
  WidgetSummary summary =
      View{{.entry = entry, .environment = environment, .urlScheme = "quorvel"}}.summary();
  summary.text = testsupport::withoutIsolates(summary.text);
  return summary;
}

WidgetSummary spending(const Case& c) {
  return summaryOf<SpendingWidgetView>(SnapshotEntry{februaryTenth(), c.snapshot}, c.environment);
}
WidgetSummary netWorth(const Case& c) {
  return summaryOf<NetWorthWidgetView>(SnapshotEntry{februaryTenth(), c.snapshot}, c.environment);
}
WidgetSummary due(const Case& c) {
  return summaryOf<DueWidgetView>(SnapshotEntry{februaryTenth(), c.snapshot}, c.environment);
}
WidgetSummary cardLimit(const Case& c) {
  return summaryOf<CardLimitView>(CardEntry{februaryTenth(), c.snapshot, c.cardId}, c.environment);
}
WidgetSummary safeToSpend(const Case& c) {
  return summaryOf<SafeToSpendView>(
      SafeToSpendEntry{februaryTenth(), c.snapshot, SafeToSpendStyle::accent}, c.environment);
}

Case redacted() {
  Case c;
  c.environment.redactionReasons.privacy = true;
  return c;
}

template <class Change>
Case with(const Change& change, std::string_view lang = "en") {
  Case c{.snapshot = smallSnapshot(lang)};
  change(*c.snapshot);
  return c;
}

TEST(Summary, SpendingIsTheAmountAndItsChange) {
  // 600 after 500 is 20 % more; what rises and falls has no state of its own.
  EXPECT_EQ(spending({}), (WidgetSummary{"$600 ↗ 20.0%"}));
  EXPECT_EQ(spending(with([](auto& s) { s.spending->lastMonthSpent = 1000; })).text,
            "$600 ↘ 40.0%");
  EXPECT_EQ(spending(with([](auto& s) { s.spending->lastMonthSpent = 600; })).text, "$600 → 0.0%");
  EXPECT_EQ(spending(with([](auto& s) { s.spending->lastMonthSpent = 0; })).text, "$600");
}

TEST(Summary, NetWorthIsTheAmountAndItsChange) {
  EXPECT_EQ(netWorth({}), (WidgetSummary{"$1,100 ↗ 10.0%"}));
  EXPECT_EQ(netWorth(with([](auto& s) { s.netWorth->changePercent = -3.26; })).text,
            "$1,100 ↘ 3.3%");
  EXPECT_EQ(netWorth(with([](auto& s) { s.netWorth->changePercent.reset(); })).text, "$1,100");
}

TEST(Summary, ArrowsPointTheWayTheLanguageIsRead) {
  EXPECT_EQ(netWorth(with([](auto&) {}, "ar")).text, "$1,100 ↖ 10.0%");
  EXPECT_EQ(netWorth(with([](auto& s) { s.netWorth->changePercent = -1; }, "ar")).text,
            "$1,100 ↙ 1.0%");
  EXPECT_EQ(netWorth(with([](auto& s) { s.netWorth->changePercent = 0; }, "ar")).text,
            "$1,100 ← 0.0%");
}

TEST(Summary, SafeToSpendIsTheAmountPerDayAndThePace) {
  // 1200 left for 18 days: 66.67. A third of the budget after 10 of 28 days is on pace.
  EXPECT_EQ(safeToSpend({}), (WidgetSummary{"$67 / day", State::good}));
  EXPECT_EQ(safeToSpend(with([](auto&) {}, "ja")).text, "$67/日");
  EXPECT_EQ(safeToSpend(with([](auto&) {}, "de")).text, "$67 pro Tag");
  // 43 % and 61 % spent after 36 % of the month: 7 and 25 points ahead.
  EXPECT_EQ(safeToSpend(with([](auto& s) { s.budget->spent = 780; })).state, State::warning);
  EXPECT_EQ(safeToSpend(with([](auto& s) { s.budget->spent = 1100; })).state, State::critical);
}

TEST(Summary, SafeToSpendOnTheLastDayIsWhatIsLeft) {
  EXPECT_EQ(safeToSpend(with([](auto& s) { s.budget->periodEnd = "2025-02-10"; })),
            (WidgetSummary{"$1,200 left", State::good}));
}

TEST(Summary, AnExceededBudgetSaysByHowMuch) {
  const auto exceeded = [](WidgetSnapshot& s) { s.budget->spent = 2010; };
  EXPECT_EQ(safeToSpend(with(exceeded)), (WidgetSummary{"$210 over budget", State::critical}));
  EXPECT_EQ(safeToSpend(with([&](auto& s) {
              exceeded(s);
              s.budget->periodEnd = "2025-02-10";
            })).text,
            "$210 over budget");
}

TEST(Summary, CardLimitIsWhatAllCardsHaveLeft) {
  EXPECT_EQ(cardLimit({}), (WidgetSummary{"$7,500", State::good}));
  const auto withRemaining = [](double remaining) {
    return cardLimit(with([=](auto& s) { s.totalRemaining = remaining; })).state;
  };
  // Of 10,000: 50 % used is the first warning, 80 % the first alarm.
  EXPECT_EQ(withRemaining(5001), State::good);
  EXPECT_EQ(withRemaining(5000), State::warning);
  EXPECT_EQ(withRemaining(2001), State::warning);
  EXPECT_EQ(withRemaining(2000), State::critical);
}

TEST(Summary, CardLimitOfAChosenCardIsItsOwn) {
  EXPECT_EQ(cardLimit({.cardId = "b"}), (WidgetSummary{"$800", State::warning}));
  EXPECT_EQ(cardLimit({.cardId = "gone"}), cardLimit({}));
}

TEST(Summary, DueIsTheInlineLine) {
  EXPECT_EQ(due({}), (WidgetSummary{"Today · Everyday · $125"}));
  EXPECT_EQ(due(with([](auto& s) { s.dues.erase(s.dues.begin(), s.dues.begin() + 3); })).text,
            "in 9 days · loan · $2,500");
}

TEST(Summary, HiddenAmountsTakeTheirProportionsAlong) {
  const Case byApplication = with([](auto& s) { s.isHidden = true; });
  for (const Case& c : {byApplication, redacted()}) {
    EXPECT_EQ(spending(c), (WidgetSummary{"••••"}));
    EXPECT_EQ(netWorth(c), (WidgetSummary{"••••"}));
    EXPECT_EQ(cardLimit(c), (WidgetSummary{"••••"}));
    EXPECT_EQ(due(c), (WidgetSummary{"Today · Everyday · ••••"}));
    // The pace is a word, which stays.
    EXPECT_EQ(safeToSpend(c), (WidgetSummary{"•••• / day", State::good}));
  }
}

TEST(Summary, WithoutDataItIsTheMessage) {
  const Case empty = with([](auto& s) {
    s.cards.clear();
    s.dues.clear();
    s.budget.reset();
    s.spending.reset();
    s.netWorth.reset();
  });
  EXPECT_EQ(spending(empty), (WidgetSummary{"No spending yet this month"}));
  EXPECT_EQ(netWorth(empty), (WidgetSummary{"Add assets in Quorvel"}));
  EXPECT_EQ(cardLimit(empty), (WidgetSummary{"Add a card in Quorvel"}));
  EXPECT_EQ(due(empty), (WidgetSummary{"Nothing due soon"}));
  EXPECT_EQ(safeToSpend(empty), (WidgetSummary{"Set a monthly budget in Quorvel"}));
  Case none{.snapshot = std::nullopt};
  none.environment.preferredLanguages = {"nl-NL", "de-AT"};
  for (const auto& of : {spending, netWorth, cardLimit, due, safeToSpend}) {
    EXPECT_EQ(of(none).text, WidgetStrings::text("signIn", "de"));
    EXPECT_EQ(of(none).state, State::none);
  }
}

TEST(Summary, APlaceholderSaysItsTitleAlone) {
  Case c;
  c.environment.redactionReasons.placeholder = true;
  EXPECT_EQ(spending(c), (WidgetSummary{"Spent this month"}));
  EXPECT_EQ(netWorth(c), (WidgetSummary{"Net worth"}));
  EXPECT_EQ(cardLimit(c), (WidgetSummary{"Remaining limit"}));
  EXPECT_EQ(due(c), (WidgetSummary{"Next due"}));
  EXPECT_EQ(safeToSpend(c), (WidgetSummary{"Safe to spend"}));
}

TEST(Summary, AmountsAndNamesKeepTheirOwnDirection) {
  const SnapshotEntry entry{februaryTenth(), smallSnapshot("ar")};
  const NetWorthWidgetView worth{{.entry = entry, .environment = {}, .urlScheme = ""}};
  EXPECT_EQ(worth.summary().text, "\u2066$1,100\u2069 ↖ \u206610.0%\u2069");
  const DueWidgetView next{{.entry = entry, .environment = {}, .urlScheme = ""}};
  EXPECT_EQ(next.summary().text, "اليوم · \u2068Everyday\u2069 · \u2066$125\u2069");
}

}  // namespace
}  // namespace quorvel
