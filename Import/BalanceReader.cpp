#include "Import/BalanceReader.hpp"

#include <fmt/format.h>

#include "Import/Report.hpp"

namespace importer {
namespace {

constexpr std::size_t kFirstAmount = 2;  // behind account and commodity

}  // namespace

bool BalanceReader::fail(std::string problem) {
  problem_ = std::move(problem);
  return false;
}

bool BalanceReader::take(const CsvReader::Row& row) {
  if (width_ == 0) return takeHeader(row);
  if (row.size() != width_)
    return fail(fmt::format("has a row of {} cells where its header has {}", row.size(), width_));
  if (!isText(row)) return fail("has text that is not UTF-8");
  amounts_.clear();
  for (std::size_t i = kFirstAmount; i < row.size(); ++i) {
    const auto amount = parseDecimal(row[i]);
    if (!amount) return fail("has an amount that is no number below 10^15");
    amounts_.push_back(*amount);
  }
  handler_(row[0], row[1], amounts_);
  return true;
}

bool BalanceReader::takeHeader(const CsvReader::Row& row) {
  if (row.size() < kFirstAmount || row[0] != "account" || row[1] != "commodity")
    return fail("does not begin with the columns \"account\" and \"commodity\"");
  width_ = row.size();
  if (columns_ == Columns::one)
    return width_ == kFirstAmount + 1 || fail("has not one column of balances");
  for (std::size_t i = kFirstAmount; i < row.size(); ++i) {
    // A journal without any entry has one column, "..".
    if (row[i] == "..") continue;
    const auto month = parseMonth(row[i]);
    if (!month) return fail("has a column that is no month like 2026-03");
    months_.push_back(*month);
  }
  return true;
}

}  // namespace importer
