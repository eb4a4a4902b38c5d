// The inner loops.
#include "Rendering/Painting/PainterSurface.hpp"

#include <algorithm>
#include <cstring>

#include "Rendering/Recording/DisplayList.hpp"

namespace rendering {

namespace {

/// How many bytes are as the first, of which there is one.
int runOf(const std::uint8_t* bytes, int count) {
  constexpr std::uint64_t kEveryByte = 0x0101010101010101;
  const std::uint64_t all = *bytes * kEveryByte;
  int run = 1;
  for (; run + 8 <= count; run += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes + run, sizeof eight);
    if (eight != all) break;
  }
  while (run < count && bytes[run] == *bytes) ++run;
  return run;
}

/// As `scalePixel`, but byte by byte, which vectors multiply in fewer steps.
void scalePixels(std::uint32_t* pixels, int count, std::uint32_t factor) {
  auto* bytes = reinterpret_cast<std::uint8_t*>(pixels);
  const int size = 4 * count;
  for (int i = 0; i < size; ++i) {
    const auto product = static_cast<std::uint16_t>(bytes[i] * factor + 128);
    bytes[i] = static_cast<std::uint8_t>((product + (product >> 8)) >> 8);
  }
}

}  // namespace

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
    const int same = runOf(mask + i, length - i);
    const std::uint32_t c = scaleByte(coverage, mask[i]);
    if (c != 0) run(x + i, y, same, c);
    i += same;
  }
}

inline void SurfaceSink::run(int x, int y, int length, std::uint32_t coverage) {
  if (!source_.isSolid()) return gradientRun(x, y, length, coverage);
  std::uint32_t* to = surface_.row(y) + x;
  const std::uint32_t color =
      coverage == 255 ? source_.color() : scalePixel(source_.color(), coverage);
  const std::uint32_t rest = 255 - (color >> 24);
  constexpr int kFew = 4;  // too few to gain from vectors
  if (rest == 0) {
    std::fill_n(to, length, color);
  } else if (length < kFew) {
    for (int i = 0; i < length; ++i) to[i] = color + scalePixel(to[i], rest);
  } else {
    scalePixels(to, length, rest);
    for (int i = 0; i < length; ++i) to[i] += color;
  }
}

void SurfaceSink::gradientRun(int x, int y, int length, std::uint32_t coverage) {
  std::uint32_t* to = surface_.row(y) + x;
  for (int i = 0; i < length; ++i) {
    const std::uint32_t from = source_.at(x + i, y);
    to[i] = over(coverage == 255 ? from : scalePixel(from, coverage), to[i]);
  }
}

void SurfaceSink::row(int x, int y, int length, const std::uint8_t* coverage) {
  if (!mask_) return plainRow(x, y, length, coverage);
  const std::uint8_t* mask = mask_->row(y) + x;
  std::array<std::uint8_t, 256> masked;
  constexpr int kMost = masked.size();
  for (int first = 0; first < length; first += kMost) {
    const int count = std::min(length - first, kMost);
    for (int i = 0; i < count; ++i) {
      masked[static_cast<std::size_t>(i)] =
          static_cast<std::uint8_t>(scaleByte(coverage[first + i], mask[first + i]));
    }
    plainRow(x + first, y, count, masked.data());
  }
}

inline void SurfaceSink::plainRow(int x, int y, int length, const std::uint8_t* coverage) {
  for (int i = 0; i < length;) {
    const int same = runOf(coverage + i, length - i);
    if (coverage[i] != 0) run(x + i, y, same, coverage[i]);
    i += same;
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
