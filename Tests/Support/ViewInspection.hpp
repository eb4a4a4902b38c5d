// Looks into a view tree: every node, also those in backgrounds and overlays.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ViewKit/View.hpp"

namespace testsupport {

inline void collect(const viewkit::View& view, std::vector<const viewkit::Node*>& out) {
  const viewkit::Node& node = view.node();
  out.push_back(&node);
  // Of a Fitting the fullest child, which is what is shown where there is room.
  const bool isFitting = std::holds_alternative<viewkit::FittingElement>(node.element);
  for (const viewkit::View& child : node.children) {
    collect(child, out);
    if (isFitting) break;
  }
  for (const viewkit::Modifier& modifier : node.modifiers) {
    if (const auto* m = std::get_if<viewkit::Background>(&modifier)) collect(m->content, out);
    if (const auto* m = std::get_if<viewkit::Overlay>(&modifier)) collect(m->content, out);
    if (const auto* m = std::get_if<viewkit::ContainerBackground>(&modifier)) {
      collect(m->content, out);
    }
  }
}

/// Every node; they live as long as `view`.
inline std::vector<const viewkit::Node*> nodes(const viewkit::View& view) {
  std::vector<const viewkit::Node*> result;
  collect(view, result);
  return result;
}

/// The nodes that hold an element of one kind, in reading order.
template <class Element>
std::vector<const viewkit::Node*> nodesWith(const viewkit::View& view) {
  std::vector<const viewkit::Node*> result;
  for (const viewkit::Node* node : nodes(view)) {
    if (std::holds_alternative<Element>(node->element)) result.push_back(node);
  }
  return result;
}

inline std::vector<std::string> texts(const viewkit::View& view) {
  std::vector<std::string> result;
  for (const auto* node : nodesWith<viewkit::TextElement>(view)) {
    result.push_back(std::get<viewkit::TextElement>(node->element).text);
  }
  return result;
}

inline std::vector<std::string> symbols(const viewkit::View& view) {
  std::vector<std::string> result;
  for (const auto* node : nodesWith<viewkit::SymbolElement>(view)) {
    result.push_back(std::get<viewkit::SymbolElement>(node->element).name);
  }
  return result;
}

/// What a node says about itself in one kind of modifier; the outermost one counts.
template <class Kind>
const Kind* modifier(const viewkit::Node& node) {
  for (auto it = node.modifiers.rbegin(); it != node.modifiers.rend(); ++it) {
    if (const auto* found = std::get_if<Kind>(&*it)) return found;
  }
  return nullptr;
}
template <class Kind>
const Kind* modifier(const viewkit::View& view) {
  return modifier<Kind>(view.node());
}

/// The outermost node that is the body of a component.
inline const viewkit::Node* component(const viewkit::View& view, std::string_view name) {
  for (const viewkit::Node* node : nodes(view)) {
    if (node->component == name) return node;
  }
  return nullptr;
}

/// The node that shows exactly this text.
inline const viewkit::Node* textNode(const viewkit::View& view, std::string_view text) {
  for (const auto* node : nodesWith<viewkit::TextElement>(view)) {
    if (std::get<viewkit::TextElement>(node->element).text == text) return node;
  }
  return nullptr;
}

}  // namespace testsupport
