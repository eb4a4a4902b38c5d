#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Import/Csv.hpp"

namespace importer {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Rows = std::vector<CsvReader::Row>;

/// In pieces of a size, so that every state meets the end of a piece.
Rows rowsOf(std::string_view text, std::size_t piece) {
  Rows rows;
  CsvReader reader([&](const CsvReader::Row& row) {
    rows.push_back(row);
    return true;
  });
  for (std::size_t at = 0; at < text.size(); at += piece)
    EXPECT_TRUE(reader.read(text.substr(at, piece)));
  EXPECT_TRUE(reader.finish());
  return rows;
}

TEST(CsvReader, UnquotesCellsWhereverPiecesEnd) {
  constexpr std::string_view kText =
      "\"a\",\"say \"\"hi\"\", you\",\"two\nlines\"\r\n\"\",plain,\"ü\"\n";
  for (std::size_t piece = 1; piece <= kText.size(); ++piece) {
    EXPECT_THAT(rowsOf(kText, piece),
                ElementsAre(ElementsAre("a", "say \"hi\", you", "two\nlines"),
                            ElementsAre("", "plain", "ü")));
  }
}

TEST(CsvReader, TakesALastRowWithoutItsEnd) {
  EXPECT_THAT(rowsOf("a,b", 2), ElementsAre(ElementsAre("a", "b")));
  EXPECT_THAT(rowsOf("\"a\"", 2), ElementsAre(ElementsAre("a")));
  EXPECT_THAT(rowsOf("", 1), IsEmpty());
}

TEST(CsvReader, RefusesAnOpenQuotation) {
  CsvReader reader([](const CsvReader::Row&) { return true; });
  EXPECT_TRUE(reader.read("a,\"b"));
  EXPECT_FALSE(reader.finish());
}

TEST(CsvReader, StopsWhenItsHandlerDoes) {
  int rows = 0;
  CsvReader reader([&](const CsvReader::Row&) { return ++rows < 2; });
  EXPECT_FALSE(reader.read("a\nb\nc\nd\n"));
  EXPECT_FALSE(reader.finish());
  EXPECT_EQ(rows, 2);
}

TEST(CsvReader, KeepsNoRowWithoutEnd) {
  CsvReader reader([](const CsvReader::Row&) { return true; });
  const std::string piece(std::size_t{1} << 20, 'x');
  int pieces = 0;
  while (pieces < 100 && reader.read(piece)) ++pieces;
  EXPECT_EQ(pieces, 4);
  EXPECT_TRUE(reader.isTooLong());
}

}  // namespace
}  // namespace importer
