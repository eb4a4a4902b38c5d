// What the document's keys mean, which must be there, and what rejects it.
#include <gtest/gtest.h>

#include <ostream>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "SnapshotFixtures.hpp"

namespace quorvel {
namespace {

using nlohmann::json;
using testsupport::fullDocument;
using testsupport::minimalDocument;

bool accepts(const json& document) {
  return decodeWidgetSnapshot(document.dump()).has_value();
}

WidgetSnapshot decoded(const json& document) {
  auto snapshot = decodeWidgetSnapshot(document.dump());
  EXPECT_TRUE(snapshot) << (snapshot ? "" : snapshot.error().problems.front().pointer);
  return snapshot.value_or(WidgetSnapshot{});
}

TEST(SnapshotFormat, OnlyTheRequiredKeysDecode) {
  const WidgetSnapshot snapshot = decoded(minimalDocument());
  EXPECT_EQ(snapshot.generatedAt.seconds, 1741944600);  // date -u -d 2025-03-14T09:30:00Z +%s
  EXPECT_FALSE(snapshot.isHidden);
  EXPECT_EQ(snapshot.lang, "es");
  EXPECT_EQ(snapshot.money, (WidgetMoneyStyle{"$", true, std::nullopt}));
  EXPECT_TRUE(snapshot.dues.empty());
  EXPECT_TRUE(snapshot.cards.empty());
  EXPECT_EQ(snapshot.totalLimit, 30000);
  EXPECT_EQ(snapshot.totalRemaining, 25730);
  EXPECT_FALSE(snapshot.budget);
  EXPECT_FALSE(snapshot.spending);
  EXPECT_FALSE(snapshot.netWorth);
  EXPECT_FALSE(snapshot.accent);
}

TEST(SnapshotFormat, EveryKeyLandsInTheFieldOfItsName) {
  const WidgetSnapshot snapshot = decoded(fullDocument());
  EXPECT_TRUE(snapshot.isHidden);
  EXPECT_EQ(snapshot.money, (WidgetMoneyStyle{"R$", false, 5.25}));
  const WidgetSnapshot::Due due{"d1",
                                "Netflix",
                                15.99,
                                "2025-03-20",
                                "bill",
                                "a",
                                {{"#EA353E", "#670409"}},
                                "Premium",
                                "netflix",
                                "tv"};
  EXPECT_EQ(snapshot.dues, std::vector{due});
  EXPECT_EQ(snapshot.budget, (WidgetSnapshot::Budget{3000, 1834.5, "2025-03-31", "2025-03-01"}));
  const WidgetSnapshot::Card card{
      "a", "Northbank", "Everyday", "8478", 10000, 8320, {"#315792", "#20375D"}, true};
  EXPECT_EQ(snapshot.cards, std::vector{card});
  const WidgetSnapshot::Spending spending{"2025-03",
                                          1834.5,
                                          1950,
                                          "Comida",
                                          612,
                                          {100, 0.5, 42},
                                          "fork.knife",
                                          WidgetSnapshot::Shade{"#EDA100", "#C98500"},
                                          {{{"2025-02", {1, 2}}}}};
  EXPECT_EQ(snapshot.spending, spending);
  const WidgetSnapshot::NetWorth netWorth{
      97260, 5.5, 121840, 24580, {{"2025-02", 92190}, {"2025-03", 97260}}, 51240, 70600};
  EXPECT_EQ(snapshot.netWorth, netWorth);
  const WidgetSnapshot::Accent accent{
      {"#6B1F3A", "#B4416A"}, {"#6B1F3B", "#B4416B"}, {"#FF0000", "#00FF00"}};
  EXPECT_EQ(snapshot.accent, accent);
}

TEST(SnapshotFormat, EmptyDuesAndCardsAreEmptyArrays) {
  EXPECT_TRUE(decoded(minimalDocument()).dues.empty());
  EXPECT_TRUE(decoded(minimalDocument()).cards.empty());
}

TEST(SnapshotFormat, MissingDuesReject) {
  json document = minimalDocument();
  document.erase("dues");
  EXPECT_FALSE(accepts(document));
}

TEST(SnapshotFormat, NullBudgetIsAnAbsentBudget) {
  json document = fullDocument();
  document["budget"] = nullptr;
  EXPECT_FALSE(decoded(document).budget);
}

TEST(SnapshotFormat, AccentWithOnlyFillAndInkRejects) {
  json document = fullDocument();
  document["accent"].erase("heat");
  EXPECT_FALSE(accepts(document));
}

TEST(SnapshotFormat, HeatAsAnArrayOfColoursRejects) {
  json document = fullDocument();
  document["accent"]["heat"] = {"#111111", "#222222", "#333333", "#444444"};
  EXPECT_FALSE(accepts(document));
}

TEST(SnapshotFormat, AnyLanguageCodeDecodes) {
  for (const char* code : {"pt", "pt-BR", "", "xx", "EN"}) {
    json document = minimalDocument();
    document["lang"] = code;
    EXPECT_EQ(decoded(document).lang, code);
  }
}

TEST(SnapshotFormat, DateWithoutTimeRejects) {
  json document = minimalDocument();
  document["generatedAt"] = "2025-03-14";
  EXPECT_FALSE(accepts(document));
}

TEST(SnapshotFormat, TimestampFormsThatReject) {
  for (const char* text : {"",
                           "2025-03-14T09:30:00",
                           "2025-03-14T09:30:00.5Z",
                           "2025-03-14 09:30:00Z",
                           "2025-02-30T09:30:00Z",
                           "2025-03-14T24:00:00Z",
                           "2025-03-14T09:30:00Z ",
                           "1741944600"}) {
    json document = minimalDocument();
    document["generatedAt"] = text;
    EXPECT_FALSE(accepts(document)) << text;
  }
  json document = minimalDocument();
  document["generatedAt"] = 1741944600;
  EXPECT_FALSE(accepts(document));
}

TEST(SnapshotFormat, TimestampWithOffsetIsTheSameInstant) {
  for (const char* text : {"2025-03-14T16:30:00+07:00", "2025-03-14T06:00:00-0330"}) {
    json document = minimalDocument();
    document["generatedAt"] = text;
    EXPECT_EQ(decoded(document).generatedAt.seconds, 1741944600) << text;
  }
}

TEST(SnapshotFormat, CardWithoutLast4Decodes) {
  json document = fullDocument();
  document["cards"][0].erase("last4");
  EXPECT_FALSE(decoded(document).cards.front().last4);
}

TEST(SnapshotFormat, CardWithoutGradientRejects) {
  json document = fullDocument();
  document["cards"][0].erase("gradient");
  EXPECT_FALSE(accepts(document));
}

TEST(SnapshotFormat, MalformedDaysMonthsAndColoursDecode) {
  json document = fullDocument();
  document["dues"][0]["dueDate"] = "soon";
  document["budget"]["periodEnd"] = "";
  document["spending"]["month"] = "March";
  document["cards"][0]["gradient"] = {"red", ""};
  document["accent"]["fill"]["dark"] = "#GG0000";
  const WidgetSnapshot snapshot = decoded(document);
  EXPECT_EQ(snapshot.dues.front().dueDate, "soon");
  EXPECT_EQ(snapshot.spending->month, "March");
}

TEST(SnapshotFormat, UnknownKeysAreIgnoredEverywhere) {
  json document = fullDocument();
  document["newer"] = {{"deep", {1, 2, {{"deeper", nullptr}}}}};
  document["dues"][0]["paid"] = true;
  document["spending"]["earlier"][0]["note"] = "x";
  document["accent"]["heat"]["mid"] = "#123456";
  EXPECT_EQ(decoded(document), decoded(fullDocument()));
}

TEST(SnapshotFormat, KeysAreMatchedExactly) {
  json document = minimalDocument();
  document["IsHidden"] = document["isHidden"];
  document.erase("isHidden");
  EXPECT_FALSE(accepts(document));
}

// Each key of each record by its presence: without it, and with null, the document is rejected or
// the field absent.
struct Key {
  const char* record;  // where the record stands in the full document
  const char* name;
  bool required;
};
void PrintTo(const Key& key, std::ostream* out) {
  *out << key.record << " " << key.name;
}

constexpr Key kKeys[] = {
    {"", "generatedAt", true},
    {"", "isHidden", true},
    {"", "lang", true},
    {"", "money", true},
    {"", "dues", true},
    {"", "budget", false},
    {"", "cards", true},
    {"", "totalLimit", true},
    {"", "totalRemaining", true},
    {"", "spending", false},
    {"", "netWorth", false},
    {"", "accent", false},
    {"/money", "symbol", true},
    {"/money", "showDecimals", true},
    {"/money", "conversionRate", false},
    {"/dues/0", "id", true},
    {"/dues/0", "name", true},
    {"/dues/0", "amount", true},
    {"/dues/0", "dueDate", true},
    {"/dues/0", "kind", true},
    {"/dues/0", "cardId", false},
    {"/dues/0", "face", false},
    {"/dues/0", "subtitle", false},
    {"/dues/0", "brandId", false},
    {"/dues/0", "symbol", false},
    {"/cards/0", "id", true},
    {"/cards/0", "bankName", true},
    {"/cards/0", "productName", true},
    {"/cards/0", "last4", false},
    {"/cards/0", "limit", true},
    {"/cards/0", "remaining", true},
    {"/cards/0", "gradient", true},
    {"/cards/0", "hasImage", true},
    {"/budget", "total", true},
    {"/budget", "spent", true},
    {"/budget", "periodEnd", true},
    {"/budget", "periodStart", false},
    {"/spending", "month", true},
    {"/spending", "spent", true},
    {"/spending", "lastMonthSpent", true},
    {"/spending", "topCategory", false},
    {"/spending", "topCategoryAmount", true},
    {"/spending", "daily", true},
    {"/spending", "topCategoryIcon", false},
    {"/spending", "topCategoryColor", false},
    {"/spending", "earlier", false},
    {"/spending/topCategoryColor", "light", true},
    {"/spending/topCategoryColor", "dark", true},
    {"/spending/earlier/0", "month", true},
    {"/spending/earlier/0", "daily", true},
    {"/netWorth", "value", true},
    {"/netWorth", "changePercent", false},
    {"/netWorth", "assets", true},
    {"/netWorth", "liabilities", true},
    {"/netWorth", "history", true},
    {"/netWorth", "liquid", false},
    {"/netWorth", "nonLiquid", false},
    {"/netWorth/history/0", "month", true},
    {"/netWorth/history/0", "value", true},
    {"/accent", "fill", true},
    {"/accent", "ink", true},
    {"/accent", "heat", true},
    {"/accent/fill", "light", true},
    {"/accent/fill", "dark", true},
    {"/accent/ink", "light", true},
    {"/accent/ink", "dark", true},
    {"/accent/heat", "light", true},
    {"/accent/heat", "dark", true},
};

class SnapshotFormatKey : public testing::TestWithParam<Key> {
 protected:
  /// The full document and the record that holds the key.
  json document = fullDocument();
  json& record = document.at(json::json_pointer(GetParam().record));
};

TEST_P(SnapshotFormatKey, MissingRejectsOnlyWhenRequired) {
  record.erase(GetParam().name);
  EXPECT_EQ(accepts(document), !GetParam().required);
}

TEST_P(SnapshotFormatKey, NullRejectsOnlyWhenRequired) {
  record[GetParam().name] = nullptr;
  EXPECT_EQ(accepts(document), !GetParam().required);
}

TEST_P(SnapshotFormatKey, WrongTypeRejects) {
  json& value = record[GetParam().name];
  for (const json& other : {json(17), json("text"), json(true), json::array(), json::object()}) {
    if (other.type() == value.type() || (other.is_number() && value.is_number())) continue;
    json& slot = record[GetParam().name];
    const json kept = slot;
    slot = other;
    EXPECT_FALSE(accepts(document)) << other;
    slot = kept;
  }
}

INSTANTIATE_TEST_SUITE_P(
    EveryKey, SnapshotFormatKey, testing::ValuesIn(kKeys), [](const auto& test) {
      std::string name = std::string(test.param.record) + "_" + test.param.name;
      for (char& c : name) {
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
      }
      return name;
    });

TEST(SnapshotFormat, NullOrIllTypedElementsReject) {
  for (const char* where : {"/dues/0",
                            "/cards/0",
                            "/cards/0/gradient/0",
                            "/dues/0/face/0",
                            "/spending/daily/0",
                            "/spending/earlier/0",
                            "/netWorth/history/0"}) {
    for (const json& element : {json(nullptr), json(true)}) {
      json document = fullDocument();
      document[json::json_pointer(where)] = element;
      EXPECT_FALSE(accepts(document)) << where;
    }
  }
}

TEST(SnapshotFormat, AmountsReadAsTheNearestDouble) {
  const std::string text = minimalDocument().dump();
  const auto withLimit = [&](std::string_view number) {
    std::string document = text;
    document.replace(document.find("30000"), 5, number);
    return decodeWidgetSnapshot(document);
  };
  EXPECT_EQ(withLimit("9007199254740993")->totalLimit, 9007199254740992.0);
  EXPECT_EQ(withLimit("15.99")->totalLimit, 15.99);
  EXPECT_EQ(withLimit("-1.5e3")->totalLimit, -1500.0);
  EXPECT_EQ(withLimit("1e-400")->totalLimit, 0.0);
  EXPECT_FALSE(withLimit("1e309"));
  EXPECT_FALSE(withLimit("NaN"));
  EXPECT_FALSE(withLimit("012"));
}

TEST(SnapshotFormat, FailureSaysWhereAndWhat) {
  json document = fullDocument();
  document["cards"][0]["limit"] = "much";
  const auto snapshot = decodeWidgetSnapshot(document.dump());
  ASSERT_FALSE(snapshot);
  ASSERT_EQ(snapshot.error().problems.size(), 1U);
  EXPECT_EQ(snapshot.error().problems.front().pointer, "/cards/0/limit");
}

TEST(SnapshotFormat, EncodingWritesTheSameKeysAndLeavesAbsentOnesOut) {
  for (const json& document : {minimalDocument(), fullDocument()}) {
    EXPECT_EQ(json::parse(encodeWidgetSnapshot(decoded(document))), document);
  }
}

TEST(SnapshotFormat, EncodedSnapshotDecodesToAnEqualOne) {
  const WidgetSnapshot snapshot = decoded(fullDocument());
  EXPECT_EQ(decodeWidgetSnapshot(encodeWidgetSnapshot(snapshot)), snapshot);
  WidgetSnapshot other = snapshot;
  other.netWorth->history.back().value += 1;
  EXPECT_NE(other, snapshot);
}

}  // namespace
}  // namespace quorvel
