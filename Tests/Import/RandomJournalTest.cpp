// Journals made by chance together with their figures: cents added as whole numbers, beside the
// rules of the importer and of hledger.
#include <fmt/format.h>

#include <map>
#include <random>

#include "LedgerFolder.hpp"

namespace importer {
namespace {

using Cents = std::int64_t;

std::string dollars(Cents cents) {
  return fmt::format(
      "{}${}.{:02}", cents < 0 ? "-" : "", std::abs(cents) / 100, std::abs(cents) % 100);
}

double number(Cents cents) {
  return static_cast<double>(cents) / 100;
}

/// What is expected, kept beside the journal while it grows.
struct Ledger {
  std::string text;
  std::map<Day, Cents> spent;
  std::map<std::pair<Month, std::string>, Cents> categories;
  std::map<Month, Cents> worth;  ///< changes of the month
  Cents assets = 0;
  Cents liabilities = 0;
  Cents visa = 0;
  Month first{};

  Cents spentIn(Day from, Day to) const {
    Cents sum = 0;
    for (const auto& [day, cents] : spent) sum += day >= from && day <= to ? cents : 0;
    return sum;
  }
};

class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}
  int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(engine_); }

 private:
  std::mt19937 engine_;
};

Ledger ledgerUpTo(Day today, Chance& chance) {
  constexpr const char* kSpending[] = {
      "expenses:food", "expenses:food:market", "expenses:fun:music", "expenses:home", "expenses"};
  constexpr const char* kFrom[] = {"assets:bank:checking",
                                   "assets:cash",
                                   "liabilities:visa",
                                   "liabilities:visa:partner",
                                   "liabilities:loan"};
  Ledger ledger;
  Day day = firstDay(monthOf(today) - (1 + chance.below(20))) + chance.below(20);
  ledger.first = monthOf(day);
  for (; day <= today; day = day + chance.below(3)) {
    const std::string account = kSpending[chance.below(5)];
    const std::string from = kFrom[chance.below(5)];
    const Cents cents = chance.below(9) == 0 ? -chance.below(5000) : chance.below(20000);
    ledger.text += fmt::format("{} entry \"{}\", {}\n    {}  {}\n    {}\n\n",
                               text(day),
                               chance.below(9),
                               cents,
                               account,
                               dollars(cents),
                               from);
    ledger.spent[day] += cents;
    if (account != "expenses") {
      const std::string category = account.substr(0, account.find(':', account.find(':') + 1));
      ledger.categories[{monthOf(day), category}] += cents;
    }
    ledger.worth[monthOf(day)] -= cents;
    (from.starts_with("assets") ? ledger.assets : ledger.liabilities) -= cents;
    if (from.starts_with("liabilities:visa")) ledger.visa += cents;
  }
  return ledger;
}

void expectSpending(const quorvel::records::Spending& spending, const Ledger& ledger, Day today) {
  const Month month = monthOf(today);
  EXPECT_DOUBLE_EQ(spending.spent,
                   number(std::max<Cents>(ledger.spentIn(firstDay(month), today), 0)));
  EXPECT_DOUBLE_EQ(
      spending.lastMonthSpent,
      number(std::max<Cents>(ledger.spentIn(firstDay(month - 1), lastDay(month - 1)), 0)));
  const auto expectDays = [&](const std::vector<double>& daily, Month of) {
    ASSERT_EQ(static_cast<int>(daily.size()), daysIn(of));
    for (int i = 0; i < daysIn(of); ++i) {
      const Day day = firstDay(of) + i;
      EXPECT_DOUBLE_EQ(daily[static_cast<std::size_t>(i)],
                       number(std::max<Cents>(ledger.spentIn(day, day), 0)))
          << text(day);
    }
  };
  expectDays(spending.daily, month);
  const Month oldest = std::max(ledger.first, month - 12);
  ASSERT_EQ(static_cast<int>(spending.earlier->size()), month.number - oldest.number);
  for (std::size_t i = 0; i < spending.earlier->size(); ++i) {
    const Month earlier = oldest + static_cast<int>(i);
    EXPECT_EQ(spending.earlier->at(i).month, text(earlier));
    expectDays(spending.earlier->at(i).daily, earlier);
  }
  Cents top = 0;
  for (const auto& [key, cents] : ledger.categories) {
    if (key.first == month) top = std::max(top, cents);
  }
  EXPECT_DOUBLE_EQ(spending.topCategoryAmount, number(top));
  EXPECT_EQ(spending.topCategory.has_value(), top > 0);
}

void expectNetWorth(const quorvel::records::NetWorth& worth, const Ledger& ledger, Day today) {
  EXPECT_DOUBLE_EQ(worth.assets, number(ledger.assets));
  EXPECT_DOUBLE_EQ(worth.liabilities, number(-ledger.liabilities));
  EXPECT_DOUBLE_EQ(worth.value, number(ledger.assets + ledger.liabilities));
  ASSERT_EQ(static_cast<int>(worth.history.size()),
            monthOf(today).number - ledger.first.number + 1);
  Cents sum = 0;
  for (std::size_t i = 0; i < worth.history.size(); ++i) {
    const Month month = ledger.first + static_cast<int>(i);
    const auto change = ledger.worth.find(month);
    if (change != ledger.worth.end()) sum += change->second;
    EXPECT_EQ(worth.history[i].month, text(month));
    EXPECT_DOUBLE_EQ(worth.history[i].value, number(sum)) << text(month);
  }
}

TEST(RandomJournals, HaveTheFiguresThatTheyWereMadeWith) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    SCOPED_TRACE(seed);
    Chance chance(seed);
    const Day today = *parseDay("2026-01-01") + chance.below(700);
    const Ledger ledger = ledgerUpTo(today, chance);
    const LedgerFolder folder(ledger.text + text(today + 1) +
                              " tomorrow\n    expenses:food  $12345\n    assets:cash\n");
    const auto snapshot =
        folder.snapshot(text(today), "[[card]]\naccount = \"liabilities:visa\"\nlimit = 1000\n");
    ASSERT_TRUE(snapshot.spending && snapshot.netWorth);
    expectSpending(*snapshot.spending, ledger, today);
    expectNetWorth(*snapshot.netWorth, ledger, today);
    ASSERT_EQ(snapshot.cards.size(), 1u);
    EXPECT_DOUBLE_EQ(snapshot.cards[0].remaining, number(100000 - ledger.visa));
  }
}

// Before days are clipped at zero, they add up to the month.
TEST(RandomJournals, HaveDaysThatAddUpToTheirMonth) {
  for (unsigned seed = 100; seed < 105; ++seed) {
    SCOPED_TRACE(seed);
    Chance chance(seed);
    const Day today = *parseDay("2026-01-20") + chance.below(300);
    const Ledger made = ledgerUpTo(today, chance);
    const LedgerFolder folder(made.text);
    const Settings settings;
    const auto journal = readJournal(folder.request(text(today)), settings);
    ASSERT_TRUE(journal) << journal.error().line;
    const auto postings = spendingPostings(*journal, settings);
    for (const Month month : {monthOf(today) - 1, monthOf(today)}) {
      Decimal sum;
      for (Day day = firstDay(month); day <= lastDay(month); day = day + 1)
        sum += sumOf(postings, day, day);
      EXPECT_EQ(sum, sumOf(postings, firstDay(month), lastDay(month)));
      EXPECT_DOUBLE_EQ(sum.toDouble(), number(made.spentIn(firstDay(month), lastDay(month))));
    }
  }
}

}  // namespace
}  // namespace importer
