// What the command line programs share: how a command ends, and how it speaks to a person.
//
//     namespace cli { using namespace foundation::command; }
//     if (!found) return refused(file + ": no such file");
#pragma once

#include <expected>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace foundation::command {

enum class ExitCode { done = 0, refused = 1, usage = 2 };

/// One line that says what was refused, where and what to do; empty when enough was said.
struct Failure {
  ExitCode code = ExitCode::refused;
  std::string line;
};

template <class T>
using Result = std::expected<T, Failure>;

[[nodiscard]] inline std::unexpected<Failure> refused(std::string line) {
  return std::unexpected(Failure{ExitCode::refused, std::move(line)});
}
[[nodiscard]] inline std::unexpected<Failure> misused(std::string line) {
  return std::unexpected(Failure{ExitCode::usage, std::move(line)});
}

/// Carries a command line out and ends it: a failure is said in its line, and so is what libraries
/// throw, for want of memory above all.
[[nodiscard]] int concluded(std::string_view program,
                            const std::function<Result<void>()>& carryOut);

/// To standard output, as it is; refused when that is full or closed.
[[nodiscard]] Result<void> printBytes(std::string_view bytes);

/// To standard output, with everything escaped that a terminal would obey.
[[nodiscard]] Result<void> print(std::string_view text);

/// To the error stream, escaped alike; a failure is ignored.
void complain(std::string_view text);

}  // namespace foundation::command
