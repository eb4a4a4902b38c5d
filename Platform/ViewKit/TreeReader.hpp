// The reader of trees, also for messages that hold some: one `read` for each kind of value, driven
// by the lists of members.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/JsonValueReader.hpp"
#include "ViewKit/Members.hpp"
#include "ViewKit/Names.hpp"
#include "ViewKit/TreeJson.hpp"

namespace viewkit {

using foundation::JsonObjectCursor;

class TreeReader : public foundation::JsonRecordReader<TreeReader, MembersOf> {
 public:
  using Json = foundation::JsonValue;
  static constexpr bool kLenient = false;

  explicit TreeReader(const TreeLimits& limits)
      : JsonRecordReader(limits.stringBytes), limits_(limits) {}

  [[nodiscard]] bool read(const Json& json, View& out);

 private:
  friend JsonRecordReader;
  using JsonRecordReader::read;

  // Nodes
  bool readNode(JsonObjectCursor& cursor, Node& out);
  bool readElement(std::string_view type, JsonObjectCursor& cursor, Element& out);
  bool readInner(JsonObjectCursor& cursor, const Json* modifiers, Node& out);
  bool readModifiers(const Json& json, std::vector<Modifier>& out);
  bool readModifier(const Json& json, Modifier& out);
  bool readType(JsonObjectCursor& cursor, std::string_view& out);
  bool readGeometry(std::string_view type, JsonObjectCursor& cursor, ShapeGeometry& out);
  template <class T, class Out>
  bool readPlain(JsonObjectCursor& cursor, Out& out);
  template <class M>
  bool readNested(JsonObjectCursor& cursor, Modifier& out);
  friend struct TreeForms;

  // Values; those that drawing needs stand in DrawingReader.cpp
  bool read(const Json& json, std::string& out, ContainerPath);
  bool read(const Json& json, Length& out, const Bounds& bounds = kAnyNumber);
  bool read(const Json& json, LengthPoint& out);
  bool read(const Json& json, UnitPoint& out);
  bool read(const Json& json, Insets& out);
  bool read(const Json& json, Alignment& out);
  bool read(const Json& json, Color& out);
  bool read(const Json& json, GradientStop& out);
  bool read(const Json& json, std::vector<GradientStop>& out);
  bool read(const Json& json, Paint& out);
  bool read(const Json& json, PathStep& out);
  bool read(const Json& json, std::vector<PathStep>& out);
  bool read(const Json& json, ShapeGeometry& out);
  bool read(const Json& json, std::vector<View>& out);
  bool readNumbers(const Json& json, std::initializer_list<double*> out);

  // Lengths
  bool readExpression(const Json& json, Length& out, std::size_t depth, std::size_t& terms);
  bool readTerm(const Json& json, Length::Term& out, std::size_t depth, std::size_t& terms);

  const TreeLimits& limits_;
  std::size_t nodes_ = 0;
  std::size_t depth_ = 0;
  std::size_t pathModifiers_ = 0;
};

}  // namespace viewkit
