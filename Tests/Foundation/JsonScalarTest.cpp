// Numbers and strings as strict JSON writes them, wherever they stand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "JsonReports.hpp"

namespace foundation {
namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::SizeIs;

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

}  // namespace
}  // namespace foundation
