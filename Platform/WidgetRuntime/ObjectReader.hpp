// Reads members of a JSON object and keeps the first thing that is wrong with them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/JsonValue.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace widgetruntime {

/// The first problem of a whole message; readers of nested values share it.
using Problem = std::optional<std::string>;

class ObjectReader {
 public:
  /// `path` is what problems call this object; empty for the message itself.
  ObjectReader(const foundation::JsonValue& json, std::string path, Problem& problem);

  /// Values stand at their default where a member is missing, null or of the wrong form. The latter
  /// is a problem, and so is the absence of a member that is read by one of these four.
  [[nodiscard]] std::string string(std::string_view key, std::size_t maximum = kMaximumString);
  [[nodiscard]] bool boolean(std::string_view key);
  [[nodiscard]] double number(std::string_view key);
  [[nodiscard]] foundation::Instant instant(std::string_view key);

  [[nodiscard]] std::optional<std::string> optionalString(std::string_view key,
                                                          std::size_t maximum = kMaximumString);
  [[nodiscard]] bool booleanOr(std::string_view key, bool fallback);

  /// A member's name from a closed list: `named` gives the value or nothing.
  template <class Named>
  auto named(std::string_view key, Named&& lookup) -> typename decltype(lookup(""))::value_type {
    const std::string text = string(key);
    if (failed()) return {};
    const auto value = lookup(text);
    if (!value) fail(key, "unknown name \"" + text.substr(0, 40) + "\"");
    return value.value_or(typename decltype(lookup(""))::value_type{});
  }

  /// Calls `element(json, path)` for each element; a missing array is a problem only when
  /// `required`.
  template <class Element>
  void array(std::string_view key, std::size_t maximum, bool required, Element&& element) {
    const foundation::JsonValue::Array* values = elements(key, maximum, required);
    if (values == nullptr) return;
    for (std::size_t i = 0; i < values->size() && !failed(); ++i) {
      element((*values)[i], pathOf(key) + "[" + std::to_string(i) + "]");
    }
  }

  [[nodiscard]] std::vector<std::string> strings(std::string_view key,
                                                 std::size_t maximum,
                                                 bool required);

  /// The member unless it is missing or null.
  [[nodiscard]] const foundation::JsonValue* present(std::string_view key) const;
  [[nodiscard]] std::string pathOf(std::string_view key) const;
  [[nodiscard]] bool failed() const { return problem_.has_value(); }
  [[nodiscard]] Problem& problem() { return problem_; }
  void fail(std::string_view key, std::string_view what);

 private:
  const foundation::JsonValue* required(std::string_view key);
  const foundation::JsonValue::Array* elements(std::string_view key,
                                               std::size_t maximum,
                                               bool required);

  const foundation::JsonValue& json_;
  std::string path_;
  Problem& problem_;
};

}  // namespace widgetruntime
