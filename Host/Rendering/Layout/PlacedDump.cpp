#include "Rendering/Layout/PlacedDump.hpp"

#include <fmt/format.h>

#include <cmath>

#include "Rendering/Layout/PlacedText.hpp"

namespace rendering {

using namespace viewkit;

namespace {

std::string hundredths(double value) {
  std::string text = fmt::format("{:.2f}", value);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string frameText(const Rect& frame) {
  return fmt::format("{} {} {} {}",
                     hundredths(frame.x),
                     hundredths(frame.y),
                     hundredths(frame.width),
                     hundredths(frame.height));
}

struct ElementName {
  std::string operator()(const EmptyElement&) const { return "Empty"; }
  std::string operator()(const StackElement& stack) const {
    switch (stack.axis) {
      case StackElement::Axis::horizontal:
        return "HStack";
      case StackElement::Axis::vertical:
        return "VStack";
      case StackElement::Axis::depth:
        break;
    }
    return "ZStack";
  }
  std::string operator()(const SpacerElement&) const { return "Spacer"; }
  std::string operator()(const TextElement&) const { return "Text"; }
  std::string operator()(const SymbolElement& symbol) const { return "Symbol " + symbol.name; }
  std::string operator()(const ImageElement& image) const { return "Image " + image.path; }
  std::string operator()(const CanvasElement&) const { return "Canvas"; }
  std::string operator()(const FittingElement&) const { return "Fitting"; }
  std::string operator()(const GaugeElement& gauge) const {
    return "Gauge " + hundredths(gauge.fraction);
  }
  std::string operator()(const ShapeElement& shape) const {
    return std::visit(*this, shape.geometry);
  }
  std::string operator()(const RectangleShape&) const { return "Rectangle"; }
  std::string operator()(const RoundedRectangleShape&) const { return "RoundedRectangle"; }
  std::string operator()(const CapsuleShape&) const { return "Capsule"; }
  std::string operator()(const CircleShape&) const { return "Circle"; }
  std::string operator()(const ArcShape&) const { return "Arc"; }
  std::string operator()(const PathShape&) const { return "Path"; }
};

std::string describe(const PlacedText& text) {
  std::string result;
  for (const PlacedLine& line : text.lines) {
    result += fmt::format("{}\"{}\"", result.empty() ? " " : " / ", lineText(text, line));
  }
  if (text.scale < 1) result += " scale " + hundredths(text.scale);
  if (text.isCut()) result += " cut";
  return result;
}

class Dump {
 public:
  std::string take(const PlacedNode& root) {
    view(root, 0, "");
    return std::move(out_);
  }

 private:
  /// A view is its element and the modifiers around it; grounds and overlays follow its children.
  void view(const PlacedNode& outermost, int depth, const char* role) {
    const PlacedNode* node = &outermost;
    std::vector<const PlacedNode*> beside;
    while (node->modifier() && !node->children.empty()) {
      if (node->children.size() > 1) beside.push_back(node);
      node = &node->children[0];
    }
    line(outermost, *node, depth, role);
    for (const PlacedNode& child : node->children) view(child, depth + 1, "");
    for (const PlacedNode* with : beside) {
      const bool isBackground = std::holds_alternative<Background>(*with->modifier());
      view(with->children[1], depth + 1, isBackground ? "background " : "overlay ");
    }
  }

  void line(const PlacedNode& outermost, const PlacedNode& node, int depth, const char* role) {
    out_.append(static_cast<std::size_t>(depth) * 2, ' ');
    out_ += role;
    if (const Element* element = node.element()) out_ += std::visit(ElementName{}, *element);
    if (node.source && !node.source->component.empty()) out_ += " <" + node.source->component + ">";
    if (node.text) out_ += describe(*node.text);
    const std::string inner = frameText(node.frame);
    const std::string outer = frameText(outermost.frame);
    out_ += " " + inner;
    if (outer != inner) out_ += " in " + outer;
    out_ += '\n';
  }

  std::string out_;
};

}  // namespace

std::string dumpPlaced(const LayoutTree& tree) {
  return Dump{}.take(tree.root);
}

}  // namespace rendering
