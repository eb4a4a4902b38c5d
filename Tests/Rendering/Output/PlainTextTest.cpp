// Plain-text pictures: what stands on which row and column. A cell of 4.5 points is the narrowest.
#include <gtest/gtest.h>

#include "PlacedNodes.hpp"
#include "Rendering/Output/PlainText.hpp"
#include "Rendering/Output/PlainTextGrid.hpp"

namespace rendering {
namespace {

using namespace viewkit;

std::string picture(const View& view,
                    Size size,
                    RedactionReasons redaction = {},
                    LayoutDirection direction = kLtr) {
  return plainText(placed(view, size, direction), {.redaction = redaction});
}

TEST(PlainText, ARowHasItsTextsAtTheirColumns) {
  // 360 / 80 = 4.5 per column: the first starts at column 0, the last ends at column 80.
  const View row = HStack{{}, Text("Rent").font(10), Spacer{}, Text("$12.00").font(10)};
  EXPECT_EQ(picture(row, {360, 12.1}), "Rent" + std::string(70, ' ') + "$12.00\n");
}

TEST(PlainText, TextsAtOneLeftEdgeStartAtOneColumn) {
  const View column = VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
                             Text("one").font(10),
                             Text("three").font(10)}
                          .padding({.leading = 45});
  EXPECT_EQ(picture(column, {75, 24.2}),
            std::string(10, ' ') + "one\n" + std::string(10, ' ') + "three\n");
}

TEST(PlainText, GapsBecomeBlankRows) {
  // Rows of 12.1: the foot stands at 60.5, on the sixth of them.
  const View column = VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0},
                             Text("top").font(10),
                             Spacer{},
                             Text("foot").font(10)};
  EXPECT_EQ(picture(column, {24, 72.6}), "top\n\n\n\n\nfoot\n");
}

TEST(PlainText, DifferentSizesOnOneBaselineAreOneRow) {
  const View row = HStack{{.alignment = VerticalAlignment::firstTextBaseline, .spacing = 4},
                          Text("$106").font(24),
                          Text("/ day").font(12)};
  // The unit starts at 57.6 + 4 = 61.6 points, column 14.
  EXPECT_EQ(picture(row.padding({.trailing = 100}), {197.6, 29.04}),
            "$106" + std::string(10, ' ') + "/ day\n");
}

TEST(PlainText, CloseTextsKeepTheirOwnRows) {
  const View column = VStack{{.spacing = -4}, Text("first").font(10), Text("second").font(10)};
  const std::string rows = picture(column, {100, 30});
  EXPECT_LT(rows.find("first"), rows.find('\n', rows.find("first")));
  EXPECT_GT(rows.find("second"), rows.find('\n', rows.find("first")));
}

TEST(PlainText, CollidingTextsMoveApart) {
  // Letters of 1.2 points: columns 8 and 11 are wanted, which would overlap and then pass
  // column 20.
  const View row = HStack{{.spacing = 1}, Text("abcdefgh").font(2), Text("ijkl").font(2)};
  EXPECT_EQ(picture(row, {90, 4}), std::string(7, ' ') + "abcdefgh ijkl\n");
}

TEST(PlainText, WideCharactersTakeTwoColumns) {
  EXPECT_EQ(columnsOf("1月"), 3);
  EXPECT_EQ(columnsOf("é"), 1);
  EXPECT_EQ(columnsOf("e\u0301"), 1);
  EXPECT_EQ(columnsOf("\u2066$1\u2069"), 2);
  const View row = HStack{{}, Text("月").font(10), Spacer{}, Text("月月").font(10)};
  EXPECT_EQ(picture(row, {360, 12.1}), "月" + std::string(74, ' ') + "月月\n");
}

TEST(PlainText, RightToLeftTextIsInLogicalOrder) {
  const View row = HStack{{}, Text("أب").font(10), Spacer{}, Text("\u2066$1\u2069").font(10)};
  EXPECT_EQ(picture(row, {360, 12.1}, {}, kRtl), "$1" + std::string(76, ' ') + "أب\n");
}

TEST(PlainText, MetersAreBars) {
  const View meter =
      Capsule()
          .overlay(Capsule().frame(FixedFrame{.width = kWidth * 0.6}), Alignment::leading)
          .frame({.height = 5});
  // 54 points are 12 columns, ten of them inside the brackets.
  EXPECT_EQ(picture(meter, {54, 5}), "[######----]\n");
  EXPECT_EQ(picture(Capsule().frame({.height = 5}), {54, 5}), "[----------]\n");
  EXPECT_EQ(picture(Capsule().frame({.height = 1}), {54, 5}), "");
  EXPECT_EQ(picture(Capsule().frame({.height = 26}), {54, 26}), "");
}

