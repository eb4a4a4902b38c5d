// The credit cards of the settings, with what is left of their limits.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Import/Journal.hpp"
#include "Import/Result.hpp"
#include "Import/Settings.hpp"

namespace importer {

struct CardFigures {
  std::string account;
  std::string id;
  std::string bank;
  std::string product;
  std::optional<std::string> last4;
  std::vector<std::string> faces;
  std::optional<int> dueDay;
  Decimal limit;
  Decimal owed;  ///< below 0 for a credit

  [[nodiscard]] Decimal remaining() const { return limit - owed; }
};

/// Refused when a card has no limit, neither in the settings nor as a tag of its account.
[[nodiscard]] Result<std::vector<CardFigures>> cardFigures(const Journal& journal,
                                                           const Settings& settings);

}  // namespace importer
