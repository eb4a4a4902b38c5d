// A program whose lines a test reads one by one.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "Foundation/FileDescriptor.hpp"

namespace resident {

class Subprocess {
 public:
  Subprocess(const std::vector<std::string>& command, const std::vector<std::string>& environment);
  ~Subprocess();
  Subprocess(const Subprocess&) = delete;
  Subprocess& operator=(const Subprocess&) = delete;

  /// The next line of its output; nothing at the end, or when none comes in half a minute.
  [[nodiscard]] std::optional<std::string> line();
  /// Reads lines until one holds the text; that line, or nothing.
  [[nodiscard]] std::optional<std::string> lineWith(const std::string& text);
  void write(const std::string& text) const;
  /// Nobody reads its output any more.
  void closeOutput() { output_.reset(); }
  /// The exit status, 128 and more for a signal.
  int wait();
  [[nodiscard]] pid_t id() const { return process_; }
  /// What it has said on its error stream; after wait().
  [[nodiscard]] std::string errors() const;

 private:
  pid_t process_ = 0;
  foundation::FileDescriptor input_{-1};
  foundation::FileDescriptor output_{-1};
  foundation::FileDescriptor errors_{-1};
  std::string buffer_;
};

}  // namespace resident
