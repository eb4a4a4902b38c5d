// Exact coverage of filled and stroked paths, span by span, by FreeType's rasteriser.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Rendering/Graphics/PainterPixels.hpp"
#include "Rendering/Graphics/ShapePath.hpp"
#include "Rendering/Painting/PainterOutline.hpp"

struct FT_LibraryRec_;
struct FT_StrokerRec_;
struct FT_Vector_;

namespace rendering {

/// Takes spans of equal coverage, each pixel once at most.
class SpanSink {
 public:
  virtual void span(int x, int y, int length, std::uint32_t coverage) = 0;

 protected:
  ~SpanSink() = default;
};

struct PathView {
  std::span<const PathVerb> verbs;
  std::span<const Point> points;
};

struct StrokeStyle {
  double width = 1;  ///< pixels
  viewkit::LineCap cap = viewkit::LineCap::butt;
  viewkit::LineJoin join = viewkit::LineJoin::miter;
};

/// Points to pixels.
struct PixelTransform {
  double scaleX = 1;
  double scaleY = 1;
  double x = 0;
  double y = 0;
};

class Rasterizer {
 public:
  explicit Rasterizer(FT_LibraryRec_* library) : library_(library) {}
  ~Rasterizer();
  Rasterizer(const Rasterizer&) = delete;
  Rasterizer& operator=(const Rasterizer&) = delete;

  /// Filling spends these visits. A shape that costs more than are left is not filled, and the
  /// visits are then negative. Without them everything is filled.
  void chargeTo(std::int64_t* visits) { visits_ = visits; }

  void fill(PathView path,
            const PixelTransform& transform,
            FillRule rule,
            const PixelBox& clip,
            SpanSink& sink);
  void stroke(PathView path,
              const PixelTransform& transform,
              const StrokeStyle& style,
              const PixelBox& clip,
              SpanSink& sink);

 private:
  using Vector = PixelOutline::Vector;
  void load(PathView path, const PixelTransform& transform);
  void addCurve(Vector a, Vector b, Vector end);
  [[nodiscard]] int isFull() const;
  static int flattenMove(const FT_Vector_* to, void* user);
  static int flattenLine(const FT_Vector_* to, void* user);
  static int flattenConic(const FT_Vector_* control, const FT_Vector_* to, void* user);
  static int flattenCubic(const FT_Vector_* a,
                          const FT_Vector_* b,
                          const FT_Vector_* to,
                          void* user);
  void render(FillRule rule, const PixelBox& clip, SpanSink& sink);
  void renderInStrips(FillRule rule, const PixelBox& clip, SpanSink& sink);
  void renderOutline(PixelOutline& outline, FillRule rule, const PixelBox& clip, SpanSink& sink);
  [[nodiscard]] bool spend(std::int64_t visits);
  /// Fills what the stroker has drawn.
  void exportStroke(const PixelBox& clip, SpanSink& sink);

  FT_LibraryRec_* library_;
  FT_StrokerRec_* stroker_ = nullptr;
  std::int64_t* visits_ = nullptr;
  PixelOutline outline_;
  PixelOutline strip_;
  std::vector<char> tags_;
};

}  // namespace rendering
