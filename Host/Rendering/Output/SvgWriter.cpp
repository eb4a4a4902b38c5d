// Commands become elements; what is cut out later masks what was written before.
#include "Rendering/Output/SvgWriter.hpp"

#include <fmt/format.h>

#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <tuple>

#include "Rendering/Graphics/PainterPixels.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Recording/RecorderOpacity.hpp"

namespace rendering {

namespace {

std::string number(double v) {
  std::string text = fmt::format("{:.3f}", std::isfinite(v) ? v : 0);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string pathData(std::span<const PathVerb> verbs, std::span<const Point> points) {
  std::string d;
  std::size_t next = 0;
  const auto add = [&](char verb, int count) {
    d += verb;
    for (int i = 0; i < count; ++i, ++next) {
      if (i > 0) d += ' ';
      d += number(points[next].x) + ' ' + number(points[next].y);
    }
  };
  for (PathVerb verb : verbs) {
    switch (verb) {
      case PathVerb::move:
        add('M', 1);
        break;
      case PathVerb::line:
        add('L', 1);
        break;
      case PathVerb::cubic:
        add('C', 3);
        break;
      case PathVerb::close:
        add('Z', 0);
        break;
    }
  }
  return d;
}

std::string hex(const Rgba& c) {
  return fmt::format("#{:02X}{:02X}{:02X}", c.red, c.green, c.blue);
}

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '&') {
      out += "&amp;";
    } else if (c == '<') {
      out += "&lt;";
    } else if (c == '>') {
      out += "&gt;";
    } else if (static_cast<unsigned char>(c) >= ' ') {
      out += c;  // a control character has no form in XML
    }
  }
  return out;
}

std::string base64(const std::string& bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t value = 0;
    for (std::size_t j = 0; j < 3; ++j) {
      value = value << 8 | (i + j < bytes.size() ? static_cast<unsigned char>(bytes[i + j]) : 0u);
    }
    for (std::size_t j = 0; j < 4; ++j) {
      out += i + j <= bytes.size() ? kDigits[(value >> (18 - 6 * j)) & 63] : '=';
    }
  }
  return out;
}

class Writer {
 public:
  Writer(const DisplayList& list, const FontLibrary& fonts, const SvgNaming& naming)
      : list_(list), fonts_(fonts), naming_(naming) {}

