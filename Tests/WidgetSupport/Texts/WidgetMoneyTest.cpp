// Money, percentages and changes: every stated figure, and random ones against a slow second
// method.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <random>
#include <sstream>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetMoneyStyle.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/Percent.hpp"

namespace quorvel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

const WidgetMoneyStyle kWhole{"$", false, std::nullopt};
const WidgetMoneyStyle kDecimals{"$", true, std::nullopt};

TEST(MoneyFormat, Decimals) {
  EXPECT_EQ(kDecimals.format(1234.5), "$1,234.50");
  EXPECT_EQ(kDecimals.format(0), "$0.00");
  EXPECT_EQ(kDecimals.format(0.995), "$1.00");  // 99.5 cents
  EXPECT_EQ(kDecimals.format(1.005), "$1.00");  // 100.49999999999999 cents
  EXPECT_EQ(kDecimals.format(999.999), "$1,000.00");
  EXPECT_EQ(kDecimals.format(7.07), "$7.07");
}

TEST(MoneyFormat, WithoutDecimalsHalvesGoAwayFromZero) {
  EXPECT_EQ(kWhole.format(1234.5), "$1,235");
  EXPECT_EQ(kWhole.format(0.5), "$1");
  EXPECT_EQ(kWhole.format(2.5), "$3");
  EXPECT_EQ(kWhole.format(-2.5), "-$3");
  EXPECT_EQ(kWhole.format(0.49999999999999994), "$0");
}

TEST(MoneyFormat, NegativeThatRoundsToZeroKeepsItsSign) {
  EXPECT_EQ(kDecimals.format(-0.004), "-$0.00");
  EXPECT_EQ(kWhole.format(-0.4), "-$0");
}

TEST(MoneyFormat, NegativeZeroHasNoSign) {
  EXPECT_EQ(kDecimals.format(-0.0), "$0.00");
  EXPECT_EQ(kWhole.format(-0.0), "$0");
}

TEST(MoneyFormat, SignStandsBeforeTheSymbol) {
  EXPECT_EQ(kWhole.format(-1234), "-$1,234");
}

TEST(MoneyFormat, ConversionHappensFirst) {
  const WidgetMoneyStyle style{"$", false, 15000};
  EXPECT_EQ(style.format(10), "$150,000");
  EXPECT_EQ(style.formatCompact(10), "$150K");
  EXPECT_EQ((WidgetMoneyStyle{"$", true, 0.1}.format(25)), "$2.50");
  EXPECT_EQ((WidgetMoneyStyle{"$", true, -1}.format(25)), "-$25.00");
}

TEST(MoneyFormat, WhatIsNotANumberOrTooLargeIsAHyphen) {
  for (const double value : {kNaN, kInfinity, -kInfinity, 1e19, -1e19, 9e18, -9e18, 1e300}) {
    EXPECT_EQ(kDecimals.format(value), "-");
    EXPECT_EQ(kWhole.format(value), "-");
    EXPECT_EQ(kWhole.formatCompact(value), "-");
  }
  EXPECT_EQ((WidgetMoneyStyle{"$", false, kNaN}.format(1)), "-");
  EXPECT_EQ((WidgetMoneyStyle{"$", false, 1e300}.format(1e300)), "-");
}

TEST(MoneyFormat, LargestAmountBelowTheBound) {
  const double largest = std::nextafter(9e18, 0);  // 8,999,999,999,999,998,976
  EXPECT_EQ(kWhole.format(largest), "$8,999,999,999,999,998,976");
  EXPECT_EQ(kWhole.formatCompact(largest), "$9000000000B");
}

TEST(MoneyFormat, SymbolIsUsedAsItIs) {
  EXPECT_EQ((WidgetMoneyStyle{"", false, {}}.format(5)), "5");
  EXPECT_EQ((WidgetMoneyStyle{"Rp ", false, {}}.format(5)), "Rp 5");
  EXPECT_EQ((WidgetMoneyStyle{"{}%d", false, {}}.format(-5)), "-{}%d5");
}

TEST(MoneyCompact, StatedFigures) {
  EXPECT_EQ(kWhole.formatCompact(999.99), "$1000");
  EXPECT_EQ(kWhole.formatCompact(1000), "$1.0K");
  EXPECT_EQ(kWhole.formatCompact(99960), "$100.0K");
  EXPECT_EQ(kWhole.formatCompact(100000), "$100K");
  EXPECT_EQ(kWhole.formatCompact(2500000000.0), "$2.5B");
  EXPECT_EQ(kWhole.formatCompact(-1500), "-$1.5K");
}

