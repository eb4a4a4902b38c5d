#include "Rendering/Output/PlainText.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <variant>

#include "Foundation/Overloaded.hpp"
#include "Rendering/Layout/PlacedText.hpp"
#include "Rendering/Output/PlainTextGrid.hpp"
#include "Rendering/Symbols/SymbolLibrary.hpp"

namespace rendering {

using namespace viewkit;

namespace {

/// About the advance of a letter of small text over the columns that it may take: narrower cells
/// tear words apart.
constexpr double kLeastCellWidth = 4.5;
constexpr double kUsualLineHeight = 14.5;
/// Bars thinner than this are hairlines, thicker ones grounds.
constexpr double kThinnestMeter = 3;
constexpr double kThickestMeter = 10;
constexpr double kShortestMeter = 30;
constexpr double kSame = 0.5;

struct Meter {
  Rect track;
  double filled = 0;
};

std::string blankBar(int columns) {
  std::string bar;
  for (int i = 0; i < std::max(columns, 4); ++i) bar += "▒";
  return bar;
}

std::string meterBar(double fraction, int columns) {
  const int inside = std::max(columns - 2, 4);
  const int filled = std::clamp(static_cast<int>(std::lround(fraction * inside)), 0, inside);
  return "[" + std::string(static_cast<std::size_t>(filled), '#') +
         std::string(static_cast<std::size_t>(inside - filled), '-') + "]";
}

/// Only symbols that say something which no text beside them says, turned as they are drawn.
std::string symbolText(const std::string& name, LayoutDirection direction) {
  const auto has = [&](std::string_view part) { return name.find(part) != std::string::npos; };
  const bool turned = direction == LayoutDirection::rightToLeft && mirrorsInRightToLeft(name);
  if (has("arrow.up.right")) return turned ? "↖" : "↗";
  if (has("arrow.down.right")) return turned ? "↙" : "↘";
  if (name == "arrow.right") return turned ? "←" : "→";
  if (name.starts_with("arrow.up")) return "↑";
  if (name.starts_with("arrow.down")) return "↓";
  if (name.starts_with("exclamationmark")) return "!";
  return "";
}

bool isBar(const ShapeElement& shape) {
  return shape.mode == ShapeElement::Mode::fill &&
         (std::holds_alternative<CapsuleShape>(shape.geometry) ||
          std::holds_alternative<RoundedRectangleShape>(shape.geometry));
}

class Collector {
 public:
  Collector(RedactionReasons redaction, PlainGrid grid) : redaction_(redaction), grid_(grid) {}

  std::vector<PlainLabel> take(const PlacedNode& root) {
    visit(root);
    for (const Meter& meter : meters_) {
      addBox(meterBar(meter.filled / meter.track.width, columnsIn(meter.track)), meter.track);
    }
    return std::move(labels_);
  }

 private:
  [[nodiscard]] int columnsIn(const Rect& frame) const {
    return static_cast<int>(
        std::lround(std::min(frame.width / grid_.cellWidth, 1.0 * grid_.columns)));
  }

  /// A label in the middle of a frame, as if it were a text there.
  void addBox(std::string text, const Rect& frame) {
    const double middle = frame.y + frame.height / 2;
    constexpr double kSize = 12;
    labels_.push_back({std::move(text), frame, middle + 0.364 * kSize, kSize});
  }

  void visit(const PlacedNode& node) {
    if (isInvisible(node)) return;
    if (isCovered(node, redaction_)) {
      if (node.frame.width > 0) addBox(blankBar(columnsIn(node.frame)), node.frame);
      return;
    }
    if (node.text) addText(node);
    if (const Element* element = node.element()) addElement(*element, node);
    const bool behind = node.modifier() && std::holds_alternative<Background>(*node.modifier());
    if (behind && node.children.size() > 1) visit(node.children[1]);
    for (std::size_t i = 0; i < node.children.size() - (behind ? 1 : 0); ++i) {
      visit(node.children[i]);
    }
  }

