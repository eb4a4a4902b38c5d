// Storage and text form of display lists.
#include "Rendering/Recording/DisplayList.hpp"

#include <fmt/format.h>

#include <iterator>

#include "Foundation/Overloaded.hpp"

namespace rendering {

using foundation::OneOf;

namespace {

std::string text(const Rect& r) {
  return fmt::format("{:.2f},{:.2f} {:.2f}x{:.2f}", r.x, r.y, r.width, r.height);
}

std::string text(const Rgba& c) {
  const std::string rgb = fmt::format("#{:02X}{:02X}{:02X}", c.red, c.green, c.blue);
  return c.alpha == 1 ? rgb : fmt::format("{}@{:.2f}", rgb, c.alpha);
}

std::string text(const DisplayList& list, const Ink& ink) {
  if (ink.gradient < 0) return text(ink.color);
  const GradientInk& gradient = list.gradients[static_cast<std::size_t>(ink.gradient)];
  std::string result = fmt::format("gradient {:.2f},{:.2f} to {:.2f},{:.2f}",
                                   gradient.start.x,
                                   gradient.start.y,
                                   gradient.end.x,
                                   gradient.end.y);
  for (const auto& stop : gradient.stops) {
    result += fmt::format(" {:.2f}:{}", stop.location, text(stop.color));
  }
  return ink.color.alpha == 1 ? result : fmt::format("{} @{:.2f}", result, ink.color.alpha);
}

struct Describer {
  const DisplayList& list;
  std::string out{};
  int depth = 0;

  template <class... Args>
  void line(fmt::format_string<Args...> format, Args&&... args) {
    out.append(static_cast<std::size_t>(depth) * 2, ' ');
    fmt::format_to(std::back_inserter(out), format, std::forward<Args>(args)...);
    out += '\n';
  }

  void operator()(const FillRect& c) { line("rect {} {}", text(c.rect), text(list, c.ink)); }
  void operator()(const FillPath& c) { line("fill {} {}", text(c.bounds), text(list, c.ink)); }
  void operator()(const StrokePath& c) {
    line("stroke {} {:.2f} {}", text(c.bounds), c.width, text(list, c.ink));
  }
  void operator()(const DrawGlyphs& c) {
    line("glyphs {} size {:.2f} {} {}", c.count, c.size, text(c.bounds), text(list, c.ink));
  }
  void operator()(const DrawSymbol& c) {
    line("symbol {} at {:.2f},{:.2f} size {:.2f}{} {}",
         c.drawing->name,
         c.center.x,
         c.center.y,
         c.size,
         c.mirrored ? " mirrored" : "",
         text(list, c.ink));
  }
  void operator()(const DrawImage& c) {
    line("image {} in {} @{:.2f}", text(c.target), text(c.bounds), c.opacity);
  }
  void operator()(const DrawShadow& c) {
    line("shadow {} blur {:.2f} by {:.2f},{:.2f} {}",
         text(c.bounds),
         c.deviation,
         c.offset.x,
         c.offset.y,
         text(c.color));
  }
  void operator()(const BeginShadow& c) {
    line("shadow of {} blur {:.2f} by {:.2f},{:.2f} {}",
         c.count,
         c.deviation,
         c.offset.x,
         c.offset.y,
         text(c.color));
    ++depth;
  }
  void operator()(const EndShadow&) { --depth; }
  void operator()(const BeginClip& c) {
    line("clip {}", text(c.bounds));
    ++depth;
  }
  void operator()(const EndClip&) { --depth; }
  void operator()(const BeginGroup& c) {
    line("group @{:.2f}", c.opacity);
    ++depth;
  }
  void operator()(const EndGroup&) { --depth; }
  void operator()(const ErasePath& c) { line("erase {}", text(c.bounds)); }
};

}  // namespace

void DisplayList::clear() {
  commands.clear();
  verbs.clear();
  points.clear();
  glyphs.clear();
  gradients.clear();
  images.clear();
}

PathSlice DisplayList::add(const Path& path) {
  const PathSlice slice{static_cast<std::uint32_t>(verbs.size()),
                        static_cast<std::uint32_t>(path.verbs.size()),
                        static_cast<std::uint32_t>(points.size()),
                        static_cast<std::uint32_t>(path.points.size())};
  verbs.insert(verbs.end(), path.verbs.begin(), path.verbs.end());
  points.insert(points.end(), path.points.begin(), path.points.end());
  return slice;
}

Rect boundsOf(const DrawCommand& command) {
  return std::visit(
      foundation::Overloaded{[](const FillRect& c) { return c.rect; },
                             [](const OneOf<EndShadow, EndClip, EndGroup> auto&) { return Rect{}; },
                             [](const auto& c) { return c.bounds; }},
      command);
}

std::string describe(const DisplayList& list) {
  Describer describer{list};
  for (const DrawCommand& command : list.commands) std::visit(describer, command);
  return std::move(describer.out);
}

}  // namespace rendering
