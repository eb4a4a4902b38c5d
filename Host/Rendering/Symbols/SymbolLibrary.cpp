// Composing a symbol: icon, container, badge, weight.
#include "Rendering/Symbols/SymbolLibrary.hpp"

#include <algorithm>
#include <array>

#include "Rendering/Symbols/SymbolData.hpp"

namespace rendering {

namespace {

using viewkit::FontWeight;

// Proportions to the font size.
constexpr double kBootstrapBox = 1.15;
constexpr double kMaterialBox = 1.35;
constexpr double kContainer = 1.24;  ///< a container's width
constexpr double kContained = 0.58;  ///< an icon's scale in a container, and a badge's
constexpr double kBadgeX = 0.42;
constexpr double kBadgeY = 0.36;
constexpr double kBadgeGap = 0.075;     ///< the ring cut out around a badge
constexpr double kSquareCorner = 0.25;  ///< of a container's width
constexpr double kLetterSize = 0.82;
constexpr double kTwoLetterSize = 0.66;
constexpr double kCapHeight = 0.727;

/// Added around a line icon's outline, in units of its 16-unit box.
constexpr std::array<double, 5> kStroke{0, 0.25, 0.45, 0.65, 0.8};

class OutlineReader {
 public:
  explicit OutlineReader(const char* at) : at_(at) {}

  std::vector<SymbolLayer> read() {
    enum Op { end, nonZero, evenOdd, move, line, cubic, close };
    std::vector<SymbolLayer> layers;
    for (int op = byte(); op != end; op = byte()) {
      switch (op) {
        case nonZero:
          layers.emplace_back();
          break;
        case evenOdd:
          layers.emplace_back().fillRule = FillRule::evenOdd;
          break;
        case move:
          layers.back().path.moveTo(point());
          break;
        case line:
          layers.back().path.lineTo(point());
          break;
        case cubic: {
          const Point a = point();
          const Point b = point();
          layers.back().path.cubicTo(a, b, point());
          break;
        }
        case close:
          layers.back().path.close();
          break;
        default:
          return layers;
      }
    }
    return layers;
  }

 private:
  unsigned char byte() { return static_cast<unsigned char>(*at_++); }
  int number() {
    unsigned value = 0;
    for (unsigned shift = 0;; shift += 7) {
      const unsigned part = byte();
      value |= (part & 0x7F) << shift;
      if (part < 0x80) break;
    }
    const int half = static_cast<int>(value >> 1);
    return (value & 1) != 0 ? ~half : half;
  }
  Point point() {
    x_ += number();
    y_ += number();
    return {x_ / 128.0 - 8, y_ / 128.0 - 8};
  }

