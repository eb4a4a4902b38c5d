// A view: an immutable value made of one element, its children and the modifiers around it.
#pragma once

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ViewKit/Elements.hpp"

namespace viewkit {

struct Node;
struct FixedFrame;
struct FlexibleFrame;
struct Shadow;
struct Accessibility;
enum class PrivacyTreatment : std::uint8_t;

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A handle on a shared immutable node. Modifiers return a new view and are applied from the inside out: the
/// last one is the outermost. Copying is cheap.
class View {
 public:
  View();  ///< the empty view
  explicit View(Element element, std::vector<View> children = {});
  View(const View&);
  View(View&&) noexcept;
  View& operator=(const View&);
  View& operator=(View&&) noexcept;
  ~View();

  [[nodiscard]] const Node& node() const { return *node_; }
  [[nodiscard]] bool isEmpty() const;

  /// The component that this view is the body of; the innermost name stays.
  [[nodiscard]] View named(std::string_view component) const;

  [[nodiscard]] View frame(FixedFrame frame) const;
  [[nodiscard]] View frame(FlexibleFrame frame) const;
  [[nodiscard]] View padding(Insets insets) const;
  [[nodiscard]] View padding(double points) const { return padding(Insets::all(points)); }
  [[nodiscard]] View background(View content, Alignment alignment = {}) const;
  [[nodiscard]] View overlay(View content, Alignment alignment = {}) const;
  [[nodiscard]] View foregroundStyle(Paint style) const;
  [[nodiscard]] View foregroundStyle(Color color) const { return foregroundStyle(Paint{color}); }
  [[nodiscard]] View opacity(double opacity) const;
  [[nodiscard]] View clip(ShapeGeometry shape) const;
  [[nodiscard]] View cutout(ShapeGeometry shape) const;  ///< removes what lies behind the view in its shape
  [[nodiscard]] View shadow(Shadow shadow) const;
  [[nodiscard]] View offset(Length x, Length y) const;
  [[nodiscard]] View position(Length x, Length y) const;  ///< centre; the view then takes the whole proposal
  [[nodiscard]] View zIndex(double index) const;
  [[nodiscard]] View aspectRatio(double ratio, ImageElement::ContentMode mode) const;
  [[nodiscard]] View layoutPriority(double priority) const;
  [[nodiscard]] View fixedSize(bool horizontal = true, bool vertical = true) const;
  [[nodiscard]] View accessibility(Accessibility accessibility) const;
  [[nodiscard]] View accessibilityHidden() const;
  [[nodiscard]] View accessibilityLabel(std::string label) const;
  [[nodiscard]] View privacySensitive(PrivacyTreatment treatment) const;
  [[nodiscard]] View accentable() const;
  [[nodiscard]] View link(std::string url) const;       ///< the view's frame is a tap region
  [[nodiscard]] View widgetURL(std::string url) const;  ///< the whole widget's tap link
  [[nodiscard]] View containerBackground(View content) const;
  [[nodiscard]] View layoutDirection(LayoutDirection direction) const;

  friend bool operator==(const View& a, const View& b);

 private:
  template <class Modifier>
  [[nodiscard]] View with(Modifier modifier) const;

