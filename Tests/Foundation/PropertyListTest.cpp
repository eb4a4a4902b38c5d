// Both forms of property lists, what is malformed, and bundles that read them.
#include <gtest/gtest.h>

#include <chrono>

#include "Foundation/Bundle.hpp"
#include "Foundation/PropertyList.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace foundation {
namespace {

using testsupport::TemporaryFolder;

std::string document(std::string_view content) {
  return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + std::string(content) +
         "</plist>";
}

/// One-byte offsets and references; the first object is the root.
std::string binary(const std::vector<std::string>& objects) {
  std::string out = "bplist00";
  std::string offsets;
  for (const std::string& object : objects) {
    offsets += static_cast<char>(out.size());
    out += object;
  }
  const auto table = static_cast<char>(out.size());
  out += offsets;
  out += std::string(6, '\0') + "\x01\x01";
  out += std::string(7, '\0') + static_cast<char>(objects.size());
  out += std::string(8, '\0');
  out += std::string(7, '\0') + table;
  return out;
}

TEST(PropertyListXml, ReadsEveryType) {
  const auto list = parsePropertyList(document(
      "<dict><key>s</key><string>a&amp;b é</string><key>t</key><true/><key>f</key><false/>"
      "<key>i</key><integer>-5</integer><key>r</key><real>2.5</real>"
      "<key>d</key><date>2025-03-14T09:30:00Z</date><key>b</key><data>AAH/</data>"
      "<key>a</key><array><integer>1</integer><string/></array><key>o</key><dict/></dict>"));
  ASSERT_TRUE(list && list->dictionary());
  const auto& values = *list->dictionary();
  EXPECT_EQ(*values.at("s").string(), "a&b é");
  EXPECT_EQ(*values.at("t").boolean(), true);
  EXPECT_EQ(*values.at("f").boolean(), false);
  EXPECT_EQ(*values.at("i").integer(), -5);
  EXPECT_EQ(*values.at("r").real(), 2.5);
  EXPECT_EQ(values.at("d").date()->seconds, 1741944600);
  EXPECT_EQ(*values.at("b").data(), (PropertyList::Data{0, 1, 255}));
  ASSERT_EQ(values.at("a").array()->size(), 2U);
  EXPECT_EQ(*values.at("a").array()->at(0).integer(), 1);
  EXPECT_EQ(*values.at("a").array()->at(1).string(), "");
  EXPECT_TRUE(values.at("o").dictionary()->empty());
}

TEST(PropertyListXml, WritesWhatItReads) {
  const PropertyList list(PropertyList::Dictionary{
      {"s", "a<&>\"é"},
      {"t", true},
      {"i", std::int64_t{-5}},
      {"r", 0.1},
      {"d", Instant{1741944600}},
      {"b", PropertyList::Data{0, 1, 255}},
      {"a", PropertyList::Array{PropertyList("x"), PropertyList::Dictionary{{"k", false}}}}});
  EXPECT_EQ(parsePropertyList(xmlPropertyList(list)), list);
}

TEST(PropertyListXml, MalformedDocumentsAreNothing) {
  for (const std::string& text :
       {std::string(),
        std::string("x"),
        std::string("<plist>"),
        std::string("<dict>"),

        document("<dict><string>a</string></dict>"),
        document("<dict>"),
        document("<dict></array>"),
        document("<unknown/>"),
        document("<!-- <dict/>"),
        document("<![CDATA["),
        std::string("<!DOCTYPE plist [<!ENTITY a \"b\">]>") + document("<true/>")}) {
    EXPECT_FALSE(parsePropertyList(text)) << text;
  }
}

TEST(PropertyListXml, CommentsAreSkipped) {
  const auto list = parsePropertyList(
      document("<!-- <array> --><dict><!-- </dict> --><key>a</key><true/></dict>"));
  ASSERT_TRUE(list && list->dictionary());
  EXPECT_TRUE(list->dictionary()->contains("a"));
}

TEST(PropertyListXml, DeepNestingIsMalformed) {
  const auto nested = [](std::size_t levels) {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i) text += "<array>";
    for (std::size_t i = 0; i < levels; ++i) text += "</array>";
    return document(text);
  };
  EXPECT_TRUE(parsePropertyList(nested(63)));  // <plist> is one level
  EXPECT_FALSE(parsePropertyList(nested(64)));
  EXPECT_FALSE(parsePropertyList(nested(60'000)));
}

TEST(PropertyListXml, MoreThanAMegabyteIsMalformed) {
  const std::string small = document("<string>" + std::string(1000, 'x') + "</string>");
  const std::string large =
      document("<string>" + std::string(kMaximumPropertyList, 'x') + "</string>");
  EXPECT_TRUE(parsePropertyList(small));
  EXPECT_FALSE(parsePropertyList(large));
}

TEST(PropertyListBinary, ReadsADictionary) {
  // {"a": true, "n": 258, "u": "é"}
  const auto list = parsePropertyList(binary({"\xD3\x01\x02\x03\x04\x05\x06",
                                              "\x51"
                                              "a",
                                              "\x51"
                                              "n",
                                              "\x51"
                                              "u",
                                              "\x09",
                                              "\x11\x01\x02",
                                              std::string("\x61\x00\xE9", 3)}));
  ASSERT_TRUE(list && list->dictionary());
  EXPECT_EQ(*list->dictionary()->at("a").boolean(), true);
  EXPECT_EQ(*list->dictionary()->at("n").integer(), 258);
  EXPECT_EQ(*list->dictionary()->at("u").string(), "é");
}

TEST(PropertyListBinary, SharedObjectsAreReadWhereverTheyStand) {
  const auto list = parsePropertyList(binary({"\xA2\x01\x01",
                                              "\x51"
                                              "a"}));
  ASSERT_TRUE(list && list->array());
  EXPECT_EQ(*list, PropertyList(PropertyList::Array{PropertyList("a"), PropertyList("a")}));
}

TEST(PropertyListBinary, ArrayThatHoldsItselfIsMalformed) {
  EXPECT_FALSE(parsePropertyList(binary({std::string("\xA1\x00", 2)})));
}

TEST(PropertyListBinary, DoublingAtEveryLevelIsMalformed) {
  std::vector<std::string> objects;
  for (char i = 1; i <= 40; ++i) objects.push_back({'\xA2', i, i});
  objects.push_back(
      "\x51"
      "a");
  EXPECT_FALSE(parsePropertyList(binary(objects)));
}

TEST(PropertyListBinary, DeepNestingIsMalformed) {
  const auto nested = [](char levels) {
    std::vector<std::string> objects;
    for (char i = 1; i < levels; ++i) objects.push_back({'\xA1', i});
    objects.push_back("\x09");
    return binary(objects);
  };
  EXPECT_TRUE(parsePropertyList(nested(64)));
  EXPECT_FALSE(parsePropertyList(nested(65)));
}

TEST(PropertyListBinary, EveryTruncationIsMalformed) {
  const std::string whole = binary({"\xD1\x01\x02",
                                    "\x51"
                                    "a",
                                    "\x09"});
  ASSERT_TRUE(parsePropertyList(whole));
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(parsePropertyList(std::string_view(whole).substr(0, size))) << size;
  }
}

TEST(PropertyListBinary, ReferenceOutsideTheTableIsMalformed) {
  EXPECT_FALSE(parsePropertyList(binary({"\xA1\x07"})));
}

TEST(PropertyListBinary, NulInAStringOrKeyIsMalformed) {
  using std::string_literals::operator""s;
  EXPECT_FALSE(
      parsePropertyList(binary({"\x53"
                                "a\0b"s})));
  EXPECT_FALSE(parsePropertyList(binary({"\x61\0\0"s})));
  EXPECT_FALSE(parsePropertyList(binary({"\xD1\x01\x02", "\x51\0"s, "\x09"})));
}

TEST(PropertyListXml, NulIsMalformed) {
  for (const char* reference : {"&#0;", "&#00;", "&#x0;"}) {
    EXPECT_FALSE(parsePropertyList(document("<string>a" + std::string(reference) + "</string>")));
  }
  EXPECT_FALSE(parsePropertyList(document("<string>a" + std::string(1, '\0') + "</string>")));
}

TEST(PropertyListXml, EveryReferenceToACharacterIsRead) {
  const auto text = parsePropertyList(
      document("<string>&#039;&#39;&#x27;&#x0027;&#233;&#x1F600;&#00065;&lt;</string>"));
  ASSERT_TRUE(text && text->string());
  EXPECT_EQ(*text->string(), "''''é😀A<");
}

TEST(PropertyListXml, ReferencesToNoCharacterAreMalformed) {
  for (const char* reference : {"&#x00;",
                                "&#X0;",
                                "&#+0;",
                                "&#-0;",
                                "&# 0;",
                                "&#;",
                                "&#x;",
                                "&#xD800;",
                                "&#x110000;",
                                "&#4294967296;",
                                "&#18446744073709551616;",
                                "&#39",
                                "&",
                                "&unknown;"}) {
    EXPECT_FALSE(parsePropertyList(document("<string>a" + std::string(reference) + "</string>")))
        << reference;
  }
}

TEST(PropertyListXml, WhatLooksLikeAReferenceToNulElsewhereIsText) {
  EXPECT_TRUE(parsePropertyList(document("<!-- &#0; --><string><![CDATA[&#0;]]></string>")));
}

TEST(PropertyListXml, TextThatIsNotWellFormedIsMalformed) {
  using std::string_literals::operator""s;
  EXPECT_FALSE(parsePropertyList(document("<string>\xC3</string>")));
  EXPECT_FALSE(parsePropertyList("\xFF\xFE<\0x"s));
  EXPECT_FALSE(parsePropertyList("\xFF\xFE\x3D\xD8<\0"s));
  EXPECT_FALSE(parsePropertyList("\xFE\xFF"s));
  EXPECT_FALSE(parsePropertyList("<\0"s));
}

/// Text repeated up to the limit of a document.
std::string filled(std::string_view before, std::string_view piece, std::string_view after) {
  std::string out(before);
  while (out.size() + piece.size() + after.size() + 200 < kMaximumPropertyList) out += piece;
  return document(out + std::string(after));
}

#if defined(__SANITIZE_ADDRESS__)
constexpr std::chrono::milliseconds kLittleTime{4000};  // instrumented code is slow
#else
constexpr std::chrono::milliseconds kLittleTime{800};
#endif

TEST(PropertyListXml, TheLargestDocumentsOfEveryShapeTakeLittleTime) {
  for (const std::string& text : {filled("<string>", "&amp;", "</string>"),
                                  filled("<string>", "&#38;", "</string>"),
                                  filled("<string>", "<![CDATA[]]>", "</string>"),
                                  filled("<string>", "<!---->", "</string>"),
                                  filled("<string>", "<![CDATA[&]]>&amp;", "</string>"),
                                  filled("<array>", "<true/>", "</array>"),
                                  filled("<array>", "<string>&amp;</string>", "</array>"),
                                  filled("<dict>", "<key>a</key><true/>", "</dict>"),
                                  filled("<data>", "AAAA", "</data>"),
                                  filled("<array>", "<![CDATA[]]>", "</array>"),
                                  filled("<integer>", "<!---->", "</integer>")}) {
    const auto start = std::chrono::steady_clock::now();
    static_cast<void>(parsePropertyList(text));
    EXPECT_LT(std::chrono::steady_clock::now() - start, kLittleTime) << text.substr(60, 60);
  }
}

TEST(PropertyListXml, ManyKeysTakeLittleTime) {
  std::string content = "<dict>";
  for (int i = 0; content.size() + 100 < kMaximumPropertyList - 200; ++i) {
    content += "<key>" + std::to_string(i) + "</key><true/>";
  }
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(parsePropertyList(document(content + "</dict>")));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(800));
}

TEST(PropertyListEditing, SetsOneKeyAndKeepsTheRest) {
  const auto changed = propertyListBySetting(
      document(
          "<dict><key>a</key><integer>18446744073709551611</integer><key>b</key><false/></dict>"),
      "b",
      true);
  ASSERT_TRUE(changed);
  EXPECT_NE(changed->find("<integer>18446744073709551611</integer>"), std::string::npos);
  EXPECT_EQ(*parsePropertyList(*changed)->dictionary()->at("b").boolean(), true);
}

TEST(PropertyListEditing, NeedsADictionary) {
  EXPECT_FALSE(propertyListBySetting(document("<array/>"), "b", true));
  EXPECT_FALSE(propertyListBySetting("", "b", true));
}

TEST(BundleInformation, GivesValuesWithTheirTypes) {
  const TemporaryFolder folder;
  folder.write(
      "Info.plist",
      document("<dict><key>Name</key><string> </string><key>N</key><integer>3</integer></dict>"));
  const Bundle bundle = Bundle::withInformationAt(folder.at("Info.plist"));
  ASSERT_NE(bundle.objectForInfoDictionaryKey("Name"), nullptr);
  EXPECT_EQ(*bundle.objectForInfoDictionaryKey("Name")->string(), " ");
  EXPECT_EQ(bundle.objectForInfoDictionaryKey("N")->string(), nullptr);
  EXPECT_EQ(bundle.objectForInfoDictionaryKey("name"), nullptr);
}

TEST(BundleInformation, MissingOrMalformedIsEmpty) {
  const TemporaryFolder folder;
  folder.write("broken.plist", "<plist><dict><key>Name</key><string>x</string>");
  folder.write("array.plist", document("<array/>"));
  for (const char* name : {"none.plist", "broken.plist", "array.plist", ""}) {
    const Bundle bundle = Bundle::withInformationAt(folder.at(name));
    EXPECT_EQ(bundle.objectForInfoDictionaryKey("Name"), nullptr) << name;
  }
}

}  // namespace
}  // namespace foundation
