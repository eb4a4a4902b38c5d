#include "Import/Report.hpp"

#include <algorithm>

#include "Foundation/Utf8.hpp"

namespace importer {

std::optional<std::size_t> columnNamed(const CsvReader::Row& header, std::string_view name) {
  const auto found = std::ranges::find(header, name);
  if (found == header.end()) return std::nullopt;
  return static_cast<std::size_t>(found - header.begin());
}

bool isText(const CsvReader::Row& row) {
  return std::ranges::all_of(row, [](const std::string& cell) {
    return foundation::firstInvalidUtf8(cell) == cell.size();
  });
}

std::string_view withoutBrackets(std::string_view account) {
  const bool isVirtual = (account.starts_with('(') && account.ends_with(')')) ||
                         (account.starts_with('[') && account.ends_with(']'));
  return isVirtual && account.size() > 2 ? account.substr(1, account.size() - 2) : account;
}

}  // namespace importer
