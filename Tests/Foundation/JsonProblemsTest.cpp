// What is wrong with a document and where it is said to be.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Foundation/JsonProblemCount.hpp"
#include "JsonReports.hpp"

namespace foundation {
namespace {

using testing::ElementsAre;
using testing::Not;
using testing::SizeIs;

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

}  // namespace
}  // namespace foundation
