// Bits into bytes, lowest first, as deflate packs them (RFC 1951, 3.1.1).
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>

namespace rendering {

/// Appends to a string, which may be longer than what is written until it is finished.
class BitWriter {
 public:
  explicit BitWriter(std::string& out) : out_(out), at_(out.size()) {}

  /// At most 32 bits, none set above them.
  void put(std::uint64_t bits, int count) {
    held_ |= bits << used_;
    used_ += count;
    if (used_ >= 32) {
      if (out_.size() < at_ + 8) [[unlikely]]
        out_.resize(out_.size() * 2 + 4096);
      const auto low = static_cast<std::uint32_t>(held_);
      const std::array<char, 4> bytes{static_cast<char>(low),
                                      static_cast<char>(low >> 8),
                                      static_cast<char>(low >> 16),
                                      static_cast<char>(low >> 24)};
      std::memcpy(out_.data() + at_, bytes.data(), bytes.size());
      at_ += 4;
      held_ >>= 32;
      used_ -= 32;
    }
  }
  void finish() {
    out_.resize(at_);
    for (; used_ > 0; used_ -= 8, held_ >>= 8) out_.push_back(static_cast<char>(held_));
    used_ = 0;
  }

 private:
  std::string& out_;
  std::size_t at_;
  std::uint64_t held_ = 0;
  int used_ = 0;
};

}  // namespace rendering
