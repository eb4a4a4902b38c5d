#include "Rendering/Output/AccessibilityTree.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

#include "Foundation/ListSeparator.hpp"
#include "Rendering/Layout/PlacedText.hpp"
#include "ViewKit/OutermostModifier.hpp"

namespace rendering {

using namespace viewkit;

namespace {

using Elements = std::vector<AccessibleElement>;

/// The children in the order in which the view names them, whatever the order of drawing.
std::vector<const PlacedNode*> inTreeOrder(const PlacedNode& node) {
  std::vector<const PlacedNode*> result;
  result.reserve(node.children.size());
  for (const PlacedNode& child : node.children) result.push_back(&child);
  if (node.modifier() || !node.source) return result;
  const auto& views = node.source->children;
  const auto isLifted = [](const View& view) {
    return std::ranges::any_of(view.node().modifiers,
                               [](const Modifier& m) { return std::holds_alternative<ZIndex>(m); });
  };
  if (std::ranges::none_of(views, isLifted)) return result;
  const auto rank = [&](const PlacedNode* child) {
    return std::ranges::find_if(views, [&](const View& v) { return &v.node() == child->source; });
  };
  std::ranges::stable_sort(result, {}, rank);
  return result;
}

/// Marks, embeddings and isolates steer the order on a screen: a voice has nothing to say of them.
bool isDirectionalControl(std::string_view scalar) {
  if (scalar == "\u061C" || scalar == "\u200E" || scalar == "\u200F") return true;
  return (scalar >= "\u202A" && scalar <= "\u202E") || (scalar >= "\u2066" && scalar <= "\u2069");
}

std::string withoutDirectionalControls(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const auto isContinuation = [](char c) {
      return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    };
    std::size_t length = 1;
    while (length < text.size() && isContinuation(text[length])) ++length;
    const std::string_view scalar = text.substr(0, length);
    if (!isDirectionalControl(scalar)) result += scalar;
    text.remove_prefix(length);
  }
  return result;
}

/// The language of the tree's first text that has one: a widget speaks one language.
std::string_view languageOf(const View& view) {
  if (const auto* text = std::get_if<TextElement>(&view.node().element)) return text->language;
  for (const View& child : view.node().children) {
    if (const std::string_view language = languageOf(child); !language.empty()) return language;
  }
  return {};
}

std::string joined(const Elements& elements, std::string_view separator) {
  std::string result;
  for (const AccessibleElement& element : elements) {
    for (const std::string* part : {&element.label, &element.value}) {
      if (part->empty()) continue;
      if (!result.empty()) result += separator;
      result += *part;
    }
  }
  return result;
}

class Reader {
 public:
  Reader(RedactionReasons redaction, std::string_view separator)
      : redaction_(redaction), separator_(separator) {}

  [[nodiscard]] Elements read(const PlacedNode& node) const {
    if (isInvisible(node) || isSilenced(node)) return {};
    if (const Modifier* modifier = node.modifier()) return readModifier(node, *modifier);
    return readElement(node);
  }

 private:
  /// A label may stand outside the cover on the same view: it is silent with it.
  [[nodiscard]] bool isSilenced(const PlacedNode& node) const {
    if (!redaction_.privacy || !node.source) return false;
    return std::ranges::any_of(node.source->modifiers, [](const Modifier& m) {
      const auto* sensitive = std::get_if<PrivacySensitive>(&m);
      return sensitive && sensitive->treatment == PrivacyTreatment::covered;
    });
  }

  [[nodiscard]] Elements readModifier(const PlacedNode& node, const Modifier& modifier) const {
    if (const auto* accessibility = std::get_if<Accessibility>(&modifier)) {
      return readLabelled(node, *accessibility);
    }
    if (const auto* link = std::get_if<Link>(&modifier)) return readLink(node, *link);
    Elements result;
    const bool behind = std::holds_alternative<Background>(modifier);
    if (behind && node.children.size() > 1) append(result, read(node.children[1]));
    append(result, read(node.children[0]));
    if (!behind && node.children.size() > 1) append(result, read(node.children[1]));
    return result;
  }

