// A view: an immutable value made of one element, its children and the modifiers around it.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "ViewKit/Elements.hpp"

namespace viewkit {

struct Node;

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

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
/// A blurred silhouette behind the view; `radius` is the blur's standard deviation in points.
struct Shadow {
  Color color = Color::black();
  double radius = 0;
  double x = 0;
  double y = 0;
  friend bool operator==(const Shadow&, const Shadow&) = default;
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
/// masked: the text is already a mask and is drawn as it is. covered: the host draws a blank bar
/// over the frame when it redacts for privacy.
enum class PrivacyTreatment : std::uint8_t { masked, covered };

/// A handle on a shared immutable node. Modifiers return a new view and are applied from the inside
/// out: the last one is the outermost. Copying is cheap.
class View {
 public:
  View();  ///< the empty view
  explicit View(Element element, std::vector<View> children = {});
  [[nodiscard]] static View of(Node node);
  View(const View&);
  View(View&&) noexcept;
  View& operator=(const View&);
  View& operator=(View&&) noexcept;
  ~View();

  [[nodiscard]] const Node& node() const;
  [[nodiscard]] bool isEmpty() const;

  /// The component that this view is the body of; the innermost name stays.
  [[nodiscard]] View named(std::string_view component) const& {
    return View{*this}.named(component);
  }
  [[nodiscard]] View named(std::string_view component) &&;

  [[nodiscard]] View frame(FixedFrame frame) const& { return View{*this}.frame(std::move(frame)); }
  [[nodiscard]] View frame(FlexibleFrame frame) const& { return View{*this}.frame(frame); }
  [[nodiscard]] View padding(Insets insets) const& { return View{*this}.padding(insets); }
  [[nodiscard]] View background(View content, Alignment alignment = {}) const& {
    return View{*this}.background(std::move(content), alignment);
  }
  [[nodiscard]] View overlay(View content, Alignment alignment = {}) const& {
    return View{*this}.overlay(std::move(content), alignment);
  }
  [[nodiscard]] View foregroundStyle(Paint style) const& {
    return View{*this}.foregroundStyle(std::move(style));
  }
  [[nodiscard]] View opacity(double opacity) const& { return View{*this}.opacity(opacity); }
  [[nodiscard]] View clip(ShapeGeometry shape) const& { return View{*this}.clip(std::move(shape)); }
  /// Removes what lies behind the view in its shape.
  [[nodiscard]] View cutout(ShapeGeometry shape) const& {
    return View{*this}.cutout(std::move(shape));
  }
  [[nodiscard]] View shadow(Shadow shadow) const& { return View{*this}.shadow(shadow); }
  [[nodiscard]] View offset(Length x, Length y) const& {
    return View{*this}.offset(std::move(x), std::move(y));
  }
  /// Centre; the view then takes the whole proposal.
  [[nodiscard]] View position(Length x, Length y) const& {
    return View{*this}.position(std::move(x), std::move(y));
  }
  [[nodiscard]] View zIndex(double index) const& { return View{*this}.zIndex(index); }
  [[nodiscard]] View aspectRatio(double ratio, ImageElement::ContentMode mode) const& {
    return View{*this}.aspectRatio(ratio, mode);
  }
  [[nodiscard]] View layoutPriority(double priority) const& {
    return View{*this}.layoutPriority(priority);
  }
  [[nodiscard]] View fixedSize(bool horizontal = true, bool vertical = true) const& {
    return View{*this}.fixedSize(horizontal, vertical);
  }
  [[nodiscard]] View accessibility(Accessibility accessibility) const& {
    return View{*this}.accessibility(std::move(accessibility));
  }
  [[nodiscard]] View privacySensitive(PrivacyTreatment treatment) const& {
    return View{*this}.privacySensitive(treatment);
  }
  [[nodiscard]] View accentable() const& { return View{*this}.accentable(); }
  /// The view's frame is a tap region.
  [[nodiscard]] View link(std::string url) const& { return View{*this}.link(std::move(url)); }
  /// The whole widget's tap link.
  [[nodiscard]] View widgetURL(std::string url) const& {
    return View{*this}.widgetURL(std::move(url));
  }
  [[nodiscard]] View containerBackground(View content) const& {
    return View{*this}.containerBackground(std::move(content));
  }
  [[nodiscard]] View layoutDirection(LayoutDirection direction) const& {
    return View{*this}.layoutDirection(direction);
  }
  /// The texts below that have one line and may shrink take the smallest scale among them.
  [[nodiscard]] View sharedScale() const& { return View{*this}.sharedScale(); }
  [[nodiscard]] View accessibilityHidden() const& { return View{*this}.accessibilityHidden(); }
  [[nodiscard]] View accessibilityLabel(std::string label) const& {
    return View{*this}.accessibilityLabel(std::move(label));
  }

