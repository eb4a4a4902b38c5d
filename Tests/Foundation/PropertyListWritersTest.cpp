// Property lists that another library wrote (Python's plistlib), and what that library reads of
// ours.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "Foundation/FileManager.hpp"
#include "Foundation/PropertyList.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace foundation {
namespace {

using testsupport::TemporaryFolder;

constexpr std::string_view kValues = R"(
import datetime, plistlib, sys
values = {
    "text": "a<b>&\"'é😀",
    "control": "tab\there",
    "empty": "",
    "large": 2**63 - 1,
    "negative": -5,
    "real": 0.1,
    "flag": True,
    "date": datetime.datetime(2025, 3, 14, 9, 30),
    "data": bytes([0, 1, 255]),
    "list": [1, "x", [], {"k": False}],
    "long": "&" * 500,
}
)";

PropertyList expectedValues() {
  return PropertyList::Dictionary{
      {"text", "a<b>&\"'é😀"},
      {"control", "tab\there"},
      {"empty", ""},
      {"large", std::int64_t{INT64_MAX}},
      {"negative", std::int64_t{-5}},
      {"real", 0.1},
      {"flag", true},
      {"date", Instant{1'741'944'600}},
      {"data", PropertyList::Data{0, 1, 255}},
      {"list",
       PropertyList::Array{
           std::int64_t{1}, "x", PropertyList::Array{}, PropertyList::Dictionary{{"k", false}}}},
      {"long", std::string(500, '&')}};
}

/// Runs a script in the folder; false when it fails, or when there is no Python.
bool runPython(const TemporaryFolder& folder, const std::string& script) {
  folder.write("script.py", std::string(kValues) + script);
  return std::system(("cd '" + folder.path().string() + "' && python3 script.py").c_str()) == 0;
}

std::optional<PropertyList> read(const TemporaryFolder& folder, std::string_view name) {
  const auto bytes = contentsOfFile(folder.at(name));
  return bytes ? parsePropertyList(*bytes) : std::nullopt;
}

TEST(PropertyListWriters, BothFormsAreReadInFull) {
  const TemporaryFolder folder;
  ASSERT_TRUE(runPython(folder, R"(
open("xml", "wb").write(plistlib.dumps(values))
open("binary", "wb").write(plistlib.dumps(values, fmt=plistlib.FMT_BINARY))
)"));
  EXPECT_EQ(read(folder, "xml"), expectedValues());
  EXPECT_EQ(read(folder, "binary"), expectedValues());
}

TEST(PropertyListWriters, EveryEncodingOfTheXmlFormIsRead) {
  const TemporaryFolder folder;
  ASSERT_TRUE(runPython(folder, R"(
text = plistlib.dumps(values).decode()
open("mark", "wb").write(text.encode("utf-8-sig"))
text = text.replace('encoding="UTF-8"', 'encoding="UTF-16"')
for name in ("utf-16", "utf-16-le", "utf-16-be"):
    open(name, "wb").write(text.encode(name))
open("big-mark", "wb").write(b"\xfe\xff" + text.encode("utf-16-be"))
)"));
  for (const char* name : {"mark", "utf-16", "utf-16-le", "utf-16-be", "big-mark"}) {
    EXPECT_EQ(read(folder, name), expectedValues()) << name;
  }
}

TEST(PropertyListWriters, UidsAreReadAsXmlWritesThem) {
  const TemporaryFolder folder;
  ASSERT_TRUE(runPython(folder, R"(
open("uid", "wb").write(plistlib.dumps({"id": plistlib.UID(70000)}, fmt=plistlib.FMT_BINARY))
)"));
  EXPECT_EQ(read(folder, "uid"),
            PropertyList(PropertyList::Dictionary{
                {"id", PropertyList::Dictionary{{"CF$UID", std::int64_t{70000}}}}}));
}

TEST(PropertyListWriters, SettingAKeyKeepsEveryOtherValueInItsForm) {
  const TemporaryFolder folder;
  ASSERT_TRUE(runPython(folder, R"(
xml = dict(values, past=datetime.datetime(1, 1, 1), future=datetime.datetime(4001, 1, 1),
           wide=2**64 - 1)
binary = dict(xml, fraction=datetime.datetime(2025, 3, 14, 9, 30, 0, 250000),
              uid=plistlib.UID(5), wide=2**64 - 1)
open("xml", "wb").write(plistlib.dumps(xml))
open("binary", "wb").write(plistlib.dumps(binary, fmt=plistlib.FMT_BINARY))
)"));
  for (const char* name : {"xml", "binary"}) {
    const auto changed = propertyListBySetting(*contentsOfFile(folder.at(name)), "set", true);
    ASSERT_TRUE(changed) << name;
    folder.write(std::string(name) + ".changed", *changed);
  }
  EXPECT_TRUE(runPython(folder, R"(
for name, form in (("xml", plistlib.FMT_XML), ("binary", plistlib.FMT_BINARY)):
    before = plistlib.loads(open(name, "rb").read(), fmt=form)
    after = plistlib.loads(open(name + ".changed", "rb").read(), fmt=form)
    if dict(before, set=True) != after:
        sys.exit(f"{name}: {before} became {after}")
)"));
}

}  // namespace
}  // namespace foundation
