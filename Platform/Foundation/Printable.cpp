#include "Foundation/Printable.hpp"

#include <fmt/format.h>

#include "Foundation/Utf8.hpp"

namespace foundation {

namespace {

bool isControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0x2028 || c == 0x2029;
}
bool isEmbeddingOrOverride(char32_t c) {
  return c >= 0x202A && c <= 0x202E;
}
bool isIsolate(char32_t c) {
  return c >= 0x2066 && c <= 0x2069;
}

template <class Keeps>
std::string escaped(std::string_view text, Keeps&& keeps) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Utf8Step step = utf8Step(text);
    if (!step.valid) {
      for (const char byte : text.substr(0, step.length)) {
        result += fmt::format("\\x{:02X}", static_cast<unsigned char>(byte));
      }
    } else if (keeps(step.scalar)) {
      result += text.substr(0, step.length);
    } else {
      result += fmt::format("\\u{:04X}", static_cast<std::uint32_t>(step.scalar));
    }
    text.remove_prefix(step.length);
  }
  return result;
}

}  // namespace

std::string printable(std::string_view text) {
  return escaped(
      text, [](char32_t c) { return !isControl(c) && !isEmbeddingOrOverride(c) && !isIsolate(c); });
}

std::string printableLines(std::string_view text) {
  return escaped(
      text, [](char32_t c) { return c == '\n' || (!isControl(c) && !isEmbeddingOrOverride(c)); });
}

}  // namespace foundation
