#include "QuorvelWidgets/WidgetSupport/Texts/PluralForm.hpp"

namespace quorvel {
namespace {

bool isWithin(std::int64_t value, std::int64_t first, std::int64_t last) {
  return value >= first && value <= last;
}

PluralForm russianForm(std::int64_t count) {
  const std::int64_t ten = count % 10;
  const std::int64_t hundred = count % 100;
  if (ten == 1 && hundred != 11) return PluralForm::one;
  return isWithin(ten, 2, 4) && !isWithin(hundred, 12, 14) ? PluralForm::few : PluralForm::many;
}

PluralForm arabicForm(std::int64_t count) {
  if (count == 1) return PluralForm::one;
  if (count == 2) return PluralForm::two;
  const std::int64_t hundred = count % 100;
  if (isWithin(hundred, 3, 10)) return PluralForm::few;
  return isWithin(hundred, 11, 99) ? PluralForm::many : PluralForm::other;
}

}  // namespace

PluralForm pluralForm(std::int64_t count, Language language) {
  switch (language) {
    case Language::ru:
      return russianForm(count);
    case Language::ar:
      return arabicForm(count);
    case Language::fr:
    case Language::ptBR:
    case Language::hi:
      return isWithin(count, 0, 1) ? PluralForm::one : PluralForm::other;
    case Language::en:
    case Language::es:
    case Language::de:
      return count == 1 ? PluralForm::one : PluralForm::other;
    case Language::id:
    case Language::ja:
    case Language::ko:
    case Language::zhHans:
    case Language::zhHant:
      break;
  }
  return PluralForm::other;
}

}  // namespace quorvel
