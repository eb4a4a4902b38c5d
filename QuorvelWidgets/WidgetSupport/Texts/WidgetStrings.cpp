#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

#include <fmt/format.h>

#include "QuorvelWidgets/WidgetSupport/Texts/PluralForm.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStringTable.hpp"

namespace quorvel {
namespace {

void replaceAll(std::string& text, std::string_view placeholder, std::string_view value) {
  for (std::size_t at = text.find(placeholder); at != std::string::npos;
       at = text.find(placeholder, at + value.size())) {
    text.replace(at, placeholder.size(), value);
  }
}

std::string textOf(const StringRow& row,
                   std::optional<std::string_view> lang,
                   std::optional<std::int64_t> n) {
  std::string text(row.texts.in(languageForCode(lang)));
  if (n) replaceAll(text, "{n}", fmt::format("{}", *n));
  return text;
}

std::string_view russianCards(std::int64_t count) {
  switch (pluralForm(count, Language::ru)) {
    case PluralForm::one:
      return "карта";
    case PluralForm::few:
      return "карты";
    default:
      return "карт";
  }
}

std::string arabicCards(std::int64_t count) {
  switch (pluralForm(count, Language::ar)) {
    case PluralForm::one:
      return "بطاقة واحدة";
    case PluralForm::two:
      return "بطاقتان";
    case PluralForm::few:
      return fmt::format("{} بطاقات", count);
    default:
      return fmt::format("{} بطاقة", count);
  }
}

}  // namespace

std::string WidgetStrings::text(TextKey key,
                                std::optional<std::string_view> lang,
                                std::optional<std::int64_t> n) {
  return textOf(stringRow(key), lang, n);
}

std::string WidgetStrings::textNamed(std::string_view key,
                                     std::optional<std::string_view> lang,
                                     std::optional<std::int64_t> n) {
  const StringRow* row = findStringRow(key);
  return row == nullptr ? std::string(key) : textOf(*row, lang, n);
}

std::string WidgetStrings::comparisonWith(std::string_view period,
                                          std::optional<std::string_view> lang) {
  std::string text = WidgetStrings::text("comparisonWith", lang);
  replaceAll(text, "{period}", period);
  return text;
}

std::string cardCountText(std::int64_t count, std::optional<std::string_view> lang) {
  const bool one = count == 1;
  switch (languageForCode(lang)) {
    case Language::id:
      return fmt::format("{} kartu", count);
    case Language::es:
      return fmt::format("{} {}", count, one ? "tarjeta" : "tarjetas");
    case Language::ptBR:
      return fmt::format("{} {}", count, one ? "cartão" : "cartões");
    case Language::fr:
      return fmt::format("{} {}", count, one ? "carte" : "cartes");
    case Language::de:
      return fmt::format("{} {}", count, one ? "Karte" : "Karten");
    case Language::ru:
      return fmt::format("{} {}", count, russianCards(count));
    case Language::ja:
      return fmt::format("{}枚のカード", count);
    case Language::ko:
      return fmt::format("카드 {}개", count);
    case Language::zhHans:
      return fmt::format("{}张卡片", count);
    case Language::zhHant:
      return fmt::format("{}張卡片", count);
    case Language::hi:
      return fmt::format("{} कार्ड", count);
    case Language::ar:
      return arabicCards(count);
    case Language::en:
      break;
  }
  return fmt::format("{} {}", count, one ? "card" : "cards");
}

std::string perDayUnit(std::optional<std::string_view> lang) {
  switch (languageForCode(lang)) {
    case Language::en:
      return "/ day";
    case Language::id:
      return "/ hari";
    case Language::ja:
      return "/日";
    case Language::ko:
      return "/일";
    case Language::zhHans:
    case Language::zhHant:
      return "/天";
    default:
      return WidgetStrings::text("perDay", lang);
  }
}

std::string isolatedAmount(std::string_view text) {
  return fmt::format("\u2066{}\u2069", text);
}

std::string isolatedName(std::string_view text) {
  return fmt::format("\u2068{}\u2069", text);
}

}  // namespace quorvel
