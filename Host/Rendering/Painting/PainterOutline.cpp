#include "Rendering/Painting/PainterOutline.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

namespace rendering {

namespace {

using Vector = PixelOutline::Vector;
using Axis = long Vector::*;

constexpr long kUnits = 64;  ///< of a pixel

/// Takes a contour's points one after the other. Of a run along a bound only its ends count, since
/// what a line adds to a row depends on where it begins and ends there.
class BoundedLine {
 public:
  BoundedLine(Axis axis, long low, long high, std::vector<Vector>& out)
      : axis_(axis), low_(low), high_(high), out_(out), first_(out.size()) {}

  void moveTo(const Vector& to) { push(to); }
  void lineTo(const Vector& from, const Vector& to) {
    const bool isForward = from.*axis_ < to.*axis_;
    crossAt(isForward ? low_ : high_, from, to);
    crossAt(isForward ? high_ : low_, from, to);
    push(to);
  }

 private:
  void crossAt(long bound, const Vector& from, const Vector& to) {
    const long a = from.*axis_;
    const long b = to.*axis_;
    if (std::min(a, b) >= bound || std::max(a, b) <= bound) return;
    const double t = static_cast<double>(bound - a) / static_cast<double>(b - a);
    const auto between = [t](long p, long q) {
      return p + std::lround(t * static_cast<double>(q - p));
    };
    Vector crossing{between(from.x, to.x), between(from.y, to.y)};
    crossing.*axis_ = bound;
    push(crossing);
  }
  void push(Vector point) {
    point.*axis_ = std::clamp(point.*axis_, low_, high_);
    const long at = point.*axis_;
    const std::size_t count = out_.size() - first_;
    const bool runs = (at == low_ || at == high_) && count >= 2 && out_.back().*axis_ == at &&
                      out_[out_.size() - 2].*axis_ == at;
    if (runs) out_.pop_back();
    out_.push_back(point);
  }

  Axis axis_;
  long low_;
  long high_;
  std::vector<Vector>& out_;
  std::size_t first_;
};

void clipContour(
    std::span<const Vector> contour, Axis axis, long low, long high, std::vector<Vector>& out) {
  if (contour.empty()) return;
  BoundedLine line(axis, low, high, out);
  line.moveTo(contour.front());
  for (std::size_t i = 1; i < contour.size(); ++i) line.lineTo(contour[i - 1], contour[i]);
  line.lineTo(contour.back(), contour.front());
}

}  // namespace

void PixelOutline::clear() {
  points.clear();
  contours.clear();
}

void PixelOutline::endContour() {
  const auto last = static_cast<int>(points.size()) - 1;
  if (last >= 0 && (contours.empty() || contours.back() != last)) {
    contours.push_back(static_cast<short>(last));
  }
}

std::int64_t crossedPixels(const PixelOutline& outline, const PixelBox& box) {
  const long top = box.top * kUnits;
  const long bottom = box.bottom * kUnits;
  std::int64_t units = 0;
  std::size_t first = 0;
  for (const short last : outline.contours) {
    const auto end = static_cast<std::size_t>(last) + 1;
    for (std::size_t i = first; i < end; ++i) {
      const Vector& a = outline.points[i];
      const Vector& b = outline.points[i + 1 < end ? i + 1 : first];
      const auto [low, high] = std::minmax(a.y, b.y);
      if (high < top || low > bottom) continue;
      units += std::abs(b.x - a.x) + high - low + kUnits;
    }
    first = end;
  }
  return units / kUnits;
}

std::int64_t fillingVisits(const PixelOutline& outline, const PixelBox& box, std::int64_t crossed) {
  constexpr std::int64_t kPixelsOfAPart = 256;
  const std::int64_t inARow = std::min<std::int64_t>(box.width(), crossed / box.height());
  const std::int64_t parts = 1 + std::min(crossed, box.area()) / kPixelsOfAPart;
  return crossed * (1 + inARow / 2) + static_cast<std::int64_t>(outline.points.size()) * parts;
}

bool clipOutline(const PixelOutline& outline, const PixelBox& box, PixelOutline& out) {
  const PixelBox around = grown(box, 1);
  out.clear();
  std::vector<Vector> rows;
  std::size_t first = 0;
  for (const short last : outline.contours) {
    const auto end = static_cast<std::size_t>(last) + 1;
    const auto contour = std::span(outline.points).subspan(first, end - first);
    rows.clear();
    clipContour(contour, &Vector::y, around.top * kUnits, around.bottom * kUnits, rows);
    clipContour(rows, &Vector::x, around.left * kUnits, around.right * kUnits, out.points);
    if (out.points.size() > kMostOutlinePoints) return false;
    out.endContour();
    first = end;
  }
  return true;
}

}  // namespace rendering
