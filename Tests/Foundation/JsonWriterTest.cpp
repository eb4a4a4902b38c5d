// Commas, escapes and numbers of written JSON.
#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "Foundation/JsonWriter.hpp"

namespace foundation {
namespace {

std::string written(auto value) {
  return JsonWriter().value(value).take();
}

TEST(JsonWriter, PutsCommasBetweenMembersAndElements) {
  JsonWriter writer;
  writer.beginObject()
      .member("a", 1)
      .key("b")
      .beginArray()
      .value(1)
      .value(2)
      .beginObject()
      .endObject()
      .endArray();
  writer.key("c").null().member("d", true).key("e").raw("[0]").member("f", "x").endObject();
  EXPECT_EQ(writer.text(), R"({"a":1,"b":[1,2,{}],"c":null,"d":true,"e":[0],"f":"x"})");
}

TEST(JsonWriter, EmptyContainers) {
  EXPECT_EQ(JsonWriter().beginArray().endArray().take(), "[]");
  EXPECT_EQ(
      JsonWriter().beginArray().beginArray().endArray().beginArray().endArray().endArray().take(),
      "[[],[]]");
}

TEST(JsonWriter, EscapesWhatJsonMustEscape) {
  EXPECT_EQ(written("\"\\/\b\f\n\r\t"), R"("\"\\/\b\f\n\r\t")");
  EXPECT_EQ(written("\x01\x1F\x7F"), "\"\\u0001\\u001f\x7F\"");
  EXPECT_EQ(JsonWriter().value(std::string_view("a\0b", 3)).take(), R"("a\u0000b")");
  EXPECT_EQ(JsonWriter().beginObject().member("\n", 1).endObject().take(), R"({"\n":1})");
}

TEST(JsonWriter, KeepsUtf8AndReplacesWhatIsNone) {
  EXPECT_EQ(written("é€\U0001F600"), "\"é€\U0001F600\"");
  EXPECT_EQ(written("a\xFF"
                    "b"),
            "\"a\uFFFD"
            "b\"");
  EXPECT_EQ(written("\xED\xA0\x80"), "\"\uFFFD\uFFFD\uFFFD\"");
  EXPECT_EQ(written("\xE2\x82"), "\"\uFFFD\"");
  EXPECT_EQ(written("\xF0\x9F\x98x"), "\"\uFFFDx\"");
}

TEST(JsonWriter, DoublesAreTheShortestThatReadBack) {
  EXPECT_EQ(written(0.1), "0.1");
  EXPECT_EQ(written(3.0), "3");
  EXPECT_EQ(written(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(written(-0.0), "-0");
  EXPECT_EQ(written(5e-324), "5e-324");
  EXPECT_EQ(written(1e300), "1e+300");
}

TEST(JsonWriter, NumbersThatJsonCannotHoldAreNull) {
  EXPECT_EQ(written(std::nan("")), "null");
  EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "null");
  EXPECT_EQ(written(-std::numeric_limits<double>::infinity()), "null");
}

TEST(JsonWriter, IntegersKeepAllDigits) {
  EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(written(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
}

TEST(IndentedJson, GivesEachMemberAndElementALine) {
  EXPECT_EQ(indentedJson(R"({"a":1,"b":[true,{"c":null}],"d":"x"})"),
            "{\n"
            "  \"a\": 1,\n"
            "  \"b\": [\n"
            "    true,\n"
            "    {\n"
            "      \"c\": null\n"
            "    }\n"
            "  ],\n"
            "  \"d\": \"x\"\n"
            "}");
}

TEST(IndentedJson, KeepsWhatIsEmptyOnItsLine) {
  EXPECT_EQ(indentedJson("{}"), "{}");
  EXPECT_EQ(indentedJson(R"({"a":[],"b":{}})"), "{\n  \"a\": [],\n  \"b\": {}\n}");
}

TEST(IndentedJson, LeavesStringsAlone) {
  EXPECT_EQ(indentedJson(R"(["{,:[","\\",",\"]"])"),
            "[\n  \"{,:[\",\n  \"\\\\\",\n  \",\\\"]\"\n]");
}

// Shorter ways to common numbers lead to the digits that the library finds.
TEST(JsonWriter, NumbersHaveTheShortestForm) {
  const auto expectShortest = [](double number) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    ASSERT_EQ(written(number), std::string(buffer.data(), end));
  };
  for (int i = -1'100'000; i <= 1'100'000 && !testing::Test::HasFatalFailure(); i += 7) {
    for (const double divisor : {1.0, 10.0, 100.0, 1000.0, 7.0}) expectShortest(i / divisor);
    expectShortest(i * 0.07);
  }
  for (const double number :
       {0.0, -0.0, 0.01, 0.005, 99'999.0, 99'999.99, 99'999.995, 100'000.0, 1e300, 5e-324}) {
    expectShortest(number);
  }
}

}  // namespace
}  // namespace foundation
