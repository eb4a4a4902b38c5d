#include "Import/Check.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <set>
#include <span>

#include "Foundation/Printable.hpp"
#include "Import/Result.hpp"

namespace importer {
namespace {

constexpr std::size_t kNamed = 5;  // of a list that may be long

std::string line(std::string_view name, std::string_view finding) {
  return fmt::format("{:<14} {}\n", name, foundation::printable(finding));
}

std::string counted(std::size_t count, std::string_view one, std::string_view several) {
  return fmt::format("{} {}", count, count == 1 ? one : several);
}

std::string firstFew(const std::vector<std::string>& names) {
  const auto shown = std::span(names).first(std::min(names.size(), kNamed));
  return fmt::format("{}{}", fmt::join(shown, ", "), names.size() > kNamed ? ", …" : "");
}

template <class Matches>
std::vector<std::string> accountsThat(const Journal& journal,
                                      const Settings& settings,
                                      Matches matches) {
  std::vector<std::string> names;
  for (const auto& [name, type] : journal.accounts.types) {
    if (matches(journal.accounts.traits(name, settings), type)) names.push_back(name);
  }
  return names;
}

std::string chart(const Journal& journal, const Settings& settings) {
  const auto spending = accountsThat(
      journal, settings, [](const AccountTraits& traits, char) { return traits.isSpending; });
  const auto liquid = accountsThat(
      journal, settings, [](const AccountTraits& traits, char) { return traits.isLiquid; });
  const auto typeless = accountsThat(journal, settings, [](const AccountTraits& traits, char type) {
    return type == '\0' && !traits.isPaidInto;
  });
  std::string text = line("spending",
                          spending.empty() ? "no account; declare one with type:X, or set spending"
                                           : firstFew(spending)) +
                     line("liquid",
                          liquid.empty() ? "no account; declare one with type:C, or set liquid"
                                         : firstFew(liquid));
  if (!typeless.empty()) {
    text += line("without type",
                 firstFew(typeless) + ": in no figure; declare them: account NAME  ; type:A");
  }
  std::vector<std::string> unknown;
  for (const auto& [account, category] : settings.categories) {
    const bool exists = std::ranges::any_of(journal.accounts.types, [&](const auto& known) {
      return isAtOrBelow(known.first, account) && firstTwoComponents(account) == account;
    });
    if (!exists) unknown.push_back(account);
  }
  if (!unknown.empty())
    text += line("no category", firstFew(unknown) + ": a category is an account of two components");
  return text;
}

std::string foreign(const Figures& figures, const Journal& journal, const Settings& settings) {
  std::string text;
  const std::size_t count = foreignSpendingPostings(journal, settings);
  if (count > 0) {
    text += line("not counted",
                 counted(count, "spending posting", "spending postings") +
                     " in other commodities, whatever their price");
  }
  std::set<std::string> priceless;
  for (const auto* balances : {&journal.assets, &journal.liabilities}) {
    for (const Balance& balance : *balances) {
      if (balance.commodity != journal.commodityName() && balance.amount != Decimal{})
        priceless.insert(balance.commodity.empty() ? "(none)" : balance.commodity);
    }
  }
  if (!priceless.empty() && figures.netWorth) {
    text += line("without price",
                 firstFew({priceless.begin(), priceless.end()}) +
                     ": not in the net worth; a line such as P 2026-01-31 NAME PRICE tells one");
  }
  return text;
}

std::string spendingShows(const Figures& figures) {
  if (!figures.spending) return "nothing: there is no spending account";
  const auto& spending = *figures.spending;
  return fmt::format("{} and {}, {}",
                     text(spending.month),
                     counted(spending.earlier.size(), "earlier month", "earlier months"),
                     spending.top ? "top category " + spending.top->account : "no top category");
}

std::string budgetShows(const Figures& figures) {
  if (!figures.budget)
    return "nothing: set [budget] total, or write a rule: ~ monthly, with spending accounts";
  return fmt::format(
      "the budget from {} to {}", text(figures.budget->start), text(figures.budget->end));
}

std::string netWorthShows(const Figures& figures) {
  if (!figures.netWorth) return "nothing: there is no asset or liability account";
  return fmt::format("{} of history, {}",
                     counted(figures.netWorth->history.size(), "month", "months"),
                     figures.netWorth->changePercent ? "with a change" : "no change yet");
}

std::string duesShow(const Figures& figures) {
  if (figures.dues.empty())
    return "nothing due: set a card's due-day, or write a rule with a description";
  return counted(figures.dues.size(), "payment", "payments");
}

std::string cardsShow(const Figures& figures) {
  if (figures.cards.empty()) return "nothing: add a [[card]] to the settings";
  return counted(figures.cards.size(), "card", "cards");
}

}  // namespace

std::string findings(const Figures& figures, const Journal& journal, const Settings& settings) {
  return line("hledger", journal.version) + line("journal", journal.name) +
         line("settings",
              settings.file.empty() ? "none; `quorvel-import init` writes some" : settings.file) +
         line("today", text(journal.today)) +
         line("commodity",
              journal.commodityName().empty() ? "amounts without one" : journal.commodityName()) +
         chart(journal, settings) + foreign(figures, journal, settings) + "\n" +
         line("Spending", spendingShows(figures)) + line("Safe to Spend", budgetShows(figures)) +
         line("Net Worth", netWorthShows(figures)) + line("Card Limit", cardsShow(figures)) +
         line("Due", duesShow(figures));
}

}  // namespace importer
