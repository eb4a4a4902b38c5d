// Views grow in place while nobody else holds them and are copied before a change when somebody
// does.
#include "ViewKit/View.hpp"

namespace viewkit {

View::View() = default;
View::View(Element element, std::vector<View> children)
    : node_(std::make_shared<Node>(Node{std::move(element), std::move(children), {}, {}})) {}
View View::of(Node node) {
  View view;
  view.node_ = std::make_shared<Node>(std::move(node));
  return view;
}
View::View(const View&) = default;
View::View(View&&) noexcept = default;
View& View::operator=(const View&) = default;
View& View::operator=(View&&) noexcept = default;
View::~View() = default;

const Node& View::node() const {
  static const Node empty;
  return node_ ? *node_ : empty;
}

bool View::isEmpty() const {
  return !node_ || std::holds_alternative<EmptyElement>(node_->element);
}

// Every change of a view goes through here: a node that somebody else holds too is copied first.
Node& View::writable() {
  if (node_.use_count() != 1) node_ = std::make_shared<Node>(node());
  return *node_;
}

template <class M>
View View::with(M modifier) && {
  if (!isEmpty()) writable().modifiers.emplace_back(std::move(modifier));
  return std::move(*this);
}

View View::named(std::string_view component) && {
  if (node().component.empty()) writable().component = component;
  return std::move(*this);
}

View View::frame(FixedFrame frame) && {
  return std::move(*this).with(std::move(frame));
}
View View::frame(FlexibleFrame frame) && {
  return std::move(*this).with(frame);
}
View View::padding(Insets insets) && {
  return std::move(*this).with(Padding{insets});
}
View View::background(View content, Alignment alignment) && {
  return content.isEmpty() ? std::move(*this)
                           : std::move(*this).with(Background{std::move(content), alignment});
}
View View::overlay(View content, Alignment alignment) && {
  return content.isEmpty() ? std::move(*this)
                           : std::move(*this).with(Overlay{std::move(content), alignment});
}
View View::foregroundStyle(Paint style) && {
  return std::move(*this).with(ForegroundStyle{std::move(style)});
}
View View::opacity(double opacity) && {
  return std::move(*this).with(Opacity{opacity});
}
View View::clip(ShapeGeometry shape) && {
  return std::move(*this).with(Clip{std::move(shape)});
}
View View::cutout(ShapeGeometry shape) && {
  return std::move(*this).with(Cutout{std::move(shape)});
}
View View::shadow(Shadow shadow) && {
  return std::move(*this).with(shadow);
}
View View::offset(Length x, Length y) && {
  return std::move(*this).with(Offset{std::move(x), std::move(y)});
}
View View::position(Length x, Length y) && {
  return std::move(*this).with(Position{std::move(x), std::move(y)});
}
View View::zIndex(double index) && {
  return std::move(*this).with(ZIndex{index});
}
View View::aspectRatio(double ratio, ImageElement::ContentMode mode) && {
  return std::move(*this).with(AspectRatio{ratio, mode});
}
View View::layoutPriority(double priority) && {
  return std::move(*this).with(LayoutPriority{priority});
}
View View::fixedSize(bool horizontal, bool vertical) && {
  return std::move(*this).with(FixedSize{horizontal, vertical});
}
View View::accessibility(Accessibility accessibility) && {
  return std::move(*this).with(std::move(accessibility));
}
View View::privacySensitive(PrivacyTreatment treatment) && {
  return std::move(*this).with(PrivacySensitive{treatment});
}
View View::accentable() && {
  return std::move(*this).with(Accentable{});
}
View View::link(std::string url) && {
  return std::move(*this).with(Link{std::move(url)});
}
View View::widgetURL(std::string url) && {
  return std::move(*this).with(WidgetURL{std::move(url)});
}
View View::containerBackground(View content) && {
  return std::move(*this).with(ContainerBackground{std::move(content)});
}
View View::layoutDirection(LayoutDirection direction) && {
  return std::move(*this).with(Direction{direction});
}
View View::sharedScale() && {
  return std::move(*this).with(SharedScale{});
}
View View::accessibilityHidden() && {
  return std::move(*this).with(Accessibility{.hidden = true});
}
View View::accessibilityLabel(std::string label) && {
  return std::move(*this).with(Accessibility{.label = std::move(label)});
}

bool operator==(const View& a, const View& b) {
  if (a.node_ == b.node_) return true;
  const Node& left = a.node();
  const Node& right = b.node();
  return left.element == right.element && left.children == right.children &&
         left.modifiers == right.modifiers;
}

}  // namespace viewkit
