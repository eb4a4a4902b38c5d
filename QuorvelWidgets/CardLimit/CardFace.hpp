// A card's face with what keeps its texts legible, and the texts themselves.
#pragma once

#include <optional>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Of the black that pills on a face are filled with.
inline constexpr double kPillOpacity = 0.55;

/// White on the face's colours, primary where an accented host takes them away.
[[nodiscard]] viewkit::Color faceTextColor(widgetruntime::RenderingMode mode);

/// The face under the veil that white text of `textOpacity` needs, which ends at `textFoot` of the
/// height, unless it would hide the face; takes the whole proposal, without an edge.
[[nodiscard]] viewkit::View cardFace(const WidgetSnapshot::Card& card,
                                     double cornerRadius,
                                     viewkit::Alignment artAlignment,
                                     std::optional<double> textOpacity,
                                     double textFoot,
                                     widgetruntime::RenderingMode mode);

/// The edge of a face that is left without its veil and may be as pale as what it lies on; nothing
/// for others. Takes the whole proposal.
[[nodiscard]] viewkit::View paleEdge(const WidgetSnapshot::Card& card,
                                     double cornerRadius,
                                     std::optional<double> textOpacity,
                                     widgetruntime::RenderingMode mode);

/// A text on that face, of `textOpacity` like those above: where a veil would hide the face, on a
/// pill that is larger than the text by `around`.
[[nodiscard]] viewkit::View onFace(const viewkit::View& text,
                                   const WidgetSnapshot::Card& card,
                                   double textOpacity,
                                   viewkit::Insets around,
                                   widgetruntime::RenderingMode mode);

/// The user's card by its product or bank, bold; may be cut.
[[nodiscard]] viewkit::View cardTitleText(const WidgetSnapshot::Card& card,
                                          double size,
                                          std::string_view lang,
                                          widgetruntime::RenderingMode mode);

}  // namespace quorvel
