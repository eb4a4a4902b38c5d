// What a view derives from the host's environment before it draws.
#pragma once

#include "QuorvelWidgets/WidgetSupport/WidgetSnapshot.hpp"
#include "ViewKit/Color.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Of the primary colour in a ground where a host tints.
inline constexpr double kTintedGround = 0.14;

/// Whether the host draws colours as greys or not at all.
[[nodiscard]] bool isTinted(const widgetruntime::Environment& environment);

/// What components take from a snapshot: a copy without its lists and records, so that a long
/// document costs a view nothing, whose `isHidden` is the effective privacy, the application's or
/// the host's.
[[nodiscard]] WidgetSnapshot withEffectivePrivacy(const WidgetSnapshot& snapshot,
                                                  const widgetruntime::Environment& environment);

/// The colour of secondary texts: the palette's; in accessories that a host tints, a weaker
/// primary.
[[nodiscard]] viewkit::Color secondaryTextColor(const widgetruntime::Environment& environment);

}  // namespace quorvel
