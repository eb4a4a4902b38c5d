#include "Cli/Sheet/Sheet.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "Cli/Sheet/SheetLayout.hpp"
#include "ViewKit/ViewKit.hpp"

namespace cli {
namespace {

using rendering::Bitmap;
using rendering::Size;

constexpr double kMargin = 28;
constexpr double kGap = 20;     // between the widgets of a row
constexpr double kRowGap = 22;  // above each caption
constexpr double kCaptionHeight = 16;
constexpr double kCaptionGap = 6;
constexpr double kCaptionSize = 11.5;
constexpr double kColumnGap = 44;
constexpr double kMostPixels = 120e6;

/// One half of the sheet.
struct Panel {
  viewkit::Appearance appearance;
  viewkit::Rgb ground;
  viewkit::Rgb caption;
};
constexpr std::array kPanels{Panel{viewkit::Appearance::light, 0xD7DADF, 0x555B63},
                             Panel{viewkit::Appearance::dark, 0x0D0E10, 0x9BA1A8}};

Packing packed(const SheetRow& row) {
  std::vector<Size> sizes;
  sizes.reserve(row.cells.size());
  for (const SheetCell& cell : row.cells) sizes.push_back(cell.how.size);
  return packRow(sizes, kGap);
}

/// A row with its caption above it.
struct Block {
  const SheetRow* row;
  Packing pictures;
};

/// What one half of the sheet shows.
struct Arrangement {
  std::vector<Block> blocks;
  Packing flow;
  double columnWidth = 200;
  [[nodiscard]] double width() const { return std::max(200.0, flow.size.width) + 2 * kMargin; }
  [[nodiscard]] double height() const { return flow.size.height + 2 * kMargin; }
};

Arrangement arranged(const std::vector<SheetRow>& rows) {
  Arrangement arrangement;
  std::vector<Size> sizes;
  for (const SheetRow& row : rows) {
    arrangement.blocks.push_back({&row, packed(row)});
    const Size& pictures = arrangement.blocks.back().pictures.size;
    arrangement.columnWidth = std::max(arrangement.columnWidth, pictures.width);
    sizes.push_back({pictures.width, kCaptionHeight + kCaptionGap + pictures.height});
  }
  arrangement.flow = flowRows(sizes, kRowGap, kColumnGap, kPanels.size());
  return arrangement;
}

int pixels(double points, double scale) {
  return static_cast<int>(std::lround(points * scale));
}

/// Source over an opaque ground; what does not fit is cut off.
void blend(const Bitmap& source, int left, int top, Bitmap& target) {
  const int width = std::min(source.width, target.width - left);
  const int height = std::min(source.height, target.height - top);
  for (int y = 0; y < height; ++y) {
    const std::uint32_t* from = &source.pixels[static_cast<std::size_t>(y) * source.stride];
    std::uint32_t* to = &target.pixels[static_cast<std::size_t>(top + y) * target.stride + left];
    for (int x = 0; x < width; ++x) {
      const std::uint32_t rest = 255 - (from[x] >> 24);
      std::uint32_t mixed = 0xFF000000;
      for (int shift = 0; shift <= 16; shift += 8) {
        const std::uint32_t below = ((to[x] >> shift & 0xFF) * rest + 127) / 255;
        mixed |= std::min(255u, (from[x] >> shift & 0xFF) + below) << shift;
      }
      to[x] = mixed;
    }
  }
}

class SheetPainter {
 public:
  SheetPainter(Bitmap& target, double scale) : target_(target), scale_(scale) {}

  /// The first picture that is refused ends the panel.
  rendering::Drawn<void> panel(const Arrangement& arrangement, const Panel& panel, double left) {
    fill(panel.ground, left, arrangement.width());
    for (std::size_t i = 0; i < arrangement.blocks.size(); ++i) {
      const Block& block = arrangement.blocks[i];
      const double x = left + kMargin + arrangement.flow.places[i].x;
      const double y = kMargin + arrangement.flow.places[i].y;
      caption(block.row->caption, panel, x, y, arrangement.columnWidth);
      pictures(block, panel.appearance, x, y + kCaptionHeight + kCaptionGap);
    }
    return std::exchange(done_, {});
  }