TEST(MoneyCompact, ThresholdsAndPlainIntegers) {
  EXPECT_EQ(kWhole.formatCompact(999), "$999");
  EXPECT_EQ(kWhole.formatCompact(12500000), "$12.5M");
  EXPECT_EQ(kWhole.formatCompact(250000), "$250K");
  EXPECT_EQ(kWhole.formatCompact(999999), "$1000K");
  EXPECT_EQ(kWhole.formatCompact(1e6), "$1.0M");
  EXPECT_EQ(kWhole.formatCompact(1e9), "$1.0B");
  EXPECT_EQ(kWhole.formatCompact(1.5e12), "$1500B");
  EXPECT_EQ(kWhole.formatCompact(0.5), "$1");
  EXPECT_EQ(kWhole.formatCompact(-0.2), "-$0");
  EXPECT_EQ(kWhole.formatCompact(-0.0), "$0");
}

TEST(MoneyCompact, OneDecimalTiesToEvenOnTheExactValue) {
  EXPECT_EQ(kWhole.formatCompact(1250), "$1.2K");
  EXPECT_EQ(kWhole.formatCompact(1750), "$1.8K");
  EXPECT_EQ(kWhole.formatCompact(1050), "$1.1K");  // 1.05 is a little above the tie
}

TEST(MoneyCompact, ShowDecimalsHasNoEffect) {
  EXPECT_EQ(kDecimals.formatCompact(1500), "$1.5K");
  EXPECT_EQ(kDecimals.formatCompact(12.34), "$12");
}

TEST(GroupThousands, GroupsOfThree) {
  EXPECT_EQ(groupThousands(0), "0");
  EXPECT_EQ(groupThousands(999), "999");
  EXPECT_EQ(groupThousands(1000), "1,000");
  EXPECT_EQ(groupThousands(100000), "100,000");
  EXPECT_EQ(groupThousands(1234567), "1,234,567");
  EXPECT_EQ(groupThousands(std::numeric_limits<std::int64_t>::max()), "9,223,372,036,854,775,807");
}

WidgetSnapshot snapshotWith(WidgetMoneyStyle money, std::string lang = "en") {
  WidgetSnapshot snapshot;
  snapshot.money = std::move(money);
  snapshot.lang = std::move(lang);
  return snapshot;
}

TEST(AmountText, ThirteenCharactersOrMoreBecomeCompactButAreReadInFull) {
  const WidgetSnapshot snapshot = snapshotWith(kDecimals);
  EXPECT_EQ(amountText(12345678.9, snapshot), "$12.3M");
  EXPECT_EQ(amountAccessibilityLabel(12345678.9, snapshot), "$12,345,678.90");
}

TEST(AmountText, TheBoundIsThirteenCharacters) {
  EXPECT_EQ(amountText(999999.99, snapshotWith({"$$", true, {}})), "$$999,999.99");  // 12
  EXPECT_EQ(amountText(999999.99, snapshotWith({"$$$", true, {}})), "$$$1000K");     // 13
  EXPECT_EQ(amountText(-999999.99, snapshotWith({"$$", true, {}})), "-$$1000K");     // 13
}

TEST(AmountText, CharactersAreCountedAsAReaderSeesThem) {
  // Twelve characters, however many bytes and scalars the symbol takes.
  EXPECT_EQ(amountText(999999.99, snapshotWith({"e\u0301₹", true, {}})), "e\u0301₹999,999.99");
}

TEST(AmountText, CompactOnDemand) {
  EXPECT_EQ(amountText(1500, snapshotWith(kWhole), AmountForm::compact), "$1.5K");
  EXPECT_EQ(amountAccessibilityLabel(1500, snapshotWith(kWhole)), "$1,500");
}

TEST(AmountText, InFullHoweverLong) {
  EXPECT_EQ(amountText(12345678.9, snapshotWith(kDecimals), AmountForm::full), "$12,345,678.90");
}

