// The room's own reader of trees: one `read` for each kind of value, driven by the lists of
// members.
#pragma once

#include <bitset>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ViewKit/Members.hpp"
#include "ViewKit/Names.hpp"
#include "ViewKit/TreeJson.hpp"

namespace viewkit {

/// An object of which every member must be taken by someone.
class ObjectCursor {
 public:
  using Object = foundation::JsonValue::Object;
  static constexpr std::size_t kMostMembers = 32;

  explicit ObjectCursor(const Object& object) : object_(object) {}

  /// The first member of that name; null when there is none.
  [[nodiscard]] const foundation::JsonValue* take(std::string_view key);
  /// The name of a member that nobody took: unknown, or a second one of that name.
  [[nodiscard]] std::optional<std::string_view> leftOver() const;
  [[nodiscard]] const Object& object() const { return object_; }

 private:
  const Object& object_;
  std::bitset<kMostMembers> taken_;
};

/// Every `read` answers whether it succeeded. The first failure leaves its message; on the way out
/// each caller puts its step in front of the path.
class TreeReader {
 public:
  using Json = foundation::JsonValue;

  explicit TreeReader(const TreeLimits& limits) : limits_(limits) {}

  [[nodiscard]] bool read(const Json& json, View& out);
  [[nodiscard]] std::string failure() const {
    return (path_.empty() ? "/" : path_) + ": " + message_;
  }

 private:
  bool fail(std::string message);
  bool failNames(std::span<const std::string_view> names);
  bool at(std::string_view key);
  bool at(std::size_t index);

  // Nodes
  bool readNode(ObjectCursor& cursor, Node& out);
  bool readElement(std::string_view type, ObjectCursor& cursor, Element& out);
  bool readInner(ObjectCursor& cursor, const Json* modifiers, Node& out);
  bool readModifiers(const Json& json, std::vector<Modifier>& out);
  bool readModifier(const Json& json, Modifier& out);
  bool readType(ObjectCursor& cursor, std::string_view& out);
  bool readGeometry(std::string_view type, ObjectCursor& cursor, ShapeGeometry& out);
  template <class Form, class Out>
  bool readForm(const Form* form, ObjectCursor& cursor, Out& out);
  template <class T, class Out>
  bool readPlain(ObjectCursor& cursor, Out& out);
  template <class M>
  bool readNested(ObjectCursor& cursor, Modifier& out);
  friend struct TreeForms;

  // Records
  std::optional<ObjectCursor> open(const Json& json);
  bool close(const ObjectCursor& cursor);
  template <class T>
  bool readMembers(ObjectCursor& cursor, T& record);

  // Values; those that drawing needs stand in DrawingReader.cpp
  bool read(const Json& json, bool& out);
  bool read(const Json& json, int& out, const Bounds& bounds);
  bool read(const Json& json, double& out, const Bounds& bounds);
  bool read(const Json& json, std::string& out);
  bool read(const Json& json, std::string& out, ContainerPath);
  bool read(const Json& json, Length& out, const Bounds& bounds = kAnyNumber);
  bool read(const Json& json, LengthPoint& out);
  bool read(const Json& json, UnitPoint& out);
  bool read(const Json& json, Insets& out);
  bool read(const Json& json, Alignment& out);
  bool read(const Json& json, Color& out);
  bool read(const Json& json, Gradient& out);
  bool read(const Json& json, GradientStop& out);
  bool read(const Json& json, std::vector<GradientStop>& out);
  bool read(const Json& json, Paint& out);
  bool read(const Json& json, PathStep& out);
  bool read(const Json& json, std::vector<PathStep>& out);
  bool read(const Json& json, ShapeGeometry& out);
  bool read(const Json& json, std::vector<View>& out);
  template <NamedEnum Enum>
  bool read(const Json& json, Enum& out);
  template <class T, class... Rules>
  bool read(const Json& json, std::optional<T>& out, const Rules&... rules) {
    return read(json, out.emplace(), rules...);
  }
  template <class T>
  bool readList(const Json& json, std::vector<T>& out, std::size_t most);
  bool readNumbers(const Json& json, std::initializer_list<double*> out);

  // Lengths
  bool readExpression(const Json& json, Length& out, std::size_t depth, std::size_t& terms);
  bool readTerm(const Json& json, Length::Term& out, std::size_t depth, std::size_t& terms);

  const TreeLimits& limits_;
  std::size_t nodes_ = 0;
  std::size_t depth_ = 0;
  std::size_t pathModifiers_ = 0;
  std::string path_;
  std::string message_;
};

template <class T>
bool TreeReader::readMembers(ObjectCursor& cursor, T& record) {
  bool ok = true;
  MembersOf<T>::list([&](std::string_view key, auto pointer, const auto&... rules) {
    if (!ok) return;
    const Json* json = cursor.take(key);
    if (json != nullptr) ok = read(*json, record.*pointer, rules...) || at(key);
  });
  return ok;
}

template <NamedEnum Enum>
bool TreeReader::read(const Json& json, Enum& out) {
  const std::string* name = json.string();
  const auto value = name == nullptr ? std::nullopt : named<Enum>(*name);
  if (!value) return failNames(NamesOf<Enum>::kAll);
  out = *value;
  return true;
}

template <class T>
bool TreeReader::readList(const Json& json, std::vector<T>& out, std::size_t most) {
  const Json::Array* array = json.array();
  if (array == nullptr) return fail("expected an array");
  if (array->size() > most) return fail("too many elements");
  out.resize(array->size());
  for (std::size_t i = 0; i < array->size(); ++i) {
    if (!read((*array)[i], out[i])) return at(i);
  }
  return true;
}

}  // namespace viewkit
