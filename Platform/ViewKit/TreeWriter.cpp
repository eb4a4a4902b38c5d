// Trees into JSON: one `put` for each kind of value, driven by the lists of members.
#include <charconv>
#include <cmath>
#include <string_view>

#include "Foundation/JsonRecordWriter.hpp"
#include "Foundation/Overloaded.hpp"
#include "Foundation/Utf8.hpp"
#include "ViewKit/ColorText.hpp"
#include "ViewKit/Members.hpp"
#include "ViewKit/Names.hpp"
#include "ViewKit/TreeJson.hpp"

namespace viewkit {

using foundation::OneOf;

namespace {

void appendShortest(std::string& out, double number) {
  char digits[32];
  out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

class TreeWriter : public foundation::JsonRecordWriter<TreeWriter, MembersOf> {
 public:
  using JsonRecordWriter::JsonRecordWriter;

  void put(const View& view);

 private:
  friend JsonRecordWriter;
  using JsonRecordWriter::put;

  template <class M>
  void putModifier(const M& modifier);

  void putElement(const StackElement& stack);
  void putElement(const ShapeElement& shape);
  template <class E>
  void putElement(const E& element);

  void put(double number);
  // Far less than a reader takes and more than any widget shows: a document's overlong names must
  // cost neither the tree nor, a dozen of them together, the message.
  void put(const std::string& text) {
    json_.value(foundation::utf8Prefix(text, kMaximumWrittenText));
  }
  void put(const Length& length);
  void put(const Length::Term& term);
  void put(const LengthPoint& point);
  void put(const UnitPoint& point);
  void put(const Insets& insets);
  void put(Alignment alignment) { json_.value(nameOf(alignment)); }
  void put(const Color& color);
  void put(const GradientStop& stop);
  void put(const Paint& paint);
  void put(const PathStep& step);
  void put(const ShapeGeometry& shape);
};

// ---- nodes

void TreeWriter::put(const View& view) {
  const Node& node = view.node();
  json_.beginObject();
  std::visit([this](const auto& element) { putElement(element); }, node.element);
  if (!node.component.empty()) json_.member("name", node.component);
  if (!node.children.empty()) {
    json_.key("children");
    put(node.children);
  }
  if (!node.modifiers.empty()) {
    json_.key("modifiers").beginArray();
    for (const Modifier& modifier : node.modifiers) {
      std::visit([this](const auto& m) { putModifier(m); }, modifier);
    }
    json_.endArray();
  }
  json_.endObject();
}

template <class E>
void TreeWriter::putElement(const E& element) {
  json_.member("type", MembersOf<E>::kName);
  putMembers(element);
}

void TreeWriter::putElement(const StackElement& stack) {
  json_.member("type", nameOf(stack.axis));
  putMembers(stack);
}

void TreeWriter::putElement(const ShapeElement& shape) {
  std::visit([this](const auto& geometry) { putElement(geometry); }, shape.geometry);
  putMembers(shape);
}

template <class M>
void TreeWriter::putModifier(const M& modifier) {
  json_.beginObject();
  if constexpr (hasLead<M>) {
    putMembers(modifier);
  } else {
    json_.key(MembersOf<M>::kName).beginObject();
    putMembers(modifier);
    json_.endObject();
  }
  json_.endObject();
}

// ---- values

void TreeWriter::put(double number) {
  if (number == kInfinity) {
    json_.value("infinity");
  } else {
    json_.value(number);
  }
}

void TreeWriter::put(const Length& length) {
  if (length.isConstant()) return put(length.points());
  json_.beginArray();
  json_.value(length.widthFactor()).value(length.heightFactor()).value(length.points());
  for (const Length::Term& term : length.terms()) put(term);
  json_.endArray();
}

void TreeWriter::put(const Length::Term& term) {
  json_.beginArray().value(nameOf(term.choice)).value(term.factor);
  put(term.first);
  put(term.second);
  json_.endArray();
}

void TreeWriter::put(const LengthPoint& point) {
  json_.beginArray();
  put(point.x);
  put(point.y);
  json_.endArray();
}

void TreeWriter::put(const UnitPoint& point) {
  json_.beginArray().value(point.x).value(point.y).endArray();
}

void TreeWriter::put(const Insets& insets) {
  json_.beginArray().value(insets.top).value(insets.leading);
  json_.value(insets.bottom).value(insets.trailing).endArray();
}

void TreeWriter::put(const Color& color) {
  std::string text;
  appendColor(text, color, &appendShortest);
  json_.value(text);
}

void TreeWriter::put(const GradientStop& stop) {
  json_.beginArray();
  put(stop.color);
  json_.value(stop.location).endArray();
}

void TreeWriter::put(const Paint& paint) {
  std::visit(foundation::Overloaded{[&](const OneOf<Color, Gradient> auto& own) { put(own); },
                                    [&](std::monostate /*inherited*/) { json_.null(); }},
             paint);
}

void TreeWriter::put(const PathStep& step) {
  json_.beginArray().value(nameOf(step.verb));
  const bool isCubic = step.verb == PathStep::Verb::cubic;
  for (const LengthPoint* point : {&step.control1, &step.control2, &step.to}) {
    const bool isControl = point != &step.to;
    if (step.verb == PathStep::Verb::close || (isControl && !isCubic)) continue;
    put(point->x);
    put(point->y);
  }
  json_.endArray();
}

void TreeWriter::put(const ShapeGeometry& shape) {
  json_.beginObject();
  std::visit([this](const auto& geometry) { putElement(geometry); }, shape);
  json_.endObject();
}

}  // namespace

void writeView(foundation::JsonWriter& writer, const View& view) {
  TreeWriter(writer).put(view);
}

}  // namespace viewkit
