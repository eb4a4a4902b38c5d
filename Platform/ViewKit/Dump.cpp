// The dump's lines, driven by the lists of members.
#include "ViewKit/Dump.hpp"

#include <concepts>
#include <utility>

#include "Foundation/Overloaded.hpp"
#include "ViewKit/ColorText.hpp"
#include "ViewKit/DumpLine.hpp"
#include "ViewKit/DumpText.hpp"
#include "ViewKit/Members.hpp"
#include "ViewKit/Names.hpp"

namespace viewkit {

namespace {

/// Nothing is drawn or laid out differently for it.
template <class M>
bool changesNothing(const M& modifier) {
  if constexpr (foundation::OneOf<M, Padding, Opacity, Offset, ZIndex, LayoutPriority>) {
    return modifier == M{};
  }
  return false;
}

class TreeDump {
 public:
  void node(const View& view, std::size_t indent);
  [[nodiscard]] std::string take() { return std::move(out_); }

 private:
  void endLine(std::size_t indent);
  void name(std::string_view component);
  void element(const StackElement& stack);
  void element(const ShapeElement& shape);
  template <class E>
  void element(const E& plain);
  template <class M>
  void modifier(const M& modifier);

  template <class T>
  void members(const T& record);
  template <class T>
  void member(std::string_view key, const T& value);
  void member(std::string_view key, bool value);
  void word(std::string_view text);

  void put(int number) { line_.text += std::to_string(number); }
  void put(double number) { appendNumber(line_.text, number); }
  void put(const std::string& text) { appendQuoted(line_.text, text); }
  void put(const Length& length) { appendLength(line_.text, length); }
  void put(const LengthPoint& point);
  void put(const UnitPoint& point);
  void put(const Insets& insets);
  void put(Alignment alignment) { line_.text += nameOf(alignment); }
  void put(const Color& color) { appendColor(line_.text, color, &appendNumber); }
  void put(const Gradient& gradient);
  void put(const Paint& paint);
  void put(const std::vector<PathStep>& steps);
  void put(const ShapeGeometry& shape);
  template <NamedEnum Enum>
  void put(Enum value) {
    line_.text += nameOf(value);
  }
  template <class T>
  void put(const std::optional<T>& value) {
    if (value) put(*value);
  }

  DumpLine line_;
  std::string out_;
};

// ---- lines

void TreeDump::node(const View& view, std::size_t indent) {
  constexpr std::size_t kStep = 2;
  const Node& node = view.node();
  name(node.component);
  std::visit([this](const auto& e) { element(e); }, node.element);
  endLine(indent);
  const auto write = [&]<class M>(const M& plain) {
    if (changesNothing(plain)) return;
    modifier(plain);
    endLine(indent + kStep);
    if constexpr (requires { plain.content; }) this->node(plain.content, indent + 2 * kStep);
  };
  for (const Modifier& m : node.modifiers) std::visit(write, m);
  for (const View& child : node.children) this->node(child, indent + kStep);
}

void TreeDump::endLine(std::size_t indent) {
  line_.appendTo(out_, indent);
  line_ = {};
}

// Names may come over the wire; a line stays a line.
void TreeDump::name(std::string_view component) {
  for (const char c : component) line_.text += c >= 0 && c < ' ' ? '?' : c;
  if (!component.empty()) line_.text += ' ';
}

template <class E>
void TreeDump::element(const E& plain) {
  line_.text += MembersOf<E>::kName;
  members(plain);
}

void TreeDump::element(const StackElement& stack) {
  line_.text += nameOf(stack.axis);
  members(stack);
}

// A paint is introduced by what is done with it: `fill #FFFFFF`, `stroke primary lineWidth 2`.
void TreeDump::element(const ShapeElement& shape) {
  put(shape.geometry);
  const bool hasPaint = !std::holds_alternative<std::monostate>(shape.paint);
  if (hasPaint || shape.mode != ShapeElement::Mode::fill) word(nameOf(shape.mode));
  if (hasPaint) {
    line_.text += ' ';
    put(shape.paint);
  }
  ShapeElement rest = shape;
  rest.mode = ShapeElement::Mode::fill;
  rest.paint = {};
  members(rest);
}

template <class M>
void TreeDump::modifier(const M& modifier) {
  line_.text.append(".").append(MembersOf<M>::kName);
  const std::size_t start = line_.text.size();
  members(modifier);
  if (line_.text.size() == start) return;
  line_.text[start] = '(';
  std::erase(line_.spaces, start);
  line_.text += ')';
}

// ---- members

template <class T>
void TreeDump::members(const T& record) {
  bool isLead = hasLead<T>;
  MembersOf<T>::list([&](std::string_view key, auto pointer, auto...) {
    const auto& value = record.*pointer;
    if constexpr (!std::same_as<decltype(value), const View&>) {
      if (isLead) {
        line_.text += ' ';
        put(value);
      } else if (!(value == defaultsOf<T>().*pointer)) {
        member(key, value);
      }
    }
    isLead = false;
  });
}

template <class T>
void TreeDump::member(std::string_view key, const T& value) {
  word(key);
  line_.text += ' ';
  put(value);
}

void TreeDump::member(std::string_view key, bool value) {
  word(key);
  if (!value) line_.text += " false";
}

void TreeDump::word(std::string_view text) {
  line_.space();
  line_.text += text;
}

// ---- values

void TreeDump::put(const LengthPoint& point) {
  line_.text += '(';
  put(point.x);
  line_.text += ", ";
  put(point.y);
  line_.text += ')';
}

void TreeDump::put(const UnitPoint& point) {
  put(LengthPoint{point.x, point.y});
}

void TreeDump::put(const Insets& insets) {
  if (insets == Insets::all(insets.top)) return put(insets.top);
  const std::pair<std::string_view, double> edges[] = {{"top", insets.top},
                                                       {"leading", insets.leading},
                                                       {"bottom", insets.bottom},
                                                       {"trailing", insets.trailing}};
  bool isFirst = true;
  for (const auto& [edge, points] : edges) {
    if (points == 0) continue;
    if (!isFirst) line_.text += ' ';
    line_.text.append(edge) += ' ';
    put(points);
    isFirst = false;
  }
}

void TreeDump::put(const Gradient& gradient) {
  line_.text += "gradient ";
  put(gradient.start);
  line_.text += " to ";
  put(gradient.end);
  for (const GradientStop& stop : gradient.stops) {
    line_.text += ',';
    line_.space();
    put(stop.color);
    line_.text += " at ";
    put(stop.location);
  }
}

void TreeDump::put(const Paint& paint) {
  std::visit(
      foundation::Overloaded{[&](const foundation::OneOf<Color, Gradient> auto& own) { put(own); },
                             [&](std::monostate) { line_.text += "inherited"; }},
      paint);
}

void TreeDump::put(const std::vector<PathStep>& steps) {
  for (const PathStep& step : steps) {
    if (&step != steps.data()) line_.space();
    put(step.verb);
    if (step.verb == PathStep::Verb::cubic) {
      put(step.control1);
      put(step.control2);
    }
    if (step.verb != PathStep::Verb::close) put(step.to);
  }
}

void TreeDump::put(const ShapeGeometry& shape) {
  std::visit([this](const auto& geometry) { element(geometry); }, shape);
}

}  // namespace

std::string dump(const View& view) {
  TreeDump dump;
  dump.node(view, 0);
  return dump.take();
}

std::string dump(const Length& length) {
  std::string text;
  appendLength(text, length);
  return text;
}

std::string dump(const Color& color) {
  std::string text;
  appendColor(text, color, &appendNumber);
  return text;
}

}  // namespace viewkit
