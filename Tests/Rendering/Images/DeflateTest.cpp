// The codes of deflate, against the table of RFC 1951, 3.2.5.
#include <gtest/gtest.h>

#include <tuple>

#include "Rendering/Images/Deflate.hpp"

namespace rendering::deflate {
namespace {

using Row = std::tuple<int, int, int>;  // symbol, extra bits, their value

Row rowOf(const Code& code) {
  return {code.symbol, code.extraBits, code.extra};
}

TEST(Deflate, LengthsHaveTheSymbolsOfTheTable) {
  EXPECT_EQ(rowOf(lengthCode(3)), Row(257, 0, 0));
  EXPECT_EQ(rowOf(lengthCode(10)), Row(264, 0, 0));
  EXPECT_EQ(rowOf(lengthCode(11)), Row(265, 1, 0));
  EXPECT_EQ(rowOf(lengthCode(12)), Row(265, 1, 1));
  EXPECT_EQ(rowOf(lengthCode(66)), Row(276, 3, 7));
  EXPECT_EQ(rowOf(lengthCode(67)), Row(277, 4, 0));
  EXPECT_EQ(rowOf(lengthCode(257)), Row(284, 5, 30));
  EXPECT_EQ(rowOf(lengthCode(258)), Row(285, 0, 0));
}

TEST(Deflate, DistancesHaveTheSymbolsOfTheTable) {
  EXPECT_EQ(rowOf(distanceCode(1)), Row(0, 0, 0));
  EXPECT_EQ(rowOf(distanceCode(4)), Row(3, 0, 0));
  EXPECT_EQ(rowOf(distanceCode(5)), Row(4, 1, 0));
  EXPECT_EQ(rowOf(distanceCode(6)), Row(4, 1, 1));
  EXPECT_EQ(rowOf(distanceCode(24577)), Row(29, 13, 0));
  EXPECT_EQ(rowOf(distanceCode(32768)), Row(29, 13, 8191));
}

}  // namespace
}  // namespace rendering::deflate
