// Which account counts as what: by hledger's account types, or by what a person's queries matched.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Import/Book.hpp"
#include "Import/Settings.hpp"

namespace importer {

/// A letter of hledger's: A, L, E, R, X, C (cash, also an asset) or V; 0 where it knows none.
using AccountTypes = std::map<std::string, char, std::less<>>;
using AccountSet = std::set<std::string, std::less<>>;

struct AccountTraits {
  bool isSpending = false;   ///< counted in spending figures
  bool isPaidInto = false;   ///< spending, or left out of it by `exclude`: rent is due all the same
  bool isAsset = false;      ///< types A and C
  bool isLiability = false;  ///< type L
  bool isLiquid = false;     ///< an asset
  bool isCard = false;       ///< of a [[card]], or below it
};

/// The same name, or one below it: "assets:bank" holds "assets:bank:savings", not "assets:bank2".
[[nodiscard]] bool isAtOrBelow(std::string_view account, std::string_view top);

/// "expenses:food:fruit" gives "expenses:food"; nothing for a root account.
[[nodiscard]] std::string_view firstTwoComponents(std::string_view account);
[[nodiscard]] std::string_view lastComponent(std::string_view account);
/// "Northbank" of "liabilities:Northbank:visa"; empty for a root account.
[[nodiscard]] std::string_view parentComponent(std::string_view account);

class Accounts {
 public:
  AccountTypes types;   ///< every account
  AccountSet spending;  ///< what the queries matched; unused without queries
  AccountSet exclude;
  AccountSet liquid;

  [[nodiscard]] AccountTraits traits(std::string_view account, const Settings& settings) const;
  /// Of every account of a lexicon, by number.
  [[nodiscard]] std::vector<AccountTraits> traits(const Names& names,
                                                  const Settings& settings) const;
};

}  // namespace importer
