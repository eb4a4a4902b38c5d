// How a step of the importer ends: done, or with one line that says what was refused, where and
// what to do.
#pragma once

#include <expected>
#include <string>
#include <utility>

namespace importer {

enum class ExitCode { done = 0, refused = 1, usage = 2 };

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

}  // namespace importer
