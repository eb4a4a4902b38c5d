// Commands become elements.
#include "Rendering/Output/SvgWriter.hpp"

#include <fmt/format.h>

#include <cmath>
#include <set>
#include <span>

#include "Rendering/Graphics/Rectangles.hpp"
#include "Rendering/Output/SvgDocument.hpp"
#include "Rendering/Output/SvgImages.hpp"
#include "Rendering/Output/SvgText.hpp"
#include "ViewKit/Names.hpp"

namespace rendering {

using svg::box;
using svg::hex;
using svg::number;
using svg::pathData;

namespace {

class Writer {
 public:
  Writer(const DisplayList& list, const FontLibrary& fonts, const SvgNaming& naming)
      : list_(list), fonts_(fonts), naming_(naming), document_(naming, list.size) {}

  Drawn<std::string> write(double cornerRadius) {
    if (cornerRadius > 0) {
      Path path;
      const Rect all{0, 0, list_.size.width, list_.size.height};
      appendRounded(path, all, cornerRadius, viewkit::CornerStyle::continuous);
      document_.openIsolated(
          fmt::format(R"svg(<g clip-path="url(#{})">)svg", document_.clip(pathData(path))));
    }
    for (const DrawCommand& command : list_.commands) {
      std::visit([&](const auto& c) { put(c); }, command);
      if (document_.length() > limits::kSvgBytes) {
        return std::unexpected(
            fmt::format("the SVG would have more than {} bytes", limits::kSvgBytes));
      }
    }
    return document_.finish();
  }

 private:
  template <class... Args>
  void line(fmt::format_string<Args...> format, Args&&... args) {
    document_.add(fmt::format(format, std::forward<Args>(args)...));
  }
  template <class... Args>
  void define(fmt::format_string<Args...> format, Args&&... args) {
    document_.define(fmt::format(format, std::forward<Args>(args)...));
  }
  std::string newId(char kind) { return document_.newId(kind); }

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
        stops += fmt::format(R"(<stop offset="{}" stop-color="{}" stop-opacity="{}"/>)",
                             number(stop.location),
                             hex(stop.color),
                             number(stop.color.alpha));
      }
      define(R"(<linearGradient id="{}" gradientUnits="userSpaceOnUse" x1="{}" y1="{}" )"
             R"(x2="{}" y2="{}">{}</linearGradient>)",
             id,
             number(g.start.x),
             number(g.start.y),
             number(g.end.x),
             number(g.end.y),
             stops);
      value = fmt::format("url(#{})", id);
    }
    std::string result = fmt::format(R"({}="{}")", what, value);
    if (ink.color.alpha < 1) {
      result += fmt::format(R"( {}-opacity="{}")", what, number(ink.color.alpha));
    }
    return result;
  }

  void put(const FillRect& c) { line("<rect {} {}/>", box(c.rect), paint("fill", c.ink)); }
  void put(const FillPath& c) { line(R"(<path d="{}" {}/>)", data(c.path), paint("fill", c.ink)); }
  // SVG has the same names for caps and joins.
  void put(const StrokePath& c) {
    line(R"(<path d="{}" fill="none" stroke-width="{}" stroke-linecap="{}" stroke-linejoin="{}" )"
         R"(stroke-miterlimit="10" {}/>)",
         data(c.path),
         number(c.width),
         foundation::nameOf(c.cap),
         foundation::nameOf(c.join),
         paint("stroke", c.ink));
  }

  /// The outline in units of 1/1000 em, so that it can be used at every size.
  std::string outline(const LineGlyph& glyph) {
    std::string id = fmt::format("{}f{}-{}", naming_.idPrefix, glyph.font, glyph.glyph);
    if (outlined_.insert(id).second) {
      Path path;
      fonts_.byId(glyph.font).appendOutline(glyph.glyph, 1000, 0, 0, path);
      for (Point& p : path.points) p = {std::round(p.x), std::round(p.y)};
      define(R"(<path id="{}" d="{}"/>)", id, pathData(path));
    }
    return id;
  }

  void put(const DrawGlyphs& c) {
    // A gradient refers to the picture, not to the glyphs' own units.
    const bool plain = c.ink.gradient < 0;
    std::string uses;
    for (std::uint32_t i = c.first; i < c.first + c.count; ++i) {
      const LineGlyph& glyph = list_.glyphs[i];
      uses += fmt::format(R"svg(<use href="#{}" transform="translate({} {}) scale({:.6f})"/>)svg",
                          outline(glyph),
                          number(glyph.x),
                          number(glyph.y),
                          c.size / 1000);
    }
    if (plain && (c.ink.color.alpha == 1 || !c.joined)) {
      line("<g {}>{}</g>", paint("fill", c.ink), uses);
    } else if (plain) {
      Ink full = c.ink;
      full.color.alpha = 1;
      line(R"(<g opacity="{}" {}>{}</g>)", number(c.ink.color.alpha), paint("fill", full), uses);
    } else {
      masked(uses, c.bounds, c.ink);
    }
  }

