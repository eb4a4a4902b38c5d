// The commodity of a journal, and what no figure depends on.
#include "LedgerFolder.hpp"

namespace importer {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(Commodity, IsTheOneWithTheMostPostings) {
  const LedgerFolder ledger(R"(
commodity 1.000, EUR
P 2026-03-01 EUR 2.00 CHF
2026-03-01 a
    expenses:a     1.234,56 EUR
    assets:bank
2026-03-02 b
    expenses:a     99 CHF
    assets:swiss
2026-03-03 c
    expenses:a     0,44 EUR
    assets:bank
)");
  const auto euros = ledger.snapshot("2026-03-15");
  EXPECT_EQ(euros.money.symbol, "EUR");
  EXPECT_DOUBLE_EQ(euros.spending->spent, 1235);
  EXPECT_DOUBLE_EQ(euros.netWorth->value, -1284.5);  // 99 CHF are 49.5 EUR
  const auto francs = ledger.snapshot("2026-03-15", "commodity = \"CHF\"\nsymbol = \"Fr. \"\n");
  EXPECT_EQ(francs.money.symbol, "Fr. ");
  EXPECT_DOUBLE_EQ(francs.spending->spent, 99);
  EXPECT_DOUBLE_EQ(francs.netWorth->value, -2569);  // -2470 - 99
}

TEST(Commodity, MayHaveNoNameOrAQuotedOne) {
  EXPECT_EQ(LedgerFolder("2026-03-01 x\n    expenses:a  5.25\n    assets:cash\n")
                .snapshot("2026-03-15")
                .spending->spent,
            5.25);
  const auto quoted =
      LedgerFolder("2026-03-01 x\n    expenses:a  5.25 \"GOLD 1\"\n    assets:cash\n")
          .snapshot("2026-03-15");
  EXPECT_EQ(quoted.money.symbol, "GOLD 1");
  EXPECT_EQ(quoted.netWorth->value, -5.25);
}

TEST(Commodity, ShowsDecimalsAsTwoMonthsNeedThem) {
  const auto shows = [](std::string_view journal, std::string_view toml = {}) {
    return LedgerFolder(journal).snapshot("2026-03-15", toml).money.showDecimals;
  };
  EXPECT_FALSE(shows("2026-03-01 x\n    expenses:a  $10.00\n    assets:cash\n"));
  EXPECT_TRUE(shows("2026-02-01 x\n    expenses:a  $10.01\n    assets:cash\n"));
  EXPECT_FALSE(shows("2026-01-31 x\n    expenses:a  $10.01\n    assets:cash\n"));
  EXPECT_FALSE(
      shows("2026-03-16 x\n    expenses:a  $10.01\n    assets:cash\n\n"
            "2026-03-01 x\n    expenses:a  $1\n    assets:cash\n"));
  EXPECT_TRUE(shows("2026-03-01 x\n    expenses:a  $10\n    assets:cash\n", "decimals = true"));
}

TEST(Figures, OfAJournalThatBeginsToday) {
  const auto snapshot =
      LedgerFolder("2026-03-15 x\n    expenses:a  $10\n    assets:cash\n").snapshot("2026-03-15");
  EXPECT_EQ(snapshot.spending->spent, 10);
  EXPECT_EQ(snapshot.spending->lastMonthSpent, 0);
  EXPECT_THAT(*snapshot.spending->earlier, IsEmpty());
  EXPECT_THAT(historyOf(snapshot), ElementsAre("2026-03 -10"));
  EXPECT_FALSE(snapshot.netWorth->changePercent);
}

TEST(Figures, AreNotDisturbedByRoundingStylesOfTheJournal) {
  const auto snapshot = LedgerFolder(
                            "commodity $1,000.\n2026-03-01 x\n    expenses:a  $13.34\n"
                            "    assets:cash\n2026-03-02 x\n    expenses:a  $1,200.34\n"
                            "    assets:cash\n")
                            .snapshot("2026-03-15");
  EXPECT_DOUBLE_EQ(snapshot.spending->spent, 1213.68);
  EXPECT_DOUBLE_EQ(snapshot.netWorth->value, -1213.68);
}

TEST(Figures, HoldWhenAnAssertionIsDatedAfterToday) {
  const auto snapshot = LedgerFolder(
                            "~ monthly  Rent\n    expenses:rent  $700\n    assets:bank\n\n"
                            "2026-03-01 x\n    expenses:a  $10\n    assets:bank\n\n"
                            "2026-04-10 x\n    expenses:a  $10\n"
                            "    assets:bank  $-10 = $-20\n")
                            .snapshot("2026-03-15");
  EXPECT_EQ(snapshot.spending->spent, 10);
  EXPECT_THAT(snapshot.dues, SizeIs(3));
}

}  // namespace
}  // namespace importer
