// The corpus of states: what each changes, and that nothing else does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "QuorvelWidgets/Gallery/DocumentStates.hpp"
#include "QuorvelWidgets/Gallery/SnapshotStates.hpp"

namespace quorvel {
namespace {

using ::testing::Each;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

WidgetSnapshot household() {
  WidgetSnapshot snapshot;
  snapshot.lang = "en";
  snapshot.money = {.symbol = "$", .showDecimals = false, .conversionRate = 2};
  snapshot.cards = {{.id = "a", .productName = "One", .limit = 70, .gradient = {"#000000"}},
                    {.id = "b", .productName = "Two", .limit = 80}};
  snapshot.dues = {{.id = "r", .name = "Rent", .amount = 15, .kind = "bill", .subtitle = "Flat"},
                   {.id = "n", .name = "Net", .amount = 5, .kind = "bill"}};
  snapshot.budget = {.total = 100, .spent = 40, .periodEnd = "2025-03-31"};
  snapshot.spending = {.month = "2025-03", .spent = 10, .topCategory = "Food", .daily = {4, 0, 6}};
  snapshot.netWorth = {.value = 30,
                       .changePercent = 5.5,
                       .history = {{"2025-02", 20}, {"2025-03", 30}},
                       .liquid = 10};
  return snapshot;
}

TEST(SnapshotStates, NamesAreUnique) {
  std::set<std::string_view> names;
  for (const auto& state : snapshotStates()) {
    EXPECT_TRUE(names.insert(state.name).second) << state.name;
  }
}

TEST(SnapshotStates, EachChangesAHousehold) {
  for (const auto& state : snapshotStates()) {
    EXPECT_NE(inState(household(), state.name), household()) << state.name;
  }
}

TEST(SnapshotStates, NothingIsInvented) {
  for (const auto& state : snapshotStates()) {
    WidgetSnapshot expected = inState({}, state.name);
    EXPECT_THAT(expected.cards, IsEmpty()) << state.name;
    EXPECT_THAT(expected.dues, IsEmpty()) << state.name;
    EXPECT_FALSE(expected.budget || expected.spending || expected.netWorth) << state.name;
  }
}

TEST(SnapshotStates, AnUnknownStateChangesNothing) {
  EXPECT_EQ(inState(household(), "upside-down"), household());
  EXPECT_EQ(snapshotState("upside-down"), nullptr);
}

TEST(SnapshotStates, NamesReachCardsDuesAndTheCategory) {
  const WidgetSnapshot changed = renamed(household(), "Konto");
  EXPECT_THAT(changed.cards, Each(Field(&WidgetSnapshot::Card::productName, "Konto")));
  EXPECT_THAT(changed.dues, Each(Field(&WidgetSnapshot::Due::name, "Konto")));
  EXPECT_THAT(changed.dues, Each(Field(&WidgetSnapshot::Due::subtitle, "Konto")));
  EXPECT_EQ(changed.spending->topCategory, "Konto");
  EXPECT_EQ(changed.budget, household().budget);
}

TEST(SnapshotStates, ScaledAmountsKeepPercentagesZerosAndTheMoneyStyle) {
  const WidgetSnapshot tenfold = scaled(household(), 10);
  EXPECT_EQ(tenfold.budget->total, 1000);
  EXPECT_EQ(tenfold.cards[1].limit, 800);
  EXPECT_EQ(tenfold.dues[0].amount, 150);
  EXPECT_EQ(tenfold.netWorth->history[0].value, 200);
  EXPECT_THAT(tenfold.spending->daily, testing::ElementsAre(40, 0, 60));
  EXPECT_EQ(tenfold.netWorth->changePercent, 5.5);
  EXPECT_EQ(tenfold.money, household().money);
}

TEST(SnapshotStates, TinyAmountsShowTheirDecimals) {
  EXPECT_TRUE(inState(household(), "tiny-amounts").money.showDecimals);
}

TEST(SnapshotStates, ExceededIsMoreThanThereIs) {
  EXPECT_GT(inState(household(), "exceeded").budget->spent, 100);
}

TEST(SnapshotStates, BelowZeroTurnsTheHistoryWithIt) {
  const WidgetSnapshot changed = inState(household(), "negative-net-worth");
  EXPECT_EQ(changed.netWorth->value, -30);
  EXPECT_EQ(changed.netWorth->history[0].value, -20);
}

TEST(SnapshotStates, OneOfEachKeepsThePresentMonth) {
  const WidgetSnapshot one = inState(household(), "one-of-each");
  ASSERT_THAT(one.cards, SizeIs(1));
  EXPECT_EQ(one.cards[0].id, "a");
  EXPECT_THAT(one.dues, SizeIs(1));
  ASSERT_THAT(one.netWorth->history, SizeIs(1));
  EXPECT_EQ(one.netWorth->history[0].month, "2025-03");
}

TEST(SnapshotStates, NineCardsAreNineOfTheirOwn) {
  const WidgetSnapshot nine = inState(household(), "nine-cards");
  std::set<std::string> ids;
  for (const auto& card : nine.cards) ids.insert(card.id);
  EXPECT_THAT(ids, SizeIs(9));
  EXPECT_EQ(nine.cards[8].productName, "One");
}

TEST(SnapshotStates, SixtyMonthsEndInThePresentValue) {
  const auto history = inState(household(), "sixty-months").netWorth->history;
  ASSERT_THAT(history, SizeIs(60));
  EXPECT_EQ(history.front().month, "2020-04");
  EXPECT_EQ(history.back().month, "2025-03");
  EXPECT_EQ(history.back().value, 30);
}

TEST(SnapshotStates, NoHistoryLeavesThePresentValue) {
  const WidgetSnapshot changed = inState(household(), "no-history");
  EXPECT_THAT(changed.netWorth->history, IsEmpty());
  EXPECT_THAT(changed.spending->daily, IsEmpty());
  EXPECT_EQ(changed.netWorth->value, 30);
}

TEST(SnapshotStates, OtherAmountsDifferWithEveryStepAndFromTheirNeighbours) {
  const WidgetSnapshot first = withOtherAmounts(household(), 1);
  const WidgetSnapshot second = withOtherAmounts(household(), 2);
  EXPECT_NE(first.cards[0].limit, second.cards[0].limit);
  EXPECT_NE(first.cards[0].limit - 70, first.cards[1].limit - 80);
  EXPECT_EQ(first.spending->daily[1], 0);
  EXPECT_EQ(first.netWorth->changePercent, 5.5);
  EXPECT_EQ(first.money, household().money);
}

TEST(DocumentStates, AsWrittenIsTheSameDocument) {
  const std::string document = encodeWidgetSnapshot(household());
  EXPECT_EQ(decodeWidgetSnapshot(documentInState(document, "", "")), household());
}

TEST(DocumentStates, TakeTheirLanguageAndState) {
  const auto changed =
      decodeWidgetSnapshot(documentInState(encodeWidgetSnapshot(household()), "hidden", "ar"));
  ASSERT_TRUE(changed.has_value());
  EXPECT_TRUE(changed->isHidden);
  EXPECT_EQ(changed->lang, "ar");
  EXPECT_EQ(changed->budget, household().budget);
}

TEST(DocumentStates, WhatCannotBeReadStaysAsItIs) {
  EXPECT_EQ(documentInState("{\"lang\":", "hidden", "ar"), "{\"lang\":");
  EXPECT_EQ(documentWithOtherAmounts("{\"lang\":", 1), std::nullopt);
}

}  // namespace
}  // namespace quorvel
