#include <gtest/gtest.h>

#include "Foundation/Printable.hpp"

namespace foundation {
namespace {

TEST(Printable, KeepsTextOfEveryScript) {
  for (const char* text : {"", "Northbank — Café", "日本語", "العربية", "हिन्दी", "💳", "a\\b"}) {
    EXPECT_EQ(printable(text), text);
    EXPECT_EQ(printableLines(text), text);
  }
}

TEST(Printable, EscapesControlCharacters) {
  EXPECT_EQ(printable("a\x1B[2Jb\nc\td\x7F"), "a\\u001B[2Jb\\u000Ac\\u0009d\\u007F");
  EXPECT_EQ(printable(std::string_view("\0", 1)), "\\u0000");
  EXPECT_EQ(printable("\u0080\u009B\u009F\u00A0"), "\\u0080\\u009B\\u009F\u00A0");
  EXPECT_EQ(printable("\u2028\u2029"), "\\u2028\\u2029");
}

TEST(Printable, EscapesWhatTurnsTheTextAround) {
  EXPECT_EQ(printable("\u202A\u202B\u202C\u202D\u202E"), "\\u202A\\u202B\\u202C\\u202D\\u202E");
  EXPECT_EQ(printable("\u2066\u2067\u2068\u2069"), "\\u2066\\u2067\\u2068\\u2069");
}

TEST(Printable, EscapesBytesThatAreNoText) {
  EXPECT_EQ(printable("a\xFFz\xC3("), "a\\xFFz\\xC3(");
  EXPECT_EQ(printable("\xED\xA0\x80"), "\\xED\\xA0\\x80");
}

TEST(Printable, LinesKeepTheirEndsAndTheIsolatesOfTheirAmounts) {
  EXPECT_EQ(printableLines("a\n\u2066$1\u2069\r\n\u202E\x1B"),
            "a\n\u2066$1\u2069\\u000D\n\\u202E\\u001B");
}

}  // namespace
}  // namespace foundation
