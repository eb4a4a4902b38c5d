#include "Import/Explain.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "Foundation/Printable.hpp"
#include "Import/Result.hpp"

namespace importer {
namespace {

constexpr std::size_t kLongestCell = 40;  // scalars

struct Row {
  std::string when;
  std::string what;
  std::string account;
  Decimal amount;
};

/// Cut to a column's width, by scalars.
std::string cell(std::string_view text) {
  std::string line = displayText(text);
  std::size_t scalars = 0;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const bool isStart = (static_cast<unsigned char>(line[at]) & 0xC0) != 0x80;
    if (isStart && ++scalars > kLongestCell) return line.substr(0, at) + "…";
  }
  return line;
}

class Tables {
 public:
  explicit Tables(std::string_view figure) : figure_(figure) {}

  [[nodiscard]] bool wants(std::string_view figure) const {
    return figure_.empty() || figure_ == figure;
  }
  void add(const std::string& title,
           std::vector<Row> rows,
           const std::string& sumName,
           Decimal sum) {
    std::ranges::stable_sort(rows, {}, &Row::when);
    if (!text_.empty()) text_ += '\n';
    text_ += title + "\n";
    for (const Row& row : rows) {
      text_ += fmt::format("  {:10}  {:>16}  {:<40}  {}\n",
                           row.when,
                           row.amount.text(),
                           cell(row.what),
                           cell(row.account));
    }
    text_ += fmt::format("  {:10}  {:>16}  {}\n", "", sum.text(), sumName);
  }
  void note(const std::string& line) { text_ += "  " + line + "\n"; }
  [[nodiscard]] std::string text() const { return text_; }

 private:
  std::string_view figure_;
  std::string text_;
};

std::vector<Row> rowsOf(const std::vector<SpendingPosting>& postings,
                        const Journal& journal,
                        Day first,
                        Day last,
                        std::string_view below = {}) {
  std::vector<Row> rows;
  for (const auto& [posting, transaction] : postings) {
    const std::string& account = journal.lexicon.accounts[posting->account];
    if (posting->day < first || posting->day > last) continue;
    if (!below.empty() && !isAtOrBelow(account, below)) continue;
    rows.push_back({text(posting->day),
                    journal.lexicon.descriptions[transaction->description],
                    account,
                    posting->amount});
  }
  return rows;
}

std::vector<Row> rowsOf(const std::vector<Balance>& balances, const Journal& journal) {
  std::vector<Row> rows;
  for (const Balance& balance : balances) {
    const bool counts = balance.commodity == journal.commodityName();
    rows.push_back({text(journal.today),
                    counts ? "" : "not counted: " + balance.commodity + " has no price",
                    balance.account,
                    balance.amount});
  }
  return rows;
}

void explainSpending(const Figures& figures,
                     const Journal& journal,
                     const Settings& settings,
                     Tables& tables) {
  if (!figures.spending) return;
  const Month month = figures.spending->month;
  if (tables.wants("spending")) {
    tables.add("spending of " + text(month) + " so far",
               rowsOf(figures.postings, journal, firstDay(month), journal.today),
               "spent",
               figures.spending->spent);
    if (const auto foreign = foreignSpendingPostings(journal, settings))
      tables.note(fmt::format("{} postings in other commodities do not count", foreign));
  }
  if (tables.wants("last-month")) {
    tables.add("spending of " + text(month - 1),
               rowsOf(figures.postings, journal, firstDay(month - 1), lastDay(month - 1)),
               "lastMonthSpent",
               figures.spending->lastMonthSpent);
  }
  if (tables.wants("category") && figures.spending->top) {
    const TopCategory& top = *figures.spending->top;
    tables.add("top category " + foundation::printable(top.account),
               rowsOf(figures.postings, journal, firstDay(month), journal.today, top.account),
               "topCategoryAmount",
               top.amount);
  }
}

void explainBudget(const Figures& figures,
                   const Journal& journal,
                   const Settings& settings,
                   Tables& tables) {
  if (!figures.budget || !tables.wants("budget")) return;
  const BudgetFigures& budget = *figures.budget;
  std::vector<Row> rows;
  if (settings.budgetTotal) {
    rows.push_back({"", "budget.total of the settings", "", *settings.budgetTotal});
  } else {
    rows = rowsOf(budgetPostings(journal, settings), journal, budget.start, budget.end);
    for (Row& row : rows) row.what = row.what.empty() ? "monthly rule" : row.what;
  }
  tables.add("budget from " + text(budget.start) + " to " + text(budget.end),
             std::move(rows),
             "total",
             budget.total);
  tables.add("spending of the period so far",
             rowsOf(figures.postings, journal, budget.start, journal.today),
             "spent",
             budget.spent);
}

void explainNetWorth(const Figures& figures, const Journal& journal, Tables& tables) {
  if (!figures.netWorth || !tables.wants("net-worth")) return;
  tables.add("assets", rowsOf(journal.assets, journal), "assets", figures.netWorth->assets);
  std::vector<Row> owed = rowsOf(journal.liabilities, journal);
  for (Row& row : owed) row.amount = -row.amount;
  tables.add("liabilities", std::move(owed), "liabilities", figures.netWorth->liabilities);
  std::vector<Row> months;
  for (const auto& [month, value] : figures.netWorth->history)
    months.push_back({text(month), "", "", value});
  tables.add(
      "net worth at the ends of months", std::move(months), "value", figures.netWorth->value);
}

void explainCards(const Figures& figures, const Journal& journal, Tables& tables) {
  if (!tables.wants("cards")) return;
  for (const CardFigures& card : figures.cards) {
    std::vector<Row> rows{{"", "limit", card.account, card.limit}};
    for (const Balance& balance : journal.cards) {
      const bool counts = balance.commodity == journal.commodityName() &&
                          isAtOrBelow(balance.account, card.account);
      if (counts) rows.push_back({text(journal.today), "balance", balance.account, balance.amount});
    }
    tables.add("card " + foundation::printable(card.product),
               std::move(rows),
               "remaining",
               card.remaining());
  }
}

void explainDues(const Figures& figures, Tables& tables) {
  if (!tables.wants("dues")) return;
  std::vector<Row> rows;
  Decimal sum;
  for (const DueFigures& due : figures.dues) {
    rows.push_back({text(due.day), due.name, due.card ? due.card->account : "", due.amount});
    sum += due.amount;
  }
  tables.add("what falls due next", std::move(rows), "in all", sum);
}

}  // namespace

std::string explanation(const Figures& figures,
                        const Journal& journal,
                        const Settings& settings,
                        std::string_view figure) {
  Tables tables(figure);
  explainSpending(figures, journal, settings, tables);
  explainBudget(figures, journal, settings, tables);
  explainNetWorth(figures, journal, tables);
  explainCards(figures, journal, tables);
  explainDues(figures, tables);
  return tables.text();
}

}  // namespace importer
