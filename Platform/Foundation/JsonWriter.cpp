// The writer's escaping and number forms.
#include "Foundation/JsonWriter.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include "Foundation/Utf8.hpp"

namespace foundation {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool isPlain(char c) {
  return static_cast<unsigned char>(c) >= 0x20 && static_cast<unsigned char>(c) < 0x80 &&
         c != '"' && c != '\\';
}

void appendEscaped(std::string& out, char c) {
  constexpr std::string_view kHex = "0123456789abcdef";
  switch (c) {
    case '"':
      out += "\\\"";
      return;
    case '\\':
      out += "\\\\";
      return;
    case '\b':
      out += "\\b";
      return;
    case '\f':
      out += "\\f";
      return;
    case '\n':
      out += "\\n";
      return;
    case '\r':
      out += "\\r";
      return;
    case '\t':
      out += "\\t";
      return;
    default:
      out += "\\u00";
      out += kHex[static_cast<unsigned char>(c) >> 4];
      out += kHex[static_cast<unsigned char>(c) & 15];
  }
}

void appendString(std::string& out, std::string_view text) {
  out += '"';
  while (!text.empty()) {
    std::size_t plain = 0;
    while (plain < text.size() && isPlain(text[plain])) ++plain;
    out.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) break;
    if (static_cast<unsigned char>(text.front()) < 0x80) {
      appendEscaped(out, text.front());
      text.remove_prefix(1);
      continue;
    }
    const Utf8Step step = utf8Step(text);
    out += step.valid ? text.substr(0, step.length) : kReplacement;
    text.remove_prefix(step.length);
  }
  out += '"';
}

template <class Number>
void appendShortest(std::string& out, Number number) {
  std::array<char, 32> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  out.append(buffer.data(), result.ptr);
}

/// Most numbers are whole or hundredths of small ones. Fifteen digits are one double's at most, so
/// that the digits found here are the shortest, and from 0.01 to 99,999 so is their plain form.
void appendNumber(std::string& out, double number) {
  constexpr double kShortestWhenPlain = 1e5;
  const double magnitude = std::abs(number);
  const bool isPlain = magnitude > 0 && magnitude < kShortestWhenPlain;
  const auto hundredths = static_cast<std::int64_t>(isPlain ? magnitude * 100 + 0.5 : 0);
  if (!isPlain || static_cast<double>(hundredths) / 100 != magnitude) {
    appendShortest(out, number);
    return;
  }
  if (number < 0) out += '-';
  appendShortest(out, hundredths / 100);
  const auto fraction = static_cast<int>(hundredths % 100);
  if (fraction == 0) return;
  out += '.';
  out += static_cast<char>('0' + fraction / 10);
  if (fraction % 10 != 0) out += static_cast<char>('0' + fraction % 10);
}

}  // namespace

void JsonWriter::separate() {
  if (needsComma_) text_ += ',';
  needsComma_ = true;
}

JsonWriter& JsonWriter::beginObject() {
  separate();
  text_ += '{';
  needsComma_ = false;
  return *this;
}

JsonWriter& JsonWriter::endObject() {
  text_ += '}';
  needsComma_ = true;
  return *this;
}

JsonWriter& JsonWriter::beginArray() {
  separate();
  text_ += '[';
  needsComma_ = false;
  return *this;
}

JsonWriter& JsonWriter::endArray() {
  text_ += ']';
  needsComma_ = true;
  return *this;
}

JsonWriter& JsonWriter::key(std::string_view name) {
  separate();
  appendString(text_, name);
  text_ += ':';
  needsComma_ = false;
  return *this;
}

JsonWriter& JsonWriter::value(std::string_view text) {
  separate();
  appendString(text_, text);
  return *this;
}

JsonWriter& JsonWriter::value(double number) {
  if (!std::isfinite(number)) return null();
  separate();
  appendNumber(text_, number);
  return *this;
}

JsonWriter& JsonWriter::value(std::int64_t number) {
  separate();
  appendShortest(text_, number);
  return *this;
}

JsonWriter& JsonWriter::value(bool boolean) {
  return raw(boolean ? "true" : "false");
}

JsonWriter& JsonWriter::null() {
  return raw("null");
}

JsonWriter& JsonWriter::raw(std::string_view json) {
  separate();
  text_ += json;
  return *this;
}

std::string indentedJson(std::string_view json) {
  std::string out;
  std::size_t depth = 0;
  const auto breakLine = [&] { out.append(1, '\n').append(2 * depth, ' '); };
  bool isInString = false;
  for (std::size_t i = 0; i < json.size(); ++i) {
    const char c = json[i];
    if (isInString) {
      out += c;
      if (c == '\\') out += json[++i];
      isInString = c != '"';
      continue;
    }
    isInString = c == '"';
    const bool closes = c == '}' || c == ']';
    const bool isEmpty = closes && (out.ends_with('{') || out.ends_with('['));
    if (closes) {
      --depth;
      if (!isEmpty) breakLine();
    } else if (out.ends_with('{') || out.ends_with('[') || out.ends_with(',')) {
      breakLine();
    }
    out += c;
    if (c == ':') out += ' ';
    if (c == '{' || c == '[') ++depth;
  }
  return out;
}

}  // namespace foundation
