// Sources that a reader can take in at a glance: short functions, short files, tests that are named
// alike, approvals that fit a screen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Form.hpp"
#include "SourceFiles.hpp"

namespace house {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(TestNames, BeginWithACapital) {
  std::vector<std::string> found;
  std::size_t files = 0;
  for (const SourceFile& file : filesBelow({"Tests"}, {".cpp"})) {
    ++files;
    for (const std::string& name : uncapitalizedTests(file.text)) {
      found.push_back(file.path + ": " + name);
    }
  }
  EXPECT_GT(files, 100U);
  EXPECT_THAT(found, IsEmpty());
}

TEST(TestNames, ASmallLetterIsFound) {
  EXPECT_THAT(uncapitalizedTests("TEST(Suite, isFound) {\nTEST_P(Suite,\n       too) {\n"
                                 "TEST_F(Suite, IsAsItShouldBe) {\n"),
              ElementsAre("Suite.isFound", "Suite.too"));
}

// A tree is read line by line, beside another one.
TEST(Approvals, NoLineIsLongerThan140Columns) {
  std::size_t lines = 0;
  for (const SourceFile& file : filesBelow({"Tests/Expected"}, {".txt"})) {
    for (const std::string_view line : linesOf(file.text)) {
      ++lines;
      EXPECT_LE(columnsOf(line), 140U) << file.path << ": " << line;
    }
  }
  EXPECT_GT(lines, 1000U);
}

constexpr std::size_t kMostLines = 400;
constexpr std::size_t kMostLinesOfAFunction = 60;

std::vector<SourceFile> everySource(std::initializer_list<const char*> extensions) {
  return filesBelow({"Platform", "QuorvelWidgets", "Host", "Import", "Tests", "Fuzz", "Benchmarks"},
                    extensions);
}

TEST(Files, HaveAtMost400LinesUnlessTheyAreTables) {
  for (const SourceFile& file : everySource({".cpp", ".hpp", ".mjs", ".js"})) {
    if (file.path.find("/node_modules/") != std::string::npos) continue;
    if (file.path.ends_with("/WidgetStringTable.cpp")) continue;
    EXPECT_LE(linesOf(file.text).size(), kMostLines) << file.path;
  }
}

TEST(Functions, HaveAtMost60Lines) {
  std::size_t functions = 0;
  for (const SourceFile& file : everySource({".cpp", ".hpp"})) {
    for (const Function& function : functionsIn(file.text)) {
      ++functions;
      EXPECT_LE(function.lines, kMostLinesOfAFunction)
          << file.path << ":" << function.line << ": " << function.opening;
    }
  }
  EXPECT_GT(functions, 4000U);
}

// A child may sleep, since that is how it misbehaves; who waits for it has an event to wait for.
TEST(Tests, NeverSleep) {
  for (const SourceFile& file : filesBelow({"Tests"}, {".cpp", ".hpp"})) {
    const bool isChild = file.path.find("/children/") != std::string::npos;
    if (isChild || file.path == "Tests/House/FormTest.cpp") continue;
    EXPECT_THAT(sleepsIn(file.text), IsEmpty()) << file.path;
  }
}

TEST(Tests, ACallThatSleepsIsFound) {
  EXPECT_THAT(sleepsIn("  std::this_thread::sleep_for(1s);\n  ::usleep(5);\n  \"sleep 5\""),
              ElementsAre("sleep_for(", "usleep("));
}

TEST(Functions, AreFoundWithTheirLengths) {
  const auto found = functionsIn(
      "namespace a {\n"
      "\n"
      "int one(int x) {\n"
      "  if (x) {\n"
      "    return 1;\n"
      "  }\n"
      "}\n"
      "\n"
      "constexpr Row kRows[] = {\n"
      "    {1, f(2)},\n"
      "};\n"
      "struct Pair {\n"
      "  int first;\n"
      "  template <class T>\n"
      "  [[nodiscard]] int second(T first,\n"
      "                           T last) const {\n"
      "    return 2;\n"
      "  }\n"
      "};\n"
      "TEST(Suite, Name) {\n"
      "}\n"
      "INSTANTIATE(Rows, Suite, [](const auto& row) {\n"
      "                           return row.name;\n"
      "                         });\n"
      "}  // namespace a\n");
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0].opening, "int one(int x) {");
  EXPECT_EQ(found[0].line, 3U);
  EXPECT_EQ(found[0].lines, 5U);
  EXPECT_EQ(found[1].opening, "template <class T>");
  EXPECT_EQ(found[1].lines, 5U);
  EXPECT_EQ(found[2].lines, 2U);
}

}  // namespace
}  // namespace house
