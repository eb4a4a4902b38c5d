// Reads `hledger balance --layout=bare -O csv`: balances by account and commodity, in one column or
// one for each month.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Import/Csv.hpp"
#include "Import/Day.hpp"
#include "Import/Decimal.hpp"

namespace importer {

class BalanceReader {
 public:
  /// What the columns behind account and commodity are.
  enum class Columns : std::uint8_t { one, months };
  using Handler = std::function<void(
      std::string_view account, std::string_view commodity, const std::vector<Decimal>& amounts)>;

  BalanceReader(Columns columns, Handler handler)
      : columns_(columns), handler_(std::move(handler)) {}

  /// One row, the header first; false when it is not as expected.
  bool take(const CsvReader::Row& row);

  /// Of the header, in order.
  [[nodiscard]] const std::vector<Month>& months() const { return months_; }
  [[nodiscard]] const std::string& problem() const { return problem_; }
  [[nodiscard]] bool hasHeader() const { return width_ != 0; }

 private:
  bool takeHeader(const CsvReader::Row& row);
  bool fail(std::string problem);

  Columns columns_;
  Handler handler_;
  std::size_t width_ = 0;
  std::vector<Month> months_;
  std::vector<Decimal> amounts_;
  std::string problem_;
};

}  // namespace importer
