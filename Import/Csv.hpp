// Reads comma-separated values as they arrive: rows of a long report are handled one by one and
// never held together.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace importer {

class CsvReader {
 public:
  using Row = std::vector<std::string>;
  /// False ends the reading: nothing further is handed on.
  using Handler = std::function<bool(const Row&)>;

  explicit CsvReader(Handler handler) : handler_(std::move(handler)) {}

  /// The next piece of the text; false once the handler has ended the reading or a row is longer
  /// than kLongestRow.
  bool read(std::string_view piece);
  /// The text is at its end; false as above, or when a quotation is still open.
  bool finish();

  /// A row was longer than kLongestRow.
  [[nodiscard]] bool isTooLong() const { return length_ > kLongestRow; }

  static constexpr std::size_t kLongestRow = std::size_t{4} << 20;

 private:
  void take(char c);
  void endCell();
  void endRow();

  Handler handler_;
  Row row_;
  std::size_t cells_ = 0;  ///< of row_ that are filled; the strings behind them are kept for reuse
  std::string cell_;
  std::size_t length_ = 0;
  bool isQuoted_ = false;
  bool quoteIsPending_ = false;  ///< a quote inside quotes: the end, or the first of two
  bool isOpen_ = true;
};

}  // namespace importer
