// How layout learns the widths of text, without knowing fonts. Everything is in em: advances grow
// linearly with size.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ViewKit/Elements.hpp"

namespace rendering {

/// One grapheme cluster, in logical order.
struct TextCluster {
  std::uint32_t begin = 0;  ///< bytes of the paragraph's text
  std::uint32_t end = 0;
  double advance = 0;       ///< em
  bool breakAfter = false;  ///< a line may end behind this cluster
  bool mustBreakAfter = false;
  bool isSpace = false;  ///< hangs at a line's end
  bool takesTracking =
      true;  ///< letter spacing is added after it (not in joined scripts, not after ignorables)
};

/// A text shaped once at size 1; measurers derive from it to keep their glyphs.
struct ShapedParagraph {
  virtual ~ShapedParagraph() = default;
  std::string text;
  std::vector<TextCluster> clusters;
  double ellipsisAdvance = 0;  ///< em, of "…" in the same style
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
};

/// The line box of every text, em above and below the baseline: the same for all scripts so that
/// rows do not jump between languages.
struct FontMetrics {
  double ascent = 0.96875;
  double descent = 0.2412;
  [[nodiscard]] double lineHeight() const { return ascent + descent; }
};

/// One face serves both font designs.
struct TextStyle {
  viewkit::FontWeight weight = viewkit::FontWeight::regular;
  std::string_view language;  ///< BCP 47, may be empty
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
};

class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  [[nodiscard]] virtual std::shared_ptr<const ShapedParagraph> shape(std::string_view text,
                                                                     const TextStyle& style) = 0;
  [[nodiscard]] virtual FontMetrics metrics() const { return {}; }
};

}  // namespace rendering
