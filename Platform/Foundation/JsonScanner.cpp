// The walk itself: structure, strings, numbers, and where a problem stands.
#include "Foundation/JsonScanner.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ranges>
#include <utility>

#include "Foundation/Utf8.hpp"

namespace foundation {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kMaximumProblems = 100;

constexpr std::array<double, 16> kPowers = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// A number without an exponent, as most are.
struct PlainNumber {
  const char* end = nullptr;  ///< what follows it; null if the text is not such a number
  bool isExact = false;       ///< the value is known, for it has at most fifteen digits
  double value = 0;
};

inline PlainNumber readPlainNumber(const char* at, const char* end) {
  const bool isNegative = *at == '-';
  if (isNegative) ++at;
  std::uint64_t digits = 0;
  const auto takeDigits = [&] {
    const char* const first = at;
    for (; at != end && isDigit(*at); ++at) {
      digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    }
    return at - first;
  };
  const char* const whole = at;
  const std::ptrdiff_t wholes = takeDigits();
  if (wholes == 0 || (wholes > 1 && *whole == '0')) return {};
  std::ptrdiff_t fractions = 0;
  if (at != end && *at == '.') {
    ++at;
    fractions = takeDigits();
    if (fractions == 0) return {};
  }
  if (at != end && (*at | 0x20) == 'e') return {};
  if (wholes + fractions > 15) return {at};
  // Both are doubles themselves, so one division rounds correctly.
  auto magnitude = static_cast<double>(digits);
  if (fractions > 0) magnitude /= kPowers[static_cast<std::size_t>(fractions)];
  return {at, true, isNegative ? -magnitude : magnitude};
}

/// The first quotation mark, backslash or control character; `end` when there is none.
inline const char* plainEnd(const char* at, const char* end) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kTops = 0x8080808080808080;
  const auto zeroBytes = [](std::uint64_t w) { return (w - kOnes) & ~w; };
  while (end - at >= 8) {
    std::uint64_t word;
    std::memcpy(&word, at, 8);
    if constexpr (std::endian::native == std::endian::big) word = std::byteswap(word);
    // The lowest marked byte is exact in each of the three; higher ones may be wrong and are not
    // looked at.
    const std::uint64_t control = (word - kOnes * 0x20) & ~word;
    const std::uint64_t marks =
        (control | zeroBytes(word ^ kOnes * '"') | zeroBytes(word ^ kOnes * '\\')) & kTops;
    if (marks != 0) return at + std::countr_zero(marks) / 8;
    at += 8;
  }
  while (at != end && *at != '"' && *at != '\\' && static_cast<unsigned char>(*at) >= 0x20) ++at;
  return at;
}

std::string_view typeName(char first) {
  switch (first) {
    case '{':
      return "object";
    case '[':
      return "array";
    case '"':
      return "string";
    case 't':
    case 'f':
      return "boolean";
    case 'n':
      return "null";
    default:
      return isDigit(first) || first == '-' ? "number" : "";
  }
}

/// RFC 6901 writes two characters otherwise. Of an endless key only as much is looked at as any
/// pointer has room for.
void appendPointerToken(std::string& out, std::string_view key) {
  for (const char c : key.substr(0, kMaximumPointer + 1)) {
    if (c == '~') {
      out += "~0";
    } else if (c == '/') {
      out += "~1";
    } else {
      out += c;
    }
  }
}

bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

JsonScanner::JsonScanner(std::string_view text, std::size_t maximumDepth, std::size_t maximumString)
    : maximumDepth_(std::min(maximumDepth, kMaximumDepth)), maximumString_(maximumString) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const std::size_t wellFormed = firstInvalidUtf8(text);
  cutAtBadUtf8_ = wellFormed < text.size();
  text = text.substr(0, wellFormed);
  begin_ = at_ = text.data();
  end_ = begin_ + text.size();
}

bool JsonScanner::open() {
  if (stopped_) return false;
  if (depth_ == maximumDepth_) return fail(fmt::format("at most {} levels", maximumDepth_));
  ++depth_;
  ++at_;
  return true;
}

inline bool JsonScanner::isKey(std::string_view guess) const {
  const std::size_t room = static_cast<std::size_t>(end_ - at_);
  return !guess.empty() && room > guess.size() + 1 && at_[guess.size() + 1] == '"' &&
         std::memcmp(at_ + 1, guess.data(), guess.size()) == 0;
}

