// The document object model: reading, bounds, writing.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "Foundation/JsonValue.hpp"

namespace foundation {
namespace {

std::string written(const JsonValue& value) {
  JsonWriter writer;
  value.write(writer);
  return writer.take();
}

std::string rewritten(std::string_view text) {
  const auto value = parseJson(text);
  return value ? written(*value) : "problem";
}

/// The text is gone, and had memory of just its size: a sanitizer sees whoever still reads it.
JsonDocument fromPassingText(std::string_view text) {
  const auto tight = std::make_unique<char[]>(text.size());
  text.copy(tight.get(), text.size());
  return parseJson({tight.get(), text.size()}).value_or(JsonDocument{});
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

constexpr std::string_view kMixed =
    R"({"":"","key":["plain","esc\naped",{},[]],"deep":{"a":[1,{"b":true}]},"n":null})";

TEST(JsonDocument, OutlivesItsText) {
  EXPECT_EQ(written(fromPassingText(kMixed)), kMixed);
}

TEST(JsonDocument, KeepsItsValuesWhereTheyAreWhenItMoves) {
  auto before = fromPassingText(kMixed);
  const JsonValue* key = before.member("key");
  JsonDocument after = std::move(before);
  EXPECT_EQ(after.member("key"), key);
  JsonDocument assigned = fromPassingText("[1]");
  assigned = std::move(after);
  EXPECT_EQ(assigned.member("key"), key);
  EXPECT_EQ(written(assigned), kMixed);
}

TEST(JsonDocument, MayBeLeftToOneOfItsValues) {
  auto whole = fromPassingText(kMixed);
  const JsonValue& deep = *whole.member("deep");
  JsonDocument part(std::move(whole), deep);
  EXPECT_EQ(written(part), R"({"a":[1,{"b":true}]})");
  const JsonValue& inner = (*part.member("a")->array())[1];
  part = JsonDocument(std::move(part), inner);
  EXPECT_EQ(written(part), R"({"b":true})");
}

TEST(JsonDocument, MayBeLeftToItsRoot) {
  auto whole = fromPassingText(kMixed);
  const JsonDocument same(std::move(whole), whole);
  EXPECT_EQ(written(same), kMixed);
}

TEST(JsonDocument, IsNeverATemporaryThatAValueLooksInto) {
  static_assert(!std::is_constructible_v<JsonValue, JsonDocument>);
  static_assert(!std::is_constructible_v<JsonValue, const JsonDocument>);
  static_assert(!std::is_assignable_v<JsonValue&, JsonDocument>);
  static_assert(!std::is_assignable_v<JsonValue&, const JsonDocument>);
  static_assert(!std::is_constructible_v<JsonValue, std::string>);
  JsonValue root;
  const auto json = parseJson("[7]");
  root = *json;
  EXPECT_EQ(root.array()->size(), 1U);
}

TEST(JsonValue, IsEqualToTheSameOfAnotherDocument) {
  const auto a = fromPassingText(kMixed);
  const auto b = fromPassingText(kMixed);
  EXPECT_EQ(a, b);
  EXPECT_NE(a.member("key")->array()->begin(), b.member("key")->array()->begin());
  for (const char* other : {R"([1])", R"([1,2,3])", R"([2,1])", R"({"1":2})", "null", "1"}) {
    EXPECT_NE(*parseJson("[1,2]"), *parseJson(other)) << other;
  }
  EXPECT_NE(*parseJson(R"({"a":1,"b":2})"), *parseJson(R"({"b":2,"a":1})"));
  EXPECT_NE(*parseJson(R"({"a":1})"), *parseJson(R"({"b":1})"));
  EXPECT_NE(*parseJson("false"), *parseJson("null"));
  EXPECT_NE(*parseJson("0"), *parseJson("false"));
}

TEST(JsonValue, EmptyContainersAreNeitherNullNorEachOther) {
  const JsonValue array{JsonValue::Array{}};
  const JsonValue object{JsonValue::Object{}};
  EXPECT_EQ(array, *parseJson("[]"));
  EXPECT_EQ(object, *parseJson("{}"));
  EXPECT_NE(array, object);
  EXPECT_FALSE(array.isNull());
  EXPECT_FALSE(object.isNull());
  EXPECT_EQ(object.member(""), nullptr);
  EXPECT_EQ(written(array), "[]");
  EXPECT_EQ(written(object), "{}");
}

TEST(JsonValue, EmptyTextsAndKeysAreTexts) {
  const auto value = parseJson(R"({"":"","a":[""]})");
  ASSERT_TRUE(value);
  EXPECT_EQ(*value->member("")->string(), "");
  EXPECT_EQ(*value->member("a")->array()->front().string(), "");
  EXPECT_EQ(written(*value), R"({"":"","a":[""]})");
}

TEST(JsonValue, LiteralIsATextAndNoFlag) {
  EXPECT_EQ(*JsonValue("text").string(), "text");
}

TEST(JsonValue, TextOfIsEmptyWithoutAText) {
  const auto value = parseJson(R"({"a":"x","b":1,"a":"y"})");
  ASSERT_TRUE(value);
  EXPECT_EQ(value->textOf("a"), "x");
  EXPECT_EQ(value->textOf("b"), "");
  EXPECT_EQ(value->textOf("c"), "");
  EXPECT_EQ(JsonValue{}.textOf("a"), "");
}

}  // namespace
}  // namespace foundation
