// Reads the words behind the program's name.
#pragma once

#include <span>
#include <string>

#include "Import/Options.hpp"
#include "Import/Result.hpp"

namespace importer {

struct Arguments {
  std::string command;
  Options options;
  std::string help;  ///< asked for: shown in place of running
};

[[nodiscard]] Result<Arguments> readArguments(std::span<const char* const> words);

/// The commands and what each does.
[[nodiscard]] std::string overview();

}  // namespace importer
