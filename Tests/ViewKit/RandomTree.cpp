#include "RandomTree.hpp"

namespace viewkit {

View RandomTree::view(int depth) {
  Node node{element(), {}, {}, coin() ? text() : ""};
  const std::uint32_t children = depth > 0 ? below(4) : 0;
  for (std::uint32_t i = 0; i < children; ++i) node.children.push_back(view(depth - 1));
  const std::uint32_t modifiers = below(4);
  for (std::uint32_t i = 0; i < modifiers; ++i) node.modifiers.push_back(modifier(depth));
  return View::of(std::move(node));
}

Element RandomTree::element() {
  switch (below(std::variant_size_v<Element>)) {
    case 0:
      return EmptyElement{};
    case 1:
      return StackElement{one<StackElement::Axis>(3), alignment(), maybe(number())};
    case 2:
      return SpacerElement{maybe(size())};
    case 3:
      return TextElement{.text = text(),
                         .size = size(),
                         .weight = one<FontWeight>(5),
                         .design = one<FontDesign>(2),
                         .tracking = number(),
                         .lineLimit = maybe(static_cast<int>(1 + below(5))),
                         .minimumScaleFactor = 1 - unit() / 2,
                         .alignment = one<TextAlignment>(3),
                         .balanced = coin(),
                         .language = text(),
                         .direction = maybe(one<LayoutDirection>(2)),
                         .numericTransition = coin()};
    case 4:
      return SymbolElement{text(), size(), one<FontWeight>(5), text()};
    case 5:
      return ImageElement{"Art/" + text(), one<ImageElement::ContentMode>(3), alignment()};
    case 6:
      return ShapeElement{shape(),
                          one<ShapeElement::Mode>(3),
                          paint(),
                          size(),
                          one<LineCap>(3),
                          one<LineJoin>(3),
                          unit(),
                          unit()};
    case 7:
      return CanvasElement{};
    case 8:
      return GaugeElement{unit(), size()};
    default:
      return FittingElement{};
  }
}

Modifier RandomTree::modifier(int depth) {
  switch (below(std::variant_size_v<Modifier>)) {
    case 0:
      return FixedFrame{maybe(kWidth + length()), maybe(Length{size()}), alignment()};
    case 1:
      return FlexibleFrame{
          maybe(size()), maybe(kInfinity), maybe(size()), maybe(size()), alignment()};
    case 2:
      return Padding{{number(), number(), number(), number()}};
    case 3:
      return Background{depth > 0 ? view(depth - 1) : View{}, alignment()};
    case 4:
      return Overlay{depth > 0 ? view(depth - 1) : View{}, alignment()};
    case 5:
      return ForegroundStyle{paint()};
    case 6:
      return Opacity{unit()};
    case 7:
      return Clip{shape()};
    case 8:
      return Cutout{shape()};
    case 9:
      return Shadow{color(), size(), number(), number()};
    case 10:
      return Offset{length(), length()};
    case 11:
      return Position{length(), length()};
    case 12:
      return ZIndex{number()};
    case 13:
      return AspectRatio{0.5 + unit(), one<ImageElement::ContentMode>(3)};
    case 14:
      return LayoutPriority{number()};
    case 15:
      return FixedSize{coin(), coin()};
    case 16:
      return Accessibility{text(), text(), coin(), one<Accessibility::Children>(3)};
    case 17:
      return PrivacySensitive{one<PrivacyTreatment>(2)};
    case 18:
      return Accentable{};
    case 19:
      return Link{text()};
    case 20:
      return WidgetURL{text()};
    case 21:
      return ContainerBackground{depth > 0 ? view(depth - 1) : View{}};
    case 22:
      return Direction{one<LayoutDirection>(2)};
    default:
      return SharedScale{};
  }
}

ShapeGeometry RandomTree::shape() {
  switch (below(std::variant_size_v<ShapeGeometry>)) {
    case 0:
      return RectangleShape{};
    case 1:
      return RoundedRectangleShape{size(), one<CornerStyle>(2)};
    case 2:
      return CapsuleShape{};
    case 3:
      return CircleShape{};
    case 4:
      return ArcShape{point(), kHeight + length(), number(), number()};
    default:
      return PathShape{{step(), step(), step()}};
  }
}

PathStep RandomTree::step() {
  switch (one<PathStep::Verb>(4)) {
    case PathStep::Verb::move:
      return {PathStep::Verb::move, point()};
    case PathStep::Verb::line:
      return {PathStep::Verb::line, point()};
    case PathStep::Verb::cubic:
      return {PathStep::Verb::cubic, point(), point(), point()};
    default:
      return {PathStep::Verb::close};
  }
}

Length RandomTree::length(int depth) {
  Length result = coin() ? Length{number()} : kWidth * unit() + kHeight * number() / 7 - number();
  if (depth == 0) return result;
  if (coin()) result = result + min(length(depth - 1), length(depth - 1)) * (unit() * 4 - 2);
  if (coin()) result = max(result, length(depth - 1)) / 3;
  return result;
}

LengthPoint RandomTree::point() {
  return {length(), length()};
}

Color RandomTree::color() {
  Color color = coin() ? Color::dynamic(below(0x1000000), below(0x1000000)) : Color::secondary();
  if (coin()) color = color.withOpacity(unit());
  if (coin()) color = color.withOpacities(unit(), unit());
  return color;
}

Paint RandomTree::paint() {
  if (coin()) return color();
  if (coin()) return gradient();
  return {};
}

Gradient RandomTree::gradient() {
  return Gradient::even({color(), color(), color()}, {unit(), number()}, {unit(), unit()});
}

Alignment RandomTree::alignment() {
  return {one<HorizontalAlignment>(3), one<VerticalAlignment>(4)};
}

// Plain letters, what JSON and dumps must escape, and characters of two, three and four bytes.
std::string RandomTree::text() {
  static constexpr const char* kParts[] = {
      "a", "B", " ", "7", "\"", "\\", "\n", "\t", "é", "€", "\u2066", "😀", "/", "~"};
  std::string text;
  for (std::uint32_t i = below(6); i > 0; --i) text += kParts[below(std::size(kParts))];
  return text;
}

}  // namespace viewkit
