#include <gtest/gtest.h>

#include "Import/Decimal.hpp"

namespace importer {
namespace {

TEST(Decimal, AddsTenthsExactly) {
  Decimal sum;
  for (int i = 0; i < 10; ++i) sum += *parseDecimal("0.1");
  EXPECT_EQ(sum, Decimal::whole(1));
  EXPECT_EQ((*parseDecimal("0.1") + *parseDecimal("0.2")).toDouble(), 0.3);
}

TEST(Decimal, ReadsAndWritesTheSameNumber) {
  for (const char* text : {"0", "1", "-1", "1234.5", "-0.01", "0.000000000001", "999999999999999"})
    EXPECT_EQ(parseDecimal(text)->text(), text);
  EXPECT_EQ(parseDecimal("12.340000000000")->text(), "12.34");
  EXPECT_EQ(parseDecimal("5.")->text(), "5");
  EXPECT_EQ(parseDecimal(".5")->text(), "0.5");
  EXPECT_EQ(parseDecimal("+5")->text(), "5");
  EXPECT_EQ(parseDecimal("-0")->text(), "0");
}

TEST(Decimal, RoundsFromTheThirteenthDigitOn) {
  EXPECT_EQ(parseDecimal("0.0000000000014")->text(), "0.000000000001");
  EXPECT_EQ(parseDecimal("0.0000000000015")->text(), "0.000000000002");
  EXPECT_EQ(parseDecimal("-0.0000000000015")->text(), "-0.000000000002");
}

TEST(Decimal, RefusesWhatIsNoNumber) {
  for (const char* text :
       {"", "-", ".", "1,5", "1.234,5", "1e3", "€5", "5 €", "1.2.3", "--1", " 1"})
    EXPECT_FALSE(parseDecimal(text)) << text;
}

TEST(Decimal, RefusesWhatSumsCouldNotHold) {
  EXPECT_TRUE(parseDecimal("999999999999999.999999999999"));
  EXPECT_TRUE(parseDecimal("0000000000000000000000001"));
  EXPECT_FALSE(parseDecimal("1000000000000000"));
  EXPECT_FALSE(parseDecimal("99999999999999999999999999999999999999999999"));
}

TEST(Decimal, KnowsWholeNumbers) {
  EXPECT_TRUE(parseDecimal("10.00")->isWhole());
  EXPECT_FALSE(parseDecimal("-10.01")->isWhole());
}

}  // namespace
}  // namespace importer
