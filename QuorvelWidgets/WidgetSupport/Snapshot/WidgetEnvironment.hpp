// What a view derives from the host's environment before it draws.
#pragma once

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// What components take from a snapshot: a copy without its lists and records, so that a long
/// document costs a view nothing, whose `isHidden` is the effective privacy, the application's or
/// the host's.
[[nodiscard]] WidgetSnapshot withEffectivePrivacy(const WidgetSnapshot& snapshot,
                                                  const widgetruntime::Environment& environment);

}  // namespace quorvel
