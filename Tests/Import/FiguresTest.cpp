// The document of journals whose figures were worked out by hand: the sums stand in the comments.
#include <fmt/format.h>

#include <set>

#include "LedgerFolder.hpp"

namespace importer {
namespace {

using quorvel::WidgetSnapshot;
using ::testing::DoubleEq;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::SizeIs;

std::vector<std::string> historyOf(const WidgetSnapshot& snapshot) {
  std::vector<std::string> points;
  for (const auto& point : snapshot.netWorth->history)
    points.push_back(point.month + " " + decimal(fmt::format("{}", point.value)).text());
  return points;
}

std::vector<std::string> duesOf(const WidgetSnapshot& snapshot) {
  std::vector<std::string> dues;
  for (const auto& due : snapshot.dues)
    dues.push_back(fmt::format("{} {} {} {}", due.dueDate, due.kind, due.name, due.amount));
  return dues;
}

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

constexpr std::string_view kCards = R"(
account liabilities:Southbank:gold  ; type:L, limit: 500, last4: 0042
2026-02-20 card
    expenses:a              $120
    liabilities:Northbank:visa
2026-03-01 below the card
    expenses:a               $30
    liabilities:Northbank:visa:partner
2026-03-02 not this card
    expenses:a             $1000
    liabilities:Northbank:visa2
2026-03-03 other money
    expenses:a              7 EUR
    liabilities:Northbank:visa
2026-03-04 paid too much
    liabilities:Southbank:gold  $25
    assets:bank
2026-03-20 later
    expenses:a             $5000
    liabilities:Northbank:visa
)";
constexpr std::string_view kTwoCards = R"(
[[card]]
account = "liabilities:Northbank:visa"
product = "Everyday"
last4 = "8478"
limit = 10000
due-day = 17
faces = ["#111111", "#222222"]
[[card]]
account = "liabilities:Southbank:gold"
due-day = 1
)";

TEST(CardFigures, AreLimitsLessWhatIsOwed) {
  const auto snapshot = LedgerFolder(kCards).snapshot("2026-03-15", kTwoCards);
  ASSERT_THAT(snapshot.cards, SizeIs(2));
  const auto& visa = snapshot.cards[0];
  EXPECT_EQ(visa.id, "card-liabilities:Northbank:visa");
  EXPECT_EQ(visa.bankName, "Northbank");
  EXPECT_EQ(visa.productName, "Everyday");
  EXPECT_EQ(visa.last4, "8478");
  EXPECT_EQ(visa.limit, 10000);
  EXPECT_EQ(visa.remaining, 9850);  // 120 + 30
  EXPECT_THAT(visa.gradient, ElementsAre("#111111", "#222222"));
  const auto& gold = snapshot.cards[1];
  EXPECT_EQ(gold.bankName, "Southbank");
  EXPECT_EQ(gold.productName, "gold");
  EXPECT_EQ(gold.last4, "0042");  // the account's tags
  EXPECT_EQ(gold.limit, 500);
  EXPECT_EQ(gold.remaining, 525);
  EXPECT_THAT(gold.gradient, SizeIs(2));
  EXPECT_EQ(snapshot.totalLimit, 10500);
  EXPECT_EQ(snapshot.totalRemaining, 10375);
}

TEST(CardFigures, FallDueWhereSomethingIsOwed) {
  const auto snapshot = LedgerFolder(kCards).snapshot("2026-03-15", kTwoCards);
  ASSERT_FALSE(snapshot.dues.empty());
  const auto& due = snapshot.dues[0];
  EXPECT_EQ(due.id, "card-liabilities:Northbank:visa-2026-03-17");
  EXPECT_EQ(due.name, "Everyday");
  EXPECT_EQ(due.amount, 150);
  EXPECT_EQ(due.dueDate, "2026-03-17");
  EXPECT_EQ(due.kind, "card");
  EXPECT_EQ(due.cardId, snapshot.cards[0].id);
  EXPECT_EQ(due.subtitle, "•• 8478");
  EXPECT_THAT(*due.face, ElementsAre("#111111", "#222222"));
  // The other card is in credit. What will be bought with a card on the 20th is a bill, too.
  EXPECT_THAT(duesOf(snapshot),
              ElementsAre("2026-03-17 card Everyday 150", "2026-03-20 bill later 5000"));
}

TEST(DueFigures, AreWhatEntriesAndRulesStillPay) {
  const auto snapshot =
      LedgerFolder(R"(
account liabilities:loan
~ monthly  Rent
    expenses:rent            $700
    assets:bank
~ monthly
    expenses:food            $400
    assets:bank
~ every 31st day of month from 2026-01  Insurance
    expenses:insurance        $20
    assets:bank
~ monthly  Loan
    liabilities:loan         $250
    expenses:interest         $50
    assets:bank
~ monthly  Savings
    assets:savings           $100
    assets:bank
~ monthly  Card bill
    liabilities:visa         $100
    assets:bank
2026-03-10 past
    expenses:a                 $1
    liabilities:loan
2026-03-15 today
    expenses:a                 $1
    liabilities:visa
2026-03-31 Gift
    expenses:a                $15
    liabilities:visa
2026-04-02
    expenses:a                $16
    assets:bank
2026-04-03 Refund
    expenses:a               $-17
    assets:bank
2026-05-14 Last day
    expenses:a                $18
    assets:bank
2026-05-15 Too late
    expenses:a                $19
    assets:bank
)")
          .snapshot("2026-03-15",
                    "[accounts]\nexclude = [\"rent\"]\n[[card]]\n"
                    "account = \"liabilities:visa\"\nlimit = 500\ndue-day = 31\n");
  EXPECT_THAT(duesOf(snapshot),
              ElementsAre("2026-03-31 card visa 1",
                          "2026-03-31 bill Gift 15",
                          "2026-03-31 bill Insurance 20",
                          "2026-04-01 bill Rent 700",
                          "2026-04-01 bill Loan 300",
                          "2026-04-30 bill Insurance 20",
                          "2026-05-01 bill Rent 700",
                          "2026-05-01 bill Loan 300",
                          "2026-05-14 bill Last day 18"));
}

TEST(DueFigures, HaveIdsThatStayAndDiffer) {
  const LedgerFolder ledger(
      "~ monthly  Rent\n    expenses:rent  $700\n    assets:bank\n\n"
      "~ monthly  Rent\n    expenses:rent  $600\n    assets:bank\n\n"
      "2026-03-01 x\n    expenses:rent  $1\n    assets:bank\n");
  const auto first = ledger.snapshot("2026-03-15");
  const auto second = ledger.snapshot("2026-03-16");
  ASSERT_THAT(first.dues, SizeIs(4));
  std::set<std::string> ids;
  for (std::size_t i = 0; i < first.dues.size(); ++i) {
    EXPECT_EQ(first.dues[i].id, second.dues[i].id);
    ids.insert(first.dues[i].id);
  }
  EXPECT_THAT(ids, SizeIs(4));
}

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
