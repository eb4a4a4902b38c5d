// How much of something is used, as the platform's circular gauge. No widget has one yet.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// For accessory families. While the snapshot hides amounts only the track and the symbol are
/// there. Keeps a reference to the snapshot: use it while the snapshot lives.
struct WidgetUsageGauge : viewkit::Modifiers<WidgetUsageGauge> {
  static constexpr std::string_view kName = "WidgetUsageGauge";

  double fraction = 0;
  std::string symbol;
  const WidgetSnapshot& snapshot;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
