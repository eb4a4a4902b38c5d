// Bits into bytes, lowest first, as deflate packs them (RFC 1951, 3.1.1).
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string>

namespace rendering {

/// Appends to a string, which may be longer than what is written until it is finished.
class BitWriter {
 public:
  explicit BitWriter(std::string& out) : out_(out), at_(out.size()) {}

  /// To be called before so many bytes are put.
  void makeRoom(std::size_t bytes) {
    const std::size_t needed = at_ + bytes + sizeof held_;
    if (needed > out_.size()) [[unlikely]]
      out_.resize(std::max(needed, out_.size() * 2));
  }

  /// At most 56 bits, none set above them. Always writes all that is held, which costs less than
  /// asking whether a byte is full.
  void put(std::uint64_t bits, int count) {
    held_ |= bits << used_;
    used_ += count;
    const std::uint64_t bytes =
        std::endian::native == std::endian::little ? held_ : std::byteswap(held_);
    std::memcpy(out_.data() + at_, &bytes, sizeof bytes);
    const int full = used_ / 8;
    at_ += static_cast<std::size_t>(full);
    held_ >>= full * 8;
    used_ %= 8;
  }

  /// Pads the last byte with zeros.
  void finish() {
    out_.resize(at_ + (used_ > 0 ? 1 : 0));
    used_ = 0;
  }

 private:
  std::string& out_;
  std::size_t at_;  ///< the byte that is not full yet
  std::uint64_t held_ = 0;
  int used_ = 0;
};

}  // namespace rendering
