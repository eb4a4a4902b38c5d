// A contact sheet: rows of widgets under captions, on a light ground and again on a dark one beside
// it.
#pragma once

#include <string>
#include <vector>

#include "Cli/Result.hpp"
#include "Rendering/Renderer.hpp"

namespace cli {

/// One picture to be; its appearance is the panel's.
struct SheetCell {
  viewkit::View view;
  rendering::RenderOptions how;
};

struct SheetRow {
  std::string caption;
  std::vector<SheetCell> cells;
};

/// Refused when the picture would have more than 120 million pixels.
[[nodiscard]] Result<rendering::Bitmap> drawSheet(const std::vector<SheetRow>& rows, double scale);

}  // namespace cli
