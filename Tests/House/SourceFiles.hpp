// The files of the source tree.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

namespace house {

struct SourceFile {
  std::string path;  ///< below the source tree
  std::string text;
};

/// Those below the folders whose names end so: {"Platform", "Host"}, {".cpp", ".hpp"}.
[[nodiscard]] inline std::vector<SourceFile> filesBelow(
    std::initializer_list<const char*> folders, std::initializer_list<const char*> extensions) {
  namespace fs = std::filesystem;
  const fs::path root{QUORVEL_SOURCE_DIR};
  std::vector<SourceFile> files;
  for (const char* folder : folders) {
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
      const auto extension = entry.path().extension();
      if (std::find(extensions.begin(), extensions.end(), extension) == extensions.end()) continue;
      std::ostringstream text;
      text << std::ifstream(entry.path()).rdbuf();
      files.push_back({fs::relative(entry.path(), root).string(), text.str()});
    }
  }
  return files;
}

}  // namespace house
