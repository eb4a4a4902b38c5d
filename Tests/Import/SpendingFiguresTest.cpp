// Spending and the budget of journals worked out by hand: the sums stand in the comments.
#include <fmt/format.h>

#include "LedgerFolder.hpp"

namespace importer {
namespace {

using ::testing::Each;
using ::testing::SizeIs;

constexpr std::string_view kTwoMonths = R"(
2026-02-03 market
    expenses:food:market     $40.10
    assets:bank:checking
2026-02-28 rent
    expenses:rent           $700
    assets:bank:checking
2026-03-01 market
    expenses:food:market     $25.05
    assets:bank:checking
2026-03-02 cinema
    expenses:fun             $30
    liabilities:visa
2026-03-02 snack
    expenses:food             $4.95
    assets:cash
2026-03-10 cinema gave back
    expenses:fun            $-12
    liabilities:visa
2026-03-14 root
    expenses                $100
    assets:bank:checking
2026-03-20 tomorrow and later
    expenses:food:market   $1000
    assets:bank:checking
2026-01-15 salary
    assets:bank:checking   $3000
    income:salary
)";

TEST(SpendingFigures, AreTheSumsOfDaysMonthsAndCategories) {
  const auto snapshot = LedgerFolder(kTwoMonths).snapshot("2026-03-15");
  ASSERT_TRUE(snapshot.spending);
  const auto& spending = *snapshot.spending;
  EXPECT_EQ(spending.month, "2026-03");
  EXPECT_DOUBLE_EQ(spending.spent, 148);  // 25.05 + 30 + 4.95 - 12 + 100
  EXPECT_DOUBLE_EQ(spending.lastMonthSpent, 740.10);
  EXPECT_EQ(spending.topCategory, "food");  // 25.05 + 4.95; 18 for fun; the root's 100 has none
  EXPECT_DOUBLE_EQ(spending.topCategoryAmount, 30);
  ASSERT_THAT(spending.daily, SizeIs(31));
  EXPECT_DOUBLE_EQ(spending.daily[0], 25.05);
  EXPECT_DOUBLE_EQ(spending.daily[1], 34.95);
  EXPECT_DOUBLE_EQ(spending.daily[9], 0);  // -12 is not shown
  EXPECT_DOUBLE_EQ(spending.daily[13], 100);
  EXPECT_DOUBLE_EQ(spending.daily[19], 0);    // after today
  ASSERT_THAT(*spending.earlier, SizeIs(2));  // from the first entry's month on, newest last
  EXPECT_EQ(spending.earlier->at(0).month, "2026-01");
  EXPECT_THAT(spending.earlier->at(0).daily, Each(0));
  EXPECT_EQ(spending.earlier->at(1).month, "2026-02");
  ASSERT_THAT(spending.earlier->at(1).daily, SizeIs(28));
  EXPECT_DOUBLE_EQ(spending.earlier->at(1).daily[2], 40.10);
  EXPECT_DOUBLE_EQ(spending.earlier->at(1).daily[27], 700);
  EXPECT_TRUE(snapshot.money.showDecimals);
  EXPECT_EQ(snapshot.money.symbol, "$");
}

TEST(SpendingFigures, LeaveOutWhatIsExcludedEverywhere) {
  const LedgerFolder ledger(kTwoMonths);
  const auto snapshot = ledger.snapshot(
      "2026-03-15", "[accounts]\nexclude = [\"expenses:rent\", \"expenses:food\"]\n");
  EXPECT_DOUBLE_EQ(snapshot.spending->spent, 118);  // 30 - 12 + 100
  EXPECT_DOUBLE_EQ(snapshot.spending->lastMonthSpent, 0);
  EXPECT_EQ(snapshot.spending->topCategory, "fun");
  EXPECT_DOUBLE_EQ(snapshot.spending->topCategoryAmount, 18);
}

TEST(SpendingFigures, FollowQueriesInPlaceOfTypes) {
  const auto snapshot =
      LedgerFolder(kTwoMonths).snapshot("2026-03-15", "[accounts]\nspending = [\"FUN\"]\n");
  EXPECT_DOUBLE_EQ(snapshot.spending->spent, 18);
  EXPECT_FALSE(LedgerFolder(kTwoMonths)
                   .snapshot("2026-03-15", "[accounts]\nspending = [\"none\"]\n")
                   .spending);
}

TEST(SpendingFigures, NameAndColourTheTopCategoryAsSet) {
  const auto spending = *LedgerFolder(kTwoMonths)
                             .snapshot("2026-03-15",
                                       "[category.\"expenses:food\"]\nname = \"Food & drinks\"\n"
                                       "icon = \"fork.knife\"\nlight = \"#EDA100\"\n")
                             .spending;
  EXPECT_EQ(spending.topCategory, "Food & drinks");
  EXPECT_EQ(spending.topCategoryIcon, "fork.knife");
  EXPECT_EQ(spending.topCategoryColor->light, "#EDA100");
  EXPECT_EQ(spending.topCategoryColor->dark, "#EDA100");
}

TEST(SpendingFigures, CountAPostingOnItsOwnDay) {
  const auto spending = *LedgerFolder(R"(
2026-01-31 opening
    assets:cash      $1
    equity
2026-02-28 two days
    expenses:a      $10  ; date:2026-03-02
    expenses:a       $1
    assets:cash
2026-03-20 ordered later, eaten before
    expenses:a     $100  ; [2026-03-03]
    assets:cash
2026-03-05 eaten later
    expenses:a    $1000  ; date:3/25
    assets:cash
)")
                             .snapshot("2026-03-10")
                             .spending;
  EXPECT_DOUBLE_EQ(spending.spent, 110);
  EXPECT_DOUBLE_EQ(spending.lastMonthSpent, 1);
  EXPECT_DOUBLE_EQ(spending.daily[1], 10);
  EXPECT_DOUBLE_EQ(spending.daily[2], 100);
}

TEST(SpendingFigures, AreNeverBelowZero) {
  const auto spending = *LedgerFolder(R"(
2026-02-10 back
    expenses:a     $-10
    assets:cash
2026-03-10 back
    expenses:a     $-20
    assets:cash
)")
                             .snapshot("2026-03-10")
                             .spending;
  EXPECT_EQ(spending.spent, 0);
  EXPECT_EQ(spending.lastMonthSpent, 0);
  EXPECT_EQ(spending.topCategory, std::nullopt);
  EXPECT_EQ(spending.topCategoryAmount, 0);
}

TEST(SpendingFigures, ReadAFullYearAndNoMore) {
  std::string journal;
  for (int year = 2024; year <= 2026; ++year) {
    for (int month = 1; month <= 12; ++month) {
      journal += fmt::format("{}-{:02}-15 x\n    expenses:a  ${}\n    assets:cash\n\n",
                             year,
                             month,
                             (year - 2024) * 100 + month);
    }
  }
  const auto spending = *LedgerFolder(journal).snapshot("2026-03-31").spending;
  ASSERT_THAT(*spending.earlier, SizeIs(12));
  EXPECT_EQ(spending.earlier->front().month, "2025-03");
  EXPECT_EQ(spending.earlier->front().daily[14], 103);
  EXPECT_EQ(spending.earlier->back().month, "2026-02");
  EXPECT_EQ(spending.earlier->back().daily[14], 202);
  EXPECT_EQ(spending.spent, 203);
}

constexpr std::string_view kRules = R"(
~ monthly
    expenses:food      $400
    assets:bank
~ monthly  rent
    expenses:rent      $700
    assets:bank
~ monthly from 2026-04
    expenses:holidays  $999
    assets:bank
~ monthly to 2026-02
    expenses:school    $555
    assets:bank
~ weekly
    expenses:fun        $50
    assets:bank
2026-02-26 last of February
    expenses:food       $11
    assets:bank
2026-03-02 March
    expenses:food       $22
    assets:bank
)";

