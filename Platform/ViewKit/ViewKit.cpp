#include "ViewKit/ViewKit.hpp"

namespace viewkit {

HStack::HStack(Options options, std::vector<View> views)
    : view_(StackElement{StackElement::Axis::horizontal,
                         {HorizontalAlignment::center, options.alignment},
                         options.spacing},
            std::move(views)) {}

VStack::VStack(Options options, std::vector<View> views)
    : view_(StackElement{StackElement::Axis::vertical,
                         {options.alignment, VerticalAlignment::center},
                         options.spacing},
            std::move(views)) {}

ZStack::ZStack(Options options, std::vector<View> views)
    : view_(StackElement{StackElement::Axis::depth, options.alignment, std::nullopt},
            std::move(views)) {}

Canvas::Canvas(std::vector<View> views) : view_(CanvasElement{}, std::move(views)) {}

Fitting::Fitting(std::vector<View> views) : view_(FittingElement{}, std::move(views)) {}

Text Text::font(double size, FontWeight weight) const {
  Text result = *this;
  result.element_.size = size;
  result.element_.weight = weight;
  return result;
}

Text Text::tracking(double points) const {
  Text result = *this;
  result.element_.tracking = points;
  return result;
}

Text Text::lineLimit(int lines) const {
  Text result = *this;
  result.element_.lineLimit = lines;
  return result;
}

Text Text::minimumScaleFactor(double factor) const {
  Text result = *this;
  result.element_.minimumScaleFactor = factor;
  return result;
}

Text Text::multilineAlignment(TextAlignment alignment) const {
  Text result = *this;
  result.element_.alignment = alignment;
  return result;
}

Text Text::balanced() const {
  Text result = *this;
  result.element_.balanced = true;
  return result;
}

Text Text::language(std::string tag) const {
  Text result = *this;
  result.element_.language = std::move(tag);
  return result;
}

Text Text::direction(LayoutDirection direction) const {
  Text result = *this;
  result.element_.direction = direction;
  return result;
}

Text Text::numericTransition() const {
  Text result = *this;
  result.element_.numericTransition = true;
  return result;
}

Text Text::fallback(std::string text) const {
  Text result = *this;
  result.element_.fallback = std::move(text);
  return result;
}

Symbol Symbol::font(double size, FontWeight weight) const {
  Symbol result = *this;
  result.element_.size = size;
  result.element_.weight = weight;
  return result;
}

Symbol Symbol::fallback(std::string name) const {
  Symbol result = *this;
  result.element_.fallback = std::move(name);
  return result;
}

View Image::view() const {
  return View{element, standIn.isEmpty() ? std::vector<View>{} : std::vector<View>{standIn}};
}

Shape Shape::fill(Paint paint) const {
  Shape result = *this;
  result.element_.mode = ShapeElement::Mode::fill;
  result.element_.paint = std::move(paint);
  return result;
}

Shape Shape::stroke(Paint paint, double lineWidth, LineCap cap, LineJoin join) const {
  Shape result = *this;
  result.element_.mode = ShapeElement::Mode::stroke;
  result.element_.paint = std::move(paint);
  result.element_.lineWidth = lineWidth;
  result.element_.cap = cap;
  result.element_.join = join;
  return result;
}

Shape Shape::innerStroke(Paint paint, double lineWidth) const {
  Shape result = *this;
  result.element_.mode = ShapeElement::Mode::innerStroke;
  result.element_.paint = std::move(paint);
  result.element_.lineWidth = lineWidth;
  return result;
}

Shape Shape::trim(double from, double to) const {
  Shape result = *this;
  result.element_.trimFrom = from;
  result.element_.trimTo = to;
  return result;
}

Shape Rectangle() {
  return Shape{RectangleShape{}};
}
Shape RoundedRectangle(Length radius, CornerStyle style) {
  return Shape{RoundedRectangleShape{std::move(radius), style}};
}
Shape Capsule() {
  return Shape{CapsuleShape{}};
}
Shape Circle() {
  return Shape{CircleShape{}};
}
Shape Arc(ArcShape arc) {
  return Shape{std::move(arc)};
}
Shape Path(std::vector<PathStep> steps) {
  return Shape{PathShape{std::move(steps)}};
}
Shape LinearGradient(Gradient gradient) {
  return Rectangle().fill(std::move(gradient));
}

View Gauge::view() const {
  return View{element, label.isEmpty() ? std::vector<View>{} : std::vector<View>{label}};
}

}  // namespace viewkit
