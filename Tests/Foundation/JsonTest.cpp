// Strict reading of records: form, types, presence, and where a problem is said to be.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "JsonReports.hpp"

namespace foundation {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::SizeIs;

TEST(JsonRecord, ReadsEveryKindOfMember) {
  const auto report = decodeJson<Report>(kReport);
  ASSERT_TRUE(report);
  EXPECT_EQ(report->writtenAt.seconds, 1741944600);
  EXPECT_TRUE(report->isFinal);
  EXPECT_EQ(report->title, "March");
  EXPECT_EQ(report->total, 15.99);
  EXPECT_EQ(report->rate, std::nullopt);
  EXPECT_THAT(report->daily, ElementsAre(1, 2.5, 0));
  EXPECT_THAT(report->figures, ElementsAre(Figure{"2025-03", 97260}));
  EXPECT_EQ(report->best, std::nullopt);
}

TEST(JsonRecord, ListsOfUnevenElementsAreWhole) {
  // The first elements are as good as nothing beside the others, and the other way round.
  for (const bool startsSmall : {true, false}) {
    std::string figures;
    for (int i = 0; i < 5000; ++i) {
      const bool isSmall = startsSmall == (i < 20);
      figures += (i == 0 ? "" : ",") +
                 (R"({"month":")" + std::string(isSmall ? 0 : 300, 'm') + R"(","value":)") +
                 std::to_string(i) + "}";
    }
    const auto report = decodeJson<Report>(
        with(std::string(kReport), R"({"month":"2025-03","value":97260})", figures));
    ASSERT_TRUE(report);
    ASSERT_THAT(report->figures, SizeIs(5000));
    for (int i = 0; i < 5000; ++i) EXPECT_EQ(report->figures[static_cast<std::size_t>(i)].value, i);
  }
}

TEST(JsonRecord, OrderOfKeysDoesNotMatter) {
  const auto report = decodeJson<Report>(
      R"({"figures":[],"daily":[],"total":3,"title":"x","isFinal":false,"writtenAt":"2025-03-14T09:30:00Z"})");
  ASSERT_TRUE(report);
  EXPECT_EQ(report->total, 3);
}

TEST(JsonRecord, NullOptionalIsAbsent) {
  const auto report = decodeJson<Report>(
      with(std::string(kReport), R"("daily")", R"("best":null,"rate":null,"daily")"));
  ASSERT_TRUE(report);
  EXPECT_EQ(report->best, std::nullopt);
  EXPECT_EQ(report->rate, std::nullopt);
}

TEST(JsonRecord, OptionalOfWrongTypeRejects) {
  EXPECT_FALSE(
      decodeJson<Report>(with(std::string(kReport), R"("daily")", R"("rate":"1","daily")")));
}

TEST(JsonRecord, UnknownKeysAreIgnoredAtEveryLevel) {
  const auto report = decodeJson<Report>(
      with(with(std::string(kReport), R"("daily")", R"("new":{"a":[1,{"b":null}]},"daily")"),
           R"("value")",
           R"("newer":[true,false,"x"],"value")"));
  EXPECT_EQ(report, decodeJson<Report>(kReport));
}

TEST(JsonRecord, FirstOfEqualKeysCounts) {
  EXPECT_EQ(decodeJson<Holder<std::string>>(R"({"v":"es","v":17})")->v, "es");
  EXPECT_FALSE(decodeJson<Holder<std::string>>(R"({"v":null,"v":"es"})"));
}

TEST(JsonRecord, LaterOfEqualKeysIsStillCheckedForForm) {
  EXPECT_FALSE(decodeJson<Holder<std::string>>(R"({"v":"es","v":01})"));
}

TEST(JsonRecord, KeysCompareAfterUnescapingAndByCase) {
  EXPECT_EQ(decodeJson<Holder<double>>(R"({"\u0076":3})")->v, 3);
  EXPECT_FALSE(decodeJson<Holder<double>>(R"({"V":3})"));
}

TEST(JsonRecord, LoneSurrogateInAKeyOfARecordRejects) {
  EXPECT_FALSE(decodeJson<Holder<double>>(R"({"\ud800":1,"v":3})"));
}

TEST(JsonRecord, RootMustBeAnObject) {
  for (const char* root : {"null", "[]", "12", "\"x\"", "true"}) {
    const auto problems = problemsOf(root);
    ASSERT_THAT(problems, SizeIs(1)) << root;
    EXPECT_EQ(problems[0].expected, "object");
    EXPECT_EQ(problems[0].pointer, "");
  }
}

TEST(JsonRecord, BooleanIsNeverANumberOrText) {
  EXPECT_EQ(readAs<bool>("true"), true);
  EXPECT_EQ(readAs<bool>("false"), false);
  for (const char* value : {"0", "1", "\"true\"", "null", "[]"}) EXPECT_FALSE(readAs<bool>(value));
}

TEST(JsonRecord, StringIsNeverANumberAndTheReverse) {
  EXPECT_FALSE(readAs<std::string>("12"));
  EXPECT_FALSE(readAs<double>("\"12\""));
}

TEST(JsonRecord, NullElementRejects) {
  EXPECT_FALSE(readAs<std::vector<double>>("[1,null]"));
}

TEST(JsonText, OneByteOrderMarkIsDropped) {
  EXPECT_EQ(decodeJson<Holder<double>>("\xEF\xBB\xBF{\"v\":1}")->v, 1);
  EXPECT_FALSE(decodeJson<Holder<double>>("\xEF\xBB\xBF\xEF\xBB\xBF{\"v\":1}"));
}

TEST(JsonText, Utf16AndUtf32AreRejected) {
  EXPECT_FALSE(decodeJson<Holder<double>>("\xFF\xFE{\0\"\0v\0\"\0:\0001\0}\0"s));
  EXPECT_FALSE(decodeJson<Holder<double>>("\0{\0\"\0v\0\"\0:\0001\0}"s));
  EXPECT_FALSE(decodeJson<Holder<double>>("{\0\0\0\"\0\0\0"s));
}

TEST(JsonText, WhiteSpaceIsSpaceTabAndLineEndsOnly) {
  EXPECT_EQ(decodeJson<Holder<double>>(" \t\r\n{ \t\r\n\"v\" \t\r\n: \t\r\n1 \t\r\n} \t\r\n")->v,
            1);
  EXPECT_FALSE(decodeJson<Holder<double>>("{\f\"v\":1}"));
  EXPECT_FALSE(decodeJson<Holder<double>>("{\xC2\xA0\"v\":1}"));
}

TEST(JsonText, EmptyAndBlankTextsReject) {
  EXPECT_FALSE(decodeJson<Holder<double>>(""));
  EXPECT_FALSE(decodeJson<Holder<double>>(" \n "));
}

TEST(JsonText, NothingFollowsTheRoot) {
  for (const std::string& tail : {"\0"s, "{}"s, "x"s, ","s, "}"s, "\xFF"s}) {
    EXPECT_FALSE(decodeJson<Holder<double>>("{\"v\":1}" + tail)) << tail;
  }
}

TEST(JsonText, CommasStandBetweenOnly) {
  for (const char* value :
       {"[1,]", "[,]", "[,1]", "[1,,2]", "[1 2]", "{\"a\":1,}", "{,}", "{\"a\":1 \"b\":2}"}) {
    EXPECT_FALSE(isWellFormed(value)) << value;
  }
  EXPECT_FALSE(readAs<std::vector<double>>("[1,]"));
  EXPECT_FALSE(decodeJson<Holder<double>>("{\"v\":1,}"));
}

TEST(JsonText, OtherNotationsReject) {
  for (const char* value :
       {"'a'",     "/**/1",    "1//",       "NaN",       "Infinity", "-Infinity", "True",
        "nul",     "nulL",     "truefalse", "undefined", "{a:1}",    "{'a':1}",   "{1:1}",
        "{\"a\"}", "{\"a\":}", "[",         "{",         "\"",       "[1}",       "{\"a\":1]"}) {
    EXPECT_FALSE(isWellFormed(value)) << value;
  }
}

TEST(JsonDepth, FiveHundredAndTwelveLevelsAreRead) {
  EXPECT_TRUE(isWellFormed(nested(511)));  // the record is one level
  EXPECT_FALSE(isWellFormed(nested(512)));
}

TEST(JsonDepth, HundredThousandLevelsReject) {
  EXPECT_FALSE(isWellFormed(nested(100'000)));
  EXPECT_FALSE(isWellFormed(std::string(100'000, '[')));
  std::string objects;
  for (int i = 0; i < 100'000; ++i) objects += "{\"a\":";
  EXPECT_FALSE(isWellFormed(objects));
}

TEST(JsonDepth, ClosedLevelsDoNotCount) {
  std::string siblings = "[";
  for (int i = 0; i < 2000; ++i) siblings += "[],{},";
  EXPECT_TRUE(isWellFormed(siblings + "1]"));
}

TEST(JsonEncoding, LeavesAbsentOptionalsOut) {
  EXPECT_EQ(encodeJson(*decodeJson<Report>(kReport)), kReport);
}

TEST(JsonEncoding, RoundTripsEveryMember) {
  const Report report{.writtenAt = {1741944600},
                      .isFinal = false,
                      .title = "a\"\\/\n\x01é\U0001F600",
                      .total = 0.1 + 0.2,
                      .rate = -0.0,
                      .daily = {1e300, 5e-324, 1.0 / 3},
                      .figures = {{"", 1}, {"2025-01", -2}},
                      .best = Figure{"x", 3},
                      .tags = std::vector<std::string>{"a", ""}};
  const auto decoded = decodeJson<Report>(encodeJson(report));
  ASSERT_TRUE(decoded);
  EXPECT_EQ(*decoded, report);
  EXPECT_TRUE(std::signbit(*decoded->rate));
}

}  // namespace
}  // namespace foundation
