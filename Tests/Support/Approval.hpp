// Compares a text with the file that a person has read and approved.
//
//     class TreeApproval : public ::testing::TestWithParam<testsupport::ApprovalCase> {};
//     TEST_P(TreeApproval, IsAsApproved) { EXPECT_TRUE(matchesExpected(GetParam())); }
//     INSTANTIATE_TEST_SUITE_P(Trees, TreeApproval, ValuesIn(cases()), testsupport::testName);
//     TEST(TreeApprovals, EveryFileHasItsCase) {
//       EXPECT_EQ(testsupport::expectedNames("Trees"), testsupport::namesOf(cases()));
//     }
#pragma once

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace testsupport {

inline std::filesystem::path expectedFile(std::string_view name) {
  return std::filesystem::path{QUORVEL_SOURCE_DIR} / "Tests" / "Expected" /
         (std::string{name} + ".txt");
}

/// The first line in which two texts differ, for a message that can be read at a glance.
inline std::string firstDifference(const std::string& expected, const std::string& actual) {
  std::istringstream left{expected};
  std::istringstream right{actual};
  for (int line = 1; left || right; ++line) {
    std::string a;
    std::string b;
    const bool hasA = static_cast<bool>(std::getline(left, a));
    const bool hasB = static_cast<bool>(std::getline(right, b));
    if (!hasA && !hasB) break;
    if (hasA != hasB || a != b) {
      return "line " + std::to_string(line) + "\n  expected: " + (hasA ? a : "(end)") +
             "\n  actual:   " + (hasB ? b : "(end)");
    }
  }
  return "white space at the end";
}

/// `name` is a path below Tests/Expected without ".txt". A missing file fails; with
/// QUORVEL_REBASELINE=1 in the environment (tools/rebaseline) the file is written instead of
/// compared.
inline ::testing::AssertionResult matchesExpected(std::string_view name,
                                                  const std::string& actual) {
  const std::filesystem::path file = expectedFile(name);
  const char* rebaseline = std::getenv("QUORVEL_REBASELINE");
  if (rebaseline != nullptr && std::string_view{rebaseline} == "1") {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream{file, std::ios::binary} << actual;
    return ::testing::AssertionSuccess();
  }
  std::ifstream in{file, std::ios::binary};
  if (!in) {
    return ::testing::AssertionFailure()
           << file.string() << " is missing; write it with tools/rebaseline and review it";
  }
  const std::string expected{std::istreambuf_iterator<char>{in}, {}};
  if (expected == actual) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << file.string() << " differs in " << firstDifference(expected, actual);
}

/// The names of the approved files in a folder below Tests/Expected.
inline std::set<std::string> expectedNames(std::string_view folder) {
  std::set<std::string> names;
  const auto root = std::filesystem::path{QUORVEL_SOURCE_DIR} / "Tests" / "Expected" / folder;
  if (!std::filesystem::exists(root)) return names;
  for (const auto& entry : std::filesystem::directory_iterator{root}) {
    names.insert(std::string{folder} + "/" + entry.path().stem().string());
  }
  return names;
}

// ---- one test per file

struct ApprovalCase {
  std::string name;  ///< a path below Tests/Expected without ".txt"
  std::function<std::string()> text;
};

inline void PrintTo(const ApprovalCase& approval, std::ostream* out) {
  *out << approval.name;
}

inline ::testing::AssertionResult matchesExpected(const ApprovalCase& approval) {
  return matchesExpected(approval.name, approval.text());
}

inline std::set<std::string> namesOf(const std::vector<ApprovalCase>& cases) {
  std::set<std::string> names;
  for (const ApprovalCase& approval : cases) names.insert(approval.name);
  return names;
}

/// "Due/small-full" is the test "Due_SmallFull".
inline std::string testName(const ::testing::TestParamInfo<ApprovalCase>& info) {
  std::string name;
  bool startsWord = true;
  for (const char c : info.param.name) {
    if (c == '/') name += '_';
    const bool isLetter = std::isalnum(static_cast<unsigned char>(c)) != 0;
    if (isLetter) name += startsWord ? static_cast<char>(std::toupper(c)) : c;
    startsWord = !isLetter;
  }
  return name;
}

}  // namespace testsupport
