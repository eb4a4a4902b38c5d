// Walks the placed nodes and writes commands.
#include "Rendering/Recording/Recorder.hpp"

#include <algorithm>
#include <utility>
#include <variant>

#include "Foundation/Overloaded.hpp"
#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Recording/RecorderContext.hpp"
#include "Rendering/Recording/RecorderOpacity.hpp"
#include "Rendering/Recording/RecorderPictures.hpp"
#include "Rendering/Recording/RecorderShapes.hpp"
#include "Rendering/Recording/RecorderText.hpp"

namespace rendering {

namespace {

using foundation::OneOf;

/// What covers redacted content: an empty cell, or a faint primary where a host tints.
constexpr viewkit::Color kPlate{viewkit::Color::Pair{0xECEBE6, 0x2A2926}, 1, -1};
constexpr viewkit::Color kTintedPlate{viewkit::ColorRole::primary, 0.14, -1};
constexpr double kCoverRadius = 6;

class TreeRecorder : RecorderContext {
 public:
  explicit TreeRecorder(const RecorderContext& context) : RecorderContext(context) {}

  void visit(const PlacedNode& node) {
    overrun_ = overrun_ || list.commands.size() > limits::kCommands ||
               list.points.size() > limits::kPathPoints || list.images.size() > limits::kImages;
    if (overrun_) return;
    if (const auto* modifier = node.modifier()) {
      return std::visit([&](const auto& m) { visitModifier(node, m); }, *modifier);
    }
    if (node.text) return recordText(*this, node);
    if (const auto* element = node.element()) {
      std::visit([&](const auto& e) { visitElement(node, e); }, *element);
    }
  }

  /// Whether something was left out since the list had become too long.
  [[nodiscard]] bool isOverrun() const { return overrun_; }

 private:
  // ---- modifiers

  void visitTarget(const PlacedNode& node) {
    if (!node.children.empty()) visit(node.children.front());
  }

  // Of layout, of what is heard and of links nothing is drawn.
  template <OneOf<viewkit::FixedFrame,
                  viewkit::FlexibleFrame,
                  viewkit::Padding,
                  viewkit::Offset,
                  viewkit::Position,
                  viewkit::ZIndex,
                  viewkit::AspectRatio,
                  viewkit::LayoutPriority,
                  viewkit::FixedSize,
                  viewkit::SharedScale,
                  viewkit::Direction,
                  viewkit::Accessibility,
                  viewkit::Link,
                  viewkit::WidgetURL,
                  viewkit::ContainerBackground> Undrawn>
  void visitModifier(const PlacedNode& node, const Undrawn& /*modifier*/) {
    visitTarget(node);
  }

  void visitModifier(const PlacedNode& node, const viewkit::ForegroundStyle& style) {
    const viewkit::Paint* before = foreground;
    if (!std::holds_alternative<std::monostate>(style.paint)) foreground = &style.paint;
    visitTarget(node);
    foreground = before;
  }

  void visitModifier(const PlacedNode& node, const viewkit::Background& /*behind*/) {
    if (node.children.size() > 1) visit(node.children[1]);
    visitTarget(node);
  }

  void visitModifier(const PlacedNode& node, const viewkit::Overlay& /*above*/) {
    visitTarget(node);
    if (node.children.size() > 1) visit(node.children[1]);
  }

  void visitModifier(const PlacedNode& node, const viewkit::Accentable& /*flag*/) {
    const bool before = std::exchange(accentable, true);
    visitTarget(node);
    accentable = before;
  }

  void visitModifier(const PlacedNode& node, const viewkit::PrivacySensitive& sensitive) {
    const bool covered = sensitive.treatment == viewkit::PrivacyTreatment::covered;
    if (!covered || !options.redaction.privacy) return visitTarget(node);
    const bool isTinted = options.mode != viewkit::RenderingMode::fullColor;
    cover(node.frame,
          std::min(kCoverRadius, node.frame.height / 2),
          isTinted ? kTintedPlate : kPlate);
  }

