#include "Import/Accounts.hpp"

#include <algorithm>

namespace importer {

bool isAtOrBelow(std::string_view account, std::string_view top) {
  return account.starts_with(top) && (account.size() == top.size() || account[top.size()] == ':');
}

std::string_view firstTwoComponents(std::string_view account) {
  const auto first = account.find(':');
  if (first == std::string_view::npos) return {};
  return account.substr(0, account.find(':', first + 1));
}

std::string_view lastComponent(std::string_view account) {
  const auto colon = account.rfind(':');
  return colon == std::string_view::npos ? account : account.substr(colon + 1);
}

std::string_view parentComponent(std::string_view account) {
  const auto colon = account.rfind(':');
  return colon == std::string_view::npos ? std::string_view{}
                                         : lastComponent(account.substr(0, colon));
}

AccountTraits Accounts::traits(std::string_view account, const Settings& settings) const {
  const auto found = types.find(account);
  const char type = found == types.end() ? '\0' : found->second;
  AccountTraits traits;
  traits.isPaidInto = settings.spending.empty() ? type == 'X' : spending.contains(account);
  traits.isSpending = traits.isPaidInto && !exclude.contains(account);
  traits.isAsset = type == 'A' || type == 'C';
  traits.isLiability = type == 'L';
  traits.isLiquid =
      traits.isAsset && (settings.liquid.empty() ? type == 'C' : liquid.contains(account));
  traits.isCard = std::ranges::any_of(
      settings.cards, [&](const CardSettings& card) { return isAtOrBelow(account, card.account); });
  return traits;
}

std::vector<AccountTraits> Accounts::traits(const Names& names, const Settings& settings) const {
  std::vector<AccountTraits> all;
  all.reserve(names.size());
  for (std::uint32_t i = 0; i < names.size(); ++i) all.push_back(traits(names[i], settings));
  return all;
}

}  // namespace importer
