// libplist behind the value type. It reads recursively and trusts its input, so nothing reaches it
// unchecked.
#include "Foundation/PropertyList.hpp"

#include <plist/plist.h>

#include <cstdlib>
#include <memory>
#include <type_traits>

#include "Foundation/CivilDate.hpp"
#include "Foundation/PropertyListBounds.hpp"

namespace foundation {
namespace {

constexpr std::int64_t kDateEpoch = 978307200;  // 2001-01-01T00:00:00Z

struct NodeDeleter {
  void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeDeleter>;

struct Freed {
  void operator()(void* memory) const { std::free(memory); }
};
using Text = std::unique_ptr<char, Freed>;

bool isBinary(std::string_view document) {
  return document.starts_with("bplist");
}

Node parseNode(std::string_view document) {
  if (document.size() > kMaximumPropertyList) return nullptr;
  plist_t node = nullptr;
  if (isBinary(document)) {
    if (!isBoundedBinaryPropertyList(document)) return nullptr;
    plist_from_bin(document.data(), static_cast<std::uint32_t>(document.size()), &node);
  } else {
    // The library reads XML as a C string in places.
    const auto text = boundedXmlPropertyList(document);
    if (!text) return nullptr;
    plist_from_xml(text->c_str(), static_cast<std::uint32_t>(text->size()), &node);
  }
  return Node(node);
}

std::optional<PropertyList> valueOf(plist_t node);

std::optional<PropertyList> dictionaryOf(plist_t node) {
  PropertyList::Dictionary out;
  plist_dict_iter iterator = nullptr;
  plist_dict_new_iter(node, &iterator);
  const std::unique_ptr<void, Freed> iteratorOwner(iterator);
  while (true) {
    char* rawKey = nullptr;
    plist_t item = nullptr;
    plist_dict_next_item(node, iterator, &rawKey, &item);
    const Text key(rawKey);
    if (item == nullptr) return out;
    auto value = valueOf(item);
    if (key == nullptr || !value) return std::nullopt;
    out.emplace(key.get(), std::move(*value));
  }
}

std::optional<PropertyList> arrayOf(plist_t node) {
  PropertyList::Array out;
  plist_array_iter iterator = nullptr;
  plist_array_new_iter(node, &iterator);
  const std::unique_ptr<void, Freed> iteratorOwner(iterator);
  while (true) {
    plist_t item = nullptr;
    plist_array_next_item(node, iterator, &item);
    if (item == nullptr) return out;
    auto value = valueOf(item);
    if (!value) return std::nullopt;
    out.push_back(std::move(*value));
  }
}

PropertyList dataOf(plist_t node) {
  char* raw = nullptr;
  std::uint64_t size = 0;
  plist_get_data_val(node, &raw, &size);
  const Text bytes(raw);
  return raw == nullptr ? PropertyList::Data() : PropertyList::Data(raw, raw + size);
}

PropertyList dateOf(plist_t node) {
  std::int32_t seconds = 0;
  std::int32_t microseconds = 0;
  plist_get_date_val(node, &seconds, &microseconds);
  const std::int64_t total = (seconds + kDateEpoch) * 1'000'000 + microseconds;
  return Instant{floorDiv(total, 1'000'000),
                 static_cast<std::int32_t>(floorMod(total, 1'000'000) * 1000)};
}

std::optional<PropertyList> valueOf(plist_t node) {
  switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
      std::uint8_t value = 0;
      plist_get_bool_val(node, &value);
      return value != 0;
    }
    case PLIST_UINT: {
      std::uint64_t value = 0;  // negative numbers come as their two's complement
      plist_get_uint_val(node, &value);
      return static_cast<std::int64_t>(value);
    }
    case PLIST_REAL: {
      double value = 0;
      plist_get_real_val(node, &value);
      return value;
    }
    case PLIST_STRING: {
      char* raw = nullptr;
      plist_get_string_val(node, &raw);
      const Text text(raw);
      return std::string(raw == nullptr ? "" : raw);
    }
    case PLIST_ARRAY:
      return arrayOf(node);
    case PLIST_DICT:
      return dictionaryOf(node);
    case PLIST_DATE:
      return dateOf(node);
    case PLIST_DATA:
      return dataOf(node);
    case PLIST_UID: {
      std::uint64_t value = 0;
      plist_get_uid_val(node, &value);
      return PropertyList::Dictionary{{"CF$UID", static_cast<std::int64_t>(value)}};
    }
    default:
      return std::nullopt;
  }
}

plist_t nodeOf(const PropertyList& value) {
  if (const auto* v = value.boolean()) return plist_new_bool(*v ? 1 : 0);
  if (const auto* v = value.integer()) return plist_new_uint(static_cast<std::uint64_t>(*v));
  if (const auto* v = value.real()) return plist_new_real(*v);
  if (const auto* v = value.string()) return plist_new_string(v->c_str());
  if (const auto* v = value.date()) {
    return plist_new_date(static_cast<std::int32_t>(v->seconds - kDateEpoch),
                          v->nanoseconds / 1000);
  }
  if (const auto* v = value.data()) {
    return plist_new_data(reinterpret_cast<const char*>(v->data()), v->size());
  }
  if (const auto* v = value.array()) {
    plist_t node = plist_new_array();
    for (const PropertyList& element : *v) plist_array_append_item(node, nodeOf(element));
    return node;
  }
  plist_t node = plist_new_dict();
  for (const auto& [key, member] : *value.dictionary()) {
    plist_dict_set_item(node, key.c_str(), nodeOf(member));
  }
  return node;
}

/// The library writes the year 1 as "1"; the format has four digits.
void padYears(std::string& xml) {
  constexpr std::string_view kTag = "<date>";
  for (std::size_t at = xml.find(kTag); at != std::string::npos; at = xml.find(kTag, at)) {
    at += kTag.size();
    const std::size_t digits = xml.find_first_not_of("0123456789", at) - at;
    if (digits < 4) xml.insert(at, 4 - digits, '0');
  }
}

std::string xmlOf(plist_t node) {
  char* raw = nullptr;
  std::uint32_t size = 0;
  plist_to_xml(node, &raw, &size);
  const Text text(raw);
  std::string xml = raw == nullptr ? std::string() : std::string(raw, size);
  padYears(xml);
  return xml;
}

std::string binaryOf(plist_t node) {
  char* raw = nullptr;
  std::uint32_t size = 0;
  plist_to_bin(node, &raw, &size);
  const Text bytes(raw);
  return raw == nullptr ? std::string() : std::string(raw, size);
}

}  // namespace

std::optional<PropertyList> parsePropertyList(std::string_view document) {
  const Node node = parseNode(document);
  if (!node) return std::nullopt;
  return valueOf(node.get());
}

std::string xmlPropertyList(const PropertyList& value) {
  const Node node(nodeOf(value));
  return xmlOf(node.get());
}

std::optional<std::string> propertyListBySetting(std::string_view document,
                                                 const std::string& key,
                                                 const PropertyList& value) {
  const Node node = parseNode(document);
  if (!node || plist_get_node_type(node.get()) != PLIST_DICT) return std::nullopt;
  plist_dict_set_item(node.get(), key.c_str(), nodeOf(value));
  // XML holds no fractions of a second.
  std::string out = isBinary(document) ? binaryOf(node.get()) : xmlOf(node.get());
  if (out.empty()) return std::nullopt;
  return out;
}

}  // namespace foundation
