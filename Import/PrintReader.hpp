// Reads `hledger print -O csv` into a book, row by row.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "Import/Book.hpp"
#include "Import/Csv.hpp"

namespace importer {

class PrintReader {
 public:
  PrintReader(Lexicon& lexicon, Book& book) : lexicon_(lexicon), book_(book) {}

  /// One row, the header first; false when it is not as expected.
  bool take(const CsvReader::Row& row);

  /// What was not as expected: "has no column \"amount\"". Empty while all is well.
  [[nodiscard]] const std::string& problem() const { return problem_; }
  [[nodiscard]] bool hasHeader() const { return width_ != 0; }

 private:
  enum Column : std::size_t {
    index,
    date,
    description,
    comment,
    account,
    amount,
    commodity,
    postingComment,
    columnCount
  };

  bool takeHeader(const CsvReader::Row& row);
  bool takeTransaction(const CsvReader::Row& row);
  bool fail(std::string problem);
  [[nodiscard]] const std::string& cell(const CsvReader::Row& row, Column column) const {
    return row[columns_[column]];
  }

  Lexicon& lexicon_;
  Book& book_;
  std::array<std::size_t, columnCount> columns_{};
  std::size_t width_ = 0;  ///< cells of the header; 0 before it
  std::string current_;    ///< the transaction that postings belong to
  std::string problem_;
};

}  // namespace importer
