// quorvel-import as a whole: words in, exit status out.
#pragma once

#include <filesystem>
#include <span>

#include "Foundation/Locale.hpp"

namespace importer {

struct Program {
  foundation::ProcessEnvironment environment;
  std::filesystem::path folder;  ///< of the program itself
};

/// Complaints go to the error output. 0 done, 1 refused, 2 usage.
[[nodiscard]] int run(std::span<const char* const> words, const Program& program);

}  // namespace importer
