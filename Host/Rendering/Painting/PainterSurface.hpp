// Pixels that are drawn on, and how coverage meets them.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "Rendering/Graphics/PainterPixels.hpp"
#include "Rendering/Painting/PainterRaster.hpp"
#include "Rendering/Recording/DisplayList.hpp"

namespace rendering {

/// A rectangle of pixels somewhere on the device.
struct Surface {
  std::uint32_t* pixels = nullptr;
  int stride = 0;
  PixelBox box;
  [[nodiscard]] std::uint32_t* row(int y) const {
    return pixels + static_cast<std::ptrdiff_t>(y - box.top) * stride - box.left;
  }
};

/// Coverage over a box, row by row without padding.
struct CoverageMap {
  PixelBox box;
  std::vector<std::uint8_t> coverage;
  [[nodiscard]] const std::uint8_t* row(int y) const {
    return coverage.data() + static_cast<std::ptrdiff_t>(y - box.top) * box.width() - box.left;
  }
  [[nodiscard]] std::uint8_t* row(int y) {
    return coverage.data() + static_cast<std::ptrdiff_t>(y - box.top) * box.width() - box.left;
  }
  /// Nothing covered.
  void reset(const PixelBox& area);
};

/// The colour of every pixel: one, or a linear gradient's.
class PixelSource {
 public:
  explicit PixelSource(std::uint32_t color) : color_(color) {}
  PixelSource(const GradientInk& gradient, float opacity, double scale);

  [[nodiscard]] bool isSolid() const { return table_.empty(); }
  [[nodiscard]] std::uint32_t color() const { return color_; }
  [[nodiscard]] std::uint32_t at(int x, int y) const {
    const double t = (x + 0.5) * stepX_ + (y + 0.5) * stepY_ + start_;
    constexpr double kToNearest = 0.5;
    const double within = std::min(t > 0 ? t : 0, static_cast<double>(kLast));
    return table_[static_cast<std::size_t>(within + kToNearest)];
  }

 private:
  static constexpr int kLast = 511;
  std::uint32_t color_ = 0;
  std::vector<std::uint32_t> table_;
  double stepX_ = 0;
  double stepY_ = 0;
  double start_ = 0;
};

/// Draws spans of a source on a surface, through a mask if there is one.
class SurfaceSink final : public SpanSink {
 public:
  SurfaceSink(const Surface& surface, const PixelSource& source, const CoverageMap* mask)
      : surface_(surface), source_(source), mask_(mask) {}
  void span(int x, int y, int length, std::uint32_t coverage) override;
  /// One row of coverage values.
  void row(int x, int y, int length, const std::uint8_t* coverage);

 private:
  // Whatever the mask:
  void plainRow(int x, int y, int length, const std::uint8_t* coverage);
  /// Pixels of one coverage.
  void run(int x, int y, int length, std::uint32_t coverage);
  void gradientRun(int x, int y, int length, std::uint32_t coverage);

  const Surface& surface_;
  const PixelSource& source_;
  const CoverageMap* mask_;
};

/// Takes coverage out of a surface.
class EraseSink final : public SpanSink {
 public:
  EraseSink(const Surface& surface, const CoverageMap* mask) : surface_(surface), mask_(mask) {}
  void span(int x, int y, int length, std::uint32_t coverage) override;

 private:
  const Surface& surface_;
  const CoverageMap* mask_;
};

/// Collects coverage.
class CoverageSink final : public SpanSink {
 public:
  explicit CoverageSink(CoverageMap& map) : map_(map) {}
  void span(int x, int y, int length, std::uint32_t coverage) override;

 private:
  CoverageMap& map_;
};

}  // namespace rendering
