// Reads a command and its options from the words of a command line.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "Cli/Options/Options.hpp"
#include "Cli/Result.hpp"

namespace cli {

/// The commands with one line about each, and how to learn more.
[[nodiscard]] std::string overview();

[[nodiscard]] bool isCommand(std::string_view name);

/// Either the options of a command, or the help that was asked for.
struct Arguments {
  Options options;
  std::string help;
};
[[nodiscard]] Result<Arguments> readArguments(std::string_view command,
                                              std::span<const char* const> words);

}  // namespace cli