inline bool JsonScanner::next(bool isFirst, char closing) {
  if (stopped_) return false;
  const char c = peek();
  if (!isFirst && c == ',') {
    ++at_;
    return true;
  }
  if (c == closing) {
    ++at_;
    --depth_;
    return false;
  }
  return isFirst || fail(closing == '}' ? "comma or end of object" : "comma or end of array");
}

inline bool JsonScanner::colon() {
  if (peek() != ':') return fail("colon");
  ++at_;
  return true;
}

bool JsonScanner::nextElement(Descent& array) {
  array.place_ = Descent::Place::between;
  if (!next(array.count_ == 0, ']')) return false;
  array.place_ = Descent::Place::element;
  ++array.count_;
  return true;
}

bool JsonScanner::nextMember(Descent& object, std::string_view guess) {
  object.place_ = Descent::Place::between;
  if (!next(object.count_ == 0, '}') || !atKey()) return false;
  ++object.count_;

  if (isKey(guess)) {
    object.setKey(guess);
    at_ += guess.size() + 2;
    return colon();
  }
  const char* const quote = at_++;
  const char* const stop = plainEnd(at_, end_);
  if (stop != end_ && *stop == '"') {
    object.setKey({at_, stop});
    at_ = stop + 1;
  } else {
    bool isText = true;
    object.unescaped_.clear();
    if (!unescape(object.unescaped_, isText)) return false;
    object.setKey(object.unescaped_);
    if (!isText) note(quote, "string", "lone surrogate");
  }
  return isWithinString(object.key().size(), quote) && colon();
}

bool JsonScanner::isWithinString(std::size_t size, const char* quote) {
  if (size <= maximumString_) return true;
  at_ = quote;
  return fail(fmt::format("string of at most {} bytes", maximumString_));
}

bool JsonScanner::literal(std::string_view name) {
  if (stopped_) return false;
  for (const char c : name) {
    if (at_ == end_ || *at_ != c) return fail(name);
    ++at_;
  }
  return true;
}

