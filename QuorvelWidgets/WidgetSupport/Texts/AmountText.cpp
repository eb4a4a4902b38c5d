#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"

#include <cstddef>
#include <string_view>

#include "Foundation/Characters.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {
namespace {

constexpr std::string_view kBullets = "••••";
constexpr std::size_t kLongText = 13;

}  // namespace

std::string amountText(double value, const WidgetSnapshot& snapshot, AmountForm form) {
  if (snapshot.isHidden) return std::string(kBullets);
  if (form == AmountForm::compact) return snapshot.money.formatCompact(value);
  std::string full = snapshot.money.format(value);
  if (form == AmountForm::full || foundation::graphemeCount(full) < kLongText) return full;
  return snapshot.money.formatCompact(value);
}

std::string amountAccessibilityLabel(double value, const WidgetSnapshot& snapshot) {
  return snapshot.isHidden ? WidgetStrings::text("hidden", snapshot.lang)
                           : snapshot.money.format(value);
}

}  // namespace quorvel
