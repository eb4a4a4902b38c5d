// Strict reading of records: form, types, presence, and where a problem is said to be.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "Foundation/Json.hpp"
#include "Foundation/JsonProblemCount.hpp"
#include "JsonRecords.hpp"

namespace foundation {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

constexpr std::string_view kReport =
    R"({"writtenAt":"2025-03-14T09:30:00Z","isFinal":true,"title":"March","total":15.99,)"
    R"("daily":[1,2.5,0],"figures":[{"month":"2025-03","value":97260}]})";

template <class T>
std::optional<T> readAs(const std::string& json) {
  auto decoded = decodeJson<Holder<T>>("{\"v\":" + json + "}");
  if (!decoded) return std::nullopt;
  return decoded->v;
}

/// Whether an ignored key may hold it.
bool isWellFormed(const std::string& json) {
  return decodeJson<Holder<double>>("{\"x\":" + json + ",\"v\":1}").has_value();
}

std::vector<JsonProblem> problemsOf(std::string_view document) {
  auto decoded = decodeJson<Report>(document);
  return decoded ? std::vector<JsonProblem>() : decoded.error().problems;
}

std::string with(std::string document, std::string_view from, std::string_view to) {
  const std::size_t at = document.find(from);
  EXPECT_NE(at, std::string::npos);
  return document.replace(at, from.size(), to);
}

std::string nested(std::size_t levels) {
  return std::string(levels, '[') + std::string(levels, ']');
}

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

TEST(JsonNumber, GrammarHoldsEverywhere) {
  for (const char* value : {"+1",
                            ".5",
                            "1.",
                            "01",
                            "-01",
                            "00",
                            "1e",
                            "1e+",
                            "-",
                            "--1",
                            "1.2.3",
                            "1-2",
                            "0x10",
                            "1_0",
                            "1.e3",
                            "-.5",
                            "1E-"}) {
    EXPECT_FALSE(readAs<double>(value)) << value;
    EXPECT_FALSE(isWellFormed(value)) << value;
  }
}

TEST(JsonNumber, ReadsTheNearestDouble) {
  EXPECT_EQ(readAs<double>("0"), 0);
  EXPECT_EQ(readAs<double>("-12.5"), -12.5);
  EXPECT_EQ(readAs<double>("1e3"), 1000);
  EXPECT_EQ(readAs<double>("1E+3"), 1000);
  EXPECT_EQ(readAs<double>("25e-1"), 2.5);
  EXPECT_EQ(readAs<double>("0.1"), 0.1);
  EXPECT_EQ(readAs<double>("9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(readAs<double>("1.00000000000000011102230246251565404236316680908203125"), 1.0);
  EXPECT_EQ(readAs<double>("1.00000000000000011102230246251565404236316680908203126"),
            std::nextafter(1.0, 2.0));
  EXPECT_EQ(readAs<double>("5e-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(readAs<double>("1.7976931348623157e308"), std::numeric_limits<double>::max());
}

TEST(JsonNumber, IntegersOfAnyLengthAreRounded) {
  EXPECT_EQ(readAs<double>("18446744073709551616"), 0x1p64);
  EXPECT_EQ(readAs<double>("1" + std::string(300, '0')), 1e300);
  EXPECT_EQ(readAs<double>("0.000000000000000000000000000001"), 1e-30);
}

TEST(JsonNumber, AListMixesAllNotations) {
  EXPECT_THAT(
      readAs<std::vector<double>>("[ 1 ,-2.5,\n1e3, 12345678901234567, 0.1 ,-0, 999999999999999]"),
      testing::Optional(
          ElementsAre(1, -2.5, 1000, 12345678901234567.0, 0.1, 0, 999999999999999.0)));
  EXPECT_THAT(readAs<std::vector<double>>("[ ]"), testing::Optional(testing::IsEmpty()));
}

TEST(JsonNumber, AProblemInAListIsPlaced) {
  const auto problems =
      problemsOf(with(std::string(kReport), "[1,2.5,0]", "[1,\"x\",1e400,2, 01]"));
  ASSERT_THAT(problems, SizeIs(3));
  EXPECT_EQ(problems[0].pointer, "/daily/1");
  EXPECT_EQ(problems[0].found, "string");
  EXPECT_EQ(problems[1].pointer, "/daily/2");
  EXPECT_EQ(problems[1].found, "number too large");
  EXPECT_EQ(problems[2].pointer, "/daily/4");
  EXPECT_EQ(problems[2].expected, "no digit after a leading zero");
}

TEST(JsonNumber, MinusZeroKeepsItsSign) {
  EXPECT_TRUE(std::signbit(readAs<double>("-0").value()));
  EXPECT_TRUE(std::signbit(readAs<double>("-0.0e5").value()));
  EXPECT_FALSE(std::signbit(readAs<double>("0").value()));
}

TEST(JsonNumber, OverflowRejectsWhereItIsRead) {
  for (const char* value :
       {"1e309", "-1e309", "1.7976931348623159e308", "1e99999999999999999999"}) {
    EXPECT_FALSE(readAs<double>(value)) << value;
    EXPECT_TRUE(isWellFormed(value)) << value;
  }
  EXPECT_FALSE(readAs<double>("1" + std::string(400, '0')));
}

TEST(JsonNumber, UnderflowGivesZero) {
  EXPECT_EQ(readAs<double>("1e-400"), 0);
  EXPECT_TRUE(std::signbit(readAs<double>("-1e-400").value()));
  EXPECT_EQ(readAs<double>("1e-99999999999999999999"), 0);
  EXPECT_EQ(readAs<double>("0e999"), 0);
  EXPECT_EQ(readAs<double>("0." + std::string(400, '0') + "1"), 0);
}

TEST(JsonString, EscapesAreRead) {
  EXPECT_EQ(readAs<std::string>(R"("\"\\\/\b\f\n\r\t")"), "\"\\/\b\f\n\r\t");
  EXPECT_EQ(readAs<std::string>(R"("\u00e9\u00E9\u20ac")"), "éé€");
  EXPECT_EQ(readAs<std::string>(R"("\ud83d\ude00")"), "\U0001F600");
  EXPECT_EQ(readAs<std::string>(R"("a\u0000b")"), "a\0b"s);
  EXPECT_EQ(readAs<std::string>("\"\x7F\""), "\x7F");
}

TEST(JsonString, LongPlainTextAndEscapesAtEveryPosition) {
  for (std::size_t length = 0; length < 24; ++length) {
    const std::string plain(length, 'a');
    EXPECT_EQ(readAs<std::string>("\"" + plain + "\""), plain);
    EXPECT_EQ(readAs<std::string>("\"" + plain + "\\n" + plain + "\""), plain + "\n" + plain);
    EXPECT_FALSE(readAs<std::string>("\"" + plain + "\x1F" + plain + "\"")) << length;
  }
}

TEST(JsonString, LoneSurrogatesRejectWhereTheyAreRead) {
  for (const char* value : {R"("\ud800")",
                            R"("\udc00")",
                            R"("\udc00\ud800")",
                            R"("\ud800\ud800")",
                            R"("\ud800x")",
                            R"("\ud800\n")"}) {
    EXPECT_FALSE(readAs<std::string>(value)) << value;
    EXPECT_TRUE(isWellFormed(value)) << value;
  }
}

TEST(JsonString, HighSurrogateBeforeAPairRejectsOnlyOnce) {
  const auto decoded = decodeJson<Holder<std::string>>(R"({"v":"\ud800\ud83d\ude00"})");
  ASSERT_FALSE(decoded);
  EXPECT_THAT(decoded.error().problems, SizeIs(1));
}

TEST(JsonString, OtherEscapesReject) {
  for (const char* value : {R"("\x41")",
                            R"("\'")",
                            R"("\u12")",
                            R"("\u12g4")",
                            R"("\u+123")",
                            R"("\U0041")",
                            R"("\)"}) {
    EXPECT_FALSE(readAs<std::string>(value)) << value;
    EXPECT_FALSE(isWellFormed(value)) << value;
  }
}

TEST(JsonString, RawControlCharactersRejectAnywhere) {
  for (char c = 0; c < 0x20; ++c) {
    const std::string value = "\"a"s + c + "b\"";
    EXPECT_FALSE(readAs<std::string>(value));
    EXPECT_FALSE(isWellFormed(value));
  }
}

TEST(JsonString, BadUtf8RejectsAnywhere) {
  for (const std::string& bytes : {"\xFF"s,
                                   "\x80"s,
                                   "\xC0\xAF"s,
                                   "\xED\xA0\x80"s,
                                   "\xF5\x80\x80\x80"s,
                                   "\xE2\x82"s,
                                   "\xF0\x9F\x98"s}) {
    EXPECT_FALSE(readAs<std::string>("\"" + bytes + "\""));
    EXPECT_FALSE(isWellFormed("\"" + bytes + "\""));
    EXPECT_FALSE(isWellFormed("{\"" + bytes + "\":1}"));
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

TEST(JsonProblems, MissingKeyNamesItAndItsObject) {
  const auto problems = problemsOf(with(std::string(kReport), R"("month":"2025-03",)", ""));
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_EQ(problems[0].pointer, "/figures/0/month");
  EXPECT_EQ(problems[0].expected, "required key");
  EXPECT_EQ(problems[0].found, "missing");
}

TEST(JsonProblems, LineAndColumnCountFromOneInBytes) {
  const auto problems = problemsOf("{\n \"title\": \"é\", \"total\": null}");
  const auto total = std::ranges::find(problems, "/total", &JsonProblem::pointer);
  ASSERT_NE(total, problems.end());
  EXPECT_EQ(*total, (JsonProblem{"/total", 2, 26, "number", "null"}));
}

TEST(JsonProblems, ByteOrderMarkTakesNoColumn) {
  const auto problems = problemsOf("\xEF\xBB\xBF[]");
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_EQ(problems[0].column, 1);
}

TEST(JsonProblems, AllProblemsOfTypeAreToldAtOnceInDocumentOrder) {
  const auto problems = problemsOf(
      R"({"writtenAt":"2025-03-14","isFinal":1,"title":{},"total":[],"daily":[1,"2"],"figures":"x"})");
  std::vector<std::string> told;
  for (const JsonProblem& p : problems)
    told.push_back(p.pointer + " " + p.expected + " " + p.found);
  EXPECT_THAT(told,
              ElementsAre("/writtenAt date-time like 2025-03-14T09:30:00Z string",
                          "/isFinal boolean number",
                          "/title string object",
                          "/total number array",
                          "/daily/1 number string",
                          "/figures array string"));
}

TEST(JsonProblems, MalformedTextStopsAfterEarlierProblems) {
  const auto problems = problemsOf(R"({"isFinal":1,"title":tru,"total":"x"})");
  ASSERT_THAT(problems, SizeIs(2));
  EXPECT_EQ(problems[0].pointer, "/isFinal");
  EXPECT_EQ(problems[1].pointer, "/title");
}

TEST(JsonProblems, EndOfDocumentIsFound) {
  const auto problems = problemsOf(R"({"title":"x")");
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_EQ(problems[0], (JsonProblem{"", 1, 13, "comma or end of object", "end of document"}));
}

TEST(JsonProblems, TextAfterTheRootIsFound) {
  const auto problems = problemsOf(std::string(kReport) + "\n}");
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_EQ(problems[0], (JsonProblem{"", 2, 1, "end of document", "'}'"}));
}

TEST(JsonProblems, BadUtf8IsLocated) {
  const auto problems = problemsOf("{\"title\":\"ab\xFF\"}");
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_EQ(problems[0], (JsonProblem{"/title", 1, 13, "UTF-8", "byte 0xFF"}));
}

TEST(JsonProblems, BadUtf8AfterTheRootIsLocated) {
  const auto problems = problemsOf(std::string(kReport) + "\x80");
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_EQ(problems[0].expected, "UTF-8");
}

TEST(JsonProblems, SyntaxBeforeBadUtf8IsToldFirst) {
  const auto problems = problemsOf("{\"title\" \"\xFF\"}");
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_EQ(problems[0].expected, "colon");
}

TEST(JsonProblems, RawControlCharacterIsLocated) {
  const auto problems = problemsOf("{\"title\":\"a\nb\"}");
  ASSERT_THAT(problems, SizeIs(1));
  EXPECT_EQ(problems[0], (JsonProblem{"/title", 1, 12, "escaped control character", "byte 0x0A"}));
}

TEST(JsonProblems, PointersEscapeTildeAndSlash) {
  const auto decoded = decodeJson<Holder<double>>(R"({"a~b/c":tru,"v":1})");
  ASSERT_FALSE(decoded);
  EXPECT_EQ(decoded.error().problems[0].pointer, "/a~0b~1c");
}

TEST(JsonProblems, NoValueIsQuoted) {
  for (const char* total :
       {"\"7391.42\"", "7391.42.1", "7391.42e", "07391.42", "1e7391", "[7391.42]"}) {
    const auto problems = problemsOf(with(std::string(kReport), "15.99", total));
    ASSERT_THAT(problems, Not(testing::IsEmpty())) << total;
    for (const JsonProblem& problem : problems) {
      EXPECT_THAT(problem.found, Not(testing::ContainsRegex("[0-9]"))) << total;
    }
  }
}

TEST(JsonProblems, AreAHundredAtMostAndTheRestIsCounted) {
  std::string values = "[null";
  for (int i = 0; i < 5000; ++i) values += ",null";
  const auto decoded = decodeJson<Holder<std::vector<double>>>("{\"v\":" + values + "]}");
  ASSERT_FALSE(decoded);
  EXPECT_THAT(decoded.error().problems, SizeIs(100));
  EXPECT_EQ(countJsonProblems<Holder<std::vector<double>>>("{\"v\":" + values + "]}"), 5001U);
}

TEST(JsonProblems, PointersAreCutBetweenCharacters) {
  const auto pointerOf = [](const std::string& key) {
    const auto decoded =
        decodeJson<Holder<std::vector<double>>>(R"({"v":[],")" + key + R"(\ud800":1})");
    return decoded ? std::string() : decoded.error().problems[0].pointer;
  };
  // 512 bytes at most, the last three an ellipsis. Behind slash and letter there is room for 507,
  // which is 253 letters of two bytes and half a one.
  std::string accents;
  for (int i = 0; i < 100'000; ++i) accents += "é";
  EXPECT_EQ(pointerOf("a" + accents), "/a" + accents.substr(0, 506) + "…");
  EXPECT_EQ(pointerOf(std::string(508, 'k')), "/" + std::string(508, 'k') + "\uFFFD");
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
