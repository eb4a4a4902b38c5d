// The font files that drawing needs on this machine.
#pragma once

#include <string>
#include <vector>

namespace rendering {

/// Found or missing, with the Debian package that has it.
struct FontFile {
  std::string path;
  std::string package;
  bool optional = false;
  bool found = false;
};
[[nodiscard]] std::vector<FontFile> fontFiles();

}  // namespace rendering
