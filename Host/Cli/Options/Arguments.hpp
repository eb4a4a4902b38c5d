// Reads a command and its options from the words of a command line.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "Cli/Options/Options.hpp"
#include "Cli/Program.hpp"
#include "Cli/Result.hpp"

namespace cli {

/// The commands with one line about each, and how to learn more.
[[nodiscard]] std::string overview();

/// A command with its options, or the help that was asked for.
struct Arguments {
  Result<void> (*run)(const Options&, const Program&) = nullptr;
  Options options;
  std::string help;
};
[[nodiscard]] Result<Arguments> readArguments(std::string_view command,
                                              std::span<const char* const> words);

}  // namespace cli
