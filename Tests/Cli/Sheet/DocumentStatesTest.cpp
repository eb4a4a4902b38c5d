// Documents edited into their extremes: what changes, and that nothing else does.
#include <gtest/gtest.h>

#include "Cli/Sheet/DocumentStates.hpp"

namespace cli {
namespace {

using foundation::JsonValue;

constexpr std::string_view kDocument = R"({
  "money": {"symbol": "$", "showDecimals": false},
  "cards": [{"id": "a", "productName": "One", "limit": 70, "gradient": ["#000000"]},
            {"id": "b", "productName": "Two", "limit": 80, "gradient": []}],
  "dues": [{"name": "Rent", "amount": 15}, {"name": "Net", "amount": 5}],
  "budget": {"total": 100, "spent": 40},
  "spending": {"topCategory": "Food", "daily": [4, 0, 6]},
  "netWorth": {"value": 30, "changePercent": 5.5,
               "history": [{"month": "2025-02", "value": 20}, {"month": "2025-03", "value": 30}]}
})";

JsonValue document() {
  return foundation::parseJson(kDocument).value();
}

const JsonValue& at(const JsonValue& object, std::string_view key) {
  static const JsonValue kNone;
  const JsonValue* member = object.member(key);
  return member ? *member : kNone;
}

JsonValue in(DocumentState state) {
  return inState(document(), state);
}

TEST(DocumentStates, namesReachCardsDuesAndTheCategory) {
  const JsonValue changed = in(DocumentState::hebrewNames);
  const std::string name = *at(at(changed, "cards").array()->at(1), "productName").string();
  EXPECT_NE(name, "Two");
  EXPECT_EQ(*at(at(changed, "dues").array()->at(0), "name").string(), name);
  EXPECT_EQ(*at(at(changed, "dues").array()->at(0), "subtitle").string(), name);
  EXPECT_EQ(*at(at(changed, "spending"), "topCategory").string(), name);
  EXPECT_EQ(at(changed, "budget"), at(document(), "budget"));
}

TEST(DocumentStates, hugeAndTinyAmountsKeepPercentagesAndZeros) {
  const JsonValue huge = in(DocumentState::hugeAmounts);
  EXPECT_EQ(*at(at(huge, "budget"), "total").number(), 100 * 123456789.123);
  EXPECT_EQ(*at(at(huge, "netWorth"), "changePercent").number(), 5.5);
  EXPECT_EQ(*at(at(huge, "spending"), "daily").array()->at(1).number(), 0);
  const JsonValue tiny = in(DocumentState::tinyAmounts);
  EXPECT_LT(*at(at(tiny, "budget"), "total").number(), 0.01);
  EXPECT_TRUE(*at(at(tiny, "money"), "showDecimals").boolean());
}

TEST(DocumentStates, overBudgetIsMoreThanThereIs) {
  EXPECT_GT(*at(at(in(DocumentState::overBudget), "budget"), "spent").number(), 100);
}

TEST(DocumentStates, belowZeroTurnsTheHistoryWithIt) {
  const JsonValue worth = at(in(DocumentState::belowZero), "netWorth");
  EXPECT_EQ(*at(worth, "value").number(), -30);
  EXPECT_EQ(*at(at(worth, "history").array()->at(0), "value").number(), -20);
}

TEST(DocumentStates, oneOfEachKeepsThePresentMonth) {
  const JsonValue one = in(DocumentState::oneOfEach);
  ASSERT_EQ(at(one, "cards").array()->size(), 1u);
  EXPECT_EQ(*at(at(one, "cards").array()->at(0), "id").string(), "a");
  EXPECT_EQ(at(one, "dues").array()->size(), 1u);
  ASSERT_EQ(at(at(one, "netWorth"), "history").array()->size(), 1u);
  EXPECT_EQ(*at(at(at(one, "netWorth"), "history").array()->at(0), "month").string(), "2025-03");
}

TEST(DocumentStates, nineCardsAreNineOfTheirOwn) {
  const JsonValue nine = in(DocumentState::nineCards);
  ASSERT_EQ(at(nine, "cards").array()->size(), 9u);
  EXPECT_EQ(*at(at(nine, "cards").array()->at(8), "productName").string(), "One");
  EXPECT_NE(at(at(nine, "cards").array()->at(0), "id"), at(at(nine, "cards").array()->at(8), "id"));
}

TEST(DocumentStates, sixtyMonthsEndInThePresentValue) {
  const JsonValue history = at(at(in(DocumentState::sixtyMonths), "netWorth"), "history");
  ASSERT_EQ(history.array()->size(), 60u);
  EXPECT_EQ(*at(history.array()->front(), "month").string(), "2020-04");
  EXPECT_EQ(*at(history.array()->back(), "month").string(), "2025-03");
  EXPECT_EQ(*at(history.array()->back(), "value").number(), 30);
  EXPECT_TRUE(at(at(in(DocumentState::noHistory), "netWorth"), "history").array()->empty());
}

TEST(DocumentStates, nothingIsInvented) {
  const JsonValue bare = foundation::parseJson(R"({"isHidden": false})").value();
  for (int state = 0; state <= static_cast<int>(DocumentState::sixtyMonths); ++state) {
    const auto which = static_cast<DocumentState>(state);
    if (which == DocumentState::hidden || which == DocumentState::noData) continue;
    EXPECT_EQ(inState(bare, which), bare) << name(which);
  }
}

TEST(DocumentStates, everyStateButTheUsualOneHasAName) {
  EXPECT_EQ(name(DocumentState::asWritten), "");
  for (int state = 1; state <= static_cast<int>(DocumentState::sixtyMonths); ++state) {
    EXPECT_NE(name(static_cast<DocumentState>(state)), "") << state;
  }
}

}  // namespace
}  // namespace cli
