// The short way: texts of letters, digits and common signs need no Unicode data.
#include <array>
#include <optional>

#include "Rendering/Text/TextAnalysis.hpp"

namespace rendering {

namespace {

/// Line-breaking classes by their Unicode names; none: not a character of simple texts.
enum class Class : std::uint8_t {
  none,
  AL,
  NU,
  SP,
  PR,
  PO,
  IS,
  SY,
  OP,
  CL,
  CP,
  QU,
  HY,
  BA,
  EX,
  GL,
  IN,
  CM
};

constexpr auto kAscii = [] {
  std::array<Class, 128> table{};
  for (int c = 0x21; c < 0x7F; ++c) table[c] = Class::AL;
  for (int c = '0'; c <= '9'; ++c) table[c] = Class::NU;
  table[' '] = Class::SP;
  for (char c : {'$', '+', '\\'}) table[c] = Class::PR;
  table['%'] = Class::PO;
  for (char c : {',', '.', ':', ';'}) table[c] = Class::IS;
  table['/'] = Class::SY;
  for (char c : {'(', '[', '{'}) table[c] = Class::OP;
  for (char c : {')', ']'}) table[c] = Class::CP;
  table['}'] = Class::CL;
  for (char c : {'"', '\''}) table[c] = Class::QU;
  table['-'] = Class::HY;
  table['|'] = Class::BA;
  for (char c : {'!', '?'}) table[c] = Class::EX;
  return table;
}();

constexpr Class classOf(char32_t c) {
  if (c < 0x80) return kAscii[c];
  if (c >= 0xC0 && c <= 0xFF) return c == 0xD7 || c == 0xF7 ? Class::none : Class::AL;
  switch (c) {
    case 0xA0:
    case 0x202F:
      return Class::GL;
    case 0xA3:
    case 0xA5:
    case 0x20AC:  // euro
    case 0x20A9:  // won
    case 0x20B9:  // rupee
    case 0x20BD:  // rouble
      return Class::PR;
    case 0xB7:
    case 0x2022:
      return Class::AL;
    case 0x2019:
      return Class::QU;
    case 0x2013:
      return Class::BA;
    case 0x2026:
      return Class::IN;
    case 0x2066:
    case 0x2068:
    case 0x2069:
      return Class::CM;
    default:
      return Class::none;
  }
}

/// One character of well-formed UTF-8 with one to three bytes; 0 for anything else.
char32_t next(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) -> std::uint32_t {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
  };
  const auto take = [&](std::size_t bytes, std::uint32_t scalar) -> char32_t {
    at += bytes;
    return scalar;
  };
  const auto continues = [](std::uint32_t unit) { return (unit & 0xC0) == 0x80; };
  const std::uint32_t a = byte(at);
  if (a < 0x80) return take(1, a);
  const std::uint32_t b = byte(at + 1);
  if (a >= 0xC2 && a < 0xE0 && continues(b)) return take(2, (a & 0x1F) << 6 | (b & 0x3F));
  const std::uint32_t c = byte(at + 2);
  if (a == 0xE2 && continues(b) && continues(c)) {
    return take(3, (a & 0xF) << 12 | (b & 0x3F) << 6 | (c & 0x3F));
  }
  return 0;
}

constexpr bool isLetterOrDigit(Class c) {
  return c == Class::AL || c == Class::NU;
}

/// Whether a line may end between two characters; absent where the answer needs more than the two.
std::optional<bool> breaksBetween(Class before, Class after, bool spaces) {
  using enum Class;
  if (spaces) {
    if (after == EX || after == CP || after == CL || before == OP) return false;
    if (after == SY || after == IS || (before == QU && after == OP)) return std::nullopt;
    return true;
  }
  if (after == CL || after == CP || after == EX || after == QU || after == IN) return false;
  if (before == OP || before == QU || before == GL) return false;
  if (after == GL) return before == BA || before == HY ? std::nullopt : std::optional(false);
  if (isLetterOrDigit(before)) return false;  // nothing may follow a letter or digit on a new line
  if (before == PR || before == PO) {
    if (isLetterOrDigit(after) || after == IS || after == SY) return false;
    return std::nullopt;
  }
  if (before == IS && (isLetterOrDigit(after) || after == IS)) return false;
  if (before == CP && (isLetterOrDigit(after) || after == IS)) return false;
  return std::nullopt;
}

}  // namespace

bool analyzeSimple(std::string_view text,
                   const TextStyle& style,
                   std::vector<AnalyzedCluster>& out) {
  out.clear();
  if (style.direction != viewkit::LayoutDirection::leftToRight) return false;
  Class before = Class::none;
  bool spaces = false;
  bool marked = false;  // an isolate directly behind a sign: how the sign binds is no longer plain
  for (std::size_t at = 0; at < text.size();) {
    const auto begin = static_cast<std::uint32_t>(at);
    const char32_t character = next(text, at);
    Class type = character != 0 ? classOf(character) : Class::none;
    if (type == Class::none) return false;
    AnalyzedCluster cluster{begin, static_cast<std::uint32_t>(at), kLatinScript};
    if (type == Class::CM) {
      cluster.ignorable = true;
      cluster.drawn = false;
      // An isolate belongs to what stands before it; behind a space or at the start it counts as a
      // letter.
      const bool attached = before != Class::none && !spaces;
      if (!attached && !out.empty()) out.back().breakAfter = before != Class::OP;
      if (!attached) before = Class::AL;
      marked = !isLetterOrDigit(before);
    } else if (type == Class::SP) {
      cluster.isSpace = true;
      spaces = true;
      out.push_back(cluster);
      continue;
    } else if (before == Class::none) {
      if (!out.empty()) {
        const auto breaks = breaksBetween(Class::AL, type, /*spaces=*/true);
        if (!breaks) return false;
        out.back().breakAfter = *breaks;
      }
      before = type;
    } else {
      const auto breaks = breaksBetween(before, type, spaces);
      if (!breaks || (marked && !spaces)) return false;
      out.back().breakAfter = *breaks;
      before = type;
      marked = false;
    }
    spaces = false;
    out.push_back(cluster);
  }
  return true;
}

}  // namespace rendering
