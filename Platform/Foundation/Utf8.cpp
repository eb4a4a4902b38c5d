// Well-formed byte sequences after the Unicode Standard's table 3-7.
#include "Foundation/Utf8.hpp"

#include <array>
#include <cstdint>
#include <cstring>

namespace foundation {
namespace {

struct Lead {
  std::size_t length;  // 0: no lead byte
  unsigned char low;   // range of the second byte
  unsigned char high;
};

constexpr Lead leadOf(unsigned char byte) {
  if (byte < 0x80) return {1, 0, 0};
  if (byte < 0xC2) return {0, 0, 0};
  if (byte < 0xE0) return {2, 0x80, 0xBF};
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  if (byte < 0xF4) return {4, 0x80, 0xBF};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

/// The end of the ASCII characters that begin at `offset`.
std::size_t asciiEnd(std::string_view text, std::size_t offset) {
  constexpr std::uint64_t kTops = 0x8080808080808080;
  std::array<std::uint64_t, 4> words;
  for (; text.size() - offset >= sizeof words; offset += sizeof words) {
    std::memcpy(words.data(), text.data() + offset, sizeof words);
    if (((words[0] | words[1] | words[2] | words[3]) & kTops) != 0) break;
  }
  while (offset < text.size() && static_cast<unsigned char>(text[offset]) < 0x80) ++offset;
  return offset;
}

}  // namespace

Utf8Step utf8Step(std::string_view text) {
  if (text.empty()) return {};
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byteAt(0);
  const Lead lead = leadOf(first);
  if (lead.length == 0) return {.length = 1};
  if (lead.length == 1) return {first, 1, true};

  char32_t scalar = first & (0x7Fu >> lead.length);
  for (std::size_t i = 1; i < lead.length; ++i) {
    if (i == text.size()) return {.length = i};
    const unsigned char byte = byteAt(i);
    const bool follows = i == 1 ? byte >= lead.low && byte <= lead.high : (byte & 0xC0) == 0x80;
    if (!follows) return {.length = i};
    scalar = scalar << 6 | (byte & 0x3Fu);
  }
  return {scalar, lead.length, true};
}

std::size_t firstInvalidUtf8(std::string_view text) {
  std::size_t offset = asciiEnd(text, 0);
  while (offset < text.size()) {
    const Utf8Step step = utf8Step(text.substr(offset));
    if (!step.valid) return offset;
    offset = asciiEnd(text, offset + step.length);
  }
  return offset;
}

void appendUtf8(std::string& out, char32_t scalar) {
  const auto push = [&](char32_t byte) { out += static_cast<char>(byte); };
  const auto tail = [&](int shift) { push(0x80 | (scalar >> shift & 0x3F)); };
  if (scalar < 0x80) {
    push(scalar);
  } else if (scalar < 0x800) {
    push(0xC0 | scalar >> 6);
    tail(0);
  } else if (scalar < 0x10000) {
    push(0xE0 | scalar >> 12);
    tail(6);
    tail(0);
  } else {
    push(0xF0 | scalar >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string_view utf8Prefix(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0U) == 0x80U) --most;
  return text.substr(0, most);
}

void shortenUtf8(std::string& text, std::size_t most) {
  constexpr std::string_view kEllipsis = "\u2026";
  if (text.size() <= most) return;
  text.resize(utf8Prefix(text, most - kEllipsis.size()).size());
  text += kEllipsis;
}

}  // namespace foundation
