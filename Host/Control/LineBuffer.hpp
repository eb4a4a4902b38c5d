// Splits a byte stream into lines of bounded length.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace control {

inline constexpr std::size_t kMaximumLine = std::size_t{64} << 10;  ///< bytes, without the line end

class LineBuffer {
 public:
  explicit LineBuffer(std::size_t maximum = kMaximumLine) : maximum_(maximum) {}

  void append(std::string_view bytes) { buffer_ += bytes; }
  /// The next whole line, without its end; nothing while one is incomplete or too long.
  [[nodiscard]] std::optional<std::string> next();
  /// What is held is longer than a line may be; nothing after it can be told apart.
  [[nodiscard]] bool isTooLong() const;
  /// Bytes of a line whose end is missing.
  [[nodiscard]] std::size_t pending() const { return buffer_.size(); }

 private:
  std::size_t maximum_;
  std::string buffer_;
};

}  // namespace control
