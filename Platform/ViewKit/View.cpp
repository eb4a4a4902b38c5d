#include "ViewKit/View.hpp"

#include <utility>

namespace viewkit {

namespace {

const std::shared_ptr<const Node>& emptyNode() {
  static const auto node = std::make_shared<const Node>();
  return node;
}

}  // namespace

View::View() : node_(emptyNode()) {}
View::View(Element element, std::vector<View> children)
    : node_(std::make_shared<Node>(Node{std::move(element), std::move(children), {}, {}})) {}
View::View(const View&) = default;
View::View(View&& other) noexcept : node_(std::exchange(other.node_, emptyNode())) {}
View& View::operator=(const View&) = default;
View& View::operator=(View&& other) noexcept {
  std::swap(node_, other.node_);
  return *this;
}
View::~View() = default;

bool View::isEmpty() const { return std::holds_alternative<EmptyElement>(node_->element); }

View View::named(std::string_view component) const {
  if (!node_->component.empty()) return *this;
  auto node = std::make_shared<Node>(*node_);
  node->component = component;
  View result;
  result.node_ = std::move(node);
  return result;
}

template <class M>
View View::with(M modifier) const {
  if (isEmpty()) return *this;
  auto node = std::make_shared<Node>(*node_);
  node->modifiers.emplace_back(std::move(modifier));
  View result;
  result.node_ = std::move(node);
  return result;
}

View View::frame(FixedFrame frame) const { return with(std::move(frame)); }
View View::frame(FlexibleFrame frame) const { return with(frame); }
View View::padding(Insets insets) const { return with(Padding{insets}); }
View View::background(View content, Alignment alignment) const {
  return content.isEmpty() ? *this : with(Background{std::move(content), alignment});
}
View View::overlay(View content, Alignment alignment) const {
  return content.isEmpty() ? *this : with(Overlay{std::move(content), alignment});
}
View View::foregroundStyle(Paint style) const { return with(ForegroundStyle{std::move(style)}); }
View View::opacity(double opacity) const { return with(Opacity{opacity}); }
View View::clip(ShapeGeometry shape) const { return with(Clip{std::move(shape)}); }
View View::cutout(ShapeGeometry shape) const { return with(Cutout{std::move(shape)}); }
View View::shadow(Shadow shadow) const { return with(shadow); }
View View::offset(Length x, Length y) const { return with(Offset{std::move(x), std::move(y)}); }
View View::position(Length x, Length y) const { return with(Position{std::move(x), std::move(y)}); }
View View::zIndex(double index) const { return with(ZIndex{index}); }
View View::aspectRatio(double ratio, ImageElement::ContentMode mode) const {
  return with(AspectRatio{ratio, mode});
}
View View::layoutPriority(double priority) const { return with(LayoutPriority{priority}); }
View View::fixedSize(bool horizontal, bool vertical) const {
  return with(FixedSize{horizontal, vertical});
}
View View::accessibility(Accessibility accessibility) const { return with(std::move(accessibility)); }
View View::accessibilityHidden() const { return with(Accessibility{.hidden = true}); }
View View::accessibilityLabel(std::string label) const {
  return with(Accessibility{.label = std::move(label)});
}
View View::privacySensitive(PrivacyTreatment treatment) const {
  return with(PrivacySensitive{treatment});
}
View View::accentable() const { return with(Accentable{}); }
View View::link(std::string url) const { return with(Link{std::move(url)}); }
View View::widgetURL(std::string url) const { return with(WidgetURL{std::move(url)}); }
View View::containerBackground(View content) const {
  return with(ContainerBackground{std::move(content)});
}
View View::layoutDirection(LayoutDirection direction) const { return with(Direction{direction}); }

bool operator==(const View& a, const View& b) {
  if (a.node_ == b.node_) return true;
  return a.node_->element == b.node_->element && a.node_->children == b.node_->children &&
         a.node_->modifiers == b.node_->modifiers;
}

}  // namespace viewkit
