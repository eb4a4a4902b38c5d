// The records that layout works on: one item for each element and each modifier of a view.
#pragma once

#include <cstdint>
#include <optional>
#include <variant>

#include "Rendering/Graphics/Geometry.hpp"
#include "ViewKit/View.hpp"

namespace rendering {

/// What a view answers: its size and, when it holds text or a symbol, the first baseline below its
/// top edge.
struct MeasuredSize {
  double width = 0;
  double height = 0;
  std::optional<double> baseline;
  [[nodiscard]] Size size() const { return {width, height}; }
};

using ItemId = std::uint32_t;
inline constexpr std::uint32_t kNone = 0xFFFFFFFF;

/// The axis along which a spacer stretches: that of the stack around it.
enum class SpacerAxis : std::uint8_t { horizontal, vertical, both };

struct LayoutItem {
  std::variant<const viewkit::Element*, const viewkit::Modifier*> what;
  const viewkit::Node* source = nullptr;
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
  SpacerAxis spacerAxis = SpacerAxis::both;
  bool inGroup = false;      ///< of texts that share their scale
  bool sharesScale = false;  ///< the modifier of a group of texts with one scale
  bool hasTexts = false;     ///< is a text or holds some, perhaps in an alternative
  bool isSpacer = false;     ///< a spacer, perhaps with modifiers
  ItemId answering = kNone;  ///< whose answer this item gives: its own or that of what it surrounds
  std::uint32_t firstChild = 0;  ///< in the tree's list of children
  std::uint32_t childCount = 0;
  std::uint32_t text = kNone;       ///< in the tree's texts
  std::uint32_t firstMemo = kNone;  ///< in the tree's remembered answers
  std::uint32_t memoCount = 0;
  std::uint32_t firstFinding = kNone;  ///< in what was found out about texts
  double priority = 0;                 ///< among the siblings in a stack
  double zIndex = 0;
  bool onCanvas = false;  ///< a modifier of a canvas's child: its lengths refer to `canvas`
  Size canvas;

  /// What relative lengths resolve against.
  [[nodiscard]] Proposal reference(const Proposal& proposal) const {
    return onCanvas ? Proposal{canvas.width, canvas.height} : proposal;
  }
};

/// How a child stands in its parent, in the parent's leading-to-trailing coordinates.
struct ChildPlace {
  Proposal offer;
  MeasuredSize answer;
  Point origin;
};

/// A modifier's answer and the place of its target.
struct Arrangement {
  MeasuredSize own;
  ChildPlace target;
};

}  // namespace rendering