TEST(BudgetFigures, SumTheMonthlyRulesThatReachIntoThePeriod) {
  const auto budget = *LedgerFolder(kRules).snapshot("2026-03-14").budget;
  EXPECT_EQ(budget.total, 1100);  // not weekly, not yet, no longer
  EXPECT_EQ(budget.spent, 22);
  EXPECT_EQ(budget.periodStart, "2026-03-01");
  EXPECT_EQ(budget.periodEnd, "2026-03-31");
}

TEST(BudgetFigures, LeaveOutWhatIsExcluded) {
  const auto budget =
      *LedgerFolder(kRules).snapshot("2026-03-14", "[accounts]\nexclude = [\"rent\"]\n").budget;
  EXPECT_EQ(budget.total, 400);
}

TEST(BudgetFigures, TakeASettingAndAPeriodThatStartsLater) {
  const LedgerFolder ledger(kRules);
  const std::string toml = "[budget]\ntotal = 1800.5\nstart-day = 25\n";
  const auto budget = *ledger.snapshot("2026-03-14", toml).budget;
  EXPECT_EQ(budget.total, 1800.5);
  EXPECT_EQ(budget.spent, 33);  // 11 + 22
  EXPECT_EQ(budget.periodStart, "2026-02-25");
  EXPECT_EQ(budget.periodEnd, "2026-03-24");
}

TEST(BudgetFigures, FindTheTurnOfAPeriodAcrossTheYear) {
  const auto budget =
      *LedgerFolder(kRules).snapshot("2027-01-10", "[budget]\nstart-day = 25\n").budget;
  EXPECT_EQ(budget.total, 2099);  // 400 + 700 + 999
  EXPECT_EQ(budget.periodStart, "2026-12-25");
}

TEST(BudgetFigures, AreAbsentWithoutAny) {
  EXPECT_FALSE(LedgerFolder(kTwoMonths).snapshot("2026-03-15").budget);
  const LedgerFolder savings(
      "~ monthly\n    assets:savings  $50\n    assets:bank\n\n"
      "2026-03-01 x\n    expenses:a  $1\n    assets:bank\n");
  EXPECT_FALSE(savings.snapshot("2026-03-15").budget);
}

}  // namespace
}  // namespace importer
