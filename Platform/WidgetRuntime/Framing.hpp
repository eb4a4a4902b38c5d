// Messages in a byte stream: a Content-Length header, an empty line, the body. Knows no transport.
#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace widgetruntime {

inline constexpr std::size_t kMaximumHeader = 1024;  ///< bytes of a frame's header lines

struct FrameError {
  std::string message;  ///< one line

  friend bool operator==(const FrameError&, const FrameError&) = default;
};

[[nodiscard]] std::string encodeFrame(std::string_view body);

/// Takes bytes in pieces of any size and gives messages. After an error there is no way to tell
/// where the next frame starts: the decoder stays in error, and whoever reads the stream gives it
/// up.
class FrameDecoder {
 public:
  explicit FrameDecoder(std::size_t maximumMessage);

  void append(std::string_view bytes);

  /// The next whole message; nothing while one is incomplete.
  [[nodiscard]] std::expected<std::optional<std::string>, FrameError> next();

  /// Bytes held and not yet given out.
  [[nodiscard]] std::size_t pending() const { return buffer_.size() - position_; }

 private:
  [[nodiscard]] std::expected<std::optional<std::string>, FrameError> fail(std::string message);
  /// The length that a whole header says, which is passed over; nothing while one is incomplete.
  [[nodiscard]] std::expected<std::optional<std::size_t>, FrameError> readHeader();

  std::size_t maximumMessage_;
  std::string buffer_;
  std::size_t position_ = 0;  // of the first byte not yet given out
  std::optional<std::size_t> bodyLength_;
  std::optional<FrameError> error_;
};

}  // namespace widgetruntime
