// What is read aloud. The plural forms are those that the Unicode plural rules give for whole
// numbers; the sentences are what a person would say.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/PluralForm.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"

namespace quorvel {
namespace {

using Expected = std::array<const char*, kLanguageCount>;

/// One expectation for each language, in the order of the codes.
void expectInEveryLanguage(const Expected& expected, const auto& text) {
  for (std::size_t i = 0; i < kLanguageCount; ++i) {
    EXPECT_EQ(text(kLanguageCodes[i]), expected[i]) << kLanguageCodes[i];
  }
}

TEST(PluralForm, OneAndOther) {
  for (const Language language : {Language::en, Language::es, Language::de}) {
    EXPECT_EQ(pluralForm(0, language), PluralForm::other);
    EXPECT_EQ(pluralForm(1, language), PluralForm::one);
    EXPECT_EQ(pluralForm(21, language), PluralForm::other);
  }
  for (const Language language : {Language::fr, Language::ptBR, Language::hi}) {
    EXPECT_EQ(pluralForm(0, language), PluralForm::one);
    EXPECT_EQ(pluralForm(1, language), PluralForm::one);
    EXPECT_EQ(pluralForm(2, language), PluralForm::other);
  }
}

TEST(PluralForm, NoneInEastAsianLanguagesAndIndonesian) {
  for (const Language language :
       {Language::id, Language::ja, Language::ko, Language::zhHans, Language::zhHant}) {
    for (const int count : {0, 1, 2, 5}) EXPECT_EQ(pluralForm(count, language), PluralForm::other);
  }
}

TEST(PluralForm, RussianByTheLastDigitsExceptTheTeens) {
  const auto form = [](int count) { return pluralForm(count, Language::ru); };
  for (const int count : {1, 21, 101, 1001}) EXPECT_EQ(form(count), PluralForm::one) << count;
  for (const int count : {2, 3, 4, 22, 34, 102}) EXPECT_EQ(form(count), PluralForm::few) << count;
  for (const int count : {0, 5, 9, 10, 11, 12, 13, 14, 19, 20, 25, 111, 112, 114}) {
    EXPECT_EQ(form(count), PluralForm::many) << count;
  }
}

TEST(PluralForm, ArabicByTheLastTwoDigits) {
  const auto form = [](int count) { return pluralForm(count, Language::ar); };
  EXPECT_EQ(form(1), PluralForm::one);
  EXPECT_EQ(form(2), PluralForm::two);
  for (const int count : {3, 9, 10, 103, 110}) EXPECT_EQ(form(count), PluralForm::few) << count;
  for (const int count : {11, 18, 30, 99, 111, 199}) {
    EXPECT_EQ(form(count), PluralForm::many) << count;
  }
  for (const int count : {100, 101, 102, 200}) EXPECT_EQ(form(count), PluralForm::other) << count;
}

TEST(SpokenTexts, OneDayLeft) {
  expectInEveryLanguage({"1 day left",
                         "1 hari lagi",
                         "queda 1 día",
                         "resta 1 dia",
                         "1 jour restant",
                         "noch 1 Tag",
                         "остался 1 день",
                         "残り1日",
                         "1일 남음",
                         "还剩1天",
                         "還剩1天",
                         "1 दिन शेष",
                         "يتبقى يوم واحد"},
                        [](auto lang) { return spokenDaysLeft(1, lang); });
}

TEST(SpokenTexts, EighteenDaysLeft) {
  expectInEveryLanguage({"18 days left",
                         "18 hari lagi",
                         "quedan 18 días",
                         "restam 18 dias",
                         "18 jours restants",
                         "noch 18 Tage",
                         "осталось 18 дней",
                         "残り18日",
                         "18일 남음",
                         "还剩18天",
                         "還剩18天",
                         "18 दिन शेष",
                         "يتبقى 18 يومًا"},
                        [](auto lang) { return spokenDaysLeft(18, lang); });
}

TEST(SpokenTexts, DaysLeftInTheRemainingForms) {
  EXPECT_EQ(spokenDaysLeft(21, "ru"), "остался 21 день");
  EXPECT_EQ(spokenDaysLeft(23, "ru"), "осталось 23 дня");
  EXPECT_EQ(spokenDaysLeft(2, "ar"), "يتبقى يومان");
  EXPECT_EQ(spokenDaysLeft(9, "ar"), "يتبقى 9 أيام");
  EXPECT_EQ(spokenDaysLeft(100, "ar"), "يتبقى 100 يوم");
  EXPECT_EQ(spokenDaysLeft(2, std::nullopt), "2 days left");
}

TEST(SpokenTexts, InDays) {
  EXPECT_EQ(spokenInDays(9, "en"), "in 9 days");
  EXPECT_EQ(spokenInDays(9, "ja"), "9日後");
  EXPECT_EQ(spokenInDays(3, "ru"), "через 3 дня");
  EXPECT_EQ(spokenInDays(9, "ru"), "через 9 дней");
  EXPECT_EQ(spokenInDays(31, "ru"), "через 31 день");
  EXPECT_EQ(spokenInDays(2, "ar"), "بعد يومين");
  EXPECT_EQ(spokenInDays(9, "ar"), "بعد 9 أيام");
  EXPECT_EQ(spokenInDays(11, "ar"), "بعد 11 يومًا");
  EXPECT_EQ(spokenInDays(100, "ar"), "بعد 100 يوم");
}

TEST(SpokenTexts, AmountsInTheirPlaceOfTheSentence) {
  EXPECT_EQ(spokenPerDay("$67", "en"), "$67 per day");
  EXPECT_EQ(spokenPerDay("$67", "ja"), "1日あたり$67");
  EXPECT_EQ(spokenLeft("$5", "en"), "$5 left");
  EXPECT_EQ(spokenLeft("$5", "zh-Hans"), "剩余$5");
  EXPECT_EQ(spokenOverBudget("$5", "en"), "$5 over budget");
  EXPECT_EQ(spokenOverBudget("$5", "ja"), "予算を$5超過");
  EXPECT_EQ(spokenUsed("33%", "en"), "33% used");
  EXPECT_EQ(spokenUsed("33%", "ru"), "использовано 33%");
}

// What the document brings is never taken for a place to fill.
TEST(SpokenTexts, BracesOfTheCurrencyAreText) {
  EXPECT_EQ(spokenPerDay("{}{month}5", "en"), "{}{month}5 per day");
}

TEST(SpokenTexts, ChangesInWords) {
  const auto rise = *describeChange(20, 1, true);
  const auto fall = *describeChange(-3.26, 1, true);
  const auto none = *describeChange(0, 1, true);
  EXPECT_EQ(spokenChange(rise, "en"), "up 20.0%");
  EXPECT_EQ(spokenChange(fall, "en"), "down 3.3%");
  EXPECT_EQ(spokenChange(none, "en"), "unchanged");
  EXPECT_EQ(spokenChangeFromLastMonth(rise, "en"), "up 20.0% from last month");
  EXPECT_EQ(spokenChangeFromLastMonth(fall, "de"), "Rückgang um 3.3% gegenüber dem Vormonat");
  EXPECT_EQ(spokenChangeFromLastMonth(none, "zh-Hant"), "較上月持平");
}

TEST(SpokenTexts, ChangesFromAMonth) {
  const auto rise = *describeChange(10, 1, true);
  EXPECT_EQ(spokenChangeFromMonth(rise, "2025-01", "en"), "up 10.0% from January");
  EXPECT_EQ(spokenChangeFromMonth(rise, "2025-01", "ru"), "рост на 10.0% относительно января");
  EXPECT_EQ(spokenChangeFromMonth(rise, "2025-01", "ja"), "1月から10.0%増加");
  EXPECT_EQ(spokenChangeFromMonth(rise, "2025-01", "ar"), "ارتفاع بنسبة 10.0% مقارنة بيناير");
  EXPECT_EQ(spokenChangeFromMonth(rise, "soon", "en"), "up 10.0%");
}

TEST(SpokenTexts, EveryPhraseHoldsItsValue) {
  const auto rise = *describeChange(20, 1, true);
  const auto fall = *describeChange(-20, 1, true);
  for (const std::string_view lang : kLanguageCodes) {
    for (const std::string& text : {spokenPerDay("20.0%", lang),
                                    spokenLeft("20.0%", lang),
                                    spokenOverBudget("20.0%", lang),
                                    spokenUsed("20.0%", lang),
                                    spokenChange(rise, lang),
                                    spokenChange(fall, lang),
                                    spokenChangeFromLastMonth(rise, lang),
                                    spokenChangeFromMonth(fall, "2025-01", lang)}) {
      EXPECT_NE(text.find("20.0%"), std::string::npos) << text;
      EXPECT_EQ(text.find_first_of("{}/"), std::string::npos) << text;
    }
  }
}

TEST(SpokenTexts, LastDigitsOneByOneInEveryLanguage) {
  const std::array<const char*, kLanguageCount> expected{"ending in 8 4 7 8",
                                                         "berakhiran 8 4 7 8",
                                                         "terminada en 8 4 7 8",
                                                         "final 8 4 7 8",
                                                         "se terminant par 8 4 7 8",
                                                         "endet auf 8 4 7 8",
                                                         "оканчивается на 8 4 7 8",
                                                         "末尾 8 4 7 8",
                                                         "끝자리 8 4 7 8",
                                                         "尾号 8 4 7 8",
                                                         "末碼 8 4 7 8",
                                                         "अंतिम अंक 8 4 7 8",
                                                         "تنتهي بـ 8 4 7 8"};
  for (std::size_t i = 0; i < kLanguageCount; ++i)
    EXPECT_EQ(spokenEndingIn("8478", kLanguageCodes[i]), expected[i]);
  EXPECT_EQ(spokenEndingIn("é1", std::nullopt), "ending in é 1");
}

TEST(SpokenTexts, ListsTakeTheCommaOfTheirLanguage) {
  EXPECT_EQ(spokenList({"Today", "Rent", "$125"}, "en"), "Today, Rent, $125");
  EXPECT_EQ(spokenList({"今日", "Rent", "$125"}, "ja"), "今日、Rent、$125");
  EXPECT_EQ(spokenList({"اليوم", "Rent"}, "ar"), "اليوم، Rent");
  EXPECT_EQ(spokenList({"Rent"}, "zh-Hans"), "Rent");
}

TEST(SpokenTexts, AMaskedNumberWithoutItsBullets) {
  EXPECT_EQ(spokenSubtitle("\u2022\u2022 8478", "en"), "ending in 8 4 7 8");
  EXPECT_EQ(spokenSubtitle("\u2022\u2022 Northbank", "en"), "\u2022\u2022 Northbank");
  EXPECT_EQ(spokenSubtitle("Family plan 2", "en"), "Family plan 2");
  EXPECT_EQ(spokenSubtitle("\u2022\u2022", "en"), "\u2022\u2022");
}

}  // namespace
}  // namespace quorvel