 private:
  void fill(viewkit::Rgb ground, double left, double width) {
    const int from = pixels(left, scale_);
    const int to = std::min(pixels(left + width, scale_), target_.width);
    for (int y = 0; y < target_.height; ++y) {
      std::uint32_t* row = &target_.pixels[static_cast<std::size_t>(y) * target_.stride];
      std::fill(row + from, row + to, 0xFF000000 | ground);
    }
  }

  void caption(const std::string& text, const Panel& panel, double x, double y, double width) {
    const viewkit::View view =
        viewkit::Text{text}
            .font(kCaptionSize, viewkit::FontWeight::medium)
            .lineLimit(1)
            .foregroundStyle(viewkit::Color::same(panel.caption))
            .frame(viewkit::FlexibleFrame{.maxWidth = viewkit::kInfinity,
                                          .maxHeight = viewkit::kInfinity,
                                          .alignment = viewkit::Alignment::bottomLeading});
    rendering::RenderOptions how;
    how.size = {width, kCaptionHeight};
    how.scale = scale_;
    how.appearance = panel.appearance;
    how.showsBackground = false;
    how.cornerRadius = 0;
    draw(view, how, x, y);
  }

  void draw(const viewkit::View& view, const rendering::RenderOptions& how, double x, double y) {
    if (!done_) return;
    const auto bitmap = renderer_.bitmap(view, how);
    if (!bitmap) {
      done_ = std::unexpected(bitmap.error());
      return;
    }
    blend(*bitmap, pixels(x, scale_), pixels(y, scale_), target_);
  }

  void pictures(const Block& block, viewkit::Appearance appearance, double x, double y) {
    for (std::size_t i = 0; i < block.row->cells.size(); ++i) {
      const rendering::Point& place = block.pictures.places[i];
      picture(block.row->cells[i], appearance, x + place.x, y + place.y);
    }
  }

  void picture(const SheetCell& cell, viewkit::Appearance appearance, double x, double y) {
    rendering::RenderOptions how = cell.how;
    how.appearance = appearance;
    how.scale = scale_;
    draw(cell.view, how, x, y);
  }

  Bitmap& target_;
  double scale_;
  rendering::Renderer renderer_;
  rendering::Drawn<void> done_;
};

}  // namespace

bool SheetExtent::isTooLarge() const {
  return static_cast<double>(width) * height > kMostPixels;
}

SheetExtent sheetExtent(const std::vector<SheetRow>& rows, double scale) {
  const Arrangement panel = arranged(rows);
  const auto pixelsOf = [scale](double points) {
    return static_cast<int>(std::min(1e9, std::ceil(points * scale)));
  };
  return {pixelsOf(panel.width() * kPanels.size()), pixelsOf(panel.height())};
}

std::vector<std::vector<SheetRow>> splitIntoSheets(const std::vector<SheetRow>& rows,
                                                   double scale) {
  for (std::size_t count = 1;; ++count) {
    std::vector<std::vector<SheetRow>> sheets(count);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      sheets[i * count / rows.size()].push_back(rows[i]);
    }
    const bool fits = std::ranges::none_of(
        sheets, [&](const auto& sheet) { return sheetExtent(sheet, scale).isTooLarge(); });
    if (fits || count >= rows.size()) return sheets;
  }
}

Result<Bitmap> drawSheet(const std::vector<SheetRow>& rows, double scale) {
  const SheetExtent extent = sheetExtent(rows, scale);
  if (extent.isTooLarge()) {
    return refused(
        fmt::format("the sheet would have {}x{} pixels; name kinds, drop an axis or lower --scale",
                    extent.width,
                    extent.height));
  }
  Bitmap sheet{extent.width, extent.height, extent.width, {}};
  sheet.pixels.resize(static_cast<std::size_t>(sheet.width) *
                      static_cast<std::size_t>(sheet.height));
  SheetPainter painter{sheet, scale};
  const Arrangement panel = arranged(rows);
  for (std::size_t i = 0; i < kPanels.size(); ++i) {
    const auto done = painter.panel(panel, kPanels[i], panel.width() * static_cast<double>(i));
    if (!done) return refused(done.error());
  }
  return sheet;
}

}  // namespace cli
