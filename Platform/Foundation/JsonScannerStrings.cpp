// Strings: their escapes, and those that no text can hold.
#include <fmt/format.h>

#include <charconv>

#include "Foundation/JsonBytes.hpp"
#include "Foundation/JsonScanner.hpp"
#include "Foundation/Utf8.hpp"

namespace foundation {
namespace {

bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

bool JsonScanner::isWithinString(std::size_t size, const char* quote) {
  if (size <= maximumString_) return true;
  at_ = quote;
  return fail(fmt::format("string of at most {} bytes", maximumString_));
}

bool JsonScanner::string(std::string& out) {
  std::string_view text;
  if (!string(text, out)) return false;
  if (text.data() != out.data()) out = text;
  return true;
}

bool JsonScanner::string(std::string_view& out, std::string& unescaped) {
  if (stopped_) return false;
  const char* const quote = at_++;
  const char* const stop = plainEnd(at_, end_);
  if (stop != end_ && *stop == '"') {
    out = {at_, stop};
    at_ = stop + 1;
  } else {
    bool isText = true;
    unescaped.clear();
    if (!unescape(unescaped, isText)) return false;
    out = unescaped;
    if (!isText) note(quote, "string", "lone surrogate");
  }
  return isWithinString(out.size(), quote);
}

bool JsonScanner::unescape(std::string& out, bool& isText) {
  while (true) {
    const char* const stop = plainEnd(at_, end_);
    out.append(at_, stop);
    at_ = stop;
    if (at_ == end_) return fail("end of string");
    if (*at_ == '"') {
      ++at_;
      return true;
    }
    if (*at_ != '\\') return fail("escaped control character");
    if (!escape(&out, isText)) return false;
  }
}

bool JsonScanner::skipString() {
  if (stopped_) return false;
  ++at_;
  while (true) {
    at_ = plainEnd(at_, end_);
    if (at_ == end_) return fail("end of string");
    if (*at_ == '"') {
      ++at_;
      return true;
    }
    if (*at_ != '\\') return fail("escaped control character");
    bool isText =
        true;  // a lone surrogate is well-formed; it matters only where the string is read
    if (!escape(nullptr, isText)) return false;
  }
}

bool JsonScanner::escape(std::string* out, bool& isText) {
  constexpr std::string_view kNames = "\"\\/bfnrt";
  constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
  ++at_;
  if (at_ == end_) return fail("escape");
  if (*at_ != 'u') {
    const std::size_t which = kNames.find(*at_);
    if (which == std::string_view::npos) return fail("escape");
    if (out != nullptr) *out += kMeanings[which];
    ++at_;
    return true;
  }

  ++at_;
  char32_t scalar = 0;
  if (!hexUnit(scalar)) return false;
  if (isHighSurrogate(scalar) && end_ - at_ >= 2 && at_[0] == '\\' && at_[1] == 'u') {
    const char* const second = at_;
    at_ += 2;
    char32_t low = 0;
    if (!hexUnit(low)) return false;
    if (isLowSurrogate(low)) {
      scalar = 0x10000 + ((scalar - 0xD800) << 10) + (low - 0xDC00);
    } else {
      at_ = second;  // it is read again on its own
    }
  }
  const bool isLone = isHighSurrogate(scalar) || isLowSurrogate(scalar);
  if (isLone) isText = false;
  if (out != nullptr) appendUtf8(*out, isLone ? 0xFFFD : scalar);
  return true;
}

bool JsonScanner::hexUnit(char32_t& unit) {
  unit = 0;
  for (int i = 0; i < 4; ++i, ++at_) {
    std::uint32_t digit = 0;
    if (at_ == end_ || std::from_chars(at_, at_ + 1, digit, 16).ptr == at_) {
      return fail("four hexadecimal digits");
    }
    unit = unit << 4 | digit;
  }
  return true;
}

}  // namespace foundation
