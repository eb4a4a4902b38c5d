// The document's keys, in their declared order.
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace quorvel {

using foundation::JsonField;
using foundation::jsonField;

std::span<const JsonField> WidgetMoneyStyle::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&WidgetMoneyStyle::symbol>("symbol"),
      jsonField<&WidgetMoneyStyle::showDecimals>("showDecimals"),
      jsonField<&WidgetMoneyStyle::conversionRate>("conversionRate"),
  };
  return kFields;
}

namespace records {

std::span<const JsonField> Shade::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&Shade::light>("light"),
      jsonField<&Shade::dark>("dark"),
  };
  return kFields;
}

std::span<const JsonField> Accent::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&Accent::fill>("fill"),
      jsonField<&Accent::ink>("ink"),
      jsonField<&Accent::heat>("heat"),
  };
  return kFields;
}

std::span<const JsonField> Due::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&Due::id>("id"),
      jsonField<&Due::name>("name"),
      jsonField<&Due::amount>("amount"),
      jsonField<&Due::dueDate>("dueDate"),
      jsonField<&Due::kind>("kind"),
      jsonField<&Due::cardId>("cardId"),
      jsonField<&Due::face>("face"),
      jsonField<&Due::subtitle>("subtitle"),
      jsonField<&Due::brandId>("brandId"),
      jsonField<&Due::symbol>("symbol"),
  };
  return kFields;
}

std::span<const JsonField> Card::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&Card::id>("id"),
      jsonField<&Card::bankName>("bankName"),
      jsonField<&Card::productName>("productName"),
      jsonField<&Card::last4>("last4"),
      jsonField<&Card::limit>("limit"),
      jsonField<&Card::remaining>("remaining"),
      jsonField<&Card::gradient>("gradient"),
      jsonField<&Card::hasImage>("hasImage"),
  };
  return kFields;
}

std::span<const JsonField> Budget::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&Budget::total>("total"),
      jsonField<&Budget::spent>("spent"),
      jsonField<&Budget::periodEnd>("periodEnd"),
      jsonField<&Budget::periodStart>("periodStart"),
  };
  return kFields;
}

std::span<const JsonField> Spending::Month::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&Month::month>("month"),
      jsonField<&Month::daily>("daily"),
  };
  return kFields;
}

std::span<const JsonField> Spending::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&Spending::month>("month"),
      jsonField<&Spending::spent>("spent"),
      jsonField<&Spending::lastMonthSpent>("lastMonthSpent"),
      jsonField<&Spending::topCategory>("topCategory"),
      jsonField<&Spending::topCategoryAmount>("topCategoryAmount"),
      jsonField<&Spending::daily>("daily"),
      jsonField<&Spending::topCategoryIcon>("topCategoryIcon"),
      jsonField<&Spending::topCategoryColor>("topCategoryColor"),
      jsonField<&Spending::earlier>("earlier"),
  };
  return kFields;
}

std::span<const JsonField> NetWorth::Point::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&Point::month>("month"),
      jsonField<&Point::value>("value"),
  };
  return kFields;
}

std::span<const JsonField> NetWorth::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&NetWorth::value>("value"),
      jsonField<&NetWorth::changePercent>("changePercent"),
      jsonField<&NetWorth::assets>("assets"),
      jsonField<&NetWorth::liabilities>("liabilities"),
      jsonField<&NetWorth::history>("history"),
      jsonField<&NetWorth::liquid>("liquid"),
      jsonField<&NetWorth::nonLiquid>("nonLiquid"),
  };
  return kFields;
}

}  // namespace records

std::span<const JsonField> WidgetSnapshot::jsonFields() {
  static constexpr JsonField kFields[] = {
      jsonField<&WidgetSnapshot::generatedAt>("generatedAt"),
      jsonField<&WidgetSnapshot::isHidden>("isHidden"),
      jsonField<&WidgetSnapshot::lang>("lang"),
      jsonField<&WidgetSnapshot::money>("money"),
      jsonField<&WidgetSnapshot::dues>("dues"),
      jsonField<&WidgetSnapshot::budget>("budget"),
      jsonField<&WidgetSnapshot::cards>("cards"),
      jsonField<&WidgetSnapshot::totalLimit>("totalLimit"),
      jsonField<&WidgetSnapshot::totalRemaining>("totalRemaining"),
      jsonField<&WidgetSnapshot::spending>("spending"),
      jsonField<&WidgetSnapshot::netWorth>("netWorth"),
      jsonField<&WidgetSnapshot::accent>("accent"),
  };
  return kFields;
}

std::expected<WidgetSnapshot, foundation::JsonFailure> decodeWidgetSnapshot(
    std::string_view bytes) {
  return foundation::decodeJson<WidgetSnapshot>(bytes);
}

std::string encodeWidgetSnapshot(const WidgetSnapshot& snapshot) {
  return foundation::encodeJson(snapshot);
}

}  // namespace quorvel
