// The kit's table of contents: what a view function writes.
//
//     return VStack{
//         {.alignment = HorizontalAlignment::leading, .spacing = 4},
//         WidgetHeader{.symbol = "cart.fill", .text = title},
//         when(isHidden, [&] { return WidgetPrivacyNote{.lang = lang}; }),
//         forEach(dues, [&](const Due& due) { return dueRow(due); }),
//         Spacer{},
//     }
//         .padding({.top = 8, .leading = 12});
//
// Containers take an options record (or none) and then their children; leaves take their content
// and are refined by chained calls; any of them, and every component (an aggregate with `View
// body() const`), becomes a View where one is expected and carries the View's modifiers.
#pragma once

#include <concepts>
#include <ranges>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ViewKit/View.hpp"

namespace viewkit {

/// The View's modifiers on everything that converts to a View.
template <class Self>
struct Modifiers {
  // Implicit: it stands for a View.
  operator View() const { return self(); }

  [[nodiscard]] View frame(FixedFrame f) const { return self().frame(std::move(f)); }
  [[nodiscard]] View frame(FlexibleFrame f) const { return self().frame(f); }
  [[nodiscard]] View padding(Insets insets) const { return self().padding(insets); }
  [[nodiscard]] View padding(double points) const { return self().padding(points); }
  [[nodiscard]] View background(View content, Alignment a = {}) const {
    return self().background(std::move(content), a);
  }
  [[nodiscard]] View overlay(View content, Alignment a = {}) const {
    return self().overlay(std::move(content), a);
  }
  [[nodiscard]] View foregroundStyle(Paint p) const { return self().foregroundStyle(std::move(p)); }
  [[nodiscard]] View foregroundStyle(Color c) const { return self().foregroundStyle(c); }
  [[nodiscard]] View opacity(double value) const { return self().opacity(value); }
  [[nodiscard]] View clip(ShapeGeometry s) const { return self().clip(std::move(s)); }
  [[nodiscard]] View cutout(ShapeGeometry s) const { return self().cutout(std::move(s)); }
  [[nodiscard]] View shadow(Shadow s) const { return self().shadow(s); }
  [[nodiscard]] View offset(Length x, Length y) const { return self().offset(x, y); }
  [[nodiscard]] View position(Length x, Length y) const { return self().position(x, y); }
  [[nodiscard]] View zIndex(double index) const { return self().zIndex(index); }
  [[nodiscard]] View aspectRatio(double ratio, ImageElement::ContentMode mode) const {
    return self().aspectRatio(ratio, mode);
  }
  [[nodiscard]] View layoutPriority(double p) const { return self().layoutPriority(p); }
  [[nodiscard]] View fixedSize(bool horizontal = true, bool vertical = true) const {
    return self().fixedSize(horizontal, vertical);
  }
  [[nodiscard]] View accessibility(Accessibility a) const {
    return self().accessibility(std::move(a));
  }
  [[nodiscard]] View accessibilityHidden() const { return self().accessibilityHidden(); }
  [[nodiscard]] View accessibilityLabel(std::string label) const {
    return self().accessibilityLabel(std::move(label));
  }
  [[nodiscard]] View privacySensitive(PrivacyTreatment t) const {
    return self().privacySensitive(t);
  }
  [[nodiscard]] View accentable() const { return self().accentable(); }
  [[nodiscard]] View link(std::string url) const { return self().link(std::move(url)); }
  [[nodiscard]] View widgetURL(std::string url) const { return self().widgetURL(std::move(url)); }
  [[nodiscard]] View containerBackground(View content) const {
    return self().containerBackground(std::move(content));
  }
  [[nodiscard]] View layoutDirection(LayoutDirection d) const { return self().layoutDirection(d); }
  [[nodiscard]] View sharedScale() const { return self().sharedScale(); }

 private:
  [[nodiscard]] View self() const;
};

/// An aggregate of inputs that describes itself: `View body() const`, and a static `kName` for
/// dumps.
template <class T>
concept Component = requires(const T& t) {
  { t.body() } -> std::convertible_to<View>;
  { T::kName } -> std::convertible_to<std::string_view>;
};

/// Everything that can stand where a view is expected.
template <class T>
concept ViewLike = std::same_as<std::remove_cvref_t<T>, View> ||
    Component<std::remove_cvref_t<T>> || requires(const std::remove_cvref_t<T>& t) {
  { t.view() } -> std::same_as<View>;
};

/// Zero or more views in place of one child, made by `when` and `forEach`.
struct ViewList {
  std::vector<View> views;
};

template <class T>
concept ChildLike = ViewLike<T> || std::same_as<std::remove_cvref_t<T>, ViewList>;

template <ViewLike T>
[[nodiscard]] View asView(T&& value) {
  using Plain = std::remove_cvref_t<T>;
  if constexpr (std::same_as<Plain, View>) {
    return std::forward<T>(value);
  } else if constexpr (Component<Plain>) {
    return View{value.body()}.named(Plain::kName);
  } else {
    return value.view();
  }
}

template <class Self>
View Modifiers<Self>::self() const {
  return asView(static_cast<const Self&>(*this));
}

inline void appendChild(std::vector<View>& out, ViewList list) {
  for (View& view : list.views) {
    if (!view.isEmpty()) out.push_back(std::move(view));
  }
}
template <ViewLike T>
void appendChild(std::vector<View>& out, T&& value) {
  View view = asView(std::forward<T>(value));
  if (!view.isEmpty()) out.push_back(std::move(view));
}

template <ChildLike... Children>
[[nodiscard]] std::vector<View> children(Children&&... values) {
  std::vector<View> result;
  result.reserve(sizeof...(Children));
  (appendChild(result, std::forward<Children>(values)), ...);
  return result;
}

/// The view that `make` returns, or nothing.
template <class Make>
[[nodiscard]] ViewList when(bool condition, Make&& make) {
  ViewList list;
  if (condition) appendChild(list.views, make());
  return list;
}

/// One view an item, in order.
template <std::ranges::input_range Items, class Make>
[[nodiscard]] ViewList forEach(Items&& items, Make&& make) {
  ViewList list;
  for (auto&& item : items) appendChild(list.views, make(item));
  return list;
}

// ---- containers

struct HStack : Modifiers<HStack> {
  struct Options {
    VerticalAlignment alignment = VerticalAlignment::center;
    std::optional<double> spacing{};
  };
  template <ChildLike... C>
  explicit HStack(Options options, C&&... c) : HStack(options, children(std::forward<C>(c)...)) {}
  HStack(Options options, std::vector<View> views);
  [[nodiscard]] View view() const { return view_; }

