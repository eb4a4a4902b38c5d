// Writes compact JSON, front to back.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace foundation {

/// Commas are the writer's business, balance is the caller's. Doubles are written so that they read
/// back equal; NaN and infinities become null.
class JsonWriter {
 public:
  JsonWriter& beginObject();
  JsonWriter& endObject();
  JsonWriter& beginArray();
  JsonWriter& endArray();
  JsonWriter& key(std::string_view name);
  JsonWriter& value(std::string_view text);
  JsonWriter& value(const char* text) { return value(std::string_view{text}); }
  JsonWriter& value(double number);
  JsonWriter& value(std::int64_t number);
  JsonWriter& value(int number) { return value(static_cast<std::int64_t>(number)); }
  JsonWriter& value(bool boolean);
  JsonWriter& null();
  /// A value that is JSON already.
  JsonWriter& raw(std::string_view json);

  template <class T>
  JsonWriter& member(std::string_view name, const T& v) {
    return key(name).value(v);
  }

  [[nodiscard]] const std::string& text() const { return text_; }
  [[nodiscard]] std::string take() { return std::move(text_); }

 private:
  void separate();

  std::string text_;
  bool needsComma_ = false;
};

/// What a writer has written, for people: a line for each member and element, indented by two
/// spaces.
[[nodiscard]] std::string indentedJson(std::string_view json);

}  // namespace foundation
