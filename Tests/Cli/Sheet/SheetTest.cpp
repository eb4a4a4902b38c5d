// The contact sheet: where pictures land, what lies around them, and how large it may get.
#include <gtest/gtest.h>

#include "Cli/Sheet/Sheet.hpp"
#include "ViewKit/ViewKit.hpp"

namespace cli {
namespace {

constexpr std::uint32_t kLightGround = 0xFFD7DADF;
constexpr std::uint32_t kDarkGround = 0xFF0D0E10;

SheetRow redSquares(int count) {
  SheetRow row{.caption = "", .cells = {}};
  for (int i = 0; i < count; ++i) {
    SheetCell cell{
        .name = "",
        .view = viewkit::Rectangle().fill(viewkit::Color::dynamic(0xFF0000, 0x00FF00)).view(),
        .how = {}};
    cell.how.size = {100, 50};
    cell.how.cornerRadius = 0;
    row.cells.push_back(std::move(cell));
  }
  return row;
}

std::uint32_t pixel(const rendering::Bitmap& sheet, int x, int y) {
  return sheet.pixels[static_cast<std::size_t>(y) * sheet.stride + x];
}

TEST(Sheet, StandsOnALightAndADarkGround) {
  const auto sheet = drawSheet({redSquares(2)}, 1);
  ASSERT_TRUE(sheet);
  // Two squares, the gap of 20 and two margins of 28, twice; margin, caption of 16, gap of 6,
  // square, margin.
  EXPECT_EQ(sheet->width, 2 * (100 + 20 + 100 + 2 * 28));
  EXPECT_EQ(sheet->height, 28 + 16 + 6 + 50 + 28);
  EXPECT_EQ(pixel(*sheet, 0, 0), kLightGround);
  EXPECT_EQ(pixel(*sheet, 275, 127), kLightGround);
  EXPECT_EQ(pixel(*sheet, 276, 0), kDarkGround);
  EXPECT_EQ(pixel(*sheet, 551, 127), kDarkGround);
}

TEST(Sheet, DrawsEachCellInItsPanelsAppearance) {
  const auto sheet = drawSheet({redSquares(2)}, 1);
  ASSERT_TRUE(sheet);
  EXPECT_EQ(pixel(*sheet, 28, 50), 0xFFFF0000);
  EXPECT_EQ(pixel(*sheet, 127, 99), 0xFFFF0000);
  EXPECT_EQ(pixel(*sheet, 128, 75), kLightGround);
  EXPECT_EQ(pixel(*sheet, 148, 75), 0xFFFF0000);
  EXPECT_EQ(pixel(*sheet, 276 + 28, 50), 0xFF00FF00);
}

TEST(Sheet, PutsManyRowsInColumns) {
  // Forty rows of 72 and 22 between them: one column would be 3738 high and 512 wide.
  const auto sheet = drawSheet(std::vector<SheetRow>(40, redSquares(1)), 1);
  ASSERT_TRUE(sheet);
  EXPECT_LT(sheet->width, 2 * sheet->height);
  EXPECT_LT(sheet->height, 2 * sheet->width);
}

TEST(Sheet, SeveralTakeTheRowsInOrderWhenOneWouldBeTooLarge) {
  std::vector<SheetRow> rows(400, redSquares(20));
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i].caption = std::to_string(i);
  ASSERT_TRUE(sheetExtent(rows, 4).isTooLarge());
  const auto sheets = splitIntoSheets(rows, 4);
  EXPECT_GT(sheets.size(), 1u);
  std::size_t next = 0;
  for (const auto& sheet : sheets) {
    EXPECT_FALSE(sheetExtent(sheet, 4).isTooLarge());
    for (const SheetRow& row : sheet) EXPECT_EQ(row.caption, std::to_string(next++));
  }
  EXPECT_EQ(next, rows.size());
}

TEST(Sheet, OneIsEnoughForAFewRows) {
  EXPECT_EQ(splitIntoSheets({redSquares(2), redSquares(1)}, 2).size(), 1u);
}

TEST(Sheet, IsRefusedBeforeItsMemoryIsTaken) {
  const std::vector<SheetRow> rows(4000, redSquares(20));
  const auto sheet = drawSheet(rows, 2);
  ASSERT_FALSE(sheet);
  EXPECT_NE(sheet.error().line.find("lower --scale"), std::string::npos);
}

}  // namespace
}  // namespace cli
