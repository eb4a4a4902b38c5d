// A contact sheet: rows of widgets under captions, in columns, on a light ground and again on a
// dark one beside it.
#pragma once

#include <string>
#include <vector>

#include "Cli/Result.hpp"
#include "Rendering/Renderer.hpp"

namespace cli {

/// One picture to be; its appearance is the panel's.
struct SheetCell {
  std::string name;  ///< of its layout: "Small", "Small, ring"
  viewkit::View view;
  rendering::RenderOptions how;
};

struct SheetRow {
  std::string caption;
  std::vector<SheetCell> cells;
};

/// Pixels of the whole picture.
struct SheetExtent {
  int width = 0;
  int height = 0;
  /// A sheet may have 120 million.
  [[nodiscard]] bool isTooLarge() const;
};

[[nodiscard]] SheetExtent sheetExtent(const std::vector<SheetRow>& rows, double scale);

/// The rows in their order on as few sheets as the limit allows.
[[nodiscard]] std::vector<std::vector<SheetRow>> splitIntoSheets(const std::vector<SheetRow>& rows,
                                                                 double scale);

/// Refused when the picture would have more than 120 million pixels.
[[nodiscard]] Result<rendering::Bitmap> drawSheet(const std::vector<SheetRow>& rows, double scale);

}  // namespace cli