  std::shared_ptr<const Node> node_;
};

struct FixedFrame {
  std::optional<Length> width{};
  std::optional<Length> height{};
  Alignment alignment{};
  friend bool operator==(const FixedFrame&, const FixedFrame&) = default;
};
/// Points; kInfinity as a maximum takes whatever is proposed.
struct FlexibleFrame {
  std::optional<double> minWidth{};
  std::optional<double> maxWidth{};
  std::optional<double> minHeight{};
  std::optional<double> maxHeight{};
  Alignment alignment{};
  friend bool operator==(const FlexibleFrame&, const FlexibleFrame&) = default;
};
struct Padding {
  Insets insets;
  friend bool operator==(const Padding&, const Padding&) = default;
};
struct Background {
  View content;
  Alignment alignment;
  friend bool operator==(const Background&, const Background&) = default;
};
struct Overlay {
  View content;
  Alignment alignment;
  friend bool operator==(const Overlay&, const Overlay&) = default;
};
struct ForegroundStyle {
  Paint paint;
  friend bool operator==(const ForegroundStyle&, const ForegroundStyle&) = default;
};
struct Opacity {
  double opacity = 1;
  friend bool operator==(const Opacity&, const Opacity&) = default;
};
struct Clip {
  ShapeGeometry shape;
  friend bool operator==(const Clip&, const Clip&) = default;
};
struct Cutout {
  ShapeGeometry shape;
  friend bool operator==(const Cutout&, const Cutout&) = default;
};
/// A blurred silhouette behind the view; `radius` is the blur's standard deviation times two, in points.
struct Shadow {
  Color color = Color::black();
  double radius = 0;
  double x = 0;
  double y = 0;
  friend bool operator==(const Shadow&, const Shadow&) = default;
};
struct Offset {
  Length x;
  Length y;
  friend bool operator==(const Offset&, const Offset&) = default;
};
struct Position {
  Length x;
  Length y;
  friend bool operator==(const Position&, const Position&) = default;
};
struct ZIndex {
  double index = 0;
  friend bool operator==(const ZIndex&, const ZIndex&) = default;
};
struct AspectRatio {
  double ratio = 1;  ///< width / height
  ImageElement::ContentMode mode = ImageElement::ContentMode::fit;
  friend bool operator==(const AspectRatio&, const AspectRatio&) = default;
};
struct LayoutPriority {
  double priority = 0;
  friend bool operator==(const LayoutPriority&, const LayoutPriority&) = default;
};
struct FixedSize {
  bool horizontal = true;
  bool vertical = true;
  friend bool operator==(const FixedSize&, const FixedSize&) = default;
};
/// What assistive technology hears. `combine` reads the children as one element, in their order.
struct Accessibility {
  enum class Children : std::uint8_t { contain, combine, ignore };
  std::string label{};
  std::string value{};
  bool hidden = false;
  Children children = Children::contain;
  friend bool operator==(const Accessibility&, const Accessibility&) = default;
};
/// masked: the text is already a mask and is drawn as it is. covered: the host draws a blank bar over the frame
/// when it redacts for privacy.
enum class PrivacyTreatment : std::uint8_t { masked, covered };
struct PrivacySensitive {
  PrivacyTreatment treatment = PrivacyTreatment::masked;
  friend bool operator==(const PrivacySensitive&, const PrivacySensitive&) = default;
};
struct Accentable {
  friend bool operator==(const Accentable&, const Accentable&) = default;
};
struct Link {
  std::string url;
  friend bool operator==(const Link&, const Link&) = default;
};
struct WidgetURL {
  std::string url;
  friend bool operator==(const WidgetURL&, const WidgetURL&) = default;
};
struct ContainerBackground {
  View content;
  friend bool operator==(const ContainerBackground&, const ContainerBackground&) = default;
};
struct Direction {
  LayoutDirection direction = LayoutDirection::leftToRight;
  friend bool operator==(const Direction&, const Direction&) = default;
};

using Modifier = std::variant<FixedFrame,
                              FlexibleFrame,
                              Padding,
                              Background,
                              Overlay,
                              ForegroundStyle,
                              Opacity,
                              Clip,
                              Cutout,
                              Shadow,
                              Offset,
                              Position,
                              ZIndex,
                              AspectRatio,
                              LayoutPriority,
                              FixedSize,
                              Accessibility,
                              PrivacySensitive,
                              Accentable,
                              Link,
                              WidgetURL,
                              ContainerBackground,
                              Direction>;

struct Node {
  Element element;
  std::vector<View> children;
  std::vector<Modifier> modifiers;  ///< innermost first
  std::string component;            ///< for dumps only; not part of equality
};

}  // namespace viewkit
