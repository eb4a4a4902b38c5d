// What a person may set about the importer, read from a TOML file; docs/ledger.md has all of it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Import/Day.hpp"
#include "Import/Decimal.hpp"
#include "Import/Result.hpp"

namespace importer {

/// Where a setting stands in its file, for errors that are found later.
struct Place {
  std::uint32_t line = 0;
  std::uint32_t column = 0;
};

struct CardSettings {
  std::string account;
  std::optional<std::string> bank;
  std::optional<std::string> product;
  std::optional<std::string> last4;
  std::optional<Decimal> limit;  ///< else the account's tag
  std::optional<int> dueDay;     ///< 1 to 31
  std::vector<std::string> faces;
  Place place;
};

struct CategorySettings {
  std::optional<std::string> name;
  std::optional<std::string> icon;
  std::optional<std::string> light;
  std::optional<std::string> dark;
};

/// Absent members are worked out from the journal or the device.
struct Settings {
  std::string file;  ///< empty when there is none
  std::optional<std::string> language;
  std::optional<std::string> commodity;
  std::optional<std::string> symbol;
  std::optional<bool> decimals;
  bool hidden = false;
  std::optional<Day> today;
  std::vector<std::string> spending;  ///< hledger queries
  std::vector<std::string> exclude;   ///< hledger queries
  std::vector<std::string> liquid;    ///< hledger queries
  std::optional<Decimal> budgetTotal;
  int budgetStartDay = 1;
  std::vector<CardSettings> cards;
  std::map<std::string, CategorySettings> categories;  ///< by account
  std::map<std::string, std::string> open;             ///< shell commands by destination
};

/// The destinations that `open` and the table of that name know.
inline constexpr std::string_view kDestinations[] = {
    "budget", "spending", "dashboard", "cards", "bills", "add-expense"};

/// Unknown keys, wrong types and values out of range are refused: "FILE:LINE:COLUMN: why".
[[nodiscard]] Result<Settings> parseSettings(std::string_view toml, const std::string& file);

/// A missing file is refused when it `mustExist`, else there are no settings.
enum class Existence : std::uint8_t { optional, required };
[[nodiscard]] Result<Settings> readSettings(const std::string& file, Existence existence);

}  // namespace importer
