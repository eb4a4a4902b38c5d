// The inner loops.
#include "Rendering/Painting/PainterSurface.hpp"

#include <algorithm>
#include <cstring>

#include "Rendering/Recording/DisplayList.hpp"

namespace rendering {

void CoverageMap::reset(const PixelBox& area) {
  box = area.empty() ? PixelBox{} : area;
  coverage.assign(static_cast<std::size_t>(box.area()), 0);
}

PixelSource::PixelSource(const GradientInk& gradient, float opacity, double scale)
    : table_(kLast + 1) {
  const double dx = (gradient.end.x - gradient.start.x) * scale;
  const double dy = (gradient.end.y - gradient.start.y) * scale;
  const double length = dx * dx + dy * dy;
  if (length > 0) {
    stepX_ = dx / length * kLast;
    stepY_ = dy / length * kLast;
    start_ = -(gradient.start.x * scale * stepX_ + gradient.start.y * scale * stepY_);
  }
  const auto& stops = gradient.stops;
  std::size_t next = 0;
  for (int i = 0; i <= kLast; ++i) {
    const float t = static_cast<float>(i) / kLast;
    while (next < stops.size() && stops[next].location <= t) ++next;
    if (next == 0 || next == stops.size()) {
      table_[i] = premultiply(stops[next == 0 ? 0 : next - 1].color, opacity);
      continue;
    }
    const auto& a = stops[next - 1];
    const auto& b = stops[next];
    const float f = (t - a.location) / (b.location - a.location);
    const auto mix = [f](std::uint8_t from, std::uint8_t to) {
      return static_cast<std::uint8_t>(
          std::lround(static_cast<float>(from) + static_cast<float>(to - from) * f));
    };
    table_[i] = premultiply({mix(a.color.red, b.color.red),
                             mix(a.color.green, b.color.green),
                             mix(a.color.blue, b.color.blue),
                             a.color.alpha + (b.color.alpha - a.color.alpha) * f},
                            opacity);
  }
}

void SurfaceSink::span(int x, int y, int length, std::uint32_t coverage) {
  if (!mask_) return run(x, y, length, coverage);
  // Inside and outside of the clip's edge the mask stays the same for long.
  const std::uint8_t* mask = mask_->row(y) + x;
  for (int i = 0; i < length;) {
    const int first = i;
    while (i < length && mask[i] == mask[first]) ++i;
    const std::uint32_t c = scaleByte(coverage, mask[first]);
    if (c != 0) run(x + first, y, i - first, c);
  }
}

inline void SurfaceSink::run(int x, int y, int length, std::uint32_t coverage) {
  std::uint32_t* to = surface_.row(y) + x;
  if (!source_.isSolid()) {
    for (int i = 0; i < length; ++i) {
      const std::uint32_t from = source_.at(x + i, y);
      to[i] = over(coverage == 255 ? from : scalePixel(from, coverage), to[i]);
    }
    return;
  }
  const std::uint32_t color =
      coverage == 255 ? source_.color() : scalePixel(source_.color(), coverage);
  const std::uint32_t rest = 255 - (color >> 24);
  if (rest == 0) {
    std::fill_n(to, length, color);
  } else {
    for (int i = 0; i < length; ++i) to[i] = color + scalePixel(to[i], rest);
  }
}

void SurfaceSink::row(int x, int y, int length, const std::uint8_t* coverage) {
  const std::uint8_t* mask = mask_ ? mask_->row(y) + x : nullptr;
  for (int i = 0; i < length;) {
    const int first = i;
    const auto isSame = [&] {
      return coverage[i] == coverage[first] && (!mask || mask[i] == mask[first]);
    };
    while (i < length && isSame()) ++i;
    const std::uint32_t c = mask ? scaleByte(coverage[first], mask[first]) : coverage[first];
    if (c != 0) run(x + first, y, i - first, c);
  }
}

void EraseSink::span(int x, int y, int length, std::uint32_t coverage) {
  std::uint32_t* to = surface_.row(y) + x;
  const std::uint8_t* mask = mask_ ? mask_->row(y) + x : nullptr;
  for (int i = 0; i < length; ++i) {
    to[i] = scalePixel(to[i], 255 - (mask ? scaleByte(coverage, mask[i]) : coverage));
  }
}

void CoverageSink::span(int x, int y, int length, std::uint32_t coverage) {
  std::memset(map_.row(y) + x, static_cast<int>(coverage), static_cast<std::size_t>(length));
}

}  // namespace rendering
