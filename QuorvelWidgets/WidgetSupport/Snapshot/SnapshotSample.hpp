// The snapshot that placeholders and the gallery show when there is no document.
#pragma once

#include "Foundation/Device.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace quorvel {

/// Plausible figures around the device's today, in the device's language; sums agree with each
/// other.
[[nodiscard]] WidgetSnapshot sampleSnapshot(const foundation::Device& device);

}  // namespace quorvel