  [[nodiscard]] View padding(double points) const& { return padding(Insets::all(points)); }
  [[nodiscard]] View foregroundStyle(Color color) const& { return foregroundStyle(Paint{color}); }

  // The same on a view that nobody else holds: nothing is copied.
  [[nodiscard]] View frame(FixedFrame frame) &&;
  [[nodiscard]] View frame(FlexibleFrame frame) &&;
  [[nodiscard]] View padding(Insets insets) &&;
  [[nodiscard]] View background(View content, Alignment alignment = {}) &&;
  [[nodiscard]] View overlay(View content, Alignment alignment = {}) &&;
  [[nodiscard]] View foregroundStyle(Paint style) &&;
  [[nodiscard]] View opacity(double opacity) &&;
  [[nodiscard]] View clip(ShapeGeometry shape) &&;
  [[nodiscard]] View cutout(ShapeGeometry shape) &&;
  [[nodiscard]] View shadow(Shadow shadow) &&;
  [[nodiscard]] View offset(Length x, Length y) &&;
  [[nodiscard]] View position(Length x, Length y) &&;
  [[nodiscard]] View zIndex(double index) &&;
  [[nodiscard]] View aspectRatio(double ratio, ImageElement::ContentMode mode) &&;
  [[nodiscard]] View layoutPriority(double priority) &&;
  [[nodiscard]] View fixedSize(bool horizontal = true, bool vertical = true) &&;
  [[nodiscard]] View accessibility(Accessibility accessibility) &&;
  [[nodiscard]] View privacySensitive(PrivacyTreatment treatment) &&;
  [[nodiscard]] View accentable() &&;
  [[nodiscard]] View link(std::string url) &&;
  [[nodiscard]] View widgetURL(std::string url) &&;
  [[nodiscard]] View containerBackground(View content) &&;
  [[nodiscard]] View layoutDirection(LayoutDirection direction) &&;
  [[nodiscard]] View sharedScale() &&;
  [[nodiscard]] View accessibilityHidden() &&;
  [[nodiscard]] View accessibilityLabel(std::string label) &&;

  [[nodiscard]] View padding(double points) && {
    return std::move(*this).padding(Insets::all(points));
  }
  [[nodiscard]] View foregroundStyle(Color color) && {
    return std::move(*this).foregroundStyle(Paint{color});
  }

  friend bool operator==(const View& a, const View& b);

 private:
  template <class M>
  [[nodiscard]] View with(M modifier) &&;
  [[nodiscard]] Node& writable();

  std::shared_ptr<Node> node_;  ///< shared nodes never change; null is the empty view
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
/// All texts below with a line limit of 1 and a minimum scale under 1 are drawn at the smallest
/// scale that one of them needs, but none below its own minimum. Inside another group it changes
/// nothing: the outer one holds for all.
struct SharedScale {
  friend bool operator==(const SharedScale&, const SharedScale&) = default;
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
                              Direction,
                              SharedScale>;

struct Node {
  Element element;
  std::vector<View> children;
  std::vector<Modifier> modifiers;  ///< innermost first
  std::string component;            ///< for dumps only; not part of equality
};

}  // namespace viewkit
