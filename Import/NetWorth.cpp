#include "Import/NetWorth.hpp"

#include <algorithm>
#include <cmath>

namespace importer {
namespace {

constexpr std::size_t kLongestHistory = 240;

Decimal sumOf(const std::vector<Balance>& balances, const std::string& commodity) {
  Decimal sum;
  for (const Balance& balance : balances) {
    if (balance.commodity == commodity) sum += balance.amount;
  }
  return sum;
}

Decimal liquidOf(const Journal& journal, const Settings& settings) {
  Decimal sum;
  for (const Balance& balance : journal.assets) {
    const bool counts = balance.commodity == journal.commodityName() &&
                        journal.accounts.traits(balance.account, settings).isLiquid;
    if (counts) sum += balance.amount;
  }
  return sum;
}

std::optional<double> changeOf(const std::vector<MonthlyValue>& history) {
  if (history.size() < 2) return std::nullopt;
  const Decimal before = history[history.size() - 2].value;
  if (before == Decimal{}) return std::nullopt;
  return (history.back().value - before).toDouble() / std::fabs(before.toDouble()) * 100;
}

}  // namespace

std::optional<NetWorthFigures> netWorthFigures(const Journal& journal, const Settings& settings) {
  const bool hasAccounts = std::ranges::any_of(journal.accounts.types, [&](const auto& account) {
    const auto traits = journal.accounts.traits(account.first, settings);
    return traits.isAsset || traits.isLiability;
  });
  if (!hasAccounts) return std::nullopt;
  NetWorthFigures figures;
  figures.assets = sumOf(journal.assets, journal.commodityName());
  figures.liabilities = -sumOf(journal.liabilities, journal.commodityName());
  figures.value = figures.assets - figures.liabilities;
  figures.liquid = liquidOf(journal, settings);
  figures.nonLiquid = figures.assets - figures.liquid;
  figures.history = journal.months;
  figures.history.push_back({monthOf(journal.today), figures.value});
  figures.changePercent = changeOf(figures.history);
  if (figures.history.size() > kLongestHistory)
    figures.history.erase(figures.history.begin(), figures.history.end() - kLongestHistory);
  return figures;
}

}  // namespace importer
