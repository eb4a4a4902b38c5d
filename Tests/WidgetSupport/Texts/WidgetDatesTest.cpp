// Dates in every language, checked against the names that the locale data publish and against the
// library's own formatter.
#include <gtest/gtest.h>

#include <thread>

#include "Foundation/DateFormatter.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetDates.hpp"

namespace quorvel {
namespace {

const foundation::Instant kFifthOfMarch =
    *foundation::parseInternetDateTime("2025-03-05T12:00:00Z");
const foundation::TimeZone kUtc{"UTC"};

TEST(WidgetDates, DueDateInEveryLanguage) {
  const std::array<const char*, kLanguageCount> expected{"Mar 5",
                                                         "5 Mar",
                                                         "5 mar",
                                                         "5 de mar.",
                                                         "5 mars",
                                                         "5. März",
                                                         "5 мар.",
                                                         "3月5日",
                                                         "3월 5일",
                                                         "3月5日",
                                                         "3月5日",
                                                         "5 मार्च",
                                                         "5 مارس"};
  for (std::size_t i = 0; i < kLanguageCount; ++i) {
    EXPECT_EQ(dueDateText(kFifthOfMarch, kLanguageCodes[i], kUtc), expected[i])
        << kLanguageCodes[i];
  }
  EXPECT_EQ(dueDateText(kFifthOfMarch, std::nullopt, kUtc), "Mar 5");
  EXPECT_EQ(dueDateText(kFifthOfMarch, "nl", kUtc), "Mar 5");
}

TEST(WidgetDates, SpokenDueDateNamesTheMonthInFull) {
  const auto february = *foundation::parseInternetDateTime("2025-02-10T12:00:00Z");
  const std::array<const char*, kLanguageCount> expected{"February 10",
                                                         "10 Februari",
                                                         "10 de febrero",
                                                         "10 de fevereiro",
                                                         "10 février",
                                                         "10. Februar",
                                                         "10 февраля",
                                                         "2月10日",
                                                         "2월 10일",
                                                         "2月10日",
                                                         "2月10日",
                                                         "10 फ़रवरी",
                                                         "10 فبراير"};
  for (std::size_t i = 0; i < kLanguageCount; ++i) {
    EXPECT_EQ(spokenDueDateText(february, kLanguageCodes[i], kUtc), expected[i])
        << kLanguageCodes[i];
  }
}

TEST(WidgetDates, FirstOfAMonthIsAnOrdinalWhereTheLanguageSaysSo) {
  const auto first = *foundation::parseInternetDateTime("2025-04-01T12:00:00Z");
  const auto eleventh = *foundation::parseInternetDateTime("2025-04-11T12:00:00Z");
  EXPECT_EQ(dueDateText(first, "fr", kUtc), "1er avr.");
  EXPECT_EQ(spokenDueDateText(first, "fr", kUtc), "1er avril");
  EXPECT_EQ(dueDateText(eleventh, "fr", kUtc), "11 avr.");
  EXPECT_EQ(dueDateText(first, "pt-BR", kUtc), "1º de abr.");
  EXPECT_EQ(spokenDueDateText(first, "pt-BR", kUtc), "1º de abril");
  EXPECT_EQ(dueDateText(eleventh, "pt-BR", kUtc), "11 de abr.");
  EXPECT_EQ(dueDateText(first, "es", kUtc), "1 abr");
  EXPECT_EQ(dueDateText(first, "en", kUtc), "Apr 1");
}

TEST(WidgetDates, FirstOfAMonthIsThatOfTheZone) {
  const auto evening = *foundation::parseInternetDateTime("2025-03-31T22:30:00Z");
  EXPECT_EQ(dueDateText(evening, "fr", {"Europe/Paris"}), "1er avr.");
  EXPECT_EQ(dueDateText(evening, "fr", kUtc), "31 mars");
}

TEST(WidgetDates, MonthsOfAnAxisStandAlone) {
  const std::array<const char*, 12> russian{"янв.",
                                            "февр.",
                                            "март",
                                            "апр.",
                                            "май",
                                            "июнь",
                                            "июль",
                                            "авг.",
                                            "сент.",
                                            "окт.",
                                            "нояб.",
                                            "дек."};
  const std::array<const char*, 12> german{
      "Jan", "Feb", "Mär", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
  for (std::size_t i = 0; i < 12; ++i) {
    const std::string month = (i < 9 ? "2025-0" : "2025-") + std::to_string(i + 1);
    EXPECT_EQ(standaloneMonth(month, "ru"), russian[i]);
    EXPECT_EQ(standaloneMonth(month, "de"), german[i]);
  }
  EXPECT_EQ(standaloneMonth("2025-05", "en"), "May");
  EXPECT_EQ(standaloneMonth("2025-13", "en"), std::nullopt);
}

TEST(WidgetDates, FullMonthsAsTheyStandInADate) {
  EXPECT_EQ(fullMonth("2025-01", "en"), "January");
  EXPECT_EQ(fullMonth("2025-08", "ru"), "августа");
  EXPECT_EQ(fullMonth("2025-12", "ar"), "ديسمبر");
  EXPECT_EQ(fullMonth("2025-13", "en"), std::nullopt);
}

TEST(WidgetDates, DigitsAreLatinInHindiAndArabic) {
  EXPECT_EQ(dateText(kFifthOfMarch, "hi", "d", kUtc), "5");
  EXPECT_EQ(dateText(kFifthOfMarch, "ar", "d", kUtc), "5");
}

TEST(WidgetDates, ZoneDecidesTheDay) {
  EXPECT_EQ(dueDateText(kFifthOfMarch, "en", {"Pacific/Kiritimati"}), "Mar 6");
  EXPECT_EQ(dueDateText(kFifthOfMarch, "en", {"Pacific/Pago_Pago"}), "Mar 5");
}

TEST(WidgetDates, AbbreviatedMonthsOfAYear) {
  const std::array<const char*, 12> german{"Jan.",
                                           "Feb.",
                                           "März",
                                           "Apr.",
                                           "Mai",
                                           "Juni",
                                           "Juli",
                                           "Aug.",
                                           "Sept.",
                                           "Okt.",
                                           "Nov.",
                                           "Dez."};
  const std::array<const char*, 12> portuguese{"jan.",
                                               "fev.",
                                               "mar.",
                                               "abr.",
                                               "mai.",
                                               "jun.",
                                               "jul.",
                                               "ago.",
                                               "set.",
                                               "out.",
                                               "nov.",
                                               "dez."};
  for (std::size_t i = 0; i < 12; ++i) {
    const std::string month = (i < 9 ? "2025-0" : "2025-") + std::to_string(i + 1);
    EXPECT_EQ(abbreviatedMonth(month, "de"), german[i]);
    EXPECT_EQ(abbreviatedMonth(month, "pt-BR"), portuguese[i]);
    EXPECT_EQ(abbreviatedMonth(month, "ja"), std::to_string(i + 1) + "月");
    EXPECT_EQ(abbreviatedMonth(month, "ko"), std::to_string(i + 1) + "월");
  }
  EXPECT_EQ(abbreviatedMonth("2025-02", "en"), "Feb");
  EXPECT_EQ(abbreviatedMonth("2025-02", "ar"), "فبراير");
}

TEST(WidgetDates, MonthNamesAreTheLocalesOwnInEveryLanguage) {
  for (const std::string_view code : kLanguageCodes) {
    const foundation::DateFormatter formatter(localeFor(code), kUtc, "MMM");
    for (int month = 1; month <= 12; ++month) {
      const std::string text = (month < 10 ? "2024-0" : "2024-") + std::to_string(month);
      EXPECT_EQ(abbreviatedMonth(text, code),
                formatter.string(*foundation::parseInternetDateTime(text + "-28T12:00:00Z")));
    }
  }
}

TEST(WidgetDates, MalformedMonthsHaveNoName) {
  for (const char* month : {"",
                            "2025",
                            "2025-00",
                            "2025-13",
                            "2025-3",
                            "25-03",
                            "2025-03-01",
                            "2025/03",
                            "+025-03",
                            "2025-+3",
                            "2025- 3",
                            "2025-0:",
                            "March"}) {
    EXPECT_FALSE(abbreviatedMonth(month, "en")) << month;
  }
}

TEST(WidgetDates, ThreadsKeepTheirOwnFormatters) {
  std::vector<std::jthread> readers;
  for (int i = 0; i < 4; ++i) {
    readers.emplace_back([] {
      for (int k = 0; k < 50; ++k) EXPECT_EQ(dueDateText(kFifthOfMarch, "de", kUtc), "5. März");
    });
  }
}

TEST(WidgetDates, ManyZonesDoNotPileUp) {
  for (int i = 0; i < 200; ++i) {
    EXPECT_EQ(dateText(kFifthOfMarch, "en", "MMM" + std::string(i % 100, ' '), kUtc).substr(0, 3),
              "Mar");
  }
}

}  // namespace
}  // namespace quorvel
