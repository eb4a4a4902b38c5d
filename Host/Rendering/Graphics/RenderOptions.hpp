// How a picture is to look: what the host decides, whatever the view.
#pragma once

#include <filesystem>
#include <optional>

#include "Rendering/Graphics/Geometry.hpp"
#include "ViewKit/Appearance.hpp"
#include "ViewKit/View.hpp"

namespace rendering {

struct RenderOptions {
  Size size;         ///< points
  double scale = 2;  ///< pixels per point
  viewkit::Appearance appearance = viewkit::Appearance::light;
  viewkit::RenderingMode mode = viewkit::RenderingMode::fullColor;
  /// Of the accentable group in accented mode; default: the appearance's label colour.
  std::optional<viewkit::Rgb> tint;
  bool showsBackground = true;  ///< draw the container background and clip to the widget's corners
  double cornerRadius = 22;     ///< points, continuous; 0 for accessories
  viewkit::RedactionReasons redaction;
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
  std::filesystem::path container;  ///< where image paths start; empty: no images
};

}  // namespace rendering
