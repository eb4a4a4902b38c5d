// Languages and zones from an environment, names of days and months.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Foundation/DateFormatter.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/Locale.hpp"
#include "Foundation/TimeZoneRules.hpp"

namespace foundation {
namespace {

using testing::ElementsAre;

TEST(PreferredLanguages, ListComesBeforeTheLocales) {
  EXPECT_THAT(preferredLanguages({{"LANGUAGE", "zh_TW:pt-BR:en"}, {"LANG", "de_DE.UTF-8"}}),
              ElementsAre("zh_TW", "pt-BR", "en", "de_DE"));
}

TEST(PreferredLanguages, LocalesInTheirOrder) {
  EXPECT_THAT(
      preferredLanguages(
          {{"LANG", "de_DE"}, {"LC_MESSAGES", "fr_FR"}, {"LC_ALL", "es_ES"}, {"LC_TIME", "ja_JP"}}),
      ElementsAre("es_ES", "fr_FR", "de_DE"));
}

TEST(PreferredLanguages, EncodingsAndVariantsAreCut) {
  EXPECT_THAT(preferredLanguages({{"LANGUAGE", "ca@valencia:sr_RS.UTF-8@latin"}}),
              ElementsAre("ca", "sr_RS"));
}

TEST(PreferredLanguages, NeutralLocalesAndEmptyPiecesAreSkipped) {
  EXPECT_THAT(
      preferredLanguages(
          {{"LANGUAGE", ":C::"}, {"LC_ALL", "C.UTF-8"}, {"LC_MESSAGES", "POSIX"}, {"LANG", ""}}),
      ElementsAre());
  EXPECT_THAT(preferredLanguages({}), ElementsAre());
}

TEST(CurrentLocale, FirstOfThreeVariables) {
  EXPECT_EQ(currentLocale({{"LC_ALL", "de_DE.UTF-8"}, {"LC_TIME", "fr_FR"}, {"LANG", "en_GB"}})
                .identifier,
            "de_DE");
  EXPECT_EQ(currentLocale({{"LC_TIME", "fr_FR"}, {"LANG", "en_GB"}}).identifier, "fr_FR");
  EXPECT_EQ(currentLocale({{"LANG", "en_GB"}}).identifier, "en_GB");
  EXPECT_EQ(currentLocale({{"LANG", "C.UTF-8"}}).identifier, "en_US");
  EXPECT_EQ(currentLocale({}).identifier, "en_US");
}

TEST(RightToLeft, FollowsTheScriptOfTheLanguage) {
  for (const char* language : {"ar",
                               "he",
                               "fa",
                               "ur",
                               "ps",
                               "sd",
                               "ckb",
                               "yi",
                               "dv",
                               "ug",
                               "ar-EG",
                               "ar_SA.UTF-8",
                               "he_IL",
                               "pa-Arab",
                               "az_Arab_IR",
                               "uz-Arab-AF",
                               "iw"}) {
    EXPECT_TRUE(isRightToLeft(language)) << language;
  }
  for (const char* language :
       {"", "en", "de-DE", "pa", "az", "ku", "zh-Hant", "ar-Latn", "C", "xx", "klingon"}) {
    EXPECT_FALSE(isRightToLeft(language)) << language;
  }
}

TEST(CurrentTimeZone, VariableInItsThreeForms) {
  EXPECT_EQ(currentTimeZone({{"TZ", "Asia/Jakarta"}}).identifier, "Asia/Jakarta");
  EXPECT_EQ(currentTimeZone({{"TZ", ":Asia/Jakarta"}}).identifier, "Asia/Jakarta");
  EXPECT_EQ(currentTimeZone({{"TZ", "/usr/share/zoneinfo/Asia/Jakarta"}}).identifier,
            "Asia/Jakarta");
}

TEST(CurrentTimeZone, UnknownVariableFallsBackToTheMachine) {
  const TimeZone machine = currentTimeZone({});
  EXPECT_TRUE(isKnownTimeZone(machine.identifier));
  EXPECT_EQ(currentTimeZone({{"TZ", "Nowhere/Town"}}), machine);
}

TEST(TimeZones, KnownAndUnknown) {
  for (const char* name : {"UTC",
                           "GMT",
                           "Europe/Berlin",
                           "America/Argentina/Buenos_Aires",
                           "Etc/GMT+5",
                           "right/Europe/Berlin",
                           "/usr/share/zoneinfo/Asia/Jakarta",
                           "UTC-3",
                           "<+0330>-3:30",
                           "EST5EDT,M3.2.0,M11.1.0"}) {
    EXPECT_TRUE(isKnownTimeZone(name)) << name;
  }
  for (const char* name : {"",
                           ".",
                           "..",
                           "/etc/passwd",
                           "../../../etc/passwd",
                           "Europe",
                           "Europe/",
                           "Europe/Berlin ",
                           "zone.tab",
                           "tzdata.zi",
                           "/usr/share/zoneinfo",
                           "/usr/share/zoneinfo/tzdata.zi",
                           "/dev/zero",
                           "/nowhere",
                           "Nowhere",
                           "AB3",
                           "UTC-27",
                           "UTC-3:60",
                           "UTC-3x"}) {
    EXPECT_FALSE(isKnownTimeZone(name)) << name;
  }
}

TEST(TimeZoneRules, ChangesOfAYearOfTheTable) {
  const auto berlin = TimeZoneRules::load("Europe/Berlin");
  ASSERT_TRUE(berlin);
  // 2025-03-30 and 2025-10-26, 01:00 UTC each.
  EXPECT_THAT(
      berlin->changesBetween(1735689600, 1767225600),
      ElementsAre(ClockChange{1743296400, 3600, 7200}, ClockChange{1761440400, 7200, 3600}));
  EXPECT_EQ(berlin->offsetAt(1743296399), 3600);
  EXPECT_EQ(berlin->offsetAt(1743296400), 7200);
}

TEST(TimeZoneRules, ChangesOfAYearBeyondTheTable) {
  const auto berlin = TimeZoneRules::load("Europe/Berlin");
  ASSERT_TRUE(berlin);
  // 2075-03-31 and 2075-10-27, 01:00 UTC each.
  EXPECT_THAT(
      berlin->changesBetween(3313526400, 3345062400),
      ElementsAre(ClockChange{3321219600, 3600, 7200}, ClockChange{3339363600, 7200, 3600}));
  EXPECT_EQ(berlin->offsetAt(3321219599), 3600);
  EXPECT_EQ(berlin->offsetAt(3321219600), 7200);
}

TEST(TimeZoneRules, BeforeTheTableLocalMeanTimeHolds) {
  EXPECT_EQ(TimeZoneRules::load("Europe/Berlin")->offsetAt(-5'000'000'000), 3208);  // 13°22' east
}

TEST(TimeZoneRules, EveryTruncationOfAFileIsMalformed) {
  const auto file = contentsOfFile("/usr/share/zoneinfo/Europe/Berlin");
  ASSERT_TRUE(file && TimeZoneRules::parse(*file));
  for (std::size_t size = 0; size < file->size(); ++size) {
    ASSERT_FALSE(TimeZoneRules::parse(std::string_view(*file).substr(0, size))) << size;
  }
}

/// A file without a table; its footer says everything.
std::optional<TimeZoneRules> withFooter(const std::string& rule) {
  const auto header = [](char types) {
    return "TZif2" + std::string(15 + 4 * 4, '\0') + std::string(3, '\0') + types +
           std::string(3, '\0') + '\x01';
  };
  const std::string body = std::string(6, '\0') + std::string(1, '\0');
  return TimeZoneRules::parse(header(1) + body + header(1) + body + "\n" + rule + "\n");
}

TEST(TimeZoneRules, FooterWithDaysOfTheYear) {
  // Day 60 is 1 March where 29 February is not counted, and 29 or 1 where it is.
  const auto julian = withFooter("AAA-1BBB,J60/0,J300/0");
  ASSERT_TRUE(julian);
  EXPECT_EQ(julian->offsetAt(1709247600), 7200);  // 2024-03-01T00:00+01:00
  EXPECT_EQ(julian->offsetAt(1709247600 - 1), 3600);
  const auto zeroBased = withFooter("AAA-1BBB,59/0,300/0");
  ASSERT_TRUE(zeroBased);
  EXPECT_EQ(zeroBased->offsetAt(1709161200), 7200);  // 2024-02-29T00:00+01:00
  EXPECT_EQ(zeroBased->offsetAt(1709161200 - 1), 3600);
}

TEST(TimeZoneRules, MalformedFootersAreRejected) {
  EXPECT_TRUE(withFooter("<+03>-3"));
  EXPECT_TRUE(withFooter("EET-2EEST,M4.5.5/0,M10.5.4/24"));
  for (const char* rule : {"-3",
                           "AAA",
                           "AAA-3BBB",
                           "AAA-3BBB,M3.5.0",
                           "AAA-3BBB,M13.5.0,M10.5.0",
                           "AAA-3BBB,M3.6.0,M10.5.0",
                           "AAA-3BBB,M3.5.7,M10.5.0",
                           "AAA-3BBB,J0,J5",
                           "AAA-200",
                           "<+03-3",
                           "AAA-3BBB,M3.5.0,M10.5.0x"}) {
    EXPECT_FALSE(withFooter(rule)) << rule;
  }
}

TEST(Weekdays, FirstByRegion) {
  EXPECT_EQ(firstWeekday({"en_US"}), 1);
  EXPECT_EQ(firstWeekday({"de_DE"}), 2);
  EXPECT_EQ(firstWeekday({"pt_BR"}), 1);
  EXPECT_EQ(firstWeekday({"ar_EG"}), 7);
}

TEST(Weekdays, NarrowNamesFromSunday) {
  EXPECT_THAT(narrowWeekdayNames({"en_US"}), ElementsAre("S", "M", "T", "W", "T", "F", "S"));
  EXPECT_THAT(narrowWeekdayNames({"de_DE"}), ElementsAre("S", "M", "D", "M", "D", "F", "S"));
  EXPECT_THAT(narrowWeekdayNames({"ja_JP"}), ElementsAre("日", "月", "火", "水", "木", "金", "土"));
}

struct MonthsRow {
  const char* locale;
  std::vector<std::string> names;
};
void PrintTo(const MonthsRow& row, std::ostream* out) {
  *out << row.locale;
}

class DateFormatterMonths : public testing::TestWithParam<MonthsRow> {};

TEST_P(DateFormatterMonths, FormatForm) {
  const DateFormatter formatter({GetParam().locale}, {}, "MMM");
  std::vector<std::string> names;
  for (int month = 1; month <= 12; ++month) {
    const std::string digits = (month < 10 ? "0" : "") + std::to_string(month);
    names.push_back(formatter.string(*parseInternetDateTime("2025-" + digits + "-05T12:00:00Z")));
  }
  EXPECT_EQ(names, GetParam().names);
}

const std::vector<std::string> kIdeographic{
    "1月", "2月", "3月", "4月", "5月", "6月", "7月", "8月", "9月", "10月", "11月", "12月"};

INSTANTIATE_TEST_SUITE_P(
    Locales,
    DateFormatterMonths,
    testing::Values(
        MonthsRow{
            "en_US",
            {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"}},
        MonthsRow{
            "id_ID",
            {"Jan", "Feb", "Mar", "Apr", "Mei", "Jun", "Jul", "Agu", "Sep", "Okt", "Nov", "Des"}},
        MonthsRow{
            "es_ES",
            {"ene", "feb", "mar", "abr", "may", "jun", "jul", "ago", "sept", "oct", "nov", "dic"}},
        MonthsRow{"pt_BR",
                  {"jan.",
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
                   "dez."}},
        MonthsRow{"fr_FR",
                  {"janv.",
                   "févr.",
                   "mars",
                   "avr.",
                   "mai",
                   "juin",
                   "juil.",
                   "août",
                   "sept.",
                   "oct.",
                   "nov.",
                   "déc."}},
        MonthsRow{"de_DE",
                  {"Jan.",
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
                   "Dez."}},
        MonthsRow{"ru_RU",
                  {"янв.",
                   "февр.",
                   "мар.",
                   "апр.",
                   "мая",
                   "июн.",
                   "июл.",
                   "авг.",
                   "сент.",
                   "окт.",
                   "нояб.",
                   "дек."}},
        MonthsRow{"ja_JP", kIdeographic},
        MonthsRow{"zh_Hans_CN", kIdeographic},
        MonthsRow{"zh_Hant_TW", kIdeographic},
        MonthsRow{"ko_KR",
                  {"1월",
                   "2월",
                   "3월",
                   "4월",
                   "5월",
                   "6월",
                   "7월",
                   "8월",
                   "9월",
                   "10월",
                   "11월",
                   "12월"}},
        MonthsRow{"hi_IN@numbers=latn",
                  {"जन॰",
                   "फ़र॰",
                   "मार्च",
                   "अप्रैल",
                   "मई",
                   "जून",
                   "जुल॰",
                   "अग॰",
                   "सित॰",
                   "अक्तू॰",
                   "नव॰",
                   "दिस॰"}},
        MonthsRow{"ar@numbers=latn",
                  {"يناير",
                   "فبراير",
                   "مارس",
                   "أبريل",
                   "مايو",
                   "يونيو",
                   "يوليو",
                   "أغسطس",
                   "سبتمبر",
                   "أكتوبر",
                   "نوفمبر",
                   "ديسمبر"}}),
    [](const auto& row) {
      return std::string(row.param.locale).substr(0, 2) + std::to_string(row.index);
    });

TEST(DateFormatter, PatternsOfTheDueLabel) {
  const Instant day = *parseInternetDateTime("2025-03-05T12:00:00Z");
  const auto label = [&](const char* locale, const char* pattern) {
    return DateFormatter({locale}, {}, pattern).string(day);
  };
  EXPECT_EQ(label("en_US", "MMM d"), "Mar 5");
  EXPECT_EQ(label("pt_BR", "d 'de' MMM"), "5 de mar.");
  EXPECT_EQ(label("de_DE", "d. MMM"), "5. März");
  EXPECT_EQ(label("ja_JP", "M月d日"), "3月5日");
  EXPECT_EQ(label("ko_KR", "MMM d일"), "3월 5일");
  EXPECT_EQ(label("hi_IN@numbers=latn", "d MMM"), "5 मार्च");
  EXPECT_EQ(label("ar@numbers=latn", "d MMM"), "5 مارس");
  EXPECT_EQ(label("de_DE", "LLL"), "Mär");
}

TEST(DateFormatter, UsesTheZoneOfTheSystemsDatabase) {
  const Instant instant = *parseInternetDateTime("2025-03-31T17:00:00Z");
  EXPECT_EQ(DateFormatter({"en_US"}, {"UTC"}, "MMM d HH:mm").string(instant), "Mar 31 17:00");
  EXPECT_EQ(DateFormatter({"en_US"}, {"Asia/Jakarta"}, "MMM d HH:mm").string(instant),
            "Apr 1 00:00");
  // Summer time came back to Egypt in 2023, which older tables do not know.
  EXPECT_EQ(DateFormatter({"en_US"}, {"Africa/Cairo"}, "MMM d HH:mm")
                .string(*parseInternetDateTime("2024-07-01T12:00:00Z")),
            "Jul 1 15:00");
}

TEST(DateFormatter, UsesTheGregorianCalendarEverywhere) {
  EXPECT_EQ(DateFormatter({"th_TH"}, {}, "y").string({1741944600}), "2025");
}

TEST(DateFormatter, FarInstantsAreFormattedToo) {
  EXPECT_FALSE(DateFormatter({"en_US"}, {}, "d").string({INT64_MAX}).empty());
  EXPECT_FALSE(DateFormatter({"en_US"}, {}, "d").string({INT64_MIN}).empty());
}

}  // namespace
}  // namespace foundation