bool JsonScanner::string(std::string& out) {
  if (stopped_) return false;
  const char* const quote = at_++;
  const char* const stop = plainEnd(at_, end_);
  if (stop != end_ && *stop == '"') {
    out.assign(at_, stop);
    at_ = stop + 1;
  } else {
    bool isText = true;
    out.clear();
    if (!unescape(out, isText)) return false;
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

bool JsonScanner::skipNumber() {
  const auto failAt = [&](const char* at, std::string_view expected) {
    at_ = at;
    return fail(expected);
  };
  const char* at = at_;
  const auto skipDigits = [&, end = end_] {
    const char* const first = at;
    while (at != end && isDigit(*at)) ++at;
    return at != first;
  };

  if (*at == '-') ++at;
  const char* const whole = at;
  if (!skipDigits()) return failAt(at, "digit");
  if (*whole == '0' && at > whole + 1) return failAt(whole + 1, "no digit after a leading zero");
  if (at != end_ && *at == '.') {
    ++at;
    if (!skipDigits()) return failAt(at, "digit");
  }
  if (at != end_ && (*at | 0x20) == 'e') {
    ++at;
    if (at != end_ && (*at == '-' || *at == '+')) ++at;
    if (!skipDigits()) return failAt(at, "digit");
  }
  at_ = at;
  return true;
}

bool JsonScanner::number(double& out) {
  if (stopped_) return false;
  const char* const start = at_;
  const PlainNumber plain = readPlainNumber(start, end_);
  if (plain.isExact) {
    out = plain.value;
    at_ = plain.end;
    return true;
  }
  if (plain.end != nullptr) {
    at_ = plain.end;
  } else if (!skipNumber()) {
    return false;
  }
  if (std::from_chars(start, at_, out).ec != std::errc::result_out_of_range) return true;

  // Too small for a double reads as zero.
  const bool isLarge = std::isinf(std::strtod(std::string(start, at_).c_str(), nullptr));
  out = *start == '-' ? -0.0 : 0.0;
  if (isLarge) note(start, "number within a double's range", "number too large");
  return true;
}

void JsonScanner::plainNumbers(Descent& array, std::vector<double>& out) {
  // The walk itself stays before the comma: whatever is not a plain number is not begun here.
  for (const char* at = afterSpace(at_); at != end_; at = afterSpace(at_)) {
    if (array.count_ > 0) {
      if (*at != ',') return;
      at = afterSpace(at + 1);
    }
    const PlainNumber plain = at == end_ ? PlainNumber{} : readPlainNumber(at, end_);
    if (!plain.isExact) return;
    out.push_back(plain.value);
    ++array.count_;
    at_ = plain.end;
  }
}

std::size_t JsonScanner::expectedElements(std::size_t count) const {
  if (count == 0) return 1;
  const auto taken = static_cast<double>(at_ - innermost_->begin_);
  const double scale = static_cast<double>(end_ - innermost_->begin_) / taken;
  return static_cast<std::size_t>(static_cast<double>(count) * std::clamp(scale, 1.5, 8.0)) + 1;
}

bool JsonScanner::skipContainer() {
  const bool isObject = *at_ == '{';
  if (!open()) return false;
  for (bool isFirst = true; next(isFirst, isObject ? '}' : ']'); isFirst = false) {
    if (isObject && (!atKey() || !skipString() || !colon())) return false;
    if (!skipValue()) return false;
  }
  return !stopped_;
}

bool JsonScanner::skipValue() {
  if (stopped_) return false;
  const char first = peek();
  switch (first) {
    case '"':
      return skipString();
    case '{':
    case '[':
      return skipContainer();
    case 't':
      return literal("true");
    case 'f':
      return literal("false");
    case 'n':
      return literal("null");
    default:
      break;
  }
  return typeName(first).empty() ? fail("value") : skipNumber();
}

bool JsonScanner::finish() {
  if (stopped_) return false;
  peek();
  return at_ == end_ && !cutAtBadUtf8_ ? true : fail("end of document");
}

void JsonScanner::mismatch(std::string_view expected) {
  const std::string_view found = typeName(peek());
  const char* const start = at_;
  if (skipValue()) note(start, expected, found);
}

void JsonScanner::note(const char* at, std::string_view expected, std::string_view found) {
  if (noted_.size() == kMaximumProblems) {
    ++leftOut_;
    return;
  }
  // A missing key is noted at the start of its object, after the problems within.
  noted_.insert(
      std::ranges::upper_bound(noted_, at, {}, &Noted::at),
      {at, {.pointer = pointer(), .expected = std::string(expected), .found = std::string(found)}});
}

bool JsonScanner::fail(std::string_view expected) {
  if (stopped_) return false;
  const bool atBadUtf8 = cutAtBadUtf8_ && at_ == end_;
  note(at_, atBadUtf8 ? "UTF-8" : expected, foundAt(at_));
  stopped_ = true;
  return false;
}

std::string JsonScanner::foundAt(const char* at) const {
  if (at == end_ && !cutAtBadUtf8_) return "end of document";
  if (isDigit(*at)) return "digit";  // never which: it may belong to an amount
  if (*at > 0x20 && *at < 0x7F) return fmt::format("'{}'", *at);
  return fmt::format("byte 0x{:02X}", static_cast<unsigned char>(*at));
}

std::string JsonScanner::pointer() const {
  std::vector<const Descent*> descents;
  for (const Descent* d = innermost_; d != nullptr; d = d->parent_) descents.push_back(d);
  std::string out;
  for (const Descent* descent : descents | std::views::reverse) {
    if (descent->place_ == Descent::Place::between) break;  // only the innermost can be
    if (out.size() > kMaximumPointer) break;
    out += '/';
    if (descent->place_ == Descent::Place::element) {
      out += fmt::format_int(descent->count_ - 1).str();
    } else {
      appendPointerToken(out, descent->key_);
    }
  }
  shortenUtf8(out, kMaximumPointer);
  return out;
}

std::vector<JsonProblem> JsonScanner::takeProblems() {
  std::vector<JsonProblem> problems;
  std::size_t line = 1;
  const char* lineStart = begin_;
  const char* counted = begin_;
  for (Noted& noted : noted_) {
    for (; counted != noted.at; ++counted) {
      if (*counted != '\n') continue;
      ++line;
      lineStart = counted + 1;
    }
    noted.problem.line = line;
    noted.problem.column = static_cast<std::size_t>(noted.at - lineStart) + 1;
    problems.push_back(std::move(noted.problem));
  }
  noted_.clear();
  return problems;
}

}  // namespace foundation
