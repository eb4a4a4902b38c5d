// A small JSON document object model for messages; documents with a fixed form use Json.hpp.
//
//     const auto json = foundation::parseJson(text);
//     if (!json) return describe(json.error());
//     if (const JsonValue* id = json->member("id")) ...
#pragma once

#include <concepts>
#include <cstddef>
#include <expected>
#include <memory>
#include <memory_resource>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "Foundation/Json.hpp"
#include "Foundation/Overloaded.hpp"

namespace foundation {

class JsonDocument;

/// A value in the memory of its document, which must outlive it; cheap to copy.
class JsonValue {
 public:
  template <class Item>
  class List {
   public:
    List() = default;
    List(const Item* items, std::size_t size) : items_(items), size_(size) {}

    [[nodiscard]] const Item* begin() const { return items_; }
    [[nodiscard]] const Item* end() const { return items_ + size_; }
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    [[nodiscard]] const Item& operator[](std::size_t i) const { return items_[i]; }
    [[nodiscard]] const Item& front() const { return *items_; }

   private:
    const Item* items_ = nullptr;
    std::size_t size_ = 0;
  };
  using Member = std::pair<std::string_view, JsonValue>;
  using Array = List<JsonValue>;
  /// In document order; the first of equal keys counts.
  using Object = List<Member>;

  JsonValue() = default;
  /// A value must not look into a temporary, whose memory ends with the statement.
  template <OneOf<JsonDocument, const JsonDocument, std::string> Temporary>
  JsonValue(Temporary&&) = delete;
  template <OneOf<JsonDocument, const JsonDocument> Temporary>
  JsonValue& operator=(Temporary&&) = delete;
  /// For bool alone: a string literal would convert to true.
  explicit JsonValue(std::same_as<bool> auto v) : value_(v) {}
  explicit JsonValue(double v) : value_(v) {}
  /// Texts and items stay where they are.
  explicit JsonValue(std::string_view v) : value_(v) {}
  explicit JsonValue(Array v) : value_(v) {}
  explicit JsonValue(Object v) : value_(v) {}

  [[nodiscard]] bool isNull() const { return value_.index() == 0; }
  /// Null when the value is of another type.
  [[nodiscard]] const bool* boolean() const { return std::get_if<bool>(&value_); }
  [[nodiscard]] const double* number() const { return std::get_if<double>(&value_); }
  [[nodiscard]] const std::string_view* string() const {
    return std::get_if<std::string_view>(&value_);
  }
  [[nodiscard]] const Array* array() const { return std::get_if<Array>(&value_); }
  [[nodiscard]] const Object* object() const { return std::get_if<Object>(&value_); }
  /// The member of that name; null when there is none or this is no object.
  [[nodiscard]] const JsonValue* member(std::string_view key) const;
  /// A copy of that member's text; empty without one.
  [[nodiscard]] std::string textOf(std::string_view key) const;

  void write(JsonWriter& writer) const;

  friend bool operator==(const JsonValue& a, const JsonValue& b);

 private:
  std::variant<std::monostate, bool, double, std::string_view, Array, Object> value_;
};

/// A value with the memory that it lies in.
class JsonDocument : public JsonValue {
 public:
  JsonDocument() = default;
  JsonDocument(const JsonValue& root, std::unique_ptr<std::pmr::memory_resource> memory)
      : JsonValue(root), memory_(std::move(memory)) {}
  /// Leaves one of its values as the document.
  JsonDocument(JsonDocument whole, const JsonValue& part)
      : JsonDocument(part, std::move(whole.memory_)) {}

 private:
  std::unique_ptr<std::pmr::memory_resource> memory_;
};

/// Parses a whole text; nesting deeper than `maximumDepth` and strings longer than `maximumString`
/// bytes are problems.
[[nodiscard]] std::expected<JsonDocument, JsonProblem> parseJson(
    std::string_view text,
    std::size_t maximumDepth = 512,
    std::size_t maximumString = std::string::npos);

}  // namespace foundation
