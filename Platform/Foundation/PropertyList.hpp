// Property lists: small documents of typed values, in an XML and in a binary form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "Foundation/Instant.hpp"

namespace foundation {

/// Larger documents, deeper ones (64 levels) and those that unfold to more than four times this
/// size count as malformed.
inline constexpr std::size_t kMaximumPropertyList = std::size_t{1} << 20;

class PropertyList {
 public:
  using Data = std::vector<std::uint8_t>;
  using Array = std::vector<PropertyList>;
  using Dictionary = std::map<std::string, PropertyList, std::less<>>;

  PropertyList() : value_(Dictionary()) {}
  PropertyList(bool v) : value_(v) {}
  PropertyList(std::int64_t v) : value_(v) {}
  PropertyList(double v) : value_(v) {}
  PropertyList(std::string v) : value_(std::move(v)) {}
  PropertyList(const char* v) : value_(std::string(v)) {}
  PropertyList(Instant v) : value_(v) {}
  PropertyList(Data v) : value_(std::move(v)) {}
  PropertyList(Array v) : value_(std::move(v)) {}
  PropertyList(Dictionary v) : value_(std::move(v)) {}

  /// Null when the value is of another type.
  [[nodiscard]] const bool* boolean() const { return std::get_if<bool>(&value_); }
  [[nodiscard]] const std::int64_t* integer() const { return std::get_if<std::int64_t>(&value_); }
  [[nodiscard]] const double* real() const { return std::get_if<double>(&value_); }
  [[nodiscard]] const std::string* string() const { return std::get_if<std::string>(&value_); }
  [[nodiscard]] const Instant* date() const { return std::get_if<Instant>(&value_); }
  [[nodiscard]] const Data* data() const { return std::get_if<Data>(&value_); }
  [[nodiscard]] const Array* array() const { return std::get_if<Array>(&value_); }
  [[nodiscard]] const Dictionary* dictionary() const { return std::get_if<Dictionary>(&value_); }

  friend bool operator==(const PropertyList&, const PropertyList&) = default;

 private:
  std::variant<bool, std::int64_t, double, std::string, Instant, Data, Array, Dictionary> value_;
};

/// Reads either form, XML in UTF-8 or UTF-16; nothing for a malformed document. A UID reads as
/// {"CF$UID": number}, as XML writes it; a date before 1932 or after 2069 as that end.
[[nodiscard]] std::optional<PropertyList> parsePropertyList(std::string_view document);

/// The XML form. Text must be UTF-8 without control characters, since XML cannot hold them: others
/// come out changed.
[[nodiscard]] std::string xmlPropertyList(const PropertyList& value);

/// `document` (a dictionary) in its own form, with one key set and all else as it was; nothing for
/// a malformed document. Only comments and white space are lost.
[[nodiscard]] std::optional<std::string> propertyListBySetting(std::string_view document,
                                                               const std::string& key,
                                                               const PropertyList& value);

}  // namespace foundation
