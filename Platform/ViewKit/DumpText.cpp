#include "ViewKit/DumpText.hpp"

#include <fmt/format.h>

#include <cmath>
#include <iterator>
#include <limits>

#include "ViewKit/Names.hpp"

namespace viewkit {

void appendNumber(std::string& out, double number) {
  if (std::isinf(number)) {
    out += number > 0 ? "infinity" : "-infinity";
  } else {
    fmt::format_to(std::back_inserter(out), "{:.6g}", number == 0 ? 0.0 : number);
  }
}

// ---- texts

namespace {

// No-break and narrow spaces, soft hyphen, zero-width characters, directional marks and isolates.
bool isUnseen(char32_t c) {
  return c < 0x20 || c == 0x7F || c == 0xA0 || c == 0xAD || (c >= 0x2000 && c <= 0x200F) ||
         (c >= 0x2028 && c <= 0x202F) || (c >= 0x205F && c <= 0x206F) || c == 0xFEFF;
}

// The length in bytes of the character at the front; texts that are not UTF-8 go byte by byte.
std::size_t decode(std::string_view text, char32_t& out) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  out = byte(0);
  const std::size_t length = out < 0xC0 ? 1 : out < 0xE0 ? 2 : out < 0xF0 ? 3 : 4;
  if (length == 1 || text.size() < length) return 1;
  out &= 0x7Fu >> length;
  for (std::size_t i = 1; i < length; ++i) out = (out << 6) | (byte(i) & 0x3Fu);
  return length;
}

}  // namespace

void appendQuoted(std::string& out, std::string_view text) {
  out += '"';
  while (!text.empty()) {
    char32_t c = 0;
    const std::size_t length = decode(text, c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c == '\n') {
      out += "\\n";
    } else if (length > 1 ? isUnseen(c) : c < 0x20 || c == 0x7F) {
      fmt::format_to(std::back_inserter(out), "\\u{:04X}", static_cast<std::uint32_t>(c));
    } else {
      out += text.substr(0, length);
    }
    text.remove_prefix(length);
  }
  out += '"';
}

// ---- lengths

namespace {

// A sum is written part by part; each part brings its own sign.
class SumText {
 public:
  explicit SumText(std::string& out) : out_(out), start_(out.size()) {}

  void add(double factor, std::string_view unit);
  void add(double factor, const Length::Term& term);
  void addConstant(double points);

 private:
  void sign(double factor);

  std::string& out_;
  std::size_t start_;
};

void SumText::sign(double factor) {
  if (out_.size() != start_) {
    out_ += factor < 0 ? " - " : " + ";
  } else if (factor < 0) {
    out_ += '-';
  }
}

// The n of a factor 1/n that has no short decimal form, else 0.
int divisorOf(double factor) {
  constexpr double kShort = 1e4;
  constexpr double kLargestDivisor = 1000;
  const double scaled = factor * kShort;
  if (std::abs(scaled - std::round(scaled)) < 1e-9) return 0;
  const double divisor = std::round(1 / factor);
  if (divisor > kLargestDivisor || std::abs(factor * divisor - 1) > 1e-12) return 0;
  return static_cast<int>(divisor);
}

void SumText::add(double factor, std::string_view unit) {
  if (factor == 0) return;
  sign(factor);
  const double size = std::abs(factor);
  const int divisor = divisorOf(size);
  if (size != 1 && divisor == 0) appendNumber(out_, size);
  out_ += unit;
  if (divisor != 0) out_ += '/' + std::to_string(divisor);
}

void SumText::add(double factor, const Length::Term& term) {
  sign(factor);
  const double size = std::abs(factor);
  const int divisor = divisorOf(size);
  if (size != 1 && divisor == 0) {
    appendNumber(out_, size);
    out_ += ' ';
  }
  out_ += nameOf(term.choice);
  out_ += '(';
  appendLength(out_, term.first);
  out_ += ", ";
  appendLength(out_, term.second);
  out_ += ')';
  if (divisor != 0) out_ += '/' + std::to_string(divisor);
}

void SumText::addConstant(double points) {
  if (points == 0 && out_.size() != start_) return;
  sign(points);
  appendNumber(out_, std::abs(points));
}

}  // namespace

void appendLength(std::string& out, const Length& length) {
  SumText sum(out);
  sum.add(length.widthFactor(), "W");
  sum.add(length.heightFactor(), "H");
  for (const Length::Term& term : length.terms()) sum.add(term.factor, term);
  sum.addConstant(length.points());
}

}  // namespace viewkit
