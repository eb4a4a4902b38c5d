// Which module may include what, and what in a source breaks that.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace house {

struct Module {
  std::string folder;                  ///< below the source tree
  std::vector<std::string> sees;       ///< beginnings of quoted includes
  bool callsSystem = false;            ///< POSIX and Linux headers
  std::vector<std::string> libraries;  ///< beginnings of library headers its .cpp files may include
};

/// Innermost folders first: the first that holds a file decides.
[[nodiscard]] std::span<const Module> modules();

/// The module of a path relative to the source tree; null for files outside of all modules.
[[nodiscard]] const Module* moduleOf(std::string_view path);

/// One line for each include that the file's module may not have: "path:line: header".
[[nodiscard]] std::vector<std::string> forbiddenIncludes(std::string_view path,
                                                         std::string_view text);

}  // namespace house
