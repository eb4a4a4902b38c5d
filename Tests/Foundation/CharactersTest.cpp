// Clusters, classes, case and trimming; hexadecimal numbers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Foundation/Characters.hpp"
#include "Foundation/HexScanner.hpp"
#include "Foundation/Utf8.hpp"

namespace foundation {
namespace {

using testing::ElementsAre;

TEST(GraphemeClusters, AsciiIsOneEach) {
  EXPECT_THAT(graphemeClusters("ab-"), ElementsAre("a", "b", "-"));
  EXPECT_EQ(graphemeCount(""), 0U);
}

TEST(GraphemeClusters, CarriageReturnAndLineFeedAreOne) {
  EXPECT_THAT(graphemeClusters("a\r\nb\n\r"), ElementsAre("a", "\r\n", "b", "\n", "\r"));
}

TEST(GraphemeClusters, MarksStayWithTheirBase) {
  EXPECT_THAT(graphemeClusters("e\u0301x"), ElementsAre("e\u0301", "x"));
  EXPECT_THAT(graphemeClusters("-\u0301"), ElementsAre("-\u0301"));
}

TEST(GraphemeClusters, FlagsPairUp) {
  EXPECT_THAT(graphemeClusters("🇫🇷🇩🇪"), ElementsAre("🇫🇷", "🇩🇪"));
}

TEST(GraphemeClusters, FamiliesAndKeycapsAreOne) {
  EXPECT_EQ(graphemeCount("👨‍👩‍👧‍👦"), 1U);
  EXPECT_EQ(graphemeCount("1️⃣"), 1U);
  EXPECT_EQ(graphemeCount("한글"), 2U);
}

TEST(GraphemeClusters, InvalidBytesStillCoverTheText) {
  for (const std::string text : {"a\xFF"
                                 "b",
                                 "\x80\x80",
                                 "é\xE2\x82"}) {
    std::string joined;
    for (const std::string_view cluster : graphemeClusters(text)) joined += cluster;
    EXPECT_EQ(joined, text);
  }
}

TEST(CharacterClasses, LettersOfAllScripts) {
  for (const char* text :
       {"a", "Z", "é", "e\u0301", "漢", "あ", "한", "ع", "ह", "ª", "ⓐ", "🅰", "Ⅷ", "\u0345"}) {
    EXPECT_TRUE(isLetter(text)) << text;
  }
}

TEST(CharacterClasses, NumbersOfAllKinds) {
  for (const char* text : {"0", "9", "Ⅷ", "①", "㊈", "½", "²", "₂", "٣", "𝟠", "〇", "1️⃣"}) {
    EXPECT_TRUE(isNumber(text)) << text;
  }
}

TEST(CharacterClasses, EverythingElseIsNeither) {
  for (const char* text : {"#️⃣",
                           "😀",
                           "🇫🇷",
                           "👨‍👩‍👧",
                           "€",
                           ".",
                           " ",
                           "_",
                           "-",
                           "\x01",
                           "\r\n",
                           "\u0301",
                           "\xFF",
                           ""}) {
    EXPECT_FALSE(isLetter(text)) << text;
    EXPECT_FALSE(isNumber(text)) << text;
  }
}

TEST(UppercasedFirstCharacter, FollowsTheFullMapping) {
  EXPECT_EQ(uppercasedFirstCharacter("netflix"), "N");
  EXPECT_EQ(uppercasedFirstCharacter("ßa"), "SS");
  EXPECT_EQ(uppercasedFirstCharacter("ﬁx"), "FI");
  EXPECT_EQ(uppercasedFirstCharacter("ŉx"), "ʼN");
  EXPECT_EQ(uppercasedFirstCharacter("ı"), "I");
  EXPECT_EQ(uppercasedFirstCharacter("i"), "I");
  EXPECT_EQ(uppercasedFirstCharacter("İ"), "İ");
  EXPECT_EQ(uppercasedFirstCharacter("ǆ"), "Ǆ");
  EXPECT_EQ(uppercasedFirstCharacter("e\u0301a"), "E\u0301");
  EXPECT_EQ(uppercasedFirstCharacter("漢字"), "漢");
  EXPECT_EQ(uppercasedFirstCharacter("👨‍👩‍👧x"), "👨‍👩‍👧");
  EXPECT_EQ(uppercasedFirstCharacter(""), "");
}

TEST(TrimmingSpaces, TakesEveryUnicodeSpaceFromBothEnds) {
  EXPECT_EQ(trimmingSpaces(" \t a b \t"), "a b");
  EXPECT_EQ(trimmingSpaces("\u00A0\u1680\u2000\u200B\u202F\u205F\u3000x\u3000\u200A\u00A0"), "x");
  EXPECT_EQ(trimmingSpaces(" \t"), "");
  EXPECT_EQ(trimmingSpaces(""), "");
}

TEST(TrimmingSpaces, LeavesLineBreaksAndOtherInvisibles) {
  EXPECT_EQ(trimmingSpaces(" \n a \r "), "\n a \r");
  EXPECT_EQ(trimmingSpaces("\u2028x\u200C"), "\u2028x\u200C");
}

TEST(TrimmingSpaces, TakesScalarsNotClusters) {
  EXPECT_EQ(trimmingSpaces(" \u0301x"), "\u0301x");
}

TEST(TrimmingSpaces, StopsAtInvalidBytes) {
  EXPECT_EQ(trimmingSpaces(" \xFF \x80 "), "\xFF \x80");
}

TEST(ScanHexLongLong, ReadsDigitsUpToAnythingElse) {
  EXPECT_EQ(scanHexLongLong("6B1F3A"), 0x6B1F3AU);
  EXPECT_EQ(scanHexLongLong("6b1f3a"), 0x6B1F3AU);
  EXPECT_EQ(scanHexLongLong("FFF"), 0xFFFU);
  EXPECT_EQ(scanHexLongLong("FF6B1F3A"), 0xFF6B1F3AU);
  EXPECT_EQ(scanHexLongLong("6B 1F3A"), 0x6BU);
  EXPECT_EQ(scanHexLongLong("blue"), 0xBU);
  EXPECT_EQ(scanHexLongLong("12.5"), 0x12U);
}

TEST(ScanHexLongLong, SkipsSpacesAndLineBreaksBefore) {
  EXPECT_EQ(scanHexLongLong(" 6B1F3A"), 0x6B1F3AU);
  EXPECT_EQ(scanHexLongLong("\t\r\n\u00A0\u3000\u2028"
                            "12"),
            0x12U);
}

TEST(ScanHexLongLong, SkipsAPrefixOnlyBeforeADigit) {
  EXPECT_EQ(scanHexLongLong("0x6B1F3A"), 0x6B1F3AU);
  EXPECT_EQ(scanHexLongLong("0X6B1F3A"), 0x6B1F3AU);
  EXPECT_EQ(scanHexLongLong("0x"), 0U);
  EXPECT_EQ(scanHexLongLong("0xg"), 0U);
  EXPECT_EQ(scanHexLongLong("0x0x12"), 0U);
}

TEST(ScanHexLongLong, WithoutADigitThereIsNothing) {
  for (const char* text : {"", " ", "red", "-6B1F3A", "+12", "x6B", "GG0000"}) {
    EXPECT_EQ(scanHexLongLong(text), std::nullopt) << text;
  }
}

TEST(ScanHexLongLong, MoreThan64BitsAreAllOnes) {
  EXPECT_EQ(scanHexLongLong("FFFFFFFFFFFFFFFF"), 0xFFFFFFFFFFFFFFFFU);
  EXPECT_EQ(scanHexLongLong("12345678123456781"), 0xFFFFFFFFFFFFFFFFU);
  EXPECT_EQ(scanHexLongLong(std::string(1000, '0') + "6B1F3A"), 0x6B1F3AU);
}

TEST(Utf8, StepsOverWellFormedScalars) {
  EXPECT_EQ(utf8Step("a").scalar, U'a');
  EXPECT_EQ(utf8Step("é").scalar, U'é');
  EXPECT_EQ(utf8Step("€x").length, 3U);
  EXPECT_EQ(utf8Step("\U0010FFFF").scalar, U'\U0010FFFF');
}

TEST(Utf8, FindsTheFirstBadByte) {
  EXPECT_EQ(firstInvalidUtf8("aé€"), 6U);
  EXPECT_EQ(firstInvalidUtf8("aé\xFF"), 3U);
  EXPECT_EQ(firstInvalidUtf8("a\xC0\x80"), 1U);
  EXPECT_EQ(firstInvalidUtf8("\xED\xA0\x80"), 0U);
  EXPECT_EQ(firstInvalidUtf8("ab\xE2\x82"), 2U);
}

// Runs of ASCII are passed over many bytes at a time: a bad byte is found wherever it stands in
// one.
TEST(Utf8, FindsABadByteAtEveryPlace) {
  const std::string ascii(100, 'a');
  for (std::size_t at = 0; at < ascii.size(); ++at) {
    std::string text = ascii;
    text[at] = '\x80';
    EXPECT_EQ(firstInvalidUtf8(text), at);
    text.replace(at, 1, "€");
    EXPECT_EQ(firstInvalidUtf8(text), text.size());
    text.resize(at + 2);
    EXPECT_EQ(firstInvalidUtf8(text), at);
  }
}

TEST(Utf8, WritesWhatItReads) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar >= 0xD800 && scalar < 0xE000) continue;
    std::string text;
    appendUtf8(text, scalar);
    const Utf8Step step = utf8Step(text);
    ASSERT_TRUE(step.valid && step.length == text.size() && step.scalar == scalar)
        << static_cast<std::uint32_t>(scalar);
  }
}

TEST(Characters, EmojiAreThePicturesNotTheSigns) {
  for (const char* cluster :
       {"🏠", "👨‍👩‍👧", "🇫🇷", "👍🏽", "1️⃣", "☎️", "🌶"})
    EXPECT_TRUE(isEmoji(cluster)) << cluster;
  for (const char* cluster : {"a", "1", "©", "™", "☎", "漢", "&", ""})
    EXPECT_FALSE(isEmoji(cluster)) << cluster;
}

}  // namespace
}  // namespace foundation