  void addElement(const Element& element, const PlacedNode& node) {
    const Rect& frame = node.frame;
    const foundation::Overloaded add{
        [&](const SymbolElement& symbol) {
          if (!redaction_.placeholder) addBox(symbolText(symbol.name, node.direction), frame);
        },
        [&](const ShapeElement& shape) {
          if (isBar(shape)) addBar(frame);
        },
        [&](const GaugeElement& gauge) {
          const Rect foot{
              frame.x, frame.bottom() - kUsualLineHeight, frame.width, kUsualLineHeight};
          addBox(meterBar(gauge.fraction, columnsIn(foot)), foot);
        },
        [](const foundation::OneOf<EmptyElement,
                                   StackElement,
                                   SpacerElement,
                                   TextElement,
                                   ImageElement,
                                   CanvasElement,
                                   FittingElement> auto&) {}};
    std::visit(add, element);
  }

  /// A thin bar is a meter's track; another one on it, from the same end, its filled part.
  void addBar(const Rect& frame) {
    if (frame.height < kThinnestMeter || frame.height > kThickestMeter) return;
    for (Meter& meter : meters_) {
      const Rect& track = meter.track;
      const bool sameLine =
          std::abs(frame.y - track.y) < kSame && std::abs(frame.height - track.height) < kSame;
      const bool sameEnd =
          std::abs(frame.x - track.x) < kSame || std::abs(frame.right() - track.right()) < kSame;
      if (sameLine && sameEnd && frame.width <= track.width + kSame) {
        meter.filled = std::min(frame.width, track.width);
        return;
      }
    }
    if (frame.width >= kShortestMeter) meters_.push_back({frame, 0});
  }

  void addText(const PlacedNode& node) {
    const PlacedText& text = *node.text;
    const double count = static_cast<double>(std::max<std::size_t>(1, text.lines.size()));
    const double height = node.frame.height / count;
    double y = node.frame.y;
    for (const PlacedLine& line : text.lines) {
      const Rect box{line.x, y, line.width, height};
      std::string shown =
          redaction_.placeholder ? blankBar(columnsIn(box)) : withoutIsolates(lineText(text, line));
      labels_.push_back({std::move(shown), box, line.baseline, text.size});
      y += height;
    }
  }

  RedactionReasons redaction_;
  PlainGrid grid_;
  std::vector<PlainLabel> labels_;
  std::vector<Meter> meters_;
};

void collectLineHeights(const PlacedNode& node, std::vector<double>& heights) {
  if (node.text && !node.text->lines.empty() && node.frame.height > 0) {
    heights.push_back(node.frame.height / static_cast<double>(node.text->lines.size()));
  }
  for (const PlacedNode& child : node.children) collectLineHeights(child, heights);
}

/// The middle one of the texts' line heights, at least as high as small print.
double usualLineHeight(const PlacedNode& root) {
  std::vector<double> heights;
  collectLineHeights(root, heights);
  if (heights.empty()) return kUsualLineHeight;
  const auto middle = heights.begin() + static_cast<long>(heights.size() / 2);
  std::ranges::nth_element(heights, middle);
  return std::max(*middle, kUsualLineHeight / 2);
}

}  // namespace

std::string plainText(const LayoutTree& tree, const PlainTextOptions& options) {
  PlainGrid grid{.width = tree.size.width, .height = tree.size.height};
  const int columns = std::clamp(options.columns, 1, 1000);
  grid.cellWidth = std::max(tree.size.width / columns, kLeastCellWidth);
  grid.cellHeight = usualLineHeight(tree.root);
  grid.columns = std::min(columns, static_cast<int>(std::ceil(tree.size.width / grid.cellWidth)));
  return setInGrid(Collector(options.redaction, grid).take(tree.root), grid);
}

}  // namespace rendering
