// The text measurer of the product: shaping with the system's fonts.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Rendering/Text/Font.hpp"
#include "Rendering/Text/GlyphParagraph.hpp"
#include "Rendering/Text/TextAnalysis.hpp"

struct hb_buffer_t;

namespace rendering {

class FontMeasurer final : public TextMeasurer {
 public:
  explicit FontMeasurer(FontLibrary& fonts);
  ~FontMeasurer() override;

  /// Always a GlyphParagraph. Kept; the least recently used go first.
  [[nodiscard]] std::shared_ptr<const ShapedParagraph> shape(std::string_view text,
                                                             const TextStyle& style) override;

  /// As `shape`, but never by the short way for simple texts: what that way must agree with.
  [[nodiscard]] std::shared_ptr<const GlyphParagraph> shapeByUnicode(std::string_view text,
                                                                     const TextStyle& style);

 private:
  struct Entry {
    std::string key;
    std::shared_ptr<const GlyphParagraph> paragraph;
  };

  [[nodiscard]] std::shared_ptr<const GlyphParagraph> shapeClusters(std::string_view text,
                                                                    const TextStyle& style);
  void shapeRun(GlyphParagraph& paragraph,
                const TextStyle& style,
                std::size_t first,
                std::size_t last);
  void appendMissing(GlyphParagraph& paragraph, const TextStyle& style);

  FontLibrary& fonts_;
  TextAnalyzer analyzer_;
  hb_buffer_t* buffer_;
  std::vector<AnalyzedCluster> clusters_;
  std::string key_;
  std::list<Entry> entries_;  ///< most recently used first
  std::unordered_map<std::string_view, std::list<Entry>::iterator> index_;
};

}  // namespace rendering