  void visitModifier(const PlacedNode& node, const viewkit::Clip& modifier) {
    const viewkit::ShapeGeometry& shape = modifier.shape;
    const std::size_t begin = list.commands.size();
    path.clear();
    appendShape(path, shape, boxOf(node));
    BeginClip clip{list.add(path), 0, path.bounds(), -1};
    if (std::holds_alternative<viewkit::RectangleShape>(shape)) {
      clip.corner = 0;
    } else if (const auto* rounded = std::get_if<viewkit::RoundedRectangleShape>(&shape)) {
      clip.corner = cornerExtent(node.frame,
                                 rounded->radius.resolve(node.proposal.width, node.proposal.height),
                                 rounded->style);
    } else if (std::holds_alternative<viewkit::CapsuleShape>(shape)) {
      clip.corner = std::min(node.frame.width, node.frame.height) / 2;
    }
    list.commands.emplace_back(clip);
    visitTarget(node);
    // Nothing inside: nothing to clip.
    const auto count = static_cast<std::uint32_t>(list.commands.size() - begin - 1);
    if (count == 0) return list.commands.pop_back();
    std::get<BeginClip>(list.commands[begin]).count = count;
    list.commands.emplace_back(EndClip{});
  }

  void visitModifier(const PlacedNode& node, const viewkit::Opacity& modifier) {
    const auto factor = static_cast<float>(std::clamp(modifier.opacity, 0.0, 1.0));
    if (factor == 0) return;
    if (factor == 1) return visitTarget(node);
    const std::size_t begin = list.commands.size();
    list.commands.emplace_back(BeginGroup{factor});
    visitTarget(node);
    endOpacity(list, begin);
  }

  void visitModifier(const PlacedNode& node, const viewkit::Cutout& cutout) {
    path.clear();
    appendShape(path, cutout.shape, boxOf(node));
    if (!path.empty()) list.commands.emplace_back(ErasePath{list.add(path), path.bounds()});
    visitTarget(node);
  }

  void visitModifier(const PlacedNode& node, const viewkit::Shadow& shadow) {
    const Rgba color = resolve(shadow.color);
    if (color.alpha <= 0) return visitTarget(node);
    const std::size_t begin = list.commands.size();
    list.commands.emplace_back(BeginShadow{});
    visitTarget(node);
    const std::size_t first = begin + 1;
    if (list.commands.size() == first) return list.commands.pop_back();
    const double most = limits::kShadowRadius * std::max(list.size.width, list.size.height);
    // A radius that is no number is none.
    const double deviation = shadow.radius > 0 ? std::min(shadow.radius, most) : 0;
    const Point offset{mirrored(node) ? -shadow.x : shadow.x, shadow.y};
    if (const auto shape = silhouetteFrom(list, first)) {
      list.commands[begin] = DrawShadow{shape->path, shape->bounds, color, deviation, offset};
    } else {
      const auto count = static_cast<std::uint32_t>(list.commands.size() - first);
      list.commands[begin] = BeginShadow{count, boundsFrom(list, first), color, deviation, offset};
      list.commands.emplace_back(EndShadow{});
    }
  }

  // ---- elements

  void visitChildren(const PlacedNode& node) {
    for (const PlacedNode& child : node.children) visit(child);
  }

  // A text without a placed one has nothing to be seen.
  template <OneOf<viewkit::EmptyElement,
                  viewkit::StackElement,
                  viewkit::SpacerElement,
                  viewkit::TextElement,
                  viewkit::CanvasElement,
                  viewkit::FittingElement> Container>
  void visitElement(const PlacedNode& node, const Container& /*element*/) {
    visitChildren(node);
  }

  void visitElement(const PlacedNode& node, const viewkit::SymbolElement& symbol) {
    recordSymbol(*this, node, symbol);
  }

  void visitElement(const PlacedNode& node, const viewkit::ShapeElement& shape) {
    recordShape(*this, node, shape);
  }

  void visitElement(const PlacedNode& node, const viewkit::GaugeElement& gauge) {
    recordGauge(*this, node, gauge);
    visitChildren(node);
  }

  void visitElement(const PlacedNode& node, const viewkit::ImageElement& image) {
    if (!recordImage(*this, node, image)) visitChildren(node);
  }

  bool overrun_ = false;
};

}  // namespace

Drawn<void> record(const LayoutTree& tree,
                   const RenderOptions& options,
                   RecorderTools tools,
                   DisplayList& list) {
  list.size = tree.size;
  TreeRecorder recorder{{options, tools, list}};
  recorder.visit(tree.root);
  if (recorder.isOverrun()) return std::unexpected("the tree has too much to draw");
  return {};
}

}  // namespace rendering
