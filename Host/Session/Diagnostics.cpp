#include "Session/Diagnostics.hpp"

#include <algorithm>

namespace session {

namespace {

constexpr std::size_t kMaximumLine = 200;

char shown(char c) {
  return c >= 0x20 && c < 0x7f ? c : '?';
}

}  // namespace

std::string asciiLine(std::string_view text) {
  std::string result(text.substr(0, kMaximumLine));
  std::ranges::transform(result, result.begin(), shown);
  return result;
}

void Diagnostics::append(std::string_view bytes) {
  if (bytes.size() > kKept) bytes.remove_prefix(bytes.size() - kKept);
  text_ += bytes;
  if (text_.size() > kKept) text_.erase(0, text_.size() - kKept);
}

std::string Diagnostics::text() const {
  std::string result = text_;
  std::ranges::transform(result, result.begin(), [](char c) { return c == '\n' ? c : shown(c); });
  return result;
}

std::string Diagnostics::lastLine() const {
  const std::size_t end = text_.find_last_not_of('\n');
  if (end == std::string::npos) return {};
  const std::size_t before = text_.find_last_of('\n', end);
  const std::size_t begin = before == std::string::npos ? 0 : before + 1;
  return asciiLine(std::string_view{text_}.substr(begin, end + 1 - begin));
}

}  // namespace session
