// Net worth of journals worked out by hand: the sums stand in the comments.
#include "LedgerFolder.hpp"

namespace importer {
namespace {

using ::testing::DoubleEq;
using ::testing::ElementsAre;
using ::testing::Optional;
using ::testing::SizeIs;

constexpr std::string_view kPrices = R"(
account assets:house  ; type:A
P 2025-12-01 GOLD $10
P 2026-02-27 GOLD $20
P 2026-03-10 GOLD $25
P 2026-03-20 GOLD $99
2026-01-10 opening
    assets:bank:checking   $1000
    assets:house           $5000
    liabilities:loan      $-3000
    equity
2026-02-10 gold
    assets:gold          10 GOLD @ $10
    assets:bank:checking
2026-03-05 half of it sold
    assets:gold          -5 GOLD @ $24
    assets:bank:checking   $120
2026-03-12 paid back
    liabilities:loan       $200
    assets:bank:checking
2026-03-25 later
    assets:bank:checking   $777
    income
)";

TEST(NetWorthFigures, ValueEachMonthAtItsEnd) {
  const auto snapshot = LedgerFolder(kPrices).snapshot("2026-03-15");
  ASSERT_TRUE(snapshot.netWorth);
  const auto& worth = *snapshot.netWorth;
  // bank 1000 - 100 + 120 - 200 = 820, gold 5 x 25, house 5000
  EXPECT_EQ(worth.assets, 5945);
  EXPECT_EQ(worth.liabilities, 2800);
  EXPECT_EQ(worth.value, 3145);
  EXPECT_THAT(worth.liquid, Optional(820.0));
  EXPECT_THAT(worth.nonLiquid, Optional(5125.0));
  // January 1000 + 5000 - 3000; February 900 + 10 x 20 + 5000 - 3000
  EXPECT_THAT(historyOf(snapshot), ElementsAre("2026-01 3000", "2026-02 3100", "2026-03 3145"));
  EXPECT_THAT(worth.changePercent, Optional(DoubleEq(45.0 / 3100 * 100)));
}

TEST(NetWorthFigures, GoOnWhereTheJournalRests) {
  const auto snapshot = LedgerFolder(kPrices).snapshot("2026-06-15");
  // From 25 March on 820 + 777 in the bank, gold 5 x 99: 5000 + 1597 + 495 - 2800.
  EXPECT_THAT(historyOf(snapshot),
              ElementsAre("2026-01 3000",
                          "2026-02 3100",
                          "2026-03 4292",
                          "2026-04 4292",
                          "2026-05 4292",
                          "2026-06 4292"));
  EXPECT_THAT(snapshot.netWorth->changePercent, Optional(0.0));
}

TEST(NetWorthFigures, TakeTheLiquidAccountsThatAreSet) {
  const auto worth =
      *LedgerFolder(kPrices).snapshot("2026-03-15", "[accounts]\nliquid = [\"gold\"]\n").netWorth;
  EXPECT_THAT(worth.liquid, Optional(125.0));
  EXPECT_THAT(worth.nonLiquid, Optional(5820.0));
}

TEST(NetWorthFigures, ShowACreditAsLiabilitiesBelowZero) {
  const auto worth = *LedgerFolder(
                          "2026-03-01 paid twice\n    liabilities:visa  $50\n"
                          "    assets:cash\n")
                          .snapshot("2026-03-15")
                          .netWorth;
  EXPECT_EQ(worth.liabilities, -50);
  EXPECT_EQ(worth.assets, -50);
  EXPECT_EQ(worth.value, 0);
  EXPECT_FALSE(worth.changePercent);
}

TEST(NetWorthFigures, HaveNoChangeFromNothing) {
  const auto worth = *LedgerFolder(
                          "2026-02-01 x\n    expenses:a  $1\n    equity\n\n"
                          "2026-03-01 x\n    assets:cash  $1\n    equity\n")
                          .snapshot("2026-03-15")
                          .netWorth;
  ASSERT_THAT(worth.history, SizeIs(2));
  EXPECT_EQ(worth.history[0].value, 0);
  EXPECT_FALSE(worth.changePercent);
}

TEST(NetWorthFigures, RiseOutOfDebtIsARise) {
  const auto worth = *LedgerFolder(
                          "2026-02-01 x\n    liabilities:loan  $-200\n    equity\n\n"
                          "2026-03-01 x\n    liabilities:loan  $50\n    equity\n")
                          .snapshot("2026-03-15")
                          .netWorth;
  EXPECT_THAT(worth.changePercent, Optional(25.0));  // from -200 to -150
}

TEST(NetWorthFigures, AreAbsentWithoutAccounts) {
  EXPECT_FALSE(LedgerFolder("2026-03-01 x\n    expenses:a  $1\n    income\n")
                   .snapshot("2026-03-15")
                   .netWorth);
}

TEST(NetWorthFigures, LeaveOutWhatHasNoPrice) {
  const auto worth = *LedgerFolder(
                          "2026-03-01 x\n    assets:cash  $10\n    assets:old  3 COIN\n"
                          "    equity\n")
                          .snapshot("2026-03-15", "commodity = \"$\"")
                          .netWorth;
  EXPECT_EQ(worth.value, 10);
}

}  // namespace
}  // namespace importer