TEST(PlainText, AGaugeIsItsLabelAndABar) {
  const View gauge = Gauge{{.fraction = 0.5}, Text("50%").font(10)};
  const std::string rows = picture(gauge, {54, 54});
  EXPECT_NE(rows.find("50%"), std::string::npos);
  EXPECT_NE(rows.find("[#####-----]"), std::string::npos);
}

TEST(PlainText, OnlyTellingSymbolsAreShown) {
  const View row =
      HStack{{.spacing = 8}, Symbol("arrow.up.right").font(10), Symbol("tag").font(10)};
  EXPECT_EQ(picture(row, {30, 12.1}), "↗\n");
}

TEST(PlainText, TrendsTurnWhereTheLayoutRunsRightToLeft) {
  const auto arrow = [](const char* name, LayoutDirection direction) {
    return picture(Symbol(name).font(10), {30, 12.1}, {}, direction);
  };
  EXPECT_NE(arrow("arrow.right", kLtr).find("→"), std::string::npos);
  EXPECT_NE(arrow("arrow.up.right", kRtl).find("↖"), std::string::npos);
  EXPECT_NE(arrow("arrow.down.right", kRtl).find("↙"), std::string::npos);
  EXPECT_NE(arrow("arrow.right", kRtl).find("←"), std::string::npos);
}

// Amounts of three widths in cells of 4.5 points; the second and third happen to start together.
TEST(PlainText, AmountsOfAColumnEndTogether) {
  const auto row = [](const char* words, const char* amount, double size) {
    return HStack{{}, Text(words).font(10), Spacer{}, Text(amount).font(size)};
  };
  const View column = VStack{{.spacing = 0},
                             row("Liquid", "$51,240", 10),
                             row("Fixed", "$9,000", 10),
                             row("Debt", "$7,000", 10)}
                          .padding({.trailing = 20});
  // The texts end at 340 points: column 75.6, so all end before column 76.
  EXPECT_EQ(picture(column, {360, 36.3}),
            "Liquid" + std::string(63, ' ') + "$51,240\n" + "Fixed" + std::string(65, ' ') +
                "$9,000\n" + "Debt" + std::string(66, ' ') + "$7,000\n");
}

TEST(PlainText, CoveredViewsAreBlankBarsUnderPrivacy) {
  const View row = HStack{{},
                          Text("Spent").font(10),
                          Text("$7391.42").font(10).privacySensitive(PrivacyTreatment::covered)};
  const std::string open = picture(row, {360, 20});
  EXPECT_NE(open.find("$7391.42"), std::string::npos);
  const std::string redacted = picture(row, {360, 20}, {.privacy = true});
  EXPECT_EQ(redacted.find_first_of("0123456789"), std::string::npos);
  EXPECT_NE(redacted.find("▒▒▒▒"), std::string::npos);
  EXPECT_NE(redacted.find("Spent"), std::string::npos);
}

TEST(PlainText, MaskedTextsAreShownAsTheyAre) {
  const View text = Text("••••").font(10).privacySensitive(PrivacyTreatment::masked);
  EXPECT_EQ(picture(text, {24, 12.1}, {.privacy = true}), "••••\n");
}

TEST(PlainText, PlaceholdersHideTexts) {
  const std::string rows = picture(HStack{{}, Symbol("arrow.up").font(10), Text("Rent").font(10)},
                                   {60, 20},
                                   {.placeholder = true});
  EXPECT_EQ(rows.find("Rent"), std::string::npos);
  EXPECT_EQ(rows.find("↑"), std::string::npos);
  EXPECT_NE(rows.find("▒▒▒▒"), std::string::npos);
}

TEST(PlainText, CutAndWrappedTextsShowTheirLines) {
  EXPECT_EQ(picture(Text("aaaa bbbb").font(10), {27, 24.2}), "aaaa\nbbbb\n");
  EXPECT_EQ(picture(Text("aaaaaaaa").font(10).lineLimit(1), {27, 12.1}), "aaa…\n");
}

TEST(PlainText, NothingIsAnEmptyPicture) {
  EXPECT_EQ(picture(View{}, {0, 0}), "");
  EXPECT_EQ(picture(Text("").font(10), {50, 50}), "");
  EXPECT_EQ(picture(Text("unseen").opacity(0), {50, 50}), "");
}

}  // namespace
}  // namespace rendering
