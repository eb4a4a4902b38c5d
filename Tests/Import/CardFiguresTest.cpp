// Cards and dues of journals worked out by hand: the sums stand in the comments.
#include <fmt/format.h>

#include <set>

#include "LedgerFolder.hpp"

namespace importer {
namespace {

using quorvel::WidgetSnapshot;
using ::testing::ElementsAre;
using ::testing::SizeIs;

std::vector<std::string> duesOf(const WidgetSnapshot& snapshot) {
  std::vector<std::string> dues;
  for (const auto& due : snapshot.dues)
    dues.push_back(fmt::format("{} {} {} {}", due.dueDate, due.kind, due.name, due.amount));
  return dues;
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

}  // namespace
}  // namespace importer
