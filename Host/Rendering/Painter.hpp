// Plays a draw list on a bitmap.
#pragma once

#include <optional>
#include <vector>

#include "Rendering/DrawList.hpp"
#include "Rendering/GlyphImages.hpp"
#include "Rendering/PainterSurface.hpp"
#include "Rendering/Renderer.hpp"
#include "Rendering/ShadowMask.hpp"

namespace rendering {

class Painter {
 public:
  explicit Painter(FontLibrary& fonts);

  /// Gives `out` the list's size at `scale` and draws; `cornerRadius` points are cut off its
  /// corners (continuous).
  void paint(const DrawList& list, double scale, double cornerRadius, Bitmap& out);

 private:
  /// A clip within the current group.
  struct Clip {
    PathSlice path;
    PixelBox box;         ///< with all clips around it
    PixelBox own;         ///< its own shape's
    int corner = -1;      ///< pixels; negative: nothing is surely inside
    bool masked = false;  ///< `mask` is made
    CoverageMap mask;     ///< with all clips around it, of its group
  };
  struct Layer {
    Surface surface;
    std::vector<std::uint32_t> storage;
    std::size_t firstClip = 0;  ///< clips before it wait until the layer is put on the one below
    std::size_t clipCount = 0;
    float opacity = 1;
  };

  void play(std::size_t first, std::size_t last);
  void draw(const FillRect& command);
  void draw(const FillPath& command);
  void draw(const StrokePath& command);
  void draw(const DrawGlyphs& command);
  void draw(const DrawSymbol& command);
  void draw(const DrawImage& command);
  void draw(const DrawShadow& command);
  void draw(const ErasePath& command);
  void drawContentShadow(const DrawContentShadow& command, std::size_t first);
  void beginClip(const BeginClip& command);
  void endClip();
  void beginGroup(const PixelBox& box, float opacity);
  void endGroup();

  void drawGlyphImages(const DrawGlyphs& command, const PixelSource& source);
  void drawGlyphOutlines(const DrawGlyphs& command, const PixelSource& source);
  void drawGlyphsOnce(const DrawGlyphs& command, const PixelSource& source);
  void drawCoverage(const CoverageMap& map, const PixelSource& source);
  void drawMask(const MaskImage& image, int x, int y, const PixelSource& source);
  void cutCorners(double radius, Bitmap& out);

  [[nodiscard]] PixelBox clipBox() const;
  /// The mask that matters for these pixels; null when they lie inside all clips.
  [[nodiscard]] const CoverageMap* maskFor(const PixelBox& box);
  const CoverageMap& maskOf(std::size_t clip);
  [[nodiscard]] PathView view(const PathSlice& slice) const;
  [[nodiscard]] PixelSource source(const Ink& ink) const;
  [[nodiscard]] PixelTransform transform() const { return {scale_, scale_, 0, 0}; }
  [[nodiscard]] Surface& surface() { return layers_[depth_ - 1].surface; }

  FontLibrary& fonts_;
  Rasterizer raster_;
  GlyphImages images_;
  ShadowMasks shadows_;
  std::vector<Clip> clips_;
  std::size_t clipCount_ = 0;
  std::vector<Layer> layers_;
  std::size_t depth_ = 0;
  CoverageMap scratch_;
  const DrawList* list_ = nullptr;
  double scale_ = 1;

  /// The coverage of the widget's corners, kept for the next picture of that size.
  struct Corners {
    int width = 0;
    int height = 0;
    double radius = 0;
    int extent = 0;
    CoverageMap map;
  };
  Corners corners_;
};

}  // namespace rendering
