// The document object model: reading, bounds, writing.
#include <gtest/gtest.h>

#include "Foundation/JsonValue.hpp"

namespace foundation {
namespace {

std::string rewritten(std::string_view text) {
  const auto value = parseJson(text);
  if (!value) return "problem";
  JsonWriter writer;
  value->write(writer);
  return writer.take();
}

TEST(JsonValue, AnyValueMayBeTheRoot) {
  EXPECT_TRUE(parseJson("null")->isNull());
  EXPECT_EQ(*parseJson(" true ")->boolean(), true);
  EXPECT_EQ(*parseJson("false")->boolean(), false);
  EXPECT_EQ(*parseJson("-1.5")->number(), -1.5);
  EXPECT_EQ(*parseJson("\"a\\u00e9\"")->string(), "aé");
  EXPECT_TRUE(parseJson("[]")->array()->empty());
  EXPECT_TRUE(parseJson("{}")->object()->empty());
}

TEST(JsonValue, AccessorsAnswerNullForOtherTypes) {
  const JsonValue value{1.0};
  EXPECT_EQ(value.boolean(), nullptr);
  EXPECT_EQ(value.string(), nullptr);
  EXPECT_EQ(value.array(), nullptr);
  EXPECT_EQ(value.object(), nullptr);
  EXPECT_EQ(value.member("a"), nullptr);
}

TEST(JsonValue, MembersKeepTheirOrderAndTheFirstOfEqualKeysCounts) {
  const auto value = parseJson(R"({"b":1,"a":2,"b":3})");
  ASSERT_TRUE(value);
  EXPECT_EQ(*value->member("b")->number(), 1);
  EXPECT_EQ(value->member("c"), nullptr);
  EXPECT_EQ(value->object()->size(), 3U);
}

TEST(JsonValue, WritesWhatItRead) {
  constexpr std::string_view kText =
      R"({"a":[1,2.5,{"b":null}],"c":"\n","d":true,"e":false,"f":{}})";
  EXPECT_EQ(rewritten(kText), kText);
}

TEST(JsonValue, MalformedTextSaysWhere) {
  const auto value = parseJson("{\"a\":[1,\n  x]}");
  ASSERT_FALSE(value);
  EXPECT_EQ(value.error(), (JsonProblem{"/a/1", 2, 3, "value", "'x'"}));
}

TEST(JsonValue, ValuesThatCannotBeHeldAreProblems) {
  EXPECT_FALSE(parseJson("[1e309]"));
  EXPECT_FALSE(parseJson(R"(["\ud800"])"));
}

TEST(JsonValue, DepthIsBounded) {
  EXPECT_TRUE(parseJson("[[[]]]", 3));
  EXPECT_FALSE(parseJson("[[[[]]]]", 3));
  EXPECT_TRUE(parseJson("1", 0));
  EXPECT_FALSE(parseJson("[]", 0));
}

TEST(JsonValue, DepthNeverExceedsTheDocumentsOwn) {
  EXPECT_FALSE(parseJson(std::string(100'000, '['), 1'000'000));
  EXPECT_FALSE(parseJson(std::string(513, '[') + std::string(513, ']'), 1'000'000));
  EXPECT_TRUE(parseJson(std::string(512, '[') + std::string(512, ']')));
}

TEST(JsonValue, StringsAndKeysAreBounded) {
  EXPECT_TRUE(parseJson(R"({"abc":"def"})", 512, 3));
  EXPECT_FALSE(parseJson(R"({"abc":"defg"})", 512, 3));
  EXPECT_FALSE(parseJson(R"({"abcd":"def"})", 512, 3));
  EXPECT_TRUE(parseJson("\"\\u00e9x\"", 512, 3));
  EXPECT_FALSE(parseJson("\"\\u00e9xy\"", 512, 3));
}

}  // namespace
}  // namespace foundation
