#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"

#include <array>

#include "Foundation/Characters.hpp"
#include "Foundation/ListSeparator.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/PluralForm.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetDates.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStringTable.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {
namespace {

// "{}" is the amount, the percentage, the count or the change.

constexpr Translations kPerDay{.en = "{} per day",
                               .id = "{} per hari",
                               .es = "{} por día",
                               .ptBR = "{} por dia",
                               .fr = "{} par jour",
                               .de = "{} pro Tag",
                               .ru = "{} в день",
                               .ja = "1日あたり{}",
                               .ko = "하루 {}",
                               .zhHans = "每天{}",
                               .zhHant = "每天{}",
                               .hi = "{} प्रति दिन",
                               .ar = "{} يوميًا"};

constexpr Translations kLeft{.en = "{} left",
                             .id = "tersisa {}",
                             .es = "quedan {}",
                             .ptBR = "restam {}",
                             .fr = "reste {}",
                             .de = "{} übrig",
                             .ru = "осталось {}",
                             .ja = "残り{}",
                             .ko = "{} 남음",
                             .zhHans = "剩余{}",
                             .zhHant = "剩餘{}",
                             .hi = "{} शेष",
                             .ar = "المتبقي {}"};

constexpr Translations kOverBudget{.en = "{} over budget",
                                   .id = "{} melebihi budget",
                                   .es = "{} por encima del presupuesto",
                                   .ptBR = "{} acima do orçamento",
                                   .fr = "{} au-dessus du budget",
                                   .de = "{} über dem Budget",
                                   .ru = "{} сверх бюджета",
                                   .ja = "予算を{}超過",
                                   .ko = "예산을 {} 초과",
                                   .zhHans = "超出预算{}",
                                   .zhHant = "超出預算{}",
                                   .hi = "बजट से {} ज़्यादा",
                                   .ar = "{} فوق الميزانية"};

constexpr Translations kUsed{.en = "{} used",
                             .id = "terpakai {}",
                             .es = "{} usado",
                             .ptBR = "{} usado",
                             .fr = "{} utilisé",
                             .de = "{} genutzt",
                             .ru = "использовано {}",
                             .ja = "{}使用済み",
                             .ko = "{} 사용",
                             .zhHans = "已用{}",
                             .zhHant = "已用{}",
                             .hi = "{} उपयोग हुआ",
                             .ar = "تم استخدام {}"};

constexpr Translations kRise{.en = "up {}",
                             .id = "naik {}",
                             .es = "subida del {}",
                             .ptBR = "alta de {}",
                             .fr = "hausse de {}",
                             .de = "Anstieg um {}",
                             .ru = "рост на {}",
                             .ja = "{}増加",
                             .ko = "{} 증가",
                             .zhHans = "增加{}",
                             .zhHant = "增加{}",
                             .hi = "{} की बढ़ोतरी",
                             .ar = "ارتفاع بنسبة {}"};

constexpr Translations kFall{.en = "down {}",
                             .id = "turun {}",
                             .es = "bajada del {}",
                             .ptBR = "queda de {}",
                             .fr = "baisse de {}",
                             .de = "Rückgang um {}",
                             .ru = "снижение на {}",
                             .ja = "{}減少",
                             .ko = "{} 감소",
                             .zhHans = "减少{}",
                             .zhHant = "減少{}",
                             .hi = "{} की कमी",
                             .ar = "انخفاض بنسبة {}"};

constexpr Translations kUnchanged{.en = "unchanged",
                                  .id = "tidak berubah",
                                  .es = "sin cambios",
                                  .ptBR = "sem alteração",
                                  .fr = "stable",
                                  .de = "unverändert",
                                  .ru = "без изменений",
                                  .ja = "増減なし",
                                  .ko = "변동 없음",
                                  .zhHans = "持平",
                                  .zhHant = "持平",
                                  .hi = "कोई बदलाव नहीं",
                                  .ar = "دون تغيير"};

constexpr Translations kFromLastMonth{.en = "{} from last month",
                                      .id = "{} dari bulan lalu",
                                      .es = "{} respecto al mes anterior",
                                      .ptBR = "{} em relação ao mês anterior",
                                      .fr = "{} par rapport au mois dernier",
                                      .de = "{} gegenüber dem Vormonat",
                                      .ru = "{} относительно прошлого месяца",
                                      .ja = "先月から{}",
                                      .ko = "지난달 대비 {}",
                                      .zhHans = "较上月{}",
                                      .zhHant = "較上月{}",
                                      .hi = "पिछले महीने की तुलना में {}",
                                      .ar = "{} مقارنة بالشهر الماضي"};

// "{month}" is the month's full name, in Russian in the genitive, as in a date.
constexpr Translations kFromMonth{.en = "{} from {month}",
                                  .id = "{} dari {month}",
                                  .es = "{} respecto a {month}",
                                  .ptBR = "{} em relação a {month}",
                                  .fr = "{} par rapport à {month}",
                                  .de = "{} gegenüber {month}",
                                  .ru = "{} относительно {month}",
                                  .ja = "{month}から{}",
                                  .ko = "{month} 대비 {}",
                                  .zhHans = "较{month}{}",
                                  .zhHant = "較{month}{}",
                                  .hi = "{month} की तुलना में {}",
                                  .ar = "{} مقارنة ب{month}"};

constexpr Translations kEndingIn{.en = "ending in {}",
                                 .id = "berakhiran {}",
                                 .es = "terminada en {}",
                                 .ptBR = "final {}",
                                 .fr = "se terminant par {}",
                                 .de = "endet auf {}",
                                 .ru = "оканчивается на {}",
                                 .ja = "末尾 {}",
                                 .ko = "끝자리 {}",
                                 .zhHans = "尾号 {}",
                                 .zhHant = "末碼 {}",
                                 .hi = "अंतिम अंक {}",
                                 .ar = "تنتهي بـ {}"};

/// A phrase for each form; a form that a language does not have is empty.
struct Counted {
  std::string_view one;
  std::string_view two;
  std::string_view few;
  std::string_view many;
  std::string_view other;

