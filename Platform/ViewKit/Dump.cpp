// The dump's lines, driven by the lists of members.
#include "ViewKit/Dump.hpp"

#include <concepts>
#include <utility>

#include "Foundation/Overloaded.hpp"
#include "ViewKit/ColorText.hpp"
#include "ViewKit/DumpText.hpp"
#include "ViewKit/Members.hpp"
#include "ViewKit/Names.hpp"

namespace viewkit {

namespace {

class TreeDump {
 public:
  void node(const View& view, std::size_t indent, std::string_view label = {});
  [[nodiscard]] std::string take() { return std::move(out_); }

 private:
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

  void put(int number) { out_ += std::to_string(number); }
  void put(double number) { appendNumber(out_, number); }
  void put(const std::string& text) { appendQuoted(out_, text); }
  void put(const Length& length) { appendLength(out_, length); }
  void put(const LengthPoint& point);
  void put(const UnitPoint& point);
  void put(const Insets& insets);
  void put(Alignment alignment) { out_ += nameOf(alignment); }
  void put(const Color& color) { appendColor(out_, color, &appendNumber); }
  void put(const Gradient& gradient);
  void put(const Paint& paint);
  void put(const std::vector<PathStep>& steps);
  void put(const ShapeGeometry& shape);
  template <NamedEnum Enum>
  void put(Enum value) {
    out_ += nameOf(value);
  }
  template <class T>
  void put(const std::optional<T>& value) {
    if (value) put(*value);
  }

  std::string out_;
};

// ---- lines

void TreeDump::node(const View& view, std::size_t indent, std::string_view label) {
  constexpr std::size_t kStep = 2;
  const Node& node = view.node();
  out_.append(indent, ' ');
  if (!label.empty()) out_.append(label) += ": ";
  name(node.component);
  std::visit([this](const auto& e) { element(e); }, node.element);
  for (const Modifier& m : node.modifiers) {
    std::visit([this](const auto& plain) { modifier(plain); }, m);
  }
  out_ += '\n';
  for (const Modifier& m : node.modifiers) {
    std::visit(
        [&]<class M>(const M& plain) {
          if constexpr (requires { plain.content; }) {
            this->node(plain.content, indent + kStep, MembersOf<M>::kName);
          }
        },
        m);
  }
  for (const View& child : node.children) this->node(child, indent + kStep);
}

// Names may come over the wire; a line stays a line.
void TreeDump::name(std::string_view component) {
  for (const char c : component) out_ += c >= 0 && c < ' ' ? '?' : c;
  if (!component.empty()) out_ += ' ';
}

template <class E>
void TreeDump::element(const E& plain) {
  out_ += MembersOf<E>::kName;
  members(plain);
}

void TreeDump::element(const StackElement& stack) {
  out_ += nameOf(stack.axis);
  members(stack);
}

// A paint is introduced by what is done with it: `fill #FFFFFF`, `stroke primary lineWidth 2`.
void TreeDump::element(const ShapeElement& shape) {
  put(shape.geometry);
  const bool hasPaint = !std::holds_alternative<std::monostate>(shape.paint);
  if (hasPaint || shape.mode != ShapeElement::Mode::fill) word(nameOf(shape.mode));
  if (hasPaint) {
    out_ += ' ';
    put(shape.paint);
  }
  ShapeElement rest = shape;
  rest.mode = ShapeElement::Mode::fill;
  rest.paint = {};
  members(rest);
}

template <class M>
void TreeDump::modifier(const M& modifier) {
  out_.append(" .").append(MembersOf<M>::kName);
  const std::size_t start = out_.size();
  members(modifier);
  if (out_.size() == start) return;
  out_[start] = '(';
  out_ += ')';
}

// ---- members

template <class T>
void TreeDump::members(const T& record) {
  bool isLead = hasLead<T>;
  MembersOf<T>::list([&](std::string_view key, auto pointer, auto...) {
    const auto& value = record.*pointer;
    if constexpr (!std::same_as<decltype(value), const View&>) {
      if (isLead) {
        word({});
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
  out_ += ' ';
  put(value);
}

void TreeDump::member(std::string_view key, bool value) {
  word(key);
  if (!value) out_ += " false";
}

void TreeDump::word(std::string_view text) {
  out_.append(" ").append(text);
}

// ---- values

void TreeDump::put(const LengthPoint& point) {
  out_ += '(';
  put(point.x);
  out_ += ", ";
  put(point.y);
  out_ += ')';
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
    if (!isFirst) out_ += ' ';
    out_.append(edge) += ' ';
    put(points);
    isFirst = false;
  }
}

void TreeDump::put(const Gradient& gradient) {
  out_ += "gradient ";
  put(gradient.start);
  out_ += " to ";
  put(gradient.end);
  for (const GradientStop& stop : gradient.stops) {
    out_ += ", ";
    put(stop.color);
    out_ += " at ";
    put(stop.location);
  }
}

void TreeDump::put(const Paint& paint) {
  std::visit(
      foundation::Overloaded{[&](const foundation::OneOf<Color, Gradient> auto& own) { put(own); },
                             [&](std::monostate) { out_ += "inherited"; }},
      paint);
}

void TreeDump::put(const std::vector<PathStep>& steps) {
  for (const PathStep& step : steps) {
    if (&step != steps.data()) out_ += ' ';
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
