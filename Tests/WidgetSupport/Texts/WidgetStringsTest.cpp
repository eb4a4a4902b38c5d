// Lookup, languages, plural phrases, and what every text of the table must keep to.
#include <gtest/gtest.h>

#include <set>
#include <thread>

#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStringTable.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {
namespace {

constexpr const char* kAppName = "Quorvel";

TEST(WidgetStringsText, CountIsPutInTheLanguagesPlace) {
  EXPECT_EQ(WidgetStrings::text("inDays", "de", 3), "in 3 Tagen");
  EXPECT_EQ(WidgetStrings::text("inDays", std::nullopt, 3), "in 3 days");
  EXPECT_EQ(WidgetStrings::text("inDays", "id", 3), "3 hari lagi");
}

TEST(WidgetStringsText, WithoutCountThePlaceholderStays) {
  EXPECT_EQ(WidgetStrings::text("shortDays", "en"), "{n}d");
}

TEST(WidgetStringsText, UnknownKeyComesBackAsItIs) {
  EXPECT_EQ(WidgetStrings::textNamed("noSuchKey", "de"), "noSuchKey");
  EXPECT_EQ(WidgetStrings::textNamed("noSuchKey", std::nullopt, 4), "noSuchKey");
  EXPECT_EQ(WidgetStrings::textNamed("{n}", "de", 4), "{n}");
  EXPECT_EQ(WidgetStrings::textNamed("", "en", 1), "");
  EXPECT_EQ(WidgetStrings::textNamed("NextDue", "en"), "NextDue");
}

TEST(WidgetStringsText, OtherSpellingsOfACodeAreEnglish) {
  for (const char* code : {"pt", "EN", "zh", "pt-br", "pt_BR", "ES", "nl", "", "de-DE"}) {
    EXPECT_EQ(WidgetStrings::text("hidden", code), "Amounts hidden") << code;
  }
}

TEST(WidgetStringsText, NegativeCountHasAMinus) {
  EXPECT_EQ(WidgetStrings::text("inDays", "en", -1), "in -1 days");
}

TEST(WidgetStringsText, LargeCountIsNotGrouped) {
  EXPECT_EQ(WidgetStrings::text("shortDays", "en", 1234567), "1234567d");
  EXPECT_EQ(WidgetStrings::text("shortDays", "en", INT64_MIN), "-9223372036854775808d");
}

TEST(WidgetStringsText, CountIsIgnoredWhereThereIsNoPlaceholder) {
  EXPECT_EQ(WidgetStrings::text("today", "en", 5), "Today");
  EXPECT_EQ(WidgetStrings::text("comparisonWith", "en", 5), "vs {period}");
}

TEST(WidgetStringsText, ManyThreadsReadTheSame) {
  std::vector<std::jthread> readers;
  for (int i = 0; i < 8; ++i) {
    readers.emplace_back([] { EXPECT_EQ(WidgetStrings::text("inDays", "ko", 2), "2일 후"); });
  }
}

struct StatedRow {
  const char* key;
  std::array<const char*, kLanguageCount> texts;
};

constexpr StatedRow kStatedRows[] = {
    {"hidden",
     {"Amounts hidden",
      "Nominal disembunyikan",
      "Importes ocultos",
      "Valores ocultos",
      "Montants masqués",
      "Beträge verborgen",
      "Суммы скрыты",
      "金額は非表示",
      "금액 숨김",
      "金额已隐藏",
      "金額已隱藏",
      "राशि छिपी हुई",
      "المبالغ مخفية"}},
    {"inDays",
     {"in {n} days",
      "{n} hari lagi",
      "en {n} días",
      "em {n} dias",
      "dans {n} jours",
      "in {n} Tagen",
      "через {n} дн.",
      "{n}日後",
      "{n}일 후",
      "{n}天后",
      "{n}天後",
      "{n} दिन में",
      "بعد {n} يوم"}},
    {"shortDays",
     {"{n}d",
      "{n}h",
      "{n} d",
      "{n}d",
      "{n} j",
      "{n} T.",
      "{n} дн.",
      "{n}日",
      "{n}일",
      "{n}天",
      "{n}天",
      "{n} दिन",
      "{n} يوم"}},
    {"comparisonWith",
     {"vs {period}",
      "vs {period}",
      "vs {period}",
      "vs {period}",
      "vs {period}",
      "ggü. {period}",
      "к {period}",
      "{period}比",
      "{period} 대비",
      "较{period}",
      "較{period}",
      "{period} से तुलना",
      "مقارنة بـ {period}"}},
};

TEST(WidgetStringsTable, RowsStatedForEveryLanguage) {
  for (const StatedRow& row : kStatedRows) {
    for (std::size_t i = 0; i < kLanguageCount; ++i) {
      EXPECT_EQ(WidgetStrings::textNamed(row.key, kLanguageCodes[i]), row.texts[i]);
    }
  }
}

struct EnglishAndIndonesian {
  const char* key;
  const char* en;
  const char* id;
};

constexpr EnglishAndIndonesian kStated[] = {
    {"nextDue", "Next due", "Jatuh tempo"},
    {"upcomingDue", "Upcoming due", "Tagihan terdekat"},
    {"safeToSpend", "Safe to spend", "Aman dibelanjakan"},
    {"perDay", "per day", "per hari"},
    {"left", "left", "tersisa"},
    {"of", "of", "dari"},
    {"daysLeftMonth", "days left", "hari lagi"},
    {"lastDay", "Last day", "Hari terakhir"},
    {"remainingLimit", "Remaining limit", "Sisa limit"},
    {"used", "used", "terpakai"},
    {"spentThisMonth", "Spent this month", "Pengeluaran bulan ini"},
    {"vsLastMonth", "vs last month", "vs bulan lalu"},
    {"topCategory", "Top category", "Kategori terbesar"},
    {"netWorth", "Net worth", "Kekayaan bersih"},
    {"assets", "Assets", "Aset"},
    {"liabilities", "Liabilities", "Utang"},
    {"today", "Today", "Hari ini"},
    {"tomorrow", "Tomorrow", "Besok"},
    {"inDays", "in {n} days", "{n} hari lagi"},
    {"nothingDue", "Nothing due soon", "Belum ada tagihan"},
    {"noBudget", "Set a monthly budget in Quorvel", "Atur budget bulanan di Quorvel"},
    {"noCards", "Add a card in Quorvel", "Tambah kartu di Quorvel"},
    {"noSpending", "No spending yet this month", "Belum ada pengeluaran bulan ini"},
    {"noNetWorth", "Add assets in Quorvel", "Tambah aset di Quorvel"},
    {"signIn", "Open Quorvel to get started", "Buka Quorvel untuk mulai"},
    {"hidden", "Amounts hidden", "Nominal disembunyikan"},
    {"budget", "budget", "budget"},
    {"safe", "safe", "aman"},
    {"addExpense", "Add expense", "Catat pengeluaran"},
    {"shortDays", "{n}d", "{n}h"},
    {"overBudget", "over budget", "melebihi budget"},
    {"leftForToday", "Left for today", "Sisa untuk hari ini"},
    {"setBudget", "Set a budget", "Atur budget"},
    {"addCard", "Add a card", "Tambah kartu"},
    {"allClear", "All clear", "Semua beres"},
    {"newMonth", "A fresh month", "Bulan baru"},
    {"addAssets", "Add assets", "Tambah aset"},
    {"openQuorvel", "Open Quorvel", "Buka Quorvel"},
    {"comparisonWith", "vs {period}", "vs {period}"},
    {"liquidAssets", "Liquid assets", "Aset likuid"},
    {"nonLiquidAssets", "Non-liquid assets", "Aset non-likuid"},
    {"remaining", "Remaining", "Sisa"},
    {"totalLimit", "Total limit", "Total limit"},
    {"usedLabel", "Used", "Terpakai"},
    {"average", "Average", "Rata-rata"},
    {"lastMonth", "Last month", "Bulan lalu"},
    {"leftToSpend", "Left to spend", "Sisa"},
    {"spent", "Spent", "Terpakai"},
    {"daysLeft", "Days left", "Hari tersisa"},
    {"paceGood", "On pace", "Sesuai laju"},
    {"paceWarning", "A bit fast", "Agak cepat"},
    {"paceCritical", "Too fast", "Terlalu cepat"},
    {"due", "Due", "Jatuh tempo"},
};

TEST(WidgetStringsTable, EnglishAndIndonesianAreAsStated) {
  for (const EnglishAndIndonesian& row : kStated) {
    EXPECT_EQ(WidgetStrings::textNamed(row.key, "en"), row.en);
    EXPECT_EQ(WidgetStrings::textNamed(row.key, std::nullopt), row.en);
    EXPECT_EQ(WidgetStrings::textNamed(row.key, "id"), row.id);
  }
}

TEST(WidgetStringsTable, EveryKeyIsFoundUnderItsOwnRow) {
  for (const StringRow& row : stringRows()) {
    ASSERT_TRUE(findStringRow(row.key)) << row.key;
    EXPECT_EQ(findStringRow(row.key)->texts.en, row.texts.en);
    EXPECT_FALSE(findStringRow(std::string(row.key) + "x"));
  }
}

TEST(WidgetStringsTable, AppNameStaysUntranslated) {
  for (const char* key : {"noBudget", "noCards", "noNetWorth", "signIn", "openQuorvel"}) {
    for (const std::string_view code : kLanguageCodes) {
      EXPECT_NE(WidgetStrings::textNamed(key, code).find(kAppName), std::string::npos)
          << key << code;
    }
  }
  EXPECT_EQ(WidgetStrings::text("openQuorvel", "de"), "Quorvel öffnen");
}

TEST(WidgetStringsTable, NoTextHasStraySpacesOrQuotes) {
  for (const StringRow& row : stringRows()) {
    for (const std::string_view code : kLanguageCodes) {
      const std::string_view text = row.texts.in(languageForCode(code));
      EXPECT_FALSE(text.starts_with(' ') || text.ends_with(' ') || text.contains("  ") ||
                   text.contains('"') || text.contains('\n'))
          << row.key << " " << code;
    }
  }
}

/// What can be told of a language from its letters: the range that each of its texts must draw
/// from, if it has its own.
bool usesScript(std::string_view text, std::string_view code) {
  const auto contains = [&](std::uint32_t from, std::uint32_t to) {
    for (std::size_t i = 0; i < text.size();) {
      const auto lead = static_cast<unsigned char>(text[i]);
      const int length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
      std::uint32_t scalar = length == 1 ? lead : lead & (0xFFU >> (length + 1));
      for (int k = 1; k < length; ++k) {
        scalar = scalar << 6 | (static_cast<unsigned char>(text[i + k]) & 0x3F);
      }
      if (scalar >= from && scalar <= to) return true;
      i += length;
    }
    return false;
  };
  if (code == "ru") return contains(0x400, 0x4FF);
  if (code == "hi") return contains(0x900, 0x97F);
  if (code == "ar") return contains(0x600, 0x6FF);
  if (code == "ko") return contains(0xAC00, 0xD7AF);
  if (code == "ja") return contains(0x3040, 0x30FF) || contains(0x4E00, 0x9FFF);
  if (code.starts_with("zh")) return contains(0x4E00, 0x9FFF) && !contains(0x3040, 0x30FF);
  return !contains(0x370, 0x10FFFF) || contains(0x2000, 0x206F);
}

TEST(WidgetStringsTable, EveryTextIsInItsLanguagesScript) {
  for (const StringRow& row : stringRows()) {
    for (std::size_t i = 0; i < kLanguageCount; ++i) {
      const std::string_view text = row.texts.in(static_cast<Language>(i));
      if (text == "/") continue;  // "of" between two amounts
      EXPECT_TRUE(usesScript(text, kLanguageCodes[i])) << kLanguageCodes[i] << " " << row.key;
    }
  }
}

TEST(WidgetStringsTable, TheTwoChineseTablesDiffer) {
  std::size_t different = 0;
  for (const StringRow& row : stringRows()) {
    if (row.texts.zhHans != row.texts.zhHant) ++different;
  }
  EXPECT_GT(different, stringRows().size() / 2);
}

TEST(WidgetStringsTable, PaceVerdictsOfALanguageDiffer) {
  for (const std::string_view code : kLanguageCodes) {
    const std::set<std::string> verdicts{WidgetStrings::text("paceGood", code),
                                         WidgetStrings::text("paceWarning", code),
                                         WidgetStrings::text("paceCritical", code)};
    EXPECT_EQ(verdicts.size(), 3U) << code;
  }
}

TEST(WidgetStringsText, ComparisonNamesThePeriod) {
  EXPECT_EQ(WidgetStrings::comparisonWith("Feb", "en"), "vs Feb");
  EXPECT_EQ(WidgetStrings::comparisonWith("2月", "ja"), "2月比");
  EXPECT_EQ(WidgetStrings::comparisonWith("{period}", "de"), "ggü. {period}");
}

TEST(WidgetStringsText, PerDayUnit) {
  EXPECT_EQ(perDayUnit(std::nullopt), "/ day");
  EXPECT_EQ(perDayUnit("xx"), "/ day");
  EXPECT_EQ(perDayUnit("id"), "/ hari");
  EXPECT_EQ(perDayUnit("de"), WidgetStrings::text("perDay", "de"));
  EXPECT_EQ(perDayUnit("ja"), "/日");
  EXPECT_EQ(perDayUnit("ko"), "/일");
  EXPECT_EQ(perDayUnit("zh-Hans"), "/天");
  EXPECT_EQ(perDayUnit("zh-Hant"), "/天");
}

TEST(WidgetStringsText, IsolatesEncloseTheText) {
  EXPECT_EQ(isolatedAmount("$5"), "\xE2\x81\xA6$5\xE2\x81\xA9");
  EXPECT_EQ(isolatedName("Ali"),
            "\xE2\x81\xA8"
            "Ali\xE2\x81\xA9");
}

TEST(PreferredLanguageCode, FollowsTheDevicesList) {
  struct Row {
    std::vector<std::string> device;
    const char* code;
  };
  for (const Row& row : std::initializer_list<Row>{
           {{"zh-HK"}, "zh-Hant"},      {{"zh_TW"}, "zh-Hant"}, {{"zh-MO"}, "zh-Hant"},
           {{"zh-Hans-US"}, "zh-Hans"}, {{"zh"}, "zh-Hans"},    {{"zh-Hant-CN"}, "zh-Hant"},
           {{"zh-Hans-TW"}, "zh-Hant"}, {{"zh-hk"}, "zh-Hans"}, {{"pt-PT"}, "pt-BR"},
           {{"PT"}, "pt-BR"},           {{"in-ID"}, "id"},      {{"id_ID"}, "id"},
           {{"nl-NL", "de-AT"}, "de"},  {{"nl-NL"}, "en"},      {{}, "en"},
           {{"", "--", "ar-EG"}, "ar"}, {{"-es-419"}, "es"},    {{"en-GB", "fr-FR"}, "en"},
           {{"yue-Hant-HK"}, "en"},     {{"JA-JP"}, "ja"}}) {
    EXPECT_EQ(preferredLanguageCode(row.device), row.code)
        << (row.device.empty() ? "" : row.device.front());
  }
}

TEST(PreferredLanguageCode, SupportedCodesGiveThemselves) {
  for (const std::string_view code : kLanguageCodes) {
    EXPECT_EQ(preferredLanguageCode({std::string(code)}), code);
  }
}

TEST(LocaleFor, EveryLanguage) {
  const std::array<const char*, kLanguageCount> expected{"en_US",
                                                         "id_ID",
                                                         "es_ES",
                                                         "pt_BR",
                                                         "fr_FR",
                                                         "de_DE",
                                                         "ru_RU",
                                                         "ja_JP",
                                                         "ko_KR",
                                                         "zh_Hans_CN",
                                                         "zh_Hant_TW",
                                                         "hi_IN@numbers=latn",
                                                         "ar@numbers=latn"};
  for (std::size_t i = 0; i < kLanguageCount; ++i) {
    EXPECT_EQ(localeFor(kLanguageCodes[i]).identifier, expected[i]);
  }
}

TEST(LocaleFor, UnknownAndAbsentAreAmericanEnglish) {
  EXPECT_EQ(localeFor(std::nullopt).identifier, "en_US");
  EXPECT_EQ(localeFor("xx").identifier, "en_US");
  EXPECT_EQ(localeFor("pt").identifier, "en_US");
}

TEST(LayoutDirection, OnlyArabicRunsRightToLeft) {
  for (const std::string_view code : kLanguageCodes) {
    EXPECT_EQ(layoutDirection(code) == viewkit::LayoutDirection::rightToLeft, code == "ar");
  }
  EXPECT_EQ(layoutDirection(std::nullopt), viewkit::LayoutDirection::leftToRight);
}

TEST(CardCountText, EveryLanguage) {
  struct Row {
    std::int64_t count;
    const char* lang;
    const char* text;
  };
  for (const Row& row : std::initializer_list<Row>{
           {1, "en", "1 card"},       {0, "en", "0 cards"},      {1234, "xx", "1234 cards"},
           {1, "id", "1 kartu"},      {5, "id", "5 kartu"},      {1, "es", "1 tarjeta"},
           {0, "es", "0 tarjetas"},   {1, "pt-BR", "1 cartão"},  {2, "pt-BR", "2 cartões"},
           {1, "fr", "1 carte"},      {0, "fr", "0 cartes"},     {1, "de", "1 Karte"},
           {3, "de", "3 Karten"},     {1, "ru", "1 карта"},      {21, "ru", "21 карта"},
           {22, "ru", "22 карты"},    {4, "ru", "4 карты"},      {5, "ru", "5 карт"},
           {11, "ru", "11 карт"},     {12, "ru", "12 карт"},     {14, "ru", "14 карт"},
           {111, "ru", "111 карт"},   {112, "ru", "112 карт"},   {121, "ru", "121 карта"},
           {0, "ru", "0 карт"},       {3, "ja", "3枚のカード"},  {3, "ko", "카드 3개"},
           {3, "zh-Hans", "3张卡片"}, {3, "zh-Hant", "3張卡片"}, {1, "hi", "1 कार्ड"},
           {1, "ar", "بطاقة واحدة"},  {2, "ar", "بطاقتان"},      {3, "ar", "3 بطاقات"},
           {5, "ar", "5 بطاقات"},     {10, "ar", "10 بطاقات"},   {11, "ar", "11 بطاقة"},
           {0, "ar", "0 بطاقة"},      {100, "ar", "100 بطاقة"},  {103, "ar", "103 بطاقات"},
           {102, "ar", "102 بطاقة"},
       }) {
    EXPECT_EQ(cardCountText(row.count, row.lang), row.text);
  }
  EXPECT_EQ(cardCountText(2, std::nullopt), "2 cards");
}

}  // namespace
}  // namespace quorvel
