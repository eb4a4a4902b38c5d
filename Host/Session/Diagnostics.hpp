// The last words of an extension: the end of what it wrote to its error stream.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace session {

/// At most 200 bytes of a foreign text, on one line, with a question mark for every byte that is
/// not printable ASCII.
[[nodiscard]] std::string asciiLine(std::string_view text);

class Diagnostics {
 public:
  static constexpr std::size_t kKept = 4096;

  void append(std::string_view bytes);
  void clear() { text_.clear(); }

  /// What is kept; line ends stay, other control characters and bytes beyond ASCII become question
  /// marks.
  [[nodiscard]] std::string text() const;
  /// The last line that is not empty, printable.
  [[nodiscard]] std::string lastLine() const;

 private:
  std::string text_;
};

}  // namespace session
