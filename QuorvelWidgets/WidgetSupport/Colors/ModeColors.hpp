// The palette by what a colour is for, as a rendering mode shows it: what depends on a hue in full
// colour depends on one of three strengths of the primary colour where a host tints.
//
//     const ModeColors colors{environment.widgetRenderingMode};
//     Text{"Assets"}.foregroundStyle(colors.caption());
#pragma once

#include <optional>

#include "QuorvelWidgets/WidgetSupport/Colors/WAccent.hpp"
#include "ViewKit/Color.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Of the primary colour in grounds where a host tints.
inline constexpr double kTintedGround = 0.14;

class ModeColors {
 public:
  explicit ModeColors(widgetruntime::RenderingMode mode = widgetruntime::RenderingMode::fullColor)
      : mode_(mode) {}

  /// The host draws colours as greys or not at all.
  [[nodiscard]] bool isTinted() const { return mode_ != widgetruntime::RenderingMode::fullColor; }
  /// Figures, titles and messages.
  [[nodiscard]] viewkit::Color text() const;
  /// Labels and secondary figures.
  [[nodiscard]] viewkit::Color caption() const;
  /// A status, a change, a symbol or a line, which is `color` in full colour.
  [[nodiscard]] viewkit::Color mark(const viewkit::Color& color) const;
  /// A tile, a hairline or a face, which is `color` in full colour.
  [[nodiscard]] viewkit::Color ground(const viewkit::Color& color) const;
  /// The empty part of meters and gauges.
  [[nodiscard]] viewkit::Color track() const;
  /// The accent of a snapshot, or the built-in one. Its heat stays: the charts have colours of
  /// their own in each mode.
  [[nodiscard]] WAccent accent(const std::optional<WidgetSnapshot::Accent>& accent) const;

 private:
  widgetruntime::RenderingMode mode_;
};

}  // namespace quorvel
