// Walks the placed nodes and writes commands.
#include "Rendering/Recording/Recorder.hpp"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

#include "Foundation/Overloaded.hpp"
#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Recording/RecorderColors.hpp"
#include "Rendering/Recording/RecorderOpacity.hpp"

namespace rendering {

namespace {

using foundation::OneOf;
using viewkit::LayoutDirection;

/// Of a text's own colour in the bar that stands for it.
constexpr double kBarOpacity = 0.22;
/// What covers redacted content: an empty cell, or a faint primary where a host tints.
constexpr viewkit::Color kPlate{viewkit::Color::Pair{0xECEBE6, 0x2A2926}, 1, -1};
constexpr viewkit::Color kTintedPlate{viewkit::ColorRole::primary, 0.14, -1};
constexpr double kCoverRadius = 6;
constexpr double kTextBarHeight = 0.7;  ///< of the line
constexpr double kTextBarRadius = 4;
constexpr double kGaugeStart = 135;  ///< degrees, clockwise from three o'clock
constexpr double kGaugeSweep = 270;
constexpr double kGaugeTrack = 0.3;

class TreeRecorder {
 public:
  TreeRecorder(const RenderOptions& options, RecorderTools tools, DisplayList& list)
      : options_(options), tools_(tools), list_(list) {}

  void visit(const PlacedNode& node) {
    overrun_ = overrun_ || list_.commands.size() > limits::kCommands ||
               list_.points.size() > limits::kPathPoints || list_.images.size() > limits::kImages;
    if (overrun_) return;
    if (const auto* modifier = node.modifier()) {
      return std::visit([&](const auto& m) { visitModifier(node, m); }, *modifier);
    }
    if (node.text) return visitText(node);
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
    const viewkit::Paint* before = foreground_;
    if (!std::holds_alternative<std::monostate>(style.paint)) foreground_ = &style.paint;
    visitTarget(node);
    foreground_ = before;
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
    const bool before = std::exchange(accentable_, true);
    visitTarget(node);
    accentable_ = before;
  }

  void visitModifier(const PlacedNode& node, const viewkit::PrivacySensitive& sensitive) {
    const bool covered = sensitive.treatment == viewkit::PrivacyTreatment::covered;
    if (!covered || !options_.redaction.privacy) return visitTarget(node);
    const bool isTinted = options_.mode != viewkit::RenderingMode::fullColor;
    cover(node.frame,
          std::min(kCoverRadius, node.frame.height / 2),
          isTinted ? kTintedPlate : kPlate);
  }

  void visitModifier(const PlacedNode& node, const viewkit::Clip& modifier) {
    const viewkit::ShapeGeometry& shape = modifier.shape;
    const std::size_t begin = list_.commands.size();
    path_.clear();
    appendShape(path_, shape, boxOf(node));
    BeginClip clip{list_.add(path_), 0, path_.bounds(), -1};
    if (std::holds_alternative<viewkit::RectangleShape>(shape)) {
      clip.corner = 0;
    } else if (const auto* rounded = std::get_if<viewkit::RoundedRectangleShape>(&shape)) {
      clip.corner = cornerExtent(node.frame,
                                 rounded->radius.resolve(node.proposal.width, node.proposal.height),
                                 rounded->style);
    } else if (std::holds_alternative<viewkit::CapsuleShape>(shape)) {
      clip.corner = std::min(node.frame.width, node.frame.height) / 2;
    }
    list_.commands.emplace_back(clip);
    visitTarget(node);
    // Nothing inside: nothing to clip.
    const auto count = static_cast<std::uint32_t>(list_.commands.size() - begin - 1);
    if (count == 0) return list_.commands.pop_back();
    std::get<BeginClip>(list_.commands[begin]).count = count;
    list_.commands.emplace_back(EndClip{});
  }

  void visitModifier(const PlacedNode& node, const viewkit::Opacity& modifier) {
    const auto factor = static_cast<float>(std::clamp(modifier.opacity, 0.0, 1.0));
    if (factor == 0) return;
    if (factor == 1) return visitTarget(node);
    const std::size_t begin = list_.commands.size();
    list_.commands.emplace_back(BeginGroup{factor});
    visitTarget(node);
    endOpacity(list_, begin);
  }

