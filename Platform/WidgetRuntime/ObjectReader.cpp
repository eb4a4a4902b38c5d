#include "WidgetRuntime/ObjectReader.hpp"

#include <fmt/format.h>

#include <utility>

namespace widgetruntime {

using foundation::JsonValue;

ObjectReader::ObjectReader(const JsonValue& json, std::string path, Problem& problem)
    : json_(json), path_(std::move(path)), problem_(problem) {
  if (json_.object() == nullptr) fail("", "an object is expected");
}

std::string ObjectReader::pathOf(std::string_view key) const {
  if (path_.empty()) return std::string(key);
  return key.empty() ? path_ : fmt::format("{}.{}", path_, key);
}

void ObjectReader::fail(std::string_view key, std::string_view what) {
  if (problem_) return;
  const std::string path = pathOf(key);
  problem_ = path.empty() ? std::string(what) : fmt::format("{}: {}", path, what);
}

const JsonValue* ObjectReader::present(std::string_view key) const {
  const JsonValue* value = json_.member(key);
  return value == nullptr || value->isNull() ? nullptr : value;
}

const JsonValue* ObjectReader::required(std::string_view key) {
  const JsonValue* value = present(key);
  if (value == nullptr) fail(key, "missing");
  return value;
}

std::optional<std::string> ObjectReader::optionalString(std::string_view key, std::size_t maximum) {
  const JsonValue* value = present(key);
  if (value == nullptr) return std::nullopt;
  const std::string* text = value->string();
  if (text == nullptr) {
    fail(key, "a string is expected");
    return std::nullopt;
  }
  if (text->size() > maximum) {
    fail(key, fmt::format("{} bytes, {} are allowed", text->size(), maximum));
    return std::nullopt;
  }
  return *text;
}

std::string ObjectReader::string(std::string_view key, std::size_t maximum) {
  if (required(key) == nullptr) return {};
  return optionalString(key, maximum).value_or("");
}

bool ObjectReader::booleanOr(std::string_view key, bool fallback) {
  const JsonValue* value = present(key);
  if (value == nullptr) return fallback;
  const bool* boolean = value->boolean();
  if (boolean == nullptr) fail(key, "true or false is expected");
  return boolean != nullptr ? *boolean : fallback;
}

bool ObjectReader::boolean(std::string_view key) {
  return required(key) != nullptr && booleanOr(key, false);
}

double ObjectReader::number(std::string_view key) {
  const JsonValue* value = required(key);
  if (value == nullptr) return 0;
  const double* number = value->number();
  if (number == nullptr) fail(key, "a number is expected");
  return number != nullptr ? *number : 0;
}

foundation::Instant ObjectReader::instant(std::string_view key) {
  const std::string text = string(key);
  if (failed()) return {};
  const auto instant = foundation::parseInternetDateTime(text);
  if (!instant) fail(key, "an internet date-time such as 2025-03-14T09:30:00Z is expected");
  return instant.value_or(foundation::Instant{});
}

const JsonValue::Array* ObjectReader::elements(std::string_view key,
                                               std::size_t maximum,
                                               bool isRequired) {
  const JsonValue* value = isRequired ? required(key) : present(key);
  if (value == nullptr) return nullptr;
  const JsonValue::Array* array = value->array();
  if (array == nullptr) {
    fail(key, "an array is expected");
  } else if (array->size() > maximum) {
    fail(key, fmt::format("{} elements, {} are allowed", array->size(), maximum));
    return nullptr;
  }
  return array;
}

std::vector<std::string> ObjectReader::strings(std::string_view key,
                                               std::size_t maximum,
                                               bool isRequired) {
  std::vector<std::string> result;
  array(key, maximum, isRequired, [&](const JsonValue& element, const std::string& path) {
    const std::string* text = element.string();
    if (text == nullptr || text->size() > kMaximumString) {
      problem_ = path + ": a string of at most 16384 bytes is expected";
    } else {
      result.push_back(*text);
    }
  });
  return result;
}

}  // namespace widgetruntime