  [[nodiscard]] Elements readLabelled(const PlacedNode& node, const Accessibility& said) const {
    if (said.hidden) return {};
    if (said.children == Accessibility::Children::ignore && said.label.empty() &&
        said.value.empty()) {
      return {};
    }
    Elements inner = read(node.children[0]);
    const bool isPlain = said.label.empty() && said.value.empty() &&
                         said.children == Accessibility::Children::contain;
    if (isPlain) return inner;
    const bool isIgnored = said.children == Accessibility::Children::ignore;
    AccessibleElement one;
    one.frame = node.frame;
    one.role = roleOf(node, inner);
    if (inner.size() == 1) one.link = inner[0].link;
    one.value = withoutDirectionalControls(said.value);
    if (!said.label.empty()) {
      one.label = withoutDirectionalControls(said.label);
    } else if (!isIgnored) {
      one.label = joined(inner, separator_);
    }
    if (one.label.empty() && one.value.empty()) return {};
    return {std::move(one)};
  }

  [[nodiscard]] Elements readLink(const PlacedNode& node, const Link& link) const {
    const Elements inner = read(node.children[0]);
    std::string label = joined(inner, separator_);
    if (label.empty()) return {};
    return {{AccessibleRole::link, std::move(label), "", node.frame, link.url}};
  }

  [[nodiscard]] Elements readElement(const PlacedNode& node) const {
    if (const auto* text = std::get_if<TextElement>(node.element())) {
      std::string label = withoutDirectionalControls(text->text);
      if (label.empty()) return {};
      return {{AccessibleRole::text, std::move(label), "", node.frame, ""}};
    }
    // An image's child stands in for it when it cannot be shown: it says nothing that the image
    // would not.
    if (std::holds_alternative<ImageElement>(*node.element())) return {};
    Elements result;
    for (const PlacedNode* child : inTreeOrder(node)) append(result, read(*child));
    return result;
  }

  static void append(Elements& to, Elements from) {
    for (AccessibleElement& element : from) to.push_back(std::move(element));
  }

  /// A labelled view is what its element is; a labelled container is one group, or what its only
  /// element is.
  static AccessibleRole roleOf(const PlacedNode& node, const Elements& inner) {
    if (inner.size() == 1) return inner[0].role;
    const Element* element = node.source ? &node.source->element : nullptr;
    if (!element) return AccessibleRole::group;
    if (std::holds_alternative<TextElement>(*element)) return AccessibleRole::text;
    const bool isPicture = std::holds_alternative<SymbolElement>(*element) ||
                           std::holds_alternative<ImageElement>(*element) ||
                           std::holds_alternative<ShapeElement>(*element) ||
                           std::holds_alternative<CanvasElement>(*element);
    return isPicture ? AccessibleRole::image : AccessibleRole::group;
  }

  RedactionReasons redaction_;
  std::string_view separator_;
};

std::string onOneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text;
}

std::string lineOf(const AccessibleElement& element) {
  std::string line =
      fmt::format("{} \"{}\"", foundation::nameOf(element.role), onOneLine(element.label));
  if (!element.value.empty()) line += fmt::format(" value \"{}\"", onOneLine(element.value));
  if (!element.link.empty()) line += fmt::format(" link {}", onOneLine(element.link));
  const auto points = [](double value) { return std::lround(value); };
  return line + fmt::format(" [{} {} {} {}]\n",
                            points(element.frame.x),
                            points(element.frame.y),
                            points(element.frame.width),
                            points(element.frame.height));
}

}  // namespace

std::vector<AccessibleElement> accessibleElements(const LayoutTree& tree,
                                                  const AccessibilityOptions& options) {
  Elements elements;
  if (!options.name.empty()) {
    const Rect whole{0, 0, tree.size.width, tree.size.height};
    std::string link =
        options.redaction.placeholder ? std::string{} : widgetURL(tree.view).value_or("");
    const AccessibleRole role = link.empty() ? AccessibleRole::group : AccessibleRole::link;
    elements.push_back({role, options.name, "", whole, std::move(link)});
  }
  if (options.redaction.placeholder) return elements;
  const std::string_view separator = foundation::listSeparator(languageOf(tree.view));
  std::ranges::move(Reader(options.redaction, separator).read(tree.root),
                    std::back_inserter(elements));
  return elements;
}

std::string accessibilityTree(const LayoutTree& tree, const AccessibilityOptions& options) {
  std::string result;
  for (const AccessibleElement& element : accessibleElements(tree, options)) {
    result += lineOf(element);
  }
  return result;
}

}  // namespace rendering