  void visitModifier(const PlacedNode& node, const viewkit::Cutout& cutout) {
    path_.clear();
    appendShape(path_, cutout.shape, boxOf(node));
    if (!path_.empty()) list_.commands.emplace_back(ErasePath{list_.add(path_), path_.bounds()});
    visitTarget(node);
  }

  void visitModifier(const PlacedNode& node, const viewkit::Shadow& shadow) {
    const Rgba color = resolveColor(shadow.color, options_, accentable_);
    if (color.alpha <= 0) return visitTarget(node);
    const std::size_t begin = list_.commands.size();
    list_.commands.emplace_back(BeginShadow{});
    visitTarget(node);
    const std::size_t first = begin + 1;
    if (list_.commands.size() == first) return list_.commands.pop_back();
    const double most = limits::kShadowRadius * std::max(list_.size.width, list_.size.height);
    // A radius that is no number is none.
    const double deviation = shadow.radius > 0 ? std::min(shadow.radius, most) : 0;
    const Point offset{mirrored(node) ? -shadow.x : shadow.x, shadow.y};
    if (const auto shape = silhouetteFrom(list_, first)) {
      list_.commands[begin] = DrawShadow{shape->path, shape->bounds, color, deviation, offset};
    } else {
      const auto count = static_cast<std::uint32_t>(list_.commands.size() - first);
      list_.commands[begin] =
          BeginShadow{count, boundsFrom(list_, first), color, deviation, offset};
      list_.commands.emplace_back(EndShadow{});
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

  void visitText(const PlacedNode& node) {
    const PlacedText& text = *node.text;
    if (!text.paragraph) return;
    if (options_.redaction.placeholder) return coverText(node);
    const auto* paragraph = dynamic_cast<const GlyphParagraph*>(text.paragraph.get());
    if (!paragraph) return;
    DrawGlyphs command;
    command.first = static_cast<std::uint32_t>(list_.glyphs.size());
    command.size = text.size;
    Rect bounds;
    for (const PlacedLine& line : text.lines) {
      appendTextLine(*paragraph, text, line);
      for (std::uint32_t i = line.first; i < line.last; ++i) {
        command.joined = command.joined || paragraph->ranges[i].joined;
      }
      // Ink may leave the line box: marks above and below, overhanging letters.
      const Rect box{line.x - 0.3 * text.size,
                     line.baseline - 1.3 * text.size,
                     line.width + 0.6 * text.size,
                     1.9 * text.size};
      bounds = bounds.width > 0 ? unite(bounds, box) : box;
    }
    command.bounds = bounds;
    command.ink = ink({}, node);
    if (!(command.ink.color.alpha > 0)) list_.glyphs.resize(command.first);
    drawColorGlyphs(command);
    command.count = static_cast<std::uint32_t>(list_.glyphs.size()) - command.first;
    if (command.count > 0) list_.commands.emplace_back(command);
  }

  /// Takes the coloured glyphs out of a text's: they are pictures of their own, as opaque as the
  /// text, and grey where the host tints.
  void drawColorGlyphs(const DrawGlyphs& text) {
    const auto begin = list_.glyphs.begin() + static_cast<std::ptrdiff_t>(text.first);
    const auto isPlain = [&](const LineGlyph& glyph) {
      return !tools_.colorGlyphs.isColored(glyph.font);
    };
    if (std::all_of(begin, list_.glyphs.end(), isPlain)) return;
    const auto colored = std::stable_partition(begin, list_.glyphs.end(), isPlain);
    for (auto it = colored; it != list_.glyphs.end(); ++it) {
      const ColorGlyph& glyph =
          tools_.colorGlyphs.glyph(it->font, it->glyph, text.size * options_.scale);
      if (!glyph.image) continue;
      DrawImage command;
      command.image = static_cast<std::uint32_t>(list_.images.size());
      command.target = {it->x + glyph.box.x * text.size,
                        it->y + glyph.box.y * text.size,
                        glyph.box.width * text.size,
                        glyph.box.height * text.size};
      command.bounds = command.target;
      command.opacity = text.ink.color.alpha;
      if (options_.mode != viewkit::RenderingMode::fullColor)
        command.colors = DrawImage::Colors::grey;
      list_.images.push_back(glyph.image);
      list_.commands.emplace_back(command);
    }
    list_.glyphs.erase(colored, list_.glyphs.end());
  }

  /// A line cut inside a word of joined letters is shaped again, since the last letter takes its
  /// final form.
  void appendTextLine(const GlyphParagraph& paragraph,
                      const PlacedText& text,
                      const PlacedLine& line) {
    const bool cutsWord = line.ellipsis && line.last > line.first &&
                          line.last < paragraph.clusters.size() &&
                          paragraph.ranges[line.last - 1].joined;
    if (!cutsWord) return appendLine(paragraph, text, line, list_.glyphs);
    const std::string shown = paragraph.text.substr(0, paragraph.clusters[line.last - 1].end);
    const auto reshaped = std::dynamic_pointer_cast<const GlyphParagraph>(
        tools_.measurer.shape(shown,
                              {.weight = paragraph.weight,
                               .language = paragraph.language,
                               .direction = paragraph.direction}));
    const bool fits = reshaped && reshaped->clusters.size() == line.last;
    appendLine(fits ? *reshaped : paragraph, text, line, list_.glyphs);
  }

  void coverText(const PlacedNode& node) {
    const FontMetrics metrics = tools_.measurer.metrics();
    const double size = node.text->size;
    const double height = kTextBarHeight * metrics.lineHeight() * size;
    for (const PlacedLine& line : node.text->lines) {
      const double width = std::max(line.width, 2 * size);
      const double x = mirrored(node) ? line.x + line.width - width : line.x;
      const double middle = line.baseline - (metrics.ascent - metrics.descent) / 2 * size;
      cover({x, middle - height / 2, width, height},
            std::min(kTextBarRadius, height / 2),
            barColor());
    }
  }

  void visitElement(const PlacedNode& node, const viewkit::SymbolElement& symbol) {
    const Point center{node.frame.x + node.frame.width / 2, node.frame.y + node.frame.height / 2};
    if (options_.redaction.placeholder) {
      const double side = symbol.size;
      return cover({center.x - side / 2, center.y - side / 2, side, side}, 0.25 * side, barColor());
    }
    const SymbolDrawing& drawing =
        tools_.symbols.drawing(symbol.name, symbol.fallback, symbol.weight);
    DrawSymbol command{&drawing, center, symbol.size};
    command.mirrored = mirrored(node) && mirrorsInRightToLeft(symbol.name);
    const double x = command.mirrored ? -drawing.bounds.right() : drawing.bounds.x;
    command.bounds = {center.x + x * symbol.size,
                      center.y + drawing.bounds.y * symbol.size,
                      drawing.bounds.width * symbol.size,
                      drawing.bounds.height * symbol.size};
    command.ink = ink({}, node);
    if (command.ink.color.alpha > 0) list_.commands.emplace_back(command);
  }

  void visitElement(const PlacedNode& node, const viewkit::ShapeElement& shape) {
    if (!(node.frame.width > 0) || !(node.frame.height > 0)) {
      // A stroked line may well be flat; an area may not.
      if (shape.mode == viewkit::ShapeElement::Mode::fill) return;
    }
    const Ink paint = ink(shape.paint, node);
    if (paint.color.alpha <= 0) return;
    const bool whole = shape.trimFrom <= 0 && shape.trimTo >= 1;
    using Mode = viewkit::ShapeElement::Mode;
    if (shape.mode == Mode::fill && whole &&
        std::holds_alternative<viewkit::RectangleShape>(shape.geometry)) {
      list_.commands.emplace_back(FillRect{node.frame, paint});
      return;
    }
    path_.clear();
    const double inset = shape.mode == Mode::innerStroke ? shape.lineWidth / 2 : 0;
    appendShape(path_, shape.geometry, boxOf(node), inset);
    if (!whole) path_ = trimmed(path_, shape.trimFrom, shape.trimTo);
    if (path_.empty()) return;
    const Rect bounds = path_.bounds();
    if (shape.mode == Mode::fill) {
      list_.commands.emplace_back(FillPath{list_.add(path_), bounds, paint});
    } else {
      stroke(bounds, paint, shape.lineWidth, shape.cap, shape.join);
    }
  }

  void stroke(const Rect& bounds,
              const Ink& paint,
              double width,
              viewkit::LineCap cap,
              viewkit::LineJoin join) {
    if (!(width > 0)) return;
    // Mitres and square caps reach farther than half the width.
    const double reach = width * (join == viewkit::LineJoin::miter ? 2 : 0.75);
    const Rect outer{
        bounds.x - reach, bounds.y - reach, bounds.width + 2 * reach, bounds.height + 2 * reach};
    list_.commands.emplace_back(StrokePath{list_.add(path_), outer, paint, width, cap, join});
  }

  void visitElement(const PlacedNode& node, const viewkit::GaugeElement& gauge) {
    drawGauge(node, gauge);
    visitChildren(node);
  }

  void drawGauge(const PlacedNode& node, const viewkit::GaugeElement& gauge) {
    const Point center{node.frame.x + node.frame.width / 2, node.frame.y + node.frame.height / 2};
    const double radius = (std::min(node.frame.width, node.frame.height) - gauge.lineWidth) / 2;
    if (!(radius > 0)) return;
    const Ink full = ink({}, node);
    Ink track = full;
    track.color.alpha *= static_cast<float>(kGaugeTrack);
    gaugeArc(node, center, radius, 1, track, gauge.lineWidth);
    const double fraction =
        std::clamp(std::isfinite(gauge.fraction) ? gauge.fraction : 0.0, 0.0, 1.0);
    if (fraction > 0) gaugeArc(node, center, radius, fraction, full, gauge.lineWidth);
  }

  void gaugeArc(const PlacedNode& node,
                Point center,
                double radius,
                double fraction,
                const Ink& paint,
                double width) {
    path_.clear();
    const double sweep = kGaugeSweep * fraction;
    if (mirrored(node)) {
      appendArc(path_, center, radius, 180 - kGaugeStart, 180 - kGaugeStart - sweep);
    } else {
      appendArc(path_, center, radius, kGaugeStart, kGaugeStart + sweep);
    }
    stroke(path_.bounds(), paint, width, viewkit::LineCap::round, viewkit::LineJoin::round);
  }

  void visitElement(const PlacedNode& node, const viewkit::ImageElement& element) {
    const Rect& frame = node.frame;
    if (!(frame.width > 0) || !(frame.height > 0)) return;
    if (options_.redaction.placeholder) {
      return cover(frame, 0.25 * std::min(frame.width, frame.height), barColor());
    }
    const Size wanted{frame.width * options_.scale, frame.height * options_.scale};
    const auto image = options_.container.empty()
                           ? nullptr
                           : tools_.images.load(options_.container, element.path, wanted);
    if (!image) return visitChildren(node);
    DrawImage command;
    command.image = static_cast<std::uint32_t>(list_.images.size());
    command.target = imageTarget(node, element, *image);
    command.bounds = intersect(command.target, frame);
    if (options_.mode == viewkit::RenderingMode::vibrant) command.colors = DrawImage::Colors::grey;
    if (options_.mode == viewkit::RenderingMode::accented) {
      command.colors = DrawImage::Colors::tinted;
      command.tint = resolveColor(viewkit::Color::primary(), options_, accentable_);
    }
    list_.images.push_back(image);
    list_.commands.emplace_back(command);
  }

  Rect imageTarget(const PlacedNode& node,
                   const viewkit::ImageElement& element,
                   const DecodedImage& image) const {
    using Mode = viewkit::ImageElement::ContentMode;
    const Rect& frame = node.frame;
    if (element.mode == Mode::stretch) return frame;
    const double byWidth = frame.width / image.sourceWidth;
    const double byHeight = frame.height / image.sourceHeight;
    const double scale =
        element.mode == Mode::fill ? std::max(byWidth, byHeight) : std::min(byWidth, byHeight);
    const double width = image.sourceWidth * scale;
    const double height = image.sourceHeight * scale;
    using H = viewkit::HorizontalAlignment;
    using V = viewkit::VerticalAlignment;
    double x = element.alignment.horizontal == H::leading    ? 0
               : element.alignment.horizontal == H::trailing ? 1
                                                             : 0.5;
    if (mirrored(node)) x = 1 - x;
    const double y = element.alignment.vertical == V::top      ? 0
                     : element.alignment.vertical == V::bottom ? 1
                                                               : 0.5;
    return {
        frame.x + (frame.width - width) * x, frame.y + (frame.height - height) * y, width, height};
  }

  // ---- helpers

  static bool mirrored(const PlacedNode& node) {
    return node.direction == LayoutDirection::rightToLeft;
  }
  static ShapeBox boxOf(const PlacedNode& node) {
    return {node.frame, node.proposal, node.direction};
  }

  /// The colour of what is drawn here, faint. A gradient has no colour of its own.
  [[nodiscard]] viewkit::Color barColor() const {
    const auto* color = foreground_ ? std::get_if<viewkit::Color>(&*foreground_) : nullptr;
    return (color != nullptr ? *color : viewkit::Color::primary()).withOpacity(kBarOpacity);
  }

  void cover(const Rect& frame, double radius, const viewkit::Color& shade) {
    if (!(frame.width > 0) || !(frame.height > 0)) return;
    path_.clear();
    appendRounded(path_, frame, radius, viewkit::CornerStyle::circular);
    const Rgba color = resolveColor(shade, options_, accentable_);
    list_.commands.emplace_back(FillPath{list_.add(path_), frame, {color}});
  }

  Ink ink(const viewkit::Paint& paint, const PlacedNode& node) {
    const viewkit::Paint& used =
        std::holds_alternative<std::monostate>(paint) && foreground_ ? *foreground_ : paint;
    if (const auto* color = std::get_if<viewkit::Color>(&used)) {
      return {resolveColor(*color, options_, accentable_)};
    }
    const auto* gradient = std::get_if<viewkit::Gradient>(&used);
    if (!gradient) return {resolveColor(viewkit::Color::primary(), options_, accentable_)};
    if (gradient->stops.empty()) return {Rgba{0, 0, 0, 0}};
    if (gradient->stops.size() == 1) {
      return {resolveColor(gradient->stops[0].color, options_, accentable_)};
    }
    const auto place = [&](viewkit::UnitPoint p) -> Point {
      const double x = mirrored(node) ? 1 - p.x : p.x;
      return {node.frame.x + x * node.frame.width, node.frame.y + p.y * node.frame.height};
    };
    GradientInk result{place(gradient->start), place(gradient->end), {}};
    float last = 0;
    for (const viewkit::GradientStop& stop : gradient->stops) {
      last = std::clamp(static_cast<float>(stop.location), last, 1.0F);
      result.stops.push_back({last, resolveColor(stop.color, options_, accentable_)});
    }
    list_.gradients.push_back(std::move(result));
    return {Rgba{}, static_cast<std::int32_t>(list_.gradients.size() - 1)};
  }

  const RenderOptions& options_;
  RecorderTools tools_;
  DisplayList& list_;
  Path path_;  ///< scratch
  const viewkit::Paint* foreground_ = nullptr;
  bool overrun_ = false;
  bool accentable_ = false;
};

}  // namespace

Drawn<void> record(const LayoutTree& tree,
                   const RenderOptions& options,
                   RecorderTools tools,
                   DisplayList& list) {
  list.size = tree.size;
  TreeRecorder recorder(options, tools, list);
  recorder.visit(tree.root);
  if (recorder.isOverrun()) return std::unexpected("the tree has too much to draw");
  return {};
}

}  // namespace rendering