  Drawn<std::string> write(double cornerRadius) {
    pieces_.resize(2);
    levels_.push_back({});
    const Rect all{0, 0, list_.size.width, list_.size.height};
    if (cornerRadius > 0) {
      Path path;
      appendRounded(path, all, cornerRadius, viewkit::CornerStyle::continuous);
      open(fmt::format("<g clip-path=\"url(#{})\">", clip(pathData(path.verbs, path.points))),
           true);
    }
    for (const DrawCommand& command : list_.commands) {
      std::visit([&](const auto& c) { put(c); }, command);
      if (written_ > limits::kSvgBytes) {
        return std::unexpected(
            fmt::format("the SVG would have more than {} bytes", limits::kSvgBytes));
      }
    }
    while (levels_.size() > 1) close();
    std::string out = fmt::format(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}\" height=\"{1}\" viewBox=\"0 0 {0} "
        "{1}\"{2}<defs>\n{3}</defs>\n",
        number(all.width),
        number(all.height),
        nameOfPicture(),
        definitions_);
    for (const std::string& piece : pieces_) out += piece;
    return out + "</svg>\n";
  }

 private:
  /// What is cut out later masks what a level holds so far, so that the places where such masks
  /// open and close are kept as pieces of their own.
  struct Level {
    std::size_t masks = 0;    ///< the piece before its content
    std::size_t endings = 0;  ///< the piece before its opening, of the level around it
    bool group = false;       ///< what is cut out inside does not reach beyond it
    bool empty = true;
    std::string clip;  ///< id of the clip path that it applies
  };

  void append(std::string_view text) {
    pieces_.back() += text;
    written_ += text.size();
  }

  /// The end of the opening tag and the title, which is what a screen reader says of the whole: the
  /// outlines inside say nothing.
  [[nodiscard]] std::string nameOfPicture() const {
    if (naming_.title.empty()) return ">\n";
    return fmt::format(
        " role=\"img\" aria-labelledby=\"{0}title\">\n<title id=\"{0}title\">{1}</title>\n",
        naming_.idPrefix,
        escaped(naming_.title));
  }

  void open(const std::string& element, bool group, std::string clipId = {}) {
    const std::size_t endings = pieces_.size();
    pieces_.resize(endings + 2);
    append(element + "\n");
    pieces_.resize(endings + 4);
    levels_.push_back({endings + 2, endings, group, true, std::move(clipId)});
  }
  void close() {
    levels_.pop_back();
    levels_.back().empty = false;
    append("</g>\n");
  }

  template <class... Args>
  void line(fmt::format_string<Args...> format, Args&&... args) {
    append(fmt::format(format, std::forward<Args>(args)...) + "\n");
    levels_.back().empty = false;
  }
  template <class... Args>
  void define(fmt::format_string<Args...> format, Args&&... args) {
    const std::size_t before = definitions_.size();
    fmt::format_to(std::back_inserter(definitions_), format, std::forward<Args>(args)...);
    definitions_ += '\n';
    written_ += definitions_.size() - before;
  }
  std::string newId(char kind) { return fmt::format("{}{}{}", naming_.idPrefix, kind, nextId_++); }

  std::string clip(const std::string& d) {
    const std::string id = newId('c');
    define("<clipPath id=\"{}\"><path d=\"{}\"/></clipPath>", id, d);
    return id;
  }

  [[nodiscard]] std::string data(const PathSlice& s) const {
    return pathData(std::span(list_.verbs).subspan(s.firstVerb, s.verbs),
                    std::span(list_.points).subspan(s.firstPoint, s.points));
  }

  /// Attributes that colour a filling or a line.
  std::string paint(const char* what, const Ink& ink) {
    std::string value = hex(ink.color);
    if (ink.gradient >= 0) {
      const GradientInk& g = list_.gradients[static_cast<std::size_t>(ink.gradient)];
      const std::string id = newId('g');
      std::string stops;
      for (const auto& stop : g.stops) {
        stops += fmt::format("<stop offset=\"{}\" stop-color=\"{}\" stop-opacity=\"{}\"/>",
                             number(stop.location),
                             hex(stop.color),
                             number(stop.color.alpha));
      }
      define(
          "<linearGradient id=\"{}\" gradientUnits=\"userSpaceOnUse\" x1=\"{}\" y1=\"{}\" "
          "x2=\"{}\" "
          "y2=\"{}\">{}</linearGradient>",
          id,
          number(g.start.x),
          number(g.start.y),
          number(g.end.x),
          number(g.end.y),
          stops);
      value = fmt::format("url(#{})", id);
    }
    std::string result = fmt::format("{}=\"{}\"", what, value);
    if (ink.color.alpha < 1) {
      result += fmt::format(" {}-opacity=\"{}\"", what, number(ink.color.alpha));
    }
    return result;
  }

  void put(const FillRect& c) {
    line("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" {}/>",
         number(c.rect.x),
         number(c.rect.y),
         number(c.rect.width),
         number(c.rect.height),
         paint("fill", c.ink));
  }
  void put(const FillPath& c) { line("<path d=\"{}\" {}/>", data(c.path), paint("fill", c.ink)); }
  void put(const StrokePath& c) {
    using viewkit::LineCap;
    using viewkit::LineJoin;
    line(
        "<path d=\"{}\" fill=\"none\" stroke-width=\"{}\" stroke-linecap=\"{}\" "
        "stroke-linejoin=\"{}\" "
        "stroke-miterlimit=\"10\" {}/>",
        data(c.path),
        number(c.width),
        c.cap == LineCap::round    ? "round"
        : c.cap == LineCap::square ? "square"
                                   : "butt",
        c.join == LineJoin::round   ? "round"
        : c.join == LineJoin::bevel ? "bevel"
                                    : "miter",
        paint("stroke", c.ink));
  }

  /// The outline in units of 1/1000 em, so that it can be used at every size.
  std::string outline(const LineGlyph& glyph) {
    std::string id = fmt::format("{}f{}-{}", naming_.idPrefix, glyph.font, glyph.glyph);
    if (outlined_.insert(id).second) {
      Path path;
      fonts_.byId(glyph.font).appendOutline(glyph.glyph, 1000, 0, 0, path);
      for (Point& p : path.points) p = {std::round(p.x), std::round(p.y)};
      define("<path id=\"{}\" d=\"{}\"/>", id, pathData(path.verbs, path.points));
    }
    return id;
  }

  void put(const DrawGlyphs& c) {
    // A gradient refers to the picture, not to the glyphs' own units.
    const bool plain = c.ink.gradient < 0;
    std::string uses;
    for (std::uint32_t i = c.first; i < c.first + c.count; ++i) {
      const LineGlyph& glyph = list_.glyphs[i];
      uses += fmt::format("<use href=\"#{}\" transform=\"translate({} {}) scale({})\"/>",
                          outline(glyph),
                          number(glyph.x),
                          number(glyph.y),
                          fmt::format("{:.6f}", c.size / 1000));
    }
    if (plain && (c.ink.color.alpha == 1 || !c.joined)) {
      line("<g {}>{}</g>", paint("fill", c.ink), uses);
    } else if (plain) {
      Ink full = c.ink;
      full.color.alpha = 1;
      line("<g opacity=\"{}\" {}>{}</g>", number(c.ink.color.alpha), paint("fill", full), uses);
    } else {
      masked(uses, c.bounds, c.ink);
    }
  }

  /// A rectangle in the ink, seen through what is white in `content`.
  void masked(const std::string& content, const Rect& bounds, const Ink& ink) {
    const std::string id = newId('m');
    define(
        "<mask id=\"{}\" maskUnits=\"userSpaceOnUse\" x=\"{}\" y=\"{}\" width=\"{}\" "
        "height=\"{}\"><g "
        "fill=\"#FFFFFF\">{}</g></mask>",
        id,
        number(bounds.x),
        number(bounds.y),
        number(bounds.width),
        number(bounds.height),
        content);
    line("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" mask=\"url(#{})\" {}/>",
         number(bounds.x),
         number(bounds.y),
         number(bounds.width),
         number(bounds.height),
         id,
         paint("fill", ink));
  }

  void put(const DrawSymbol& c) {
    std::string content;
    bool erases = false;
    for (const SymbolLayer& layer : c.drawing->layers) {
      Path path = layer.path;
      for (Point& p : path.points) {
        p = {c.center.x + (c.mirrored ? -p.x : p.x) * c.size, c.center.y + p.y * c.size};
      }
      erases = erases || layer.erases;
      const char* color = layer.erases ? "#000000" : "#FFFFFF";
      content += fmt::format("<path d=\"{}\" fill=\"{}\"",
                             pathData(path.verbs, path.points),
                             layer.fills ? color : "none");
      if (layer.evenOdd) content += " fill-rule=\"evenodd\"";
      if (layer.stroke > 0) {
        content += fmt::format(
            " stroke=\"{}\" stroke-width=\"{}\" stroke-linejoin=\"round\" stroke-linecap=\"round\"",
            color,
            number(layer.stroke * c.size));
      }
      content += "/>";
    }
    const bool simple = !erases && c.drawing->layers.size() == 1 && c.ink.gradient < 0 &&
                        c.drawing->layers[0].stroke == 0;
    if (!simple) return masked(content, c.bounds, c.ink);
    const std::string white = " fill=\"#FFFFFF\"";
    content.replace(content.find(white), white.size(), ' ' + paint("fill", c.ink));
    line("{}", content);
  }

  /// Everything that is in front of the picture's own pixels is said of the group, so that the
  /// next drawing of the same picture can use the element.
  void put(const DrawImage& c) {
    const std::string clipId = clip(fmt::format("M{} {}H{}V{}H{}Z",
                                                number(c.bounds.x),
                                                number(c.bounds.y),
                                                number(c.bounds.right()),
                                                number(c.bounds.bottom()),
                                                number(c.bounds.x)));
    const bool isTinted = c.colors == DrawImage::Colors::tinted;
    const std::uint32_t tint = isTinted ? premultiply(c.tint) : 0;
    const DecodedImage& image = *list_.images[c.image];
    auto [first, isNew] = imageUses_.try_emplace({&image, isTinted, tint});
    if (isNew) first->second = {newId('i'), c.target};
    line("<g clip-path=\"url(#{})\" opacity=\"{}\"{}>{}</g>",
         clipId,
         number(c.opacity),
         c.colors == DrawImage::Colors::grey ? " style=\"filter:grayscale(1)\"" : "",
         isNew ? embedded(image, isTinted, tint, first->second)
               : usedAgain(first->second, c.target));
  }

  struct ImageUse {
    std::string id;
    Rect target;
  };

  static std::string embedded(const DecodedImage& image,
                              bool isTinted,
                              std::uint32_t tint,
                              const ImageUse& use) {
    Bitmap bitmap{image.width, image.height, image.width, image.pixels};
    for (std::uint32_t& pixel : bitmap.pixels) {
      if (isTinted) pixel = scalePixel(tint, pixel >> 24);
    }
    return fmt::format(
        "<image id=\"{}\" x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" "
        "preserveAspectRatio=\"none\" href=\"data:image/png;base64,{}\"/>",
        use.id,
        number(use.target.x),
        number(use.target.y),
        number(use.target.width),
        number(use.target.height),
        base64(encodePng(bitmap)));
  }

  static std::string usedAgain(const ImageUse& first, const Rect& target) {
    const double width = target.width / first.target.width;
    const double height = target.height / first.target.height;
    return fmt::format("<use href=\"#{}\" transform=\"matrix({} 0 0 {} {} {})\"/>",
                       first.id,
                       number(width),
                       number(height),
                       number(target.x - first.target.x * width),
                       number(target.y - first.target.y * height));
  }

  std::string blurFilter(double deviation, const Rect& b) {
    const double room = 3 * deviation + 1;
    const std::string id = newId('b');
    define(
        "<filter id=\"{}\" filterUnits=\"userSpaceOnUse\" x=\"{}\" y=\"{}\" width=\"{}\" "
        "height=\"{}\">"
        "<feGaussianBlur stdDeviation=\"{}\"/></filter>",
        id,
        number(b.x - room),
        number(b.y - room),
        number(b.width + 2 * room),
        number(b.height + 2 * room),
        number(deviation));
    return id;
  }

  void put(const DrawShadow& c) {
    line("<path d=\"{}\" transform=\"translate({} {})\" filter=\"url(#{})\" {}/>",
         data(c.path),
         number(c.offset.x),
         number(c.offset.y),
         blurFilter(c.deviation, c.bounds),
         paint("fill", {c.color}));
  }

  /// The filter lays the content over its own silhouette.
  void put(const BeginShadow& c) {
    const double room = 3 * c.deviation + 1;
    const Rect blurred{c.bounds.x + c.offset.x - room,
                       c.bounds.y + c.offset.y - room,
                       c.bounds.width + 2 * room,
                       c.bounds.height + 2 * room};
    const Rect region = unite(c.bounds, blurred);
    const std::string id = newId('b');
    define(
        "<filter id=\"{}\" filterUnits=\"userSpaceOnUse\" x=\"{}\" y=\"{}\" width=\"{}\" "
        "height=\"{}\" color-interpolation-filters=\"sRGB\">"
        "<feGaussianBlur in=\"SourceAlpha\" stdDeviation=\"{}\"/>"
        "<feOffset dx=\"{}\" dy=\"{}\" result=\"s\"/>"
        "<feFlood flood-color=\"{}\" flood-opacity=\"{}\"/>"
        "<feComposite in2=\"s\" operator=\"in\"/>"
        "<feMerge><feMergeNode/><feMergeNode in=\"SourceGraphic\"/></feMerge></filter>",
        id,
        number(region.x),
        number(region.y),
        number(region.width),
        number(region.height),
        number(c.deviation),
        number(c.offset.x),
        number(c.offset.y),
        hex(c.color),
        number(c.color.alpha));
    open(fmt::format("<g filter=\"url(#{})\">", id), false);
  }
  void put(const EndShadow&) { close(); }

  void put(const BeginClip& c) {
    std::string id = clip(data(c.path));
    const std::string element = fmt::format("<g clip-path=\"url(#{})\">", id);
    open(element, false, std::move(id));
  }
  void put(const EndClip&) { close(); }
  void put(const BeginGroup& c) {
    open(c.opacity == 1 ? "<g>" : fmt::format("<g opacity=\"{}\">", number(c.opacity)), true);
  }
  void put(const EndGroup&) { close(); }

  /// Everything that stands so far, out to the surrounding group, is put behind a mask with a hole.
  void put(const ErasePath& c) {
    const std::string id = newId('m');
    std::string hole = fmt::format("<path d=\"{}\"/>", data(c.path));
    for (std::size_t i = levels_.size(); i-- > 0;) {
      Level& level = levels_[i];
      if (!level.clip.empty())
        hole = fmt::format("<g clip-path=\"url(#{})\">{}</g>", level.clip, hole);
      if (level.group) break;
    }
    define(
        "<mask id=\"{0}\" maskUnits=\"userSpaceOnUse\" x=\"0\" y=\"0\" width=\"{1}\" "
        "height=\"{2}\"><rect width=\"{1}\" height=\"{2}\" fill=\"#FFFFFF\"/>{3}</mask>",
        id,
        number(list_.size.width),
        number(list_.size.height),
        hole);
    const std::string mask = fmt::format("<g mask=\"url(#{})\">\n", id);
    std::size_t end = pieces_.size() - 1;
    for (std::size_t i = levels_.size(); i-- > 0;) {
      const Level& level = levels_[i];
      if (!level.empty) {
        pieces_[level.masks].insert(0, mask);
        pieces_[end] += "</g>\n";
        written_ += mask.size() + 5;
      }
      if (level.group) break;
      end = level.endings;
    }
  }

  const DisplayList& list_;
  const FontLibrary& fonts_;
  const SvgNaming& naming_;
  std::vector<Level> levels_;
  std::vector<std::string> pieces_;
  std::string definitions_;
  std::size_t written_ = 0;
  std::map<std::tuple<const DecodedImage*, bool, std::uint32_t>, ImageUse> imageUses_;
  std::set<std::string> outlined_;
  int nextId_ = 0;
};

}  // namespace

Drawn<std::string> writeSvg(const DisplayList& list,
                            double cornerRadius,
                            const FontLibrary& fonts,
                            const SvgNaming& naming) {
  return Writer(list, fonts, naming).write(cornerRadius);
}

}  // namespace rendering
