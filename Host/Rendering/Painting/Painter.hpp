// Plays a display list on a bitmap.
#pragma once

#include <optional>
#include <vector>

#include "Rendering/Graphics/Bitmap.hpp"
#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Painting/GlyphCache.hpp"
#include "Rendering/Painting/PainterSurface.hpp"
#include "Rendering/Painting/ShadowMask.hpp"
#include "Rendering/Recording/DisplayList.hpp"

namespace rendering {

class Painter {
 public:
  explicit Painter(FontLibrary& fonts);

  /// Gives `out` the list's size at `scale` and draws; `cornerRadius` points are cut off its
  /// corners (continuous). Refused, with `out` in any state, when the limits do not allow it.
  [[nodiscard]] Drawn<void> paint(const DisplayList& list,
                                  double scale,
                                  double cornerRadius,
                                  Bitmap& out);

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
    float opacity = 1;
    const BeginShadow* shadow = nullptr;  ///< that its content throws
  };

  [[nodiscard]] Drawn<PixelBox> extentOf(const DisplayList& list) const;
  void play(std::size_t first);
  // Commands that only open or close something are told apart before the others are drawn.
  void draw(const FillRect& command);
  void draw(const FillPath& command);
  void draw(const StrokePath& command);
  void draw(const DrawGlyphs& command);
  void draw(const DrawSymbol& command);
  void draw(const DrawImage& command);
  void draw(const DrawShadow& command);
  void draw(const ErasePath& command);
  void draw(const BeginClip& command);
  void draw(const EndClip& command);
  void draw(const BeginGroup& command);
  void draw(const EndGroup& command);
  void draw(const BeginShadow& command);
  void draw(const EndShadow& command);

  Layer& beginLayer(const PixelBox& box);
  /// Puts the top layer on the one below and returns it.
  Layer& endLayer();
  void putOver(const Layer& layer);
  void throwShadow(const Layer& layer);
  void erase(const CoverageMap& hole);

  void drawGlyphImages(const DrawGlyphs& command, const PixelSource& source);
  void drawGlyphOutlines(const DrawGlyphs& command, const PixelSource& source);
  void drawGlyphsOnce(const DrawGlyphs& command, const PixelSource& source);
  void drawCoverage(const CoverageMap& map, const PixelSource& source);
  void drawMask(const MaskImage& image, int x, int y, const PixelSource& source);
  void cutCorners(double radius, Bitmap& out);

  /// Whether there is something to visit, and the picture can afford it.
  [[nodiscard]] bool affords(const PixelBox& box, std::int64_t visitsPerPixel = 1);
  bool spend(std::int64_t visits);
  /// Pixels beside the picture's own, as long as they are needed.
  bool hold(std::int64_t pixels);

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
  Rasterizer unmetered_;  ///< for what is kept beyond a picture and is ours
  GlyphCache images_;
  ShadowMasks shadows_;
  std::vector<Clip> clips_;
  std::size_t clipCount_ = 0;
  std::vector<Layer> layers_;
  std::size_t depth_ = 0;
  CoverageMap scratch_;
  std::int64_t visitsLeft_ = 0;
  std::int64_t held_ = 0;
  const DisplayList* list_ = nullptr;
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
