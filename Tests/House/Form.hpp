// The form of sources that the formatter does not decide: how long functions are, how tests are
// named. Reads formatted sources, in which a block ends where a line of its indentation begins with
// a brace.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace house {

struct Function {
  std::size_t line = 0;   ///< where it begins, counted from 1
  std::size_t lines = 0;  ///< with its signature and its last brace
  std::string opening;    ///< its first line
};

/// Functions with a body of their own, those of classes included; not lambdas within them, and not
/// tables.
[[nodiscard]] std::vector<Function> functionsIn(std::string_view text);

/// The tests whose names do not begin with a capital, as "Suite.name".
[[nodiscard]] std::vector<std::string> uncapitalizedTests(std::string_view text);

/// The names of calls that wait for time to pass, with their parenthesis.
[[nodiscard]] std::vector<std::string> sleepsIn(std::string_view text);

/// Code points, since bytes say nothing about how wide a line is.
[[nodiscard]] std::size_t columnsOf(std::string_view line);

[[nodiscard]] std::vector<std::string_view> linesOf(std::string_view text);

}  // namespace house
