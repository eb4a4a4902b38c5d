// Runs other programs, at most two at a time, with bounds on what they print and how long they
// take.
//
//     std::string text;
//     std::vector<Subprocess> runs{{.command = {"hledger"}, .output = appendTo(text)}};
//     runSubprocesses(runs, environment, {});  // then runs[0].outcome.status is 0
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace importer {

using Environment = std::map<std::string, std::string>;

enum class Ending : std::uint8_t {
  notStarted,
  exited,    ///< `status` is the exit status, 128 and more for a signal
  missing,   ///< no such program on the search path
  failed,    ///< cannot be started; `status` is the error number
  tooSlow,   ///< ended by us
  tooMuch,   ///< printed more than the limit, ended by us
  declined,  ///< the reader of its output wanted no more, ended by us
};

struct Outcome {
  Ending ending = Ending::notStarted;
  int status = 0;
  std::string errors;  ///< what it said on its error output, at most kErrorLimit bytes

  [[nodiscard]] bool isSuccess() const { return ending == Ending::exited && status == 0; }
};

inline constexpr std::size_t kErrorLimit = std::size_t{64} << 10;

struct Subprocess {
  std::vector<std::string> command;  ///< the program, found on PATH, and its arguments
  /// Takes pieces of the standard output as they arrive; false ends the program.
  std::function<bool(std::string_view)> output;
  Outcome outcome;
};

struct SubprocessLimits {
  std::chrono::milliseconds time{60'000};       ///< for each program
  std::size_t output = std::size_t{256} << 20;  ///< bytes for each program
};

/// Runs all and waits; the outcomes stand in the records. Standard input is empty. What a program
/// itself started is ended with it.
void runSubprocesses(std::span<Subprocess> runs,
                     const Environment& environment,
                     const SubprocessLimits& limits);

/// An output that is kept.
[[nodiscard]] inline auto appendTo(std::string& text) {
  return [&text](std::string_view piece) {
    text += piece;
    return true;
  };
}

}  // namespace importer