  /// A rectangle in the ink, seen through what is white in `content`.
  void masked(const std::string& content, const Rect& bounds, const Ink& ink) {
    const std::string id = newId('m');
    define(R"(<mask id="{}" maskUnits="userSpaceOnUse" {}><g fill="#FFFFFF">{}</g></mask>)",
           id,
           box(bounds),
           content);
    line(R"svg(<rect {} mask="url(#{})" {}/>)svg", box(bounds), id, paint("fill", ink));
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
      content +=
          fmt::format(R"(<path d="{}" fill="{}")", pathData(path), layer.fills ? color : "none");
      if (layer.fillRule == FillRule::evenOdd) content += R"( fill-rule="evenodd")";
      if (layer.stroke > 0) {
        content += fmt::format(
            R"( stroke="{}" stroke-width="{}" stroke-linejoin="round" stroke-linecap="round")",
            color,
            number(layer.stroke * c.size));
      }
      content += "/>";
    }
    const bool simple = !erases && c.drawing->layers.size() == 1 && c.ink.gradient < 0 &&
                        c.drawing->layers[0].stroke == 0;
    if (!simple) return masked(content, c.bounds, c.ink);
    const std::string white = R"( fill="#FFFFFF")";
    content.replace(content.find(white), white.size(), ' ' + paint("fill", c.ink));
    line("{}", content);
  }

  /// A picture's colours as a style; ink is black or white, the only colours of tinted texts.
  static std::string filterOf(const DrawImage& c) {
    if (c.colors == DrawImage::Colors::grey) return R"svg( style="filter:grayscale(1)")svg";
    if (c.colors != DrawImage::Colors::inked) return {};
    const std::string darker = fmt::format("brightness({})", number(1 - DrawImage::kInk));
    const bool isDark = c.tint.red < 128;
    return fmt::format(R"svg( style="filter:grayscale(1) {}")svg",
                       isDark ? darker : "invert(1) " + darker + " invert(1)");
  }

  /// Everything that is in front of the picture's own pixels is said of the group, so that the
  /// next drawing of the same picture can use the element.
  void put(const DrawImage& c) {
    const std::string clipId = document_.clip(fmt::format("M{} {}H{}V{}H{}Z",
                                                          number(c.bounds.x),
                                                          number(c.bounds.y),
                                                          number(c.bounds.right()),
                                                          number(c.bounds.bottom()),
                                                          number(c.bounds.x)));
    line(R"svg(<g clip-path="url(#{})" opacity="{}"{}>{}</g>)svg",
         clipId,
         number(c.opacity),
         filterOf(c),
         images_.element(*list_.images[c.image], c, document_));
  }

  /// How far a blur reaches beyond what it blurs.
  static Rect blurred(const Rect& bounds, double deviation, Point offset) {
    const double room = 3 * deviation + 1;
    return {bounds.x + offset.x - room,
            bounds.y + offset.y - room,
            bounds.width + 2 * room,
            bounds.height + 2 * room};
  }

  std::string blurFilter(double deviation, const Rect& bounds) {
    const std::string id = newId('b');
    define(R"(<filter id="{}" filterUnits="userSpaceOnUse" {}>)"
           R"(<feGaussianBlur stdDeviation="{}"/></filter>)",
           id,
           box(blurred(bounds, deviation, {})),
           number(deviation));
    return id;
  }

  void put(const DrawShadow& c) {
    line(R"svg(<path d="{}" transform="translate({} {})" filter="url(#{})" {}/>)svg",
         data(c.path),
         number(c.offset.x),
         number(c.offset.y),
         blurFilter(c.deviation, c.bounds),
         paint("fill", {c.color}));
  }

  /// The filter lays the content over its own silhouette.
  void put(const BeginShadow& c) {
    const Rect region = unite(c.bounds, blurred(c.bounds, c.deviation, c.offset));
    const std::string id = newId('b');
    define(R"(<filter id="{}" filterUnits="userSpaceOnUse" {} color-interpolation-filters="sRGB">)"
           R"(<feGaussianBlur in="SourceAlpha" stdDeviation="{}"/>)"
           R"(<feOffset dx="{}" dy="{}" result="s"/>)"
           R"(<feFlood flood-color="{}" flood-opacity="{}"/>)"
           R"(<feComposite in2="s" operator="in"/>)"
           R"(<feMerge><feMergeNode/><feMergeNode in="SourceGraphic"/></feMerge></filter>)",
           id,
           box(region),
           number(c.deviation),
           number(c.offset.x),
           number(c.offset.y),
           hex(c.color),
           number(c.color.alpha));
    document_.open(fmt::format(R"svg(<g filter="url(#{})">)svg", id));
  }
  void put(const EndShadow&) { document_.close(); }

  void put(const BeginClip& c) {
    std::string id = document_.clip(data(c.path));
    const std::string tag = fmt::format(R"svg(<g clip-path="url(#{})">)svg", id);
    document_.open(tag, std::move(id));
  }
  void put(const EndClip&) { document_.close(); }
  void put(const BeginGroup& c) {
    document_.openIsolated(c.opacity == 1 ? "<g>"
                                          : fmt::format(R"(<g opacity="{}">)", number(c.opacity)));
  }
  void put(const EndGroup&) { document_.close(); }
  void put(const ErasePath& c) { document_.cutOut(data(c.path)); }

  const DisplayList& list_;
  const FontLibrary& fonts_;
  const SvgNaming& naming_;
  SvgDocument document_;
  SvgImages images_;
  std::set<std::string> outlined_;
};

}  // namespace

Drawn<std::string> writeSvg(const DisplayList& list,
                            double cornerRadius,
                            const FontLibrary& fonts,
                            const SvgNaming& naming) {
  return Writer(list, fonts, naming).write(cornerRadius);
}

}  // namespace rendering
