#include "Cli/Sheet.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

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
constexpr double kMostPixels = 120e6;

/// One half of the sheet.
struct Panel {
  viewkit::Appearance appearance;
  viewkit::Rgb ground;
  viewkit::Rgb caption;
};
constexpr std::array kPanels{Panel{viewkit::Appearance::light, 0xD7DADF, 0x555B63},
                             Panel{viewkit::Appearance::dark, 0x0D0E10, 0x9BA1A8}};

Size sizeOf(const SheetRow& row) {
  Size size{0, 0};
  for (const SheetCell& cell : row.cells) {
    size.width += cell.how.size.width + (size.width > 0 ? kGap : 0);
    size.height = std::max(size.height, cell.how.size.height);
  }
  return size;
}

Size panelSize(const std::vector<SheetRow>& rows) {
  Size size{200, kMargin - kRowGap};
  for (const SheetRow& row : rows) {
    const Size own = sizeOf(row);
    size.width = std::max(size.width, own.width);
    size.height += kRowGap + kCaptionHeight + kCaptionGap + own.height;
  }
  return {size.width + 2 * kMargin, size.height + kMargin};
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

class Painter {
 public:
  Painter(Bitmap& target, double scale) : target_(target), scale_(scale) {}

  void panel(const std::vector<SheetRow>& rows, const Panel& panel, double left, double width) {
    fill(panel.ground, left, width);
    double top = kMargin;
    for (const SheetRow& row : rows) {
      caption(row.caption, panel, left + kMargin, top, width - 2 * kMargin);
      top += kCaptionHeight + kCaptionGap;
      double x = left + kMargin;
      for (const SheetCell& cell : row.cells) {
        picture(cell, panel.appearance, x, top);
        x += cell.how.size.width + kGap;
      }
      top += sizeOf(row).height + kRowGap;
    }
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
    blend(renderer_.bitmap(view, how), pixels(x, scale_), pixels(y, scale_), target_);
  }

  void picture(const SheetCell& cell, viewkit::Appearance appearance, double x, double y) {
    rendering::RenderOptions how = cell.how;
    how.appearance = appearance;
    how.scale = scale_;
    blend(renderer_.bitmap(cell.view, how), pixels(x, scale_), pixels(y, scale_), target_);
  }

  Bitmap& target_;
  double scale_;
  rendering::Renderer renderer_;
};

}  // namespace

Result<Bitmap> drawSheet(const std::vector<SheetRow>& rows, double scale) {
  const Size panel = panelSize(rows);
  const double width = std::ceil(panel.width * kPanels.size() * scale);
  const double height = std::ceil(panel.height * scale);
  if (width * height > kMostPixels) {
    return refused(fmt::format(
        "the sheet would have {:.0f}x{:.0f} pixels; name kinds, drop an axis or lower --scale",
        width,
        height));
  }
  Bitmap sheet{static_cast<int>(width), static_cast<int>(height), static_cast<int>(width), {}};
  sheet.pixels.resize(static_cast<std::size_t>(sheet.width) *
                      static_cast<std::size_t>(sheet.height));
  Painter painter{sheet, scale};
  for (std::size_t i = 0; i < kPanels.size(); ++i) {
    painter.panel(rows, kPanels[i], panel.width * static_cast<double>(i), panel.width);
  }
  return sheet;
}

}  // namespace cli
