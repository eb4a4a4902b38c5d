// Numbers: most are plain and read at once; the others as the language reads them.
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Foundation/Ascii.hpp"
#include "Foundation/JsonScanner.hpp"

namespace foundation {
namespace {

constexpr std::array<double, 16> kPowers = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

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
    for (; at != end && isAsciiDigit(*at); ++at) {
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

}  // namespace

bool JsonScanner::skipNumber() {
  const auto failAt = [&](const char* at, std::string_view expected) {
    at_ = at;
    return fail(expected);
  };
  const char* at = at_;
  const auto skipDigits = [&, end = end_] {
    const char* const first = at;
    while (at != end && isAsciiDigit(*at)) ++at;
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

}  // namespace foundation
