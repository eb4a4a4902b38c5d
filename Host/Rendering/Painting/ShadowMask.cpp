// Blurring, and keeping what was blurred.
#include "Rendering/Painting/ShadowMask.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace rendering {

namespace {

constexpr std::size_t kKept = 16;
constexpr std::size_t kKeptBytes = std::size_t{16} << 20;

/// A sum of values within the radius becomes their mean.
class Mean {
 public:
  explicit Mean(int radius) : factor_((1u << 24) / static_cast<std::uint32_t>(2 * radius + 1)) {}
  [[nodiscard]] std::uint8_t of(std::uint32_t sum) const {
    // At most 255 * 2^24 + 2^23, so 32 bits hold it.
    return static_cast<std::uint8_t>((sum * factor_ + (1u << 23)) >> 24);
  }

 private:
  std::uint32_t factor_;
};

/// One pass over a row; `line` is scratch.
void meanAlong(std::uint8_t* values, int count, int radius, std::vector<std::uint8_t>& line) {
  line.assign(values, values + count);
  const Mean mean(radius);
  std::uint32_t sum = 0;
  for (int i = 0; i < std::min(radius, count); ++i) sum += line[i];
  for (int i = 0; i < count; ++i) {
    if (i + radius < count) sum += line[i + radius];
    values[i] = mean.of(sum);
    if (i - radius >= 0) sum -= line[i - radius];
  }
}

/// One pass over all columns at once, row after row as they lie in memory.
void meanAcross(std::vector<std::uint8_t>& values, int width, int height, int radius) {
  const std::vector<std::uint8_t> before = values;
  const auto rowOf = [width](auto& rows, int y) {
    return rows.data() + static_cast<std::ptrdiff_t>(y) * width;
  };
  std::vector<std::uint32_t> sums(static_cast<std::size_t>(width));
  const auto add = [&](int y) {
    const std::uint8_t* row = rowOf(before, y);
    for (int x = 0; x < width; ++x) sums[x] += row[x];
  };
  const Mean mean(radius);
  for (int y = 0; y < std::min(radius, height); ++y) add(y);
  for (int y = 0; y < height; ++y) {
    if (y + radius < height) add(y + radius);
    std::uint8_t* to = rowOf(values, y);
    for (int x = 0; x < width; ++x) to[x] = mean.of(sums[x]);
    if (y < radius) continue;
    const std::uint8_t* leaves = rowOf(before, y - radius);
    for (int x = 0; x < width; ++x) sums[x] -= leaves[x];
  }
}

class FillSink final : public SpanSink {
 public:
  explicit FillSink(ShadowMask& mask) : mask_(mask) {}
  void span(int x, int y, int length, std::uint32_t coverage) override {
    std::memset(mask_.coverage.data() +
                    static_cast<std::ptrdiff_t>(y - mask_.box.top) * mask_.box.width() +
                    (x - mask_.box.left),
                static_cast<int>(coverage),
                static_cast<std::size_t>(length));
  }

 private:
  ShadowMask& mask_;
};

}  // namespace

void blur(std::vector<std::uint8_t>& coverage, int width, int height, double deviation) {
  if (!(deviation > 0.2) || width <= 0 || height <= 0) return;
  // Three means of width w have the variance (w * w - 1) / 4; mix the two nearest odd widths.
  const double ideal = std::sqrt(4 * deviation * deviation + 1);
  const int lower = std::max(0, static_cast<int>((ideal - 1) / 2));
  const double w = 2 * lower + 1;
  const double excess = 12 * deviation * deviation - 3 * (w * w - 1);
  const int wider = std::clamp(static_cast<int>(std::lround(excess / (4 * w + 4))), 0, 3);
  std::vector<std::uint8_t> line;
  for (int pass = 0; pass < 3; ++pass) {
    const int radius = lower + (pass < wider ? 1 : 0);
    if (radius == 0) continue;
    for (int y = 0; y < height; ++y) {
      meanAlong(coverage.data() + static_cast<std::ptrdiff_t>(y) * width, width, radius, line);
    }
    meanAcross(coverage, width, height, radius);
  }
}

const ShadowMask& ShadowMasks::mask(
    PathView path, double scale, double deviation, const PixelBox& seen, PixelBox* origin) {
  double x = path.points.empty() ? 0 : path.points[0].x;
  double y = path.points.empty() ? 0 : path.points[0].y;
  double right = x;
  double bottom = y;
  for (const Point& p : path.points) {
    x = std::min(x, p.x);
    y = std::min(y, p.y);
    right = std::max(right, p.x);
    bottom = std::max(bottom, p.y);
  }
  const double left = std::floor(x * scale);
  const double top = std::floor(y * scale);
  *origin = pixelBox({left, top, 0, 0}, 1);
  const double shiftX = std::round((x * scale - left) * 4) / 4;
  const double shiftY = std::round((y * scale - top) * 4) / 4;

  const PixelBox shape = pixelBox({shiftX, shiftY, (right - x) * scale, (bottom - y) * scale}, 1);
  const PixelBox whole = grown(shape, blurReach(deviation));
  // Of a shape far larger than the picture only what is seen, and what the blur brings there.
  const PixelBox part =
      intersect(whole, grown(moved(seen, -origin->left, -origin->top), blurReach(deviation)));
  const PixelBox box = whole.area() <= 4 * part.area() ? whole : part;

  std::string key;
  const auto add = [&](double value) {
    const auto fixed =
        static_cast<std::int32_t>(std::lround(std::clamp(value, -30000.0, 30000.0) * 64));
    key.append(reinterpret_cast<const char*>(&fixed), sizeof fixed);
  };
  add(deviation);
  for (const int edge : {box.left, box.top, box.right, box.bottom}) add(edge);
  add(shiftX);
  add(shiftY);
  for (const Point& p : path.points) {
    add((p.x - x) * scale);
    add((p.y - y) * scale);
  }
  for (PathVerb verb : path.verbs) key.push_back(static_cast<char>(verb));
  for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
    if (entry->key != key) continue;
    entries_.splice(entries_.begin(), entries_, entry);
    return entry->mask;
  }

  entries_.push_front({std::move(key), {}});
  ShadowMask& mask = entries_.front().mask;
  mask.box = box.empty() ? PixelBox{} : box;
  mask.coverage.assign(static_cast<std::size_t>(mask.box.area()), 0);
  FillSink sink(mask);
  raster_.fill(path,
               {scale, scale, shiftX - x * scale, shiftY - y * scale},
               FillRule::nonZero,
               mask.box,
               sink);
  blur(mask.coverage, mask.box.width(), mask.box.height(), deviation);
  trim();
  return mask;
}

void ShadowMasks::trim() {
  std::size_t bytes = 0;
  for (const Entry& entry : entries_) bytes += entry.mask.coverage.size();
  while (entries_.size() > 1 && (entries_.size() > kKept || bytes > kKeptBytes)) {
    bytes -= entries_.back().mask.coverage.size();
    entries_.pop_back();
  }
}

}  // namespace rendering