TEST(AmountText, HiddenIsFourBulletsWhateverTheValue) {
  WidgetSnapshot snapshot = snapshotWith(kWhole);
  snapshot.isHidden = true;
  for (const double value : {0.0, 7391.42, kNaN, 1e19}) {
    EXPECT_EQ(amountText(value, snapshot), "\u2022\u2022\u2022\u2022");
    EXPECT_EQ(amountText(value, snapshot, AmountForm::compact), "\u2022\u2022\u2022\u2022");
    EXPECT_EQ(amountText(value, snapshot, AmountForm::full), "\u2022\u2022\u2022\u2022");
    EXPECT_EQ(amountAccessibilityLabel(value, snapshot), "Amounts hidden");
  }
}

TEST(AmountText, HiddenIsReadInTheSnapshotsLanguage) {
  WidgetSnapshot snapshot = snapshotWith(kWhole, "fr");
  snapshot.isHidden = true;
  EXPECT_EQ(amountAccessibilityLabel(5, snapshot), "Montants masqués");
}

TEST(ChangeDescription, ArrowCarriesTheSign) {
  EXPECT_EQ(describeChange(-3.26, 1, true)->text, "3.3%");
  EXPECT_EQ(describeChange(-3.26, 1, true)->symbol, "arrow.down.right");
  EXPECT_EQ(describeChange(5.5, 1, true)->symbol, "arrow.up.right");
  EXPECT_EQ(describeChange(0, 1, true)->symbol, "arrow.right");
  EXPECT_EQ(describeChange(-0.0, 1, true)->symbol, "arrow.right");
  EXPECT_EQ(describeChange(-0.0, 1, true)->text, "0.0%");
}

TEST(ChangeDescription, ARiseBelowOnePercentIsARise) {
  EXPECT_EQ(describeChange(0.5, 1, true),
            (ChangeDescription{"arrow.up.right", "0.5%", palette::changeFavorable, Trend::rise}));
}

TEST(ChangeDescription, KnowsItsTrend) {
  EXPECT_EQ(describeChange(-3.26, 1, true)->trend, Trend::fall);
  EXPECT_EQ(describeChange(5.5, 1, false)->trend, Trend::rise);
  EXPECT_EQ(describeChange(-0.0, 1, true)->trend, Trend::none);
}

TEST(ChangeDescription, ColourSaysWhetherItIsWelcome) {
  EXPECT_EQ(describeChange(5, 1, true)->color, palette::changeFavorable);
  EXPECT_EQ(describeChange(5, 1, false)->color, palette::statusCritical);
  EXPECT_EQ(describeChange(-5, 1, true)->color, palette::statusCritical);
  EXPECT_EQ(describeChange(-5, 1, false)->color, palette::changeFavorable);
  EXPECT_EQ(describeChange(0, 1, true)->color, palette::textSecondary);
  EXPECT_EQ(describeChange(0, 1, false)->color, palette::textSecondary);
}

TEST(ChangeDescription, NotFiniteIsNothing) {
  for (const double value : {kNaN, kInfinity, -kInfinity}) {
    EXPECT_FALSE(describeChange(value, 1, true));
  }
}

TEST(ChangeDescription, PrecisionAndTies) {
  EXPECT_EQ(describeChange(2.5, 0, true)->text, "2%");
  EXPECT_EQ(describeChange(3.5, 0, true)->text, "4%");
  EXPECT_EQ(describeChange(0.25, 1, true)->text, "0.2%");
  EXPECT_EQ(describeChange(0.75, 1, true)->text, "0.8%");
  EXPECT_EQ(describeChange(0.05, 1, true)->text, "0.1%");
  EXPECT_EQ(describeChange(12.3456, 3, true)->text, "12.346%");
  EXPECT_EQ(describeChange(0.04, 1, true)->text, "0.0%");
}

TEST(PercentText, ClampedWholePercent) {
  EXPECT_EQ(percentText(0.004), "0%");
  EXPECT_EQ(percentText(0.996), "100%");
  EXPECT_EQ(percentText(0.125), "13%");
  EXPECT_EQ(percentText(1.7), "100%");
  EXPECT_EQ(percentText(-0.2), "0%");
  for (const double value : {kNaN, kInfinity, -kInfinity}) EXPECT_EQ(percentText(value), "0%");
}

