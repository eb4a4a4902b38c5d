#include "Import/PrintReader.hpp"

#include <fmt/format.h>

#include "Import/PostingDate.hpp"
#include "Import/Report.hpp"

namespace importer {
namespace {

constexpr std::string_view kColumnNames[] = {"txnidx",
                                             "date",
                                             "description",
                                             "comment",
                                             "account",
                                             "amount",
                                             "commodity",
                                             "posting-comment"};
constexpr std::string_view kRuleTag = "generated-transaction:";
constexpr std::string_view kMonthly = "~ monthly";

Origin originOf(std::string_view comment) {
  const auto at = comment.find(kRuleTag);
  if (at == std::string_view::npos) return Origin::entry;
  std::string_view rule = comment.substr(at + kRuleTag.size());
  rule.remove_prefix(std::min(rule.find_first_not_of(' '), rule.size()));
  return rule.starts_with(kMonthly) ? Origin::monthlyRule : Origin::otherRule;
}

}  // namespace

bool PrintReader::fail(std::string problem) {
  problem_ = std::move(problem);
  return false;
}

bool PrintReader::take(const CsvReader::Row& row) {
  if (width_ == 0) return takeHeader(row);
  if (row.size() != width_)
    return fail(fmt::format("has a row of {} cells where its header has {}", row.size(), width_));
  if (!isText(row)) return fail("has text that is not UTF-8");
  if (cell(row, index) != current_ && !takeTransaction(row)) return false;

  // A transaction without an amount has none in this report either.
  const std::string& figure = cell(row, amount);
  const auto value = figure.empty() ? Decimal{} : parseDecimal(figure);
  if (!value) return fail("has an amount that is no number below 10^15");
  const Day day = book_.transactions.back().day;
  book_.postings.push_back(
      {.amount = *value,
       .day = postingDate(cell(row, postingComment), day).value_or(day),
       .transaction = static_cast<std::uint32_t>(book_.transactions.size() - 1),
       .account = lexicon_.accounts.number(withoutBrackets(cell(row, account))),
       .commodity = lexicon_.commodities.number(cell(row, commodity))});
  return true;
}

bool PrintReader::takeHeader(const CsvReader::Row& row) {
  for (std::size_t i = 0; i < columnCount; ++i) {
    const auto found = columnNamed(row, kColumnNames[i]);
    if (!found) return fail(fmt::format("has no column \"{}\"", kColumnNames[i]));
    columns_[i] = *found;
  }
  width_ = row.size();
  return true;
}

bool PrintReader::takeTransaction(const CsvReader::Row& row) {
  const auto day = parseDay(cell(row, date));
  if (!day) return fail("has a date that is not like 2026-03-14");
  current_ = cell(row, index);
  book_.transactions.push_back(
      {.day = *day,
       .origin = originOf(cell(row, comment)),
       .description = lexicon_.descriptions.number(cell(row, description))});
  return true;
}

}  // namespace importer
