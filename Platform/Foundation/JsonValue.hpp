// A small JSON document object model for messages; documents with a fixed form use Json.hpp.
#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "Foundation/Json.hpp"

namespace foundation {

class JsonValue {
 public:
  using Array = std::vector<JsonValue>;
  /// In document order; the first of equal keys counts.
  using Object = std::vector<std::pair<std::string, JsonValue>>;

  JsonValue() = default;
  JsonValue(std::nullptr_t) {}
  JsonValue(bool v) : value_(v) {}
  JsonValue(double v) : value_(v) {}
  JsonValue(int v) : value_(static_cast<double>(v)) {}
  JsonValue(std::string v) : value_(std::move(v)) {}
  JsonValue(std::string_view v) : value_(std::string(v)) {}
  JsonValue(const char* v) : value_(std::string(v)) {}
  JsonValue(Array v) : value_(std::move(v)) {}
  JsonValue(Object v) : value_(std::move(v)) {}

  [[nodiscard]] bool isNull() const { return value_.index() == 0; }
  /// Null when the value is of another type.
  [[nodiscard]] const bool* boolean() const { return std::get_if<bool>(&value_); }
  [[nodiscard]] const double* number() const { return std::get_if<double>(&value_); }
  [[nodiscard]] const std::string* string() const { return std::get_if<std::string>(&value_); }
  [[nodiscard]] const Array* array() const { return std::get_if<Array>(&value_); }
  [[nodiscard]] const Object* object() const { return std::get_if<Object>(&value_); }
  /// The member of that name; null when there is none or this is no object.
  [[nodiscard]] const JsonValue* member(std::string_view key) const;

  void write(JsonWriter& writer) const;

  friend bool operator==(const JsonValue&, const JsonValue&) = default;

 private:
  std::variant<std::monostate, bool, double, std::string, Array, Object> value_;
};

/// Parses a whole text; nesting deeper than `maximumDepth` and strings longer than `maximumString`
/// bytes are problems.
[[nodiscard]] std::expected<JsonValue, JsonProblem> parseJson(
    std::string_view text,
    std::size_t maximumDepth = 512,
    std::size_t maximumString = std::string::npos);

}  // namespace foundation