  const char* at_;
  int x_ = 0;
  int y_ = 0;
};

void transform(Path& path, double scale, double dx, double dy) {
  for (Point& p : path.points) p = {p.x * scale + dx, p.y * scale + dy};
}

/// An icon's layers at `scale` times its usual size, moved to (x, y).
std::vector<SymbolLayer> placedIcon(int icon, FontWeight weight, double scale, double x, double y) {
  const symboldata::IconRow& row = symboldata::kIcons[icon];
  const double unit = (row.material ? kMaterialBox : kBootstrapBox) / 16 * scale;
  std::vector<SymbolLayer> layers = iconLayers(icon);
  for (SymbolLayer& layer : layers) {
    transform(layer.path, unit, x, y);
    if (!row.filled) layer.stroke = kStroke[static_cast<std::size_t>(weight)] * unit;
  }
  return layers;
}

std::vector<SymbolLayer> letterLayers(FontLibrary& fonts, const std::string& letters) {
  SymbolLayer layer;
  const Font* font = fonts.font(FontFamily::latin, FontWeight::bold);
  if (!font) return {};
  const double size = letters.size() > 1 ? kTwoLetterSize : kLetterSize;
  double x = 0;
  for (char c : letters) {
    const std::uint32_t glyph = font->glyph(static_cast<unsigned char>(c));
    Path outline;
    font->appendOutline(glyph, size, 0, 0, outline);
    const Rect ink = outline.bounds();
    // Set by the ink with a little air between, so that the pair is centred to the eye.
    transform(outline, 1, x - ink.x, 0);
    x += ink.width + 0.06 * size;
    layer.path.verbs.insert(layer.path.verbs.end(), outline.verbs.begin(), outline.verbs.end());
    layer.path.points.insert(layer.path.points.end(), outline.points.begin(), outline.points.end());
  }
  transform(layer.path, 1, -(x - 0.06 * size) / 2, kCapHeight / 2 * size);
  return {layer};
}

SymbolLayer containerLayer(SymbolContainer container, FontWeight weight) {
  const bool square =
      container == SymbolContainer::square || container == SymbolContainer::solidSquare;
  SymbolLayer layer;
  layer.fills =
      container == SymbolContainer::solidCircle || container == SymbolContainer::solidSquare;
  if (!layer.fills) {
    layer.stroke = (1 + kStroke[static_cast<std::size_t>(weight)]) / 16 * kBootstrapBox;
  }
  const double side = kContainer - layer.stroke;
  appendRounded(layer.path,
                {-side / 2, -side / 2, side, side},
                square ? kSquareCorner * side : side / 2,
                viewkit::CornerStyle::circular);
  return layer;
}

void append(std::vector<SymbolLayer>& to, std::vector<SymbolLayer> layers, bool erases = false) {
  for (SymbolLayer& layer : layers) {
    layer.erases = erases;
    to.push_back(std::move(layer));
  }
}

std::vector<SymbolLayer> compose(FontLibrary& fonts,
                                 const SymbolRecipe& recipe,
                                 FontWeight weight) {
  std::vector<SymbolLayer> layers;
  const bool contained = recipe.container != SymbolContainer::none;
  if (contained) layers.push_back(containerLayer(recipe.container, weight));
  const bool cutsOut = contained && layers.front().fills;
  append(layers,
         recipe.icon >= 0 ? placedIcon(recipe.icon, weight, contained ? kContained : 1, 0, 0)
                          : letterLayers(fonts, recipe.letters),
         cutsOut);
  if (recipe.badge >= 0) {
    SymbolLayer ring;
    appendCircle(ring.path, {kBadgeX, kBadgeY}, kBootstrapBox / 2 * kContained + kBadgeGap);
    append(layers, {ring}, /*erases=*/true);
    append(layers, placedIcon(recipe.badge, weight, kContained, kBadgeX, kBadgeY));
  }
  return layers;
}

Rect inkBounds(const std::vector<SymbolLayer>& layers) {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  bool first = true;
  for (const SymbolLayer& layer : layers) {
    if (layer.erases) continue;
    const Rect b = layer.path.bounds();
    const double s = layer.stroke / 2;
    left = first ? b.x - s : std::min(left, b.x - s);
    top = first ? b.y - s : std::min(top, b.y - s);
    right = first ? b.right() + s : std::max(right, b.right() + s);
    bottom = first ? b.bottom() + s : std::max(bottom, b.bottom() + s);
    first = false;
  }
  return {left, top, right - left, bottom - top};
}

}  // namespace

std::vector<SymbolLayer> iconLayers(int icon) {
  if (icon < 0 || static_cast<unsigned>(icon) >= symboldata::kIconCount) return {};
  return OutlineReader(symboldata::kOutlines + symboldata::kIcons[icon].offset).read();
}

const SymbolDrawing& SymbolLibrary::drawing(std::string_view name,
                                            std::string_view fallback,
                                            FontWeight weight) {
  key_.assign(1, static_cast<char>('0' + static_cast<int>(weight)));
  key_ += name;
  key_ += '\n';
  key_ += fallback;
  auto& drawing = drawings_[key_];
  if (!drawing) {
    drawing = std::make_unique<SymbolDrawing>();
    drawing->id = nextId_++;
    drawing->name = name;
    drawing->layers = compose(fonts_, resolveSymbol(name, fallback), weight);
    drawing->bounds = inkBounds(drawing->layers);
  }
  return *drawing;
}

void SymbolLibrary::trim() {
  if (drawings_.size() > 512) drawings_.clear();
}

}  // namespace rendering
