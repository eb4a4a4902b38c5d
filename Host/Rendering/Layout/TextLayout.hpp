// A text in lines: broken, shrunk and cut to fit what it is offered.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "Rendering/Layout/LayoutRecords.hpp"
#include "Rendering/Text/TextMeasurer.hpp"

namespace rendering {

/// Widths and heights grow linearly with the scale, tracking included, so that everything here is
/// worked out at scale 1 and a text shrunk by s in a width w breaks as the full-sized one in w / s.
class TextLayout {
 public:
  struct Line {
    std::uint32_t first = 0;  ///< clusters [first, last), without the spaces that hang at the end
    std::uint32_t last = 0;
    bool ellipsis = false;
    double width = 0;  ///< points at scale 1
  };
  struct Fit {
    std::vector<Line> lines;
    double scale = 1;
    bool whole = true;  ///< no ellipsis, and no word broken between two lines
    MeasuredSize answer;
  };

  TextLayout(const viewkit::TextElement& element,
             std::shared_ptr<const ShapedParagraph> paragraph,
             FontMetrics metrics,
             bool placeholder);

  /// Never wider than needed nor than proposed, except that less than the least width is answered
  /// with it. A text that shares its scale is no larger than `scaleLimit`, down to its own minimum.
  [[nodiscard]] MeasuredSize answer(const Proposal& proposal, double scaleLimit) {
    return fit(proposal, scaleLimit).answer;
  }
  [[nodiscard]] const Fit& fit(const Proposal& proposal, double scaleLimit);
  /// How many stretches were set in lines since this was asked last: what fitting costs.
  [[nodiscard]] std::size_t takeSteps() { return std::exchange(steps_, 0); }
  /// Whether it has one line and may shrink.
  [[nodiscard]] bool sharesScale() const { return lineLimit_ == 1 && leastScale_ < 1; }

  [[nodiscard]] const std::shared_ptr<const ShapedParagraph>& paragraph() const {
    return paragraph_;
  }
  [[nodiscard]] double size() const { return size_; }
  [[nodiscard]] double tracking() const { return tracking_; }

 private:
  /// A stretch that stays on one line if it can.
  struct Chunk {
    std::uint32_t content = 0;  ///< end without trailing spaces
    std::uint32_t end = 0;
    bool endsParagraph = false;
  };
  enum class Breaking { betweenChunks, anywhere };
  struct Room {
    double width = 0;
    double height = 0;

    friend bool operator==(const Room&, const Room&) = default;
  };

  void makeChunks();
  [[nodiscard]] double extent(std::uint32_t first, std::uint32_t last) const {
    return reach_[last] - reach_[first];
  }
  [[nodiscard]] double leastWidth() const;
  [[nodiscard]] std::size_t linesAllowed(const Room& room, double scale) const;

  /// Fills the lines; false if the text needs more than `most` or, between chunks, a wider line.
  bool breakLines(double width, std::size_t most, Breaking breaking);
  [[nodiscard]] bool fitsAt(double scale, const Room& room, Breaking breaking);
  [[nodiscard]] bool shrinkToFit(const Room& room, Breaking breaking);
  void cut(const Room& room);
  void balance();
  [[nodiscard]] double widestLine() const;
  void finish(double widthOffered);

  std::shared_ptr<const ShapedParagraph> paragraph_;
  double size_;
  double tracking_;
  double leastScale_;
  double mostScale_ = 1;
  double lineHeight_;
  double ascent_;
  double ellipsis_;
  double placeholderWidth_;
  std::size_t lineLimit_;
  bool balanced_;
  std::vector<double> reach_;  ///< points from the start to each cluster, and to the end
  double widestCluster_ = 0;
  std::vector<Chunk> chunks_;
  Fit fit_;
  Room fittedRoom_;  ///< the room that fit_ was found for
  std::size_t steps_ = 0;
};

}  // namespace rendering
