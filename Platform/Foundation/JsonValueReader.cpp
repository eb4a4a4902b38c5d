#include "Foundation/JsonValueReader.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cmath>
#include <limits>
#include <utility>

namespace foundation {
namespace {

std::string expectation(const Bounds& bounds) {
  if (!std::isfinite(bounds.least) && !std::isfinite(bounds.most)) return "expected a number";
  return fmt::format("expected a number {}{}...{}{}",
                     bounds.aboveLeast ? "above " : "in ",
                     bounds.least,
                     bounds.most,
                     bounds.infinity ? " or \"infinity\"" : "");
}

// Written so that NaN is out of bounds.
bool isWithin(double number, const Bounds& bounds) {
  return number >= bounds.least && number <= bounds.most &&
         !(bounds.aboveLeast && number == bounds.least);
}

}  // namespace

const JsonValue* JsonObjectCursor::take(std::string_view key) {
  for (std::size_t i = begin_; i < object_.size(); ++i) {
    if (object_[i].first != key) continue;
    if (i == begin_) ++begin_;
    if (i < kMostMembers) taken_.set(i);
    return &object_[i].second;
  }
  return nullptr;
}

std::optional<std::string_view> JsonObjectCursor::leftOver() const {
  for (std::size_t i = begin_; i < object_.size(); ++i) {
    if (i >= kMostMembers || !taken_.test(i)) return object_[i].first;
  }
  return std::nullopt;
}

// ---- failures

std::string JsonValueReader::failure() const {
  return (path_.empty() ? "/" : path_) + ": " + message_;
}

bool JsonValueReader::fail(std::string message) {
  message_ = std::move(message);
  return false;
}

bool JsonValueReader::fail(const JsonValueReader& part) {
  path_ = part.path_;
  return fail(part.message_);
}

bool JsonValueReader::failNames(std::span<const std::string_view> names) {
  return fail(fmt::format("expected {}", fmt::join(names, ", ")));
}

// Keys may come from the document: escaped as in a JSON pointer, and not too long to read.
bool JsonValueReader::at(std::string_view key) {
  constexpr std::size_t kMostShown = 40;
  std::string step = "/";
  for (const char c : key.substr(0, kMostShown)) {
    if (c == '~' || c == '/') {
      step += c == '~' ? "~0" : "~1";
    } else {
      step += c >= ' ' && c < '\x7F' ? c : '?';
    }
  }
  path_.insert(0, step);
  return false;
}

bool JsonValueReader::at(std::size_t index) {
  return at(std::to_string(index));
}

// ---- values

const JsonValue::Array* JsonValueReader::array(const JsonValue& json, AtMost most) {
  const JsonValue::Array* elements = json.array();
  if (elements != nullptr && elements->size() <= most.elements) return elements;
  fail(elements == nullptr
           ? "expected an array"
           : fmt::format("{} elements, {} are allowed", elements->size(), most.elements));
  return nullptr;
}

std::optional<JsonObjectCursor> JsonValueReader::open(const JsonValue& json) {
  if (const JsonValue::Object* object = json.object()) return JsonObjectCursor{*object};
  fail("expected an object");
  return std::nullopt;
}

bool JsonValueReader::read(const JsonValue& json, bool& out) {
  const bool* flag = json.boolean();
  if (flag == nullptr) return fail("expected true or false");
  out = *flag;
  return true;
}

bool JsonValueReader::read(const JsonValue& json, double& out, const Bounds& bounds) {
  const double* number = json.number();
  const std::string_view* text = json.string();
  if (bounds.infinity && text != nullptr && *text == "infinity") {
    out = std::numeric_limits<double>::infinity();
    return true;
  }
  if (number == nullptr || !isWithin(*number, bounds)) return fail(expectation(bounds));
  out = *number;
  return true;
}

bool JsonValueReader::read(const JsonValue& json, int& out, const Bounds& bounds) {
  double number = 0;
  if (!read(json, number, bounds)) return false;
  out = static_cast<int>(number);
  return out == number || fail("expected a whole number");
}

bool JsonValueReader::read(const JsonValue& json, std::size_t& out, const Bounds& bounds) {
  int number = 0;
  if (!read(json, number, bounds)) return false;
  out = static_cast<std::size_t>(number);
  return true;
}

bool JsonValueReader::read(const JsonValue& json, std::string& out) {
  return read(json, out, MaximumBytes{maximumString_});
}

bool JsonValueReader::read(const JsonValue& json, std::string& out, MaximumBytes most) {
  const std::string_view* text = json.string();
  if (text == nullptr) return fail("expected a string");
  if (text->size() > most.bytes) {
    return fail(fmt::format("{} bytes, {} are allowed", text->size(), most.bytes));
  }
  out = *text;
  return true;
}

bool JsonValueReader::read(const JsonValue& json, Instant& out) {
  const std::string_view* text = json.string();
  const auto instant = text == nullptr ? std::nullopt : parseInternetDateTime(*text);
  if (!instant) return fail("expected a date-time like 2025-03-14T09:30:00Z");
  out = *instant;
  return true;
}

bool JsonValueReader::read(const JsonValue& json, std::map<std::string, std::string>& out) {
  const auto values = open(json);
  if (!values) return false;
  for (const auto& [name, value] : values->object()) {
    std::string text;
    if (value.isNull()) continue;
    if (!read(value, text)) return at(name);
    out.try_emplace(std::string(name), std::move(text));
  }
  return true;
}

}  // namespace foundation
