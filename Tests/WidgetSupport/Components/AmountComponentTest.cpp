#include <gmock/gmock.h>

#include <limits>

#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "Tests/Support/Snapshots.hpp"
#include "Tests/Support/ViewInspection.hpp"

namespace quorvel {
namespace {

using namespace viewkit;

const TextElement& textOf(const View& view) {
  return std::get<TextElement>(view.node().element);
}

TEST(AmountComponent, SixteenCharactersShowTheShortFormAndKeepTheFullLabel) {
  WidgetSnapshot snapshot = testsupport::emptySnapshot();
  snapshot.money = {.symbol = "S$", .showDecimals = true};
  const View view = Amount{.value = 123456789.01, .snapshot = snapshot, .size = 24};
  // "S$123,456,789.01" has sixteen characters.
  EXPECT_EQ(textOf(view).text, "S$123M");
  EXPECT_EQ(textOf(view).lineLimit, 1);
  EXPECT_EQ(testsupport::modifier<Accessibility>(view)->label, "S$123,456,789.01");
}

TEST(AmountComponent, IsBoldTightAndShrinksToAtMost55Percent) {
  const WidgetSnapshot snapshot = testsupport::emptySnapshot();
  const View view = Amount{.value = 106, .snapshot = snapshot, .size = 24};
  const TextElement& text = textOf(view);
  EXPECT_EQ(text.text, "$106");
  EXPECT_DOUBLE_EQ(text.size, 24);
  EXPECT_EQ(text.weight, FontWeight::bold);
  EXPECT_DOUBLE_EQ(text.tracking, -0.48);
  EXPECT_EQ(text.lineLimit, 1);
  EXPECT_DOUBLE_EQ(text.minimumScaleFactor, 0.55);
  EXPECT_TRUE(text.numericTransition);
}

TEST(AmountComponent, IsMaskedBeforeLayoutWhateverItsValue) {
  WidgetSnapshot snapshot = testsupport::emptySnapshot("id");
  snapshot.isHidden = true;
  for (const double value : {0.0, 7391.42, -1e12, std::numeric_limits<double>::quiet_NaN()}) {
    const View view = Amount{.value = value, .snapshot = snapshot, .size = 24};
    EXPECT_EQ(textOf(view).text, "••••");
    EXPECT_EQ(testsupport::modifier<Accessibility>(view)->label, "Nominal disembunyikan");
    EXPECT_EQ(testsupport::modifier<PrivacySensitive>(view)->treatment, PrivacyTreatment::masked);
  }
}

TEST(AmountComponent, ReadsFromLeftToRightInArabicToo) {
  const WidgetSnapshot snapshot = testsupport::emptySnapshot("ar");
  const View view = Amount{.value = -1234, .snapshot = snapshot, .size = 24};
  EXPECT_EQ(textOf(view).text, "-$1,234");
  EXPECT_EQ(textOf(view).direction, LayoutDirection::leftToRight);
  EXPECT_EQ(textOf(view).language, "ar");
}

TEST(AmountComponent, ShowsTheCompactFormWhenAskedAndReadsOutTheFullOne) {
  const WidgetSnapshot snapshot = testsupport::emptySnapshot();
  const View view = Amount{.value = 1000,
                           .snapshot = snapshot,
                           .size = 12,
                           .weight = FontWeight::regular,
                           .compact = true};
  EXPECT_EQ(textOf(view).text, "$1.0K");
  EXPECT_EQ(textOf(view).weight, FontWeight::regular);
  EXPECT_EQ(testsupport::modifier<Accessibility>(view)->label, "$1,000");
}

}  // namespace
}  // namespace quorvel
