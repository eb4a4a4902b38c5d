// Pictures, scaled smoothly into their rectangle.
#include <algorithm>
#include <cmath>

#include "Rendering/Painting/Painter.hpp"
#include "Rendering/Recording/RecorderColors.hpp"

namespace rendering {

namespace {

std::uint32_t mix(std::uint32_t a, std::uint32_t b, std::uint32_t f) {
  return scalePixel(a, 255 - f) + scalePixel(b, f);
}

/// For each target pixel: the two source pixels around its middle and the second one's weight.
struct Tap {
  int first;
  int second;
  std::uint32_t weight;
  std::uint32_t coverage;  ///< of the pixel by the visible part
};

std::vector<Tap> taps(
    int from, int to, double target, double length, int source, double seenLow, double seenHigh) {
  std::vector<Tap> result;
  result.reserve(static_cast<std::size_t>(std::max(0, to - from)));
  for (int i = from; i < to; ++i) {
    // Far outside, or of no length at all, it is the first or last pixel.
    const double ideal = (i + 0.5 - target) / length * source - 0.5;
    const double at = std::isfinite(ideal) ? ideal : 0;
    const double low = std::floor(at);
    const int first = static_cast<int>(std::clamp(low, 0.0, source - 1.0));
    const int second = static_cast<int>(std::clamp(low + 1, 0.0, source - 1.0));
    const double part = std::clamp(
        std::min(seenHigh, i + 1.0) - std::max(seenLow, static_cast<double>(i)), 0.0, 1.0);
    result.push_back({first,
                      second,
                      static_cast<std::uint32_t>(std::lround((at - low) * 255)),
                      static_cast<std::uint32_t>(std::lround(part * 255))});
  }
  return result;
}

/// The same lightness without colour, of a premultiplied pixel.
std::uint32_t grey(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  if (alpha == 0) return 0;
  const auto channel = [&](int shift) {
    return static_cast<std::uint8_t>(std::min(255u, ((pixel >> shift) & 255) * 255 / alpha));
  };
  return scalePixel(premultiply(greyOf({channel(16), channel(8), channel(0), 1})), alpha);
}

std::uint32_t colored(const DrawImage& command, std::uint32_t tint, std::uint32_t pixel) {
  const auto ink = static_cast<std::uint32_t>(std::lround(DrawImage::kInk * 255));
  switch (command.colors) {
    case DrawImage::Colors::grey:
      return grey(pixel);
    case DrawImage::Colors::inked:
      return mix(grey(pixel), scalePixel(tint, pixel >> 24), ink);
    case DrawImage::Colors::tinted:
      return scalePixel(tint, pixel >> 24);
    case DrawImage::Colors::own:
      break;
  }
  return pixel;
}

}  // namespace

void Painter::draw(const DrawImage& command) {
  const DecodedImage& image = *list_->images[command.image];
  const PixelBox box = intersect(pixelBox(command.bounds, scale_), clipBox());
  if (image.width <= 0 || image.height <= 0 || !affords(box, limits::kImageVisits)) return;
  const Rect& t = command.target;
  const Rect& b = command.bounds;
  const auto across = taps(box.left,
                           box.right,
                           t.x * scale_,
                           t.width * scale_,
                           image.width,
                           b.x * scale_,
                           b.right() * scale_);
  const auto down = taps(box.top,
                         box.bottom,
                         t.y * scale_,
                         t.height * scale_,
                         image.height,
                         b.y * scale_,
                         b.bottom() * scale_);
  const auto opacity = static_cast<std::uint32_t>(std::lround(command.opacity * 255));
  const std::uint32_t tint = premultiply(command.tint);
  const CoverageMap* mask = maskFor(box);
  for (int y = box.top; y < box.bottom; ++y) {
    const Tap& v = down[static_cast<std::size_t>(y - box.top)];
    const std::uint32_t* upper =
        image.pixels.data() + static_cast<std::ptrdiff_t>(v.first) * image.width;
    const std::uint32_t* lower =
        image.pixels.data() + static_cast<std::ptrdiff_t>(v.second) * image.width;
    std::uint32_t* to = surface().row(y);
    const std::uint8_t* with = mask ? mask->row(y) : nullptr;
    for (int x = box.left; x < box.right; ++x) {
      const Tap& h = across[static_cast<std::size_t>(x - box.left)];
      const std::uint32_t pixel = colored(command,
                                          tint,
                                          mix(mix(upper[h.first], upper[h.second], h.weight),
                                              mix(lower[h.first], lower[h.second], h.weight),
                                              v.weight));
      std::uint32_t coverage = scaleByte(scaleByte(h.coverage, v.coverage), opacity);
      if (with) coverage = scaleByte(coverage, with[x]);
      to[x] = over(coverage == 255 ? pixel : scalePixel(pixel, coverage), to[x]);
    }
  }
}

}  // namespace rendering
