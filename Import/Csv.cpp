#include "Import/Csv.hpp"

namespace importer {

bool CsvReader::read(std::string_view piece) {
  for (const char c : piece) {
    if (!isOpen_) return false;
    take(c);
  }
  return isOpen_;
}

bool CsvReader::finish() {
  if (isOpen_ && isQuoted_ && !quoteIsPending_) return isOpen_ = false;
  if (isOpen_ && (cells_ > 0 || !cell_.empty() || quoteIsPending_)) endRow();
  return isOpen_;
}

void CsvReader::take(char c) {
  if (++length_ > kLongestRow) {
    isOpen_ = false;
    return;
  }
  if (quoteIsPending_) {
    quoteIsPending_ = false;
    if (c == '"') {
      cell_ += c;
      return;
    }
    isQuoted_ = false;
  } else if (isQuoted_) {
    if (c == '"') {
      quoteIsPending_ = true;
    } else {
      cell_ += c;
    }
    return;
  }
  switch (c) {
    case '"':
      isQuoted_ = true;
      break;
    case ',':
      endCell();
      break;
    case '\n':
      endRow();
      break;
    case '\r':
      break;
    default:
      cell_ += c;
  }
}

void CsvReader::endCell() {
  if (cells_ == row_.size()) row_.emplace_back();
  row_[cells_++].swap(cell_);
  cell_.clear();
}

void CsvReader::endRow() {
  endCell();
  row_.resize(cells_);
  isOpen_ = handler_(row_) && isOpen_;
  cells_ = 0;
  length_ = 0;
  isQuoted_ = quoteIsPending_ = false;
}

}  // namespace importer
