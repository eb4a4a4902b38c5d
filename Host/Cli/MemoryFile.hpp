// Bytes that have a path without being on a disk: documents made for one drawing, readable by a
// child process too.
#pragma once

#include <string>
#include <string_view>

#include "Cli/Result.hpp"

namespace cli {

class MemoryFile {
 public:
  [[nodiscard]] static Result<MemoryFile> make(std::string_view bytes);
  MemoryFile(MemoryFile&& other) noexcept;
  MemoryFile& operator=(MemoryFile&&) = delete;
  ~MemoryFile();

  [[nodiscard]] Result<void> replace(std::string_view bytes);
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  explicit MemoryFile(int descriptor);

  int descriptor_ = -1;
  std::string path_;
};

}  // namespace cli
