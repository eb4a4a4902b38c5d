// Overlap tests on recorded commands.
#include "Rendering/Recording/RecorderOpacity.hpp"

#include <algorithm>
#include <variant>

#include "Foundation/Overloaded.hpp"
#include "Rendering/Graphics/Rectangles.hpp"

namespace rendering {

namespace {

using foundation::OneOf;
using foundation::Overloaded;

constexpr std::size_t kMostCompared = 16;

bool overlap(const Rect& a, const Rect& b) {
  return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

bool endsSomething(const DrawCommand& c) {
  return std::holds_alternative<EndClip>(c) || std::holds_alternative<EndGroup>(c) ||
         std::holds_alternative<EndShadow>(c);
}

/// How many of the commands that follow lie within the bounds of this one.
std::size_t countInside(const DrawCommand& command) {
  return std::visit(
      Overloaded{[](const OneOf<BeginShadow, BeginClip, BeginGroup> auto& begin) -> std::size_t {
                   return begin.count;
                 },
                 [](const OneOf<FillRect,
                                FillPath,
                                StrokePath,
                                DrawGlyphs,
                                DrawSymbol,
                                DrawImage,
                                DrawShadow,
                                EndShadow,
                                EndClip,
                                EndGroup,
                                ErasePath> auto&) -> std::size_t { return 0; }},
      command);
}

/// What the command and those inside it may touch.
Rect touchedBy(const DrawCommand& command) {
  const Rect bounds = boundsOf(command);
  const auto blurred = [&](const auto& shadow) -> Rect {
    const double reach = 3 * shadow.deviation;
    return {bounds.x + shadow.offset.x - reach,
            bounds.y + shadow.offset.y - reach,
            bounds.width + 2 * reach,
            bounds.height + 2 * reach};
  };
  if (const auto* shadow = std::get_if<DrawShadow>(&command)) return blurred(*shadow);
  const auto* shadow = std::get_if<BeginShadow>(&command);
  return shadow ? unite(bounds, blurred(*shadow)) : bounds;
}

/// Commands whose colour alone carries their opacity.
bool isPlain(const DrawCommand& c) {
  return std::holds_alternative<FillRect>(c) || std::holds_alternative<FillPath>(c) ||
         std::holds_alternative<StrokePath>(c) || std::holds_alternative<DrawGlyphs>(c) ||
         std::holds_alternative<DrawSymbol>(c) || std::holds_alternative<DrawImage>(c);
}

bool canFold(const DisplayList& list, std::size_t first) {
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

bool isOpaque(const DisplayList& list, const Ink& ink) {
  if (ink.color.alpha < 1) return false;
  if (ink.gradient < 0) return true;
  return std::ranges::all_of(list.gradients[static_cast<std::size_t>(ink.gradient)].stops,
                             [](const auto& stop) { return stop.color.alpha == 1; });
}

bool samePath(const DisplayList& list, const PathSlice& a, const PathSlice& b) {
  const auto same = [](const auto& all, std::uint32_t i, std::uint32_t j, std::uint32_t count) {
    return std::equal(all.begin() + i, all.begin() + i + count, all.begin() + j);
  };
  return a.verbs == b.verbs && a.points == b.points &&
         same(list.verbs, a.firstVerb, b.firstVerb, a.verbs) &&
         same(list.points, a.firstPoint, b.firstPoint, a.points);
}

/// Whether one of the commands fills the clip completely.
bool covers(const DisplayList& list, std::size_t from, std::size_t to, const BeginClip& clip) {
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

/// Whether the commands from there on fill that path and do nothing else.
bool fillOnly(const DisplayList& list, std::size_t from, const PathSlice& path) {
  return std::all_of(list.commands.begin() + static_cast<std::ptrdiff_t>(from),
                     list.commands.end(),
                     [&](const DrawCommand& command) {
                       const auto* fill = std::get_if<FillPath>(&command);
                       return fill && samePath(list, fill->path, path);
                     });
}

}  // namespace

Rect boundsFrom(const DisplayList& list, std::size_t first) {
  std::optional<Rect> result;
  for (std::size_t i = first; i < list.commands.size(); ++i) {
    const DrawCommand& command = list.commands[i];
    if (endsSomething(command)) continue;
    const Rect touched = touchedBy(command);
    result = result ? unite(*result, touched) : touched;
    i += countInside(command);
  }
  return result.value_or(Rect{});
}

void endOpacity(DisplayList& list, std::size_t begin) {
  const std::size_t first = begin + 1;
  if (first == list.commands.size()) return list.commands.pop_back();
  BeginGroup& group = std::get<BeginGroup>(list.commands[begin]);
  if (!canFold(list, first)) {
    group.count = static_cast<std::uint32_t>(list.commands.size() - first);
    group.bounds = boundsFrom(list, first);
    list.commands.emplace_back(EndGroup{});
    return;
  }
  const float factor = group.opacity;
  const Overloaded fade{
      [&](OneOf<FillRect, FillPath, StrokePath, DrawGlyphs, DrawSymbol> auto& drawn) {
        drawn.ink.color.alpha *= factor;
      },
      [&](DrawImage& image) { image.opacity *= factor; },
      [](OneOf<BeginClip, EndClip> auto& /*clip*/) {},
      // None of these is ever folded.
      [](OneOf<DrawShadow, BeginShadow, EndShadow, BeginGroup, EndGroup, ErasePath> auto&) {}};
  for (std::size_t i = first; i < list.commands.size(); ++i) std::visit(fade, list.commands[i]);
  list.commands.erase(list.commands.begin() + static_cast<std::ptrdiff_t>(begin));
}

std::optional<FillPath> silhouetteFrom(DisplayList& list, std::size_t first) {
  if (first == list.commands.size()) return std::nullopt;
  std::optional<FillPath> base;
  std::size_t rest = first + 1;
  bool isRectangle = false;
  if (const auto* clip = std::get_if<BeginClip>(&list.commands[first])) {
    rest = first + clip->count + 2;
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