/// The full format by decimal text alone: exact digits of the double, rounded half up on the
/// digits.
std::string slowWhole(double value) {
  std::string digits = fmt::format("{:.60f}", std::fabs(value));  // long enough to be exact here
  const std::size_t point = digits.find('.');
  const bool up = digits[point + 1] >= '5';
  std::string whole = digits.substr(0, point);
  for (std::size_t i = whole.size(); up && i-- > 0;) {
    if (whole[i] != '9') {
      ++whole[i];
      break;
    }
    whole[i] = '0';
    if (i == 0) whole.insert(0, 1, '1');
  }
  std::string grouped;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (i > 0 && (whole.size() - i) % 3 == 0) grouped += ',';
    grouped += whole[i];
  }
  return (value < 0 ? "-$" : "$") + grouped;
}

class MoneyRandom : public testing::Test {
 protected:
  std::mt19937_64 random{20250314};

  /// Amounts of every magnitude up to 10^17, many of them on halves and cents.
  double amount() {
    const double magnitude = std::pow(10.0, std::uniform_real_distribution<double>(-3, 17)(random));
    const double sign = random() % 2 == 0 ? 1 : -1;
    switch (random() % 3) {
      case 0:
        return sign * magnitude;
      case 1:
        return sign * (std::floor(magnitude) + 0.5);
      default:
        return sign * std::round(magnitude * 100) / 100;
    }
  }
};

TEST_F(MoneyRandom, WholeFormatAgreesWithExactDecimalDigits) {
  for (int i = 0; i < 20000; ++i) {
    const double value = amount();
    ASSERT_EQ(kWhole.format(value), slowWhole(value)) << fmt::format("{:.17g}", value);
  }
}

TEST_F(MoneyRandom, DecimalFormatIsTheRoundedProductByHundreds) {
  for (int i = 0; i < 20000; ++i) {
    const double value = amount();
    // The cents are a whole number; grouped as one and then parted, without any division.
    const std::string cents = fmt::format("{:03.0f}", std::round(std::fabs(value) * 100));
    std::string expected =
        slowWhole(std::strtod(cents.substr(0, cents.size() - 2).c_str(), nullptr));
    expected = (value < 0 ? "-" : "") + expected + "." + cents.substr(cents.size() - 2);
    if (std::fabs(value) < 4e13) {
      ASSERT_EQ(kDecimals.format(value), expected) << fmt::format("{:.17g}", value);
    }
  }
}

TEST_F(MoneyRandom, OneDecimalAgreesWithTheCLibrary) {
  for (int i = 0; i < 20000; ++i) {
    const double value = amount();
    char text[64];
    const double scaled = std::fabs(value) / 1000;
    if (scaled < 1 || scaled >= 100) continue;
    std::snprintf(text, sizeof text, "%s$%.1fK", value < 0 ? "-" : "", scaled);
    ASSERT_EQ(kWhole.formatCompact(value), text);
  }
  for (int i = 0; i < 20000; ++i) {
    const double value = std::uniform_int_distribution<int>(0, 8000)(random) / 16.0;
    for (const int precision : {0, 1, 2, 3}) {
      char text[64];
      std::snprintf(text, sizeof text, "%.*f%%", precision, value);
      ASSERT_EQ(describeChange(value, precision, true)->text, text);
    }
  }
}

/// Writes numbers as a German does.
struct CommaPunctuation : std::numpunct<char> {
  [[nodiscard]] char do_decimal_point() const override { return ','; }
  [[nodiscard]] char do_thousands_sep() const override { return '.'; }
  [[nodiscard]] std::string do_grouping() const override { return "\3"; }
};

TEST(MoneyFormat, DoesNotFollowTheProcessLocale) {
  const std::string cLocale = std::setlocale(LC_ALL, nullptr);
  const std::locale before = std::locale::global(std::locale(std::locale(), new CommaPunctuation));
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8"})
    std::setlocale(LC_ALL, name);  // if installed
  std::ostringstream control;
  control << 1234.5;
  EXPECT_EQ(control.str(), "1.234,5");
  EXPECT_EQ(kDecimals.format(1234.5), "$1,234.50");
  EXPECT_EQ(kWhole.formatCompact(1500), "$1.5K");
  EXPECT_EQ(describeChange(3.26, 1, true)->text, "3.3%");
  std::locale::global(before);
  std::setlocale(LC_ALL, cLocale.c_str());
}

}  // namespace
}  // namespace quorvel
