// What the readers of hledger's reports share: columns found by name, and what to say when a report
// is not as expected.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Import/Csv.hpp"

namespace importer {

/// The position of a column; nothing when the header lacks it.
[[nodiscard]] std::optional<std::size_t> columnNamed(const CsvReader::Row& header,
                                                     std::string_view name);

/// Text that may be shown: bytes that are not UTF-8 make it nothing.
[[nodiscard]] bool isText(const CsvReader::Row& row);

/// An account's name without the brackets of a virtual posting.
[[nodiscard]] std::string_view withoutBrackets(std::string_view account);

}  // namespace importer
