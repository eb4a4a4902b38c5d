// A measurer whose every character is one cell wide, so that widths can be worked out by hand.
#pragma once

#include <memory>
#include <string_view>

#include "Rendering/Text/TextMeasurer.hpp"

namespace rendering {

/// Each UTF-8 character is a cluster of `cell` em, the ellipsis too; lines may end behind spaces
/// and must behind line feeds. Line height 1.21 em, baseline 0.969 em below the top.
class FixedCellMeasurer : public TextMeasurer {
 public:
  explicit FixedCellMeasurer(double cell = 0.6) : cell_(cell) {}

  std::shared_ptr<const ShapedParagraph> shape(std::string_view text,
                                               const TextStyle& style) override {
    ++shaped;
    auto paragraph = std::make_shared<ShapedParagraph>();
    paragraph->text = text;
    paragraph->ellipsisAdvance = cell_;
    paragraph->direction = style.direction;
    for (std::uint32_t begin = 0; begin < text.size();) {
      std::uint32_t end = begin + 1;
      while (end < text.size() && (text[end] & 0xC0) == 0x80) ++end;
      const bool isFeed = text[begin] == '\n';
      const bool isSpace = isFeed || text[begin] == ' ';
      paragraph->clusters.push_back(
          {begin, end, isFeed ? 0 : cell_, isSpace, isFeed, isSpace, !isFeed});
      begin = end;
    }
    return paragraph;
  }
  [[nodiscard]] FontMetrics metrics() const override { return {0.969, 0.241}; }

  int shaped = 0;

 private:
  double cell_;
};

}  // namespace rendering