  [[nodiscard]] constexpr std::string_view in(PluralForm form) const {
    constexpr std::string_view Counted::*kForms[] = {
        &Counted::one, &Counted::two, &Counted::few, &Counted::many, &Counted::other};
    return this->*kForms[static_cast<std::size_t>(form)];
  }
};

constexpr Counted same(std::string_view phrase) {
  return {phrase, phrase, phrase, phrase, phrase};
}

constexpr Counted oneOr(std::string_view one, std::string_view other) {
  return {one, other, other, other, other};
}

// In the order of the languages.
constexpr std::array<Counted, kLanguageCount> kDaysLeft{
    oneOr("{} day left", "{} days left"),
    same("{} hari lagi"),
    oneOr("queda {} día", "quedan {} días"),
    oneOr("resta {} dia", "restam {} dias"),
    oneOr("{} jour restant", "{} jours restants"),
    oneOr("noch {} Tag", "noch {} Tage"),
    Counted{"остался {} день",
            "осталось {} дня",
            "осталось {} дня",
            "осталось {} дней",
            "осталось {} дня"},
    same("残り{}日"),
    same("{}일 남음"),
    same("还剩{}天"),
    same("還剩{}天"),
    same("{} दिन शेष"),
    Counted{"يتبقى يوم واحد", "يتبقى يومان", "يتبقى {} أيام", "يتبقى {} يومًا", "يتبقى {} يوم"}};

constexpr Counted kInRussianDays{
    "через {} день", "через {} дня", "через {} дня", "через {} дней", "через {} дня"};
constexpr Counted kInArabicDays{
    "بعد يوم واحد", "بعد يومين", "بعد {} أيام", "بعد {} يومًا", "بعد {} يوم"};

std::string filled(std::string_view phrase, std::string_view value) {
  constexpr std::string_view kPlace = "{}";
  std::string text(phrase);
  if (const std::size_t at = text.find(kPlace); at != std::string::npos) {
    text.replace(at, kPlace.size(), value);
  }
  return text;
}

std::string filled(const Translations& phrases,
                   std::optional<std::string_view> lang,
                   std::string_view value) {
  return filled(phrases.in(languageForCode(lang)), value);
}

std::string counted(const Counted& phrase, std::int64_t count, Language language) {
  return filled(phrase.in(pluralForm(count, language)), std::to_string(count));
}

}  // namespace

