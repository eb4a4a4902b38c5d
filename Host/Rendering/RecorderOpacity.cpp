// Overlap tests on recorded commands.
#include "Rendering/RecorderOpacity.hpp"

#include <algorithm>

namespace rendering {

namespace {

constexpr std::size_t kMostCompared = 16;

bool overlap(const Rect& a, const Rect& b) {
  return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

bool endsSomething(const DrawCommand& c) {
  return std::holds_alternative<EndClip>(c) || std::holds_alternative<EndGroup>(c);
}

/// Commands whose colour alone carries their opacity.
bool isPlain(const DrawCommand& c) {
  return std::holds_alternative<FillRect>(c) || std::holds_alternative<FillPath>(c) ||
         std::holds_alternative<StrokePath>(c) || std::holds_alternative<DrawGlyphs>(c) ||
         std::holds_alternative<DrawSymbol>(c) || std::holds_alternative<DrawImage>(c);
}

bool canFold(const DrawList& list, std::size_t first) {
  const std::size_t count = list.commands.size() - first;
  if (count > kMostCompared) return false;
  for (std::size_t i = first; i < list.commands.size(); ++i) {
    const DrawCommand& a = list.commands[i];
    if (std::holds_alternative<BeginClip>(a) || std::holds_alternative<EndClip>(a)) continue;
    if (!isPlain(a)) return false;
    for (std::size_t j = first; j < i; ++j) {
      const DrawCommand& b = list.commands[j];
      if (isPlain(b) && overlap(boundsOf(a), boundsOf(b))) return false;
    }
  }
  return true;
}

bool isOpaque(const DrawList& list, const Ink& ink) {
  if (ink.color.alpha < 1) return false;
  if (ink.gradient < 0) return true;
  return std::ranges::all_of(list.gradients[static_cast<std::size_t>(ink.gradient)].stops,
                             [](const auto& stop) { return stop.color.alpha == 1; });
}

bool samePath(const DrawList& list, const PathSlice& a, const PathSlice& b) {
  const auto same = [](const auto& all, std::uint32_t i, std::uint32_t j, std::uint32_t count) {
    return std::equal(all.begin() + i, all.begin() + i + count, all.begin() + j);
  };
  return a.verbs == b.verbs && a.points == b.points &&
         same(list.verbs, a.firstVerb, b.firstVerb, a.verbs) &&
         same(list.points, a.firstPoint, b.firstPoint, a.points);
}

/// Whether one of the commands fills the clip completely.
bool covers(const DrawList& list, std::size_t from, std::size_t to, const BeginClip& clip) {
  for (std::size_t i = from; i < to; ++i) {
    const DrawCommand& c = list.commands[i];
    if (std::holds_alternative<BeginGroup>(c) || std::holds_alternative<BeginClip>(c)) return false;
    if (const auto* rect = std::get_if<FillRect>(&c)) {
      if (isOpaque(list, rect->ink) && contains(rect->rect, clip.bounds)) return true;
    } else if (const auto* fill = std::get_if<FillPath>(&c)) {
      if (isOpaque(list, fill->ink) && samePath(list, fill->path, clip.path)) return true;
    } else if (const auto* image = std::get_if<DrawImage>(&c)) {
      const bool solid = list.images[image->image]->opaque && image->opacity == 1 &&
                         image->colors != DrawImage::Colors::tinted;
      if (solid && contains(image->bounds, clip.bounds)) return true;
    }
  }
  return false;
}

/// One past the end of the clip that begins there.
std::size_t clipEnd(const DrawList& list, std::size_t begin) {
  int depth = 0;
  std::size_t i = begin;
  do {
    if (std::holds_alternative<BeginClip>(list.commands[i])) ++depth;
    if (std::holds_alternative<EndClip>(list.commands[i])) --depth;
    ++i;
  } while (depth > 0);
  return i;
}

/// Whether the commands from there on fill that path and do nothing else.
bool fillOnly(const DrawList& list, std::size_t from, const PathSlice& path) {
  return std::all_of(list.commands.begin() + static_cast<std::ptrdiff_t>(from),
                     list.commands.end(),
                     [&](const DrawCommand& command) {
                       const auto* fill = std::get_if<FillPath>(&command);
                       return fill && samePath(list, fill->path, path);
                     });
}

}  // namespace

bool contains(const Rect& outer, const Rect& inner) {
  constexpr double kSlack = 1e-6;
  return inner.x >= outer.x - kSlack && inner.y >= outer.y - kSlack &&
         inner.right() <= outer.right() + kSlack && inner.bottom() <= outer.bottom() + kSlack;
}

Rect unite(const Rect& a, const Rect& b) {
  const double x = std::min(a.x, b.x);
  const double y = std::min(a.y, b.y);
  return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

Rect intersect(const Rect& a, const Rect& b) {
  const double x = std::max(a.x, b.x);
  const double y = std::max(a.y, b.y);
  return {x,
          y,
          std::max(0.0, std::min(a.right(), b.right()) - x),
          std::max(0.0, std::min(a.bottom(), b.bottom()) - y)};
}

Rect boundsFrom(const DrawList& list, std::size_t first) {
  Rect result;
  bool any = false;
  for (std::size_t i = first; i < list.commands.size(); ++i) {
    const DrawCommand& command = list.commands[i];
    if (endsSomething(command)) continue;
    Rect b = boundsOf(command);
    double deviation = 0;
    Point offset;
    if (const auto* shadow = std::get_if<DrawShadow>(&command)) {
      deviation = shadow->deviation;
      offset = shadow->offset;
    } else if (const auto* content = std::get_if<DrawContentShadow>(&command)) {
      deviation = content->deviation;
      offset = content->offset;
    }
    const double reach = 3 * deviation;
    b = {b.x + offset.x - reach, b.y + offset.y - reach, b.width + 2 * reach, b.height + 2 * reach};
    result = any ? unite(result, b) : b;
    any = true;
  }
  return result;
}

void applyOpacity(DrawList& list, std::size_t first, double opacity) {
  const auto factor = static_cast<float>(std::clamp(opacity, 0.0, 1.0));
  if (factor == 1 || first == list.commands.size()) return;
  if (factor == 0) {
    list.commands.resize(first);
    return;
  }
  if (canFold(list, first)) {
    for (std::size_t i = first; i < list.commands.size(); ++i) {
      std::visit(
          [&](auto& c) {
            if constexpr (requires { c.ink; }) c.ink.color.alpha *= factor;
            if constexpr (requires { c.opacity; }) c.opacity *= factor;
          },
          list.commands[i]);
    }
    return;
  }
  const Rect bounds = boundsFrom(list, first);
  list.commands.insert(list.commands.begin() + static_cast<std::ptrdiff_t>(first),
                       BeginGroup{factor, bounds});
  list.commands.emplace_back(EndGroup{});
}

std::optional<FillPath> silhouetteFrom(DrawList& list, std::size_t first) {
  if (first == list.commands.size()) return std::nullopt;
  std::optional<FillPath> base;
  std::size_t rest = first + 1;
  bool isRectangle = false;
  if (const auto* clip = std::get_if<BeginClip>(&list.commands[first])) {
    rest = clipEnd(list, first);
    if (covers(list, first + 1, rest, *clip)) base = FillPath{clip->path, clip->bounds, {}};
  } else if (const auto* fill = std::get_if<FillPath>(&list.commands[first])) {
    if (isOpaque(list, fill->ink)) base = *fill;
  } else if (const auto* rect = std::get_if<FillRect>(&list.commands[first])) {
    isRectangle = true;
    if (isOpaque(list, rect->ink)) {
      Path path;
      appendRectangle(path, rect->rect);
      base = FillPath{list.add(path), rect->rect, rect->ink};
    }
  }
  if (!base || rest == list.commands.size()) return base;
  const bool staysWithin = isRectangle ? contains(base->bounds, boundsFrom(list, rest))
                                       : fillOnly(list, rest, base->path);
  return staysWithin ? base : std::nullopt;
}

}  // namespace rendering
