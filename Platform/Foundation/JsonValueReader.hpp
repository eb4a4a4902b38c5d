// Parsed JSON into records, driven by their lists of members (JsonMembers.hpp). What is wrong is
// said in one line with its place, a JSON pointer (RFC 6901):
//
//     /environments/1/systemMargins/leading: missing
//
// Documents, of which every problem is named with line and column, are read by Json.hpp.
#pragma once

#include <bitset>
#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Foundation/JsonMembers.hpp"
#include "Foundation/JsonValue.hpp"
#include "Foundation/Names.hpp"
#include "Foundation/Overloaded.hpp"

namespace foundation {

/// An object whose members are taken one by one, mostly in its own order.
class JsonObjectCursor {
 public:
  static constexpr std::size_t kMostMembers = 32;  ///< that are noticed when nobody takes them

  explicit JsonObjectCursor(const JsonValue::Object& object) : object_(object) {}

  /// The first member of that name; null when there is none. Each name is asked for once.
  [[nodiscard]] const JsonValue* take(std::string_view key);
  /// The name of a member that nobody took: unknown, or a second one of that name.
  [[nodiscard]] std::optional<std::string_view> leftOver() const;
  [[nodiscard]] const JsonValue::Object& object() const { return object_; }

 private:
  const JsonValue::Object& object_;
  std::size_t begin_ = 0;  // all members before it are taken
  std::bitset<kMostMembers> taken_;
};

/// Reads plain values. Every `read` tells whether it succeeded; the first failure leaves its
/// message, and on the way out each caller puts its step in front of the place.
class JsonValueReader {
 public:
  /// Strings are at most so many bytes long.
  explicit JsonValueReader(std::size_t maximumString) : maximumString_(maximumString) {}

  [[nodiscard]] std::string failure() const;

 protected:
  bool fail(std::string message);
  /// A failure of another reader, with what stands here.
  bool fail(const JsonValueReader& part);
  bool at(std::string_view key);
  bool at(std::size_t index);
  /// Null after a failure.
  const JsonValue::Array* array(const JsonValue& json, AtMost most);
  std::optional<JsonObjectCursor> open(const JsonValue& json);

  bool read(const JsonValue& json, bool& out);
  bool read(const JsonValue& json, double& out, const Bounds& bounds = {});
  bool read(const JsonValue& json, int& out, const Bounds& bounds);
  bool read(const JsonValue& json, std::size_t& out, const Bounds& bounds);
  bool read(const JsonValue& json, std::string& out);
  bool read(const JsonValue& json, std::string& out, MaximumBytes most);
  bool read(const JsonValue& json, Instant& out);
  /// An object of strings; null counts as not given. Of a name that stands twice the first holds.
  bool read(const JsonValue& json, std::map<std::string, std::string>& out);
  template <NamedEnum Enum>
  bool read(const JsonValue& json, Enum& out) {
    const std::string_view* name = json.string();
    const auto value = name == nullptr ? std::nullopt : named<Enum>(*name);
    if (value) out = *value;
    return value || failNames(kNames<Enum>);
  }

 private:
  bool failNames(std::span<const std::string_view> names);

  std::size_t maximumString_;
  std::string path_;
  std::string message_;
};

/// Reads records of a module as well. `Self` derives from this and adds a `read` for each further
/// type; where it is `kLenient`, unknown members are ignored and null counts as missing.
template <class Self, template <class> class MembersOf>
class JsonRecordReader : public JsonValueReader {
 protected:
  using JsonValueReader::JsonValueReader;
  using JsonValueReader::read;

  template <class T>
  static constexpr bool isListed = requires {
    MembersOf<T>::list([](auto&&...) {});
  };

  template <class T>
  requires isListed<T>
  bool read(const JsonValue& json, T& out) {
    auto cursor = open(json);
    return cursor && readMembers(*cursor, out) && close(*cursor);
  }
  template <class T, class... Rules>
  bool read(const JsonValue& json, std::optional<T>& out, const Rules&... rules) {
    return self().read(json, out.emplace(), rules...);
  }
  template <class T>
  bool read(const JsonValue& json, std::vector<T>& out, AtMost most) {
    const JsonValue::Array* elements = array(json, most);
    if (elements == nullptr) return false;
    out.resize(elements->size());
    for (std::size_t i = 0; i < elements->size(); ++i) {
      if (!self().read((*elements)[i], out[i])) return at(i);
    }
    return true;
  }

  /// The members of a record, wherever in the object they stand.
  template <class T>
  bool readMembers(JsonObjectCursor& cursor, T& record) {
    bool ok = true;
    MembersOf<T>::list(Overloaded{
        [&](auto part) { ok = ok && readMembers(cursor, record.*part); },
        [&](std::string_view key, auto pointer, const auto&... rules) {
          ok = ok && (readMember(cursor, record, key, record.*pointer, rules...) || at(key));
        }});
    return ok;
  }

  bool close(const JsonObjectCursor& cursor) {
    const auto name = Self::kLenient ? std::nullopt : cursor.leftOver();
    if (!name) return true;
    fail("unknown or repeated member");
    return at(*name);
  }

 private:
  Self& self() { return static_cast<Self&>(*this); }

  template <class T, class Value, class... Rules>
  bool readMember(JsonObjectCursor& cursor,
                  const T& record,
                  std::string_view key,
                  Value& out,
                  const Rules&... rules) {
    const JsonValue* json = cursor.take(key);
    if (Self::kLenient && json != nullptr && json->isNull()) json = nullptr;
    return readPresent(json, record, out, rules...);
  }
  template <class T, class Value, class... Rules>
  bool readPresent(const JsonValue* json, const T&, Value& out, const Rules&... rules) {
    return json == nullptr || self().read(*json, out, rules...);
  }
  template <class T, class Value, class... Rules>
  bool readPresent(const JsonValue* json, const T&, Value& out, Always, const Rules&... rules) {
    return json == nullptr || self().read(*json, out, rules...);
  }
  template <class T, class Value, class... Rules>
  bool readPresent(const JsonValue* json, const T&, Value& out, Required, const Rules&... rules) {
    return json == nullptr ? fail("missing") : self().read(*json, out, rules...);
  }
  template <class T, class Value>
  bool readPresent(const JsonValue* json, const T& record, Value& out, When<T> when) {
    return !when.holds(record) || readPresent(json, record, out, kRequired);
  }
};

}  // namespace foundation