std::string spokenDaysLeft(std::int64_t days, std::optional<std::string_view> lang) {
  const Language language = languageForCode(lang);
  return counted(kDaysLeft[static_cast<std::size_t>(language)], days, language);
}

std::string spokenInDays(std::int64_t days, std::optional<std::string_view> lang) {
  const Language language = languageForCode(lang);
  if (language == Language::ru) return counted(kInRussianDays, days, language);
  if (language == Language::ar) return counted(kInArabicDays, days, language);
  return WidgetStrings::text("inDays", lang, days);
}

std::string spokenPerDay(std::string_view amount, std::optional<std::string_view> lang) {
  return filled(kPerDay, lang, amount);
}

std::string spokenLeft(std::string_view amount, std::optional<std::string_view> lang) {
  return filled(kLeft, lang, amount);
}

std::string spokenOverBudget(std::string_view amount, std::optional<std::string_view> lang) {
  return filled(kOverBudget, lang, amount);
}

std::string spokenUsed(std::string_view percentage, std::optional<std::string_view> lang) {
  return filled(kUsed, lang, percentage);
}

std::string spokenChange(const ChangeDescription& change, std::optional<std::string_view> lang) {
  switch (change.trend) {
    case Trend::rise:
      return filled(kRise, lang, change.text);
    case Trend::fall:
      return filled(kFall, lang, change.text);
    case Trend::none:
      break;
  }
  return std::string(kUnchanged.in(languageForCode(lang)));
}

std::string spokenChangeFromLastMonth(const ChangeDescription& change,
                                      std::optional<std::string_view> lang) {
  return filled(kFromLastMonth, lang, spokenChange(change, lang));
}

std::string spokenChangeFromMonth(const ChangeDescription& change,
                                  std::string_view month,
                                  std::optional<std::string_view> lang) {
  const auto name = fullMonth(month, lang);
  if (!name) return spokenChange(change, lang);
  std::string text = filled(kFromMonth, lang, spokenChange(change, lang));
  constexpr std::string_view kMonth = "{month}";
  if (const std::size_t at = text.find(kMonth); at != std::string::npos) {
    text.replace(at, kMonth.size(), *name);
  }
  return text;
}

std::string spokenList(std::initializer_list<std::string_view> items,
                       std::optional<std::string_view> lang) {
  const std::string_view separator = foundation::listSeparator(lang.value_or(""));
  std::string text;
  for (const std::string_view item : items) {
    if (!text.empty()) text += separator;
    text += item;
  }
  return text;
}

std::string spokenEndingIn(std::string_view digits, std::optional<std::string_view> lang) {
  std::string spelled;
  for (const std::string_view digit : foundation::graphemeClusters(digits)) {
    if (!spelled.empty()) spelled += ' ';
    spelled += digit;
  }
  return filled(kEndingIn, lang, spelled);
}

std::string spokenSubtitle(std::string_view subtitle, std::optional<std::string_view> lang) {
  constexpr std::string_view kBullet = "\u2022";
  std::string_view digits = subtitle;
  while (digits.starts_with(kBullet)) digits.remove_prefix(kBullet.size());
  while (digits.starts_with(' ')) digits.remove_prefix(1);
  const bool isNumber =
      !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
  return isNumber ? spokenEndingIn(digits, lang) : std::string(subtitle);
}

}  // namespace quorvel
