// Records into JSON, driven by their lists of members (JsonMembers.hpp).
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Foundation/JsonMembers.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Foundation/Names.hpp"
#include "Foundation/Overloaded.hpp"
#include "Foundation/Utf8.hpp"

namespace foundation {

/// `Self` derives from this and adds a `put` for each further type. The first member of a record
/// whose list says `kLead` is what the record is about, and always written.
template <class Self, template <class> class MembersOf>
class JsonRecordWriter {
 public:
  explicit JsonRecordWriter(JsonWriter& json) : json_(json) {}

 protected:
  void put(bool flag) { json_.value(flag); }
  void put(int number) { json_.value(number); }
  void put(std::size_t number) { json_.value(static_cast<double>(number)); }
  void put(double number) { json_.value(number); }
  void put(const std::string& text) { json_.value(text); }
  void put(const std::map<std::string, std::string>& values) {
    json_.beginObject();
    for (const auto& [name, value] : values) json_.member(name, value);
    json_.endObject();
  }
  void put(Instant instant) { json_.value(formatInternetDateTime(instant)); }
  template <NamedEnum Enum>
  void put(Enum value) {
    json_.value(nameOf(value));
  }
  template <class T>
  void put(const std::optional<T>& value) {
    if (value) {
      self().put(*value);
    } else {
      json_.null();
    }
  }
  template <class T>
  void put(const std::vector<T>& values) {
    json_.beginArray();
    for (const T& value : values) self().put(value);
    json_.endArray();
  }
  template <class T>
  requires requires {
    MembersOf<T>::list([](auto&&...) {});
  }
  void put(const T& record) {
    json_.beginObject();
    putMembers(record);
    json_.endObject();
  }

  template <class T>
  void putMembers(const T& record) {
    bool isLead = requires {
      MembersOf<T>::kLead;
    };
    MembersOf<T>::list(Overloaded{[&](auto part) { putMembers(record.*part); },
                                  [&](std::string_view key, auto pointer, const auto&... rules) {
                                    putMember(isLead, record, key, pointer, rules...);
                                    isLead = false;
                                  }});
  }

  JsonWriter& json_;

 private:
  Self& self() { return static_cast<Self&>(*this); }

  template <class T, class Pointer, class... Rules>
  void putMember(
      bool isLead, const T& record, std::string_view key, Pointer pointer, const Rules&... rules) {
    const auto& value = record.*pointer;
    if constexpr (hasRule<When<T>, Rules...>) {
      if (!(rules.holds(record) && ...)) return;  // it stands alone
    } else if constexpr (!hasRule<Required, Rules...> && !hasRule<Always, Rules...>) {
      if (!isLead && value == defaultsOf<T>().*pointer) return;
    }
    json_.key(key);
    if constexpr (hasRule<CutTo, Rules...>) {
      putCut(value, rules...);
    } else {
      self().put(value);
    }
  }
  template <class... Rules>
  void putCut(const std::string& text, const Rules&... rules) {
    const Overloaded cut{[&](CutTo most) { json_.value(utf8Prefix(text, most.bytes)); },
                         [](auto) {}};
    (cut(rules), ...);
  }
};

}  // namespace foundation