 private:
  View view_;
};

struct VStack : Modifiers<VStack> {
  struct Options {
    HorizontalAlignment alignment = HorizontalAlignment::center;
    std::optional<double> spacing{};
  };
  template <ChildLike... C>
  explicit VStack(Options options, C&&... c) : VStack(options, children(std::forward<C>(c)...)) {}
  VStack(Options options, std::vector<View> views);
  [[nodiscard]] View view() const { return view_; }

 private:
  View view_;
};

struct ZStack : Modifiers<ZStack> {
  struct Options {
    Alignment alignment{};
  };
  template <ChildLike... C>
  explicit ZStack(Options options, C&&... c) : ZStack(options, children(std::forward<C>(c)...)) {}
  ZStack(Options options, std::vector<View> views);
  [[nodiscard]] View view() const { return view_; }

 private:
  View view_;
};

/// Children at relative places on a common ground.
struct Canvas : Modifiers<Canvas> {
  template <ChildLike... C>
  explicit Canvas(C&&... c) : Canvas(children(std::forward<C>(c)...)) {}
  explicit Canvas(std::vector<View> views);
  [[nodiscard]] View view() const { return view_; }

 private:
  View view_;
};

/// Children from the fullest to the barest: the host takes the first that fits, else the last.
struct Fitting : Modifiers<Fitting> {
  template <ChildLike... C>
  explicit Fitting(C&&... c) : Fitting(children(std::forward<C>(c)...)) {}
  explicit Fitting(std::vector<View> views);
  [[nodiscard]] View view() const { return view_; }

 private:
  View view_;
};

struct Spacer : Modifiers<Spacer> {
  std::optional<double> minLength{};

  Spacer() = default;
  explicit Spacer(double least) : minLength(least) {}
  [[nodiscard]] View view() const { return View{SpacerElement{minLength}}; }
};

// ---- leaves

class Text : public Modifiers<Text> {
 public:
  explicit Text(std::string text) { element_.text = std::move(text); }

  [[nodiscard]] Text font(double size, FontWeight weight = FontWeight::regular) const;
  [[nodiscard]] Text tracking(double points) const;
  [[nodiscard]] Text lineLimit(int lines) const;
  [[nodiscard]] Text minimumScaleFactor(double factor) const;
  [[nodiscard]] Text multilineAlignment(TextAlignment alignment) const;
  [[nodiscard]] Text balanced() const;
  [[nodiscard]] Text language(std::string tag) const;
  [[nodiscard]] Text direction(LayoutDirection direction) const;
  [[nodiscard]] Text numericTransition() const;
  [[nodiscard]] Text fallback(std::string text) const;

  [[nodiscard]] View view() const { return View{element_}; }

 private:
  TextElement element_;
};

class Symbol : public Modifiers<Symbol> {
 public:
  explicit Symbol(std::string name) { element_.name = std::move(name); }

  [[nodiscard]] Symbol font(double size, FontWeight weight = FontWeight::regular) const;
  [[nodiscard]] Symbol fallback(std::string name) const;

  [[nodiscard]] View view() const { return View{element_}; }

 private:
  SymbolElement element_;
};

/// An image file below the container, and what stands in for it.
struct Image : Modifiers<Image> {
  Image(ImageElement image, View replacement)
      : element(std::move(image)), standIn(std::move(replacement)) {}
  ImageElement element;
  View standIn;
  [[nodiscard]] View view() const;
};

/// A shape in the foreground style until it is filled or stroked.
class Shape : public Modifiers<Shape> {
 public:
  explicit Shape(ShapeGeometry geometry) { element_.geometry = std::move(geometry); }

  [[nodiscard]] Shape fill(Paint paint) const;
  [[nodiscard]] Shape stroke(Paint paint,
                             double lineWidth,
                             LineCap cap = LineCap::butt,
                             LineJoin join = LineJoin::miter) const;
  [[nodiscard]] Shape innerStroke(Paint paint, double lineWidth) const;
  [[nodiscard]] Shape trim(double from, double to) const;

  [[nodiscard]] View view() const { return View{element_}; }

 private:
  ShapeElement element_;
};

[[nodiscard]] Shape Rectangle();
[[nodiscard]] Shape RoundedRectangle(Length radius, CornerStyle style = CornerStyle::circular);
[[nodiscard]] Shape Capsule();
[[nodiscard]] Shape Circle();
[[nodiscard]] Shape Arc(ArcShape arc);
[[nodiscard]] Shape Path(std::vector<PathStep> steps);

/// A gradient as a view: a rectangle that it fills.
[[nodiscard]] Shape LinearGradient(Gradient gradient);

/// The platform's circular accessory gauge around its label.
struct Gauge : Modifiers<Gauge> {
  Gauge(GaugeElement gauge, View middle) : element(gauge), label(std::move(middle)) {}
  GaugeElement element;
  View label;
  [[nodiscard]] View view() const;
};

}  // namespace viewkit
