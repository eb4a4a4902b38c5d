#include "Rendering/Layout/TextLayout.hpp"

#include "Rendering/Layout/LayoutNumbers.hpp"

namespace rendering {

namespace {

constexpr double kLargestSize = 1e4;
constexpr double kPlaceholderEms = 2;
constexpr double kFinalForm = 0.6;  ///< em, by how much a letter's final form is wider at most
constexpr std::size_t kAnyNumber = std::numeric_limits<std::uint32_t>::max();
/// Halvings of a range of scales or widths; the exact value is then read off the lines found.
constexpr int kHalvings = 24;

double leastScaleOf(double factor) {
  return factor > 0 && factor < 1 ? std::max(factor, 0.01) : 1;
}

}  // namespace

TextLayout::TextLayout(const viewkit::TextElement& element,
                       std::shared_ptr<const ShapedParagraph> paragraph,
                       FontMetrics metrics,
                       bool placeholder)
    : paragraph_(std::move(paragraph)),
      size_(std::min(cleanLength(element.size), kLargestSize)),
      tracking_(std::clamp(cleanNumber(element.tracking), -kLargestSize, kLargestSize)),
      leastScale_(leastScaleOf(element.minimumScaleFactor)),
      lineHeight_(metrics.lineHeight() * size_),
      ascent_(metrics.ascent * size_),
      ellipsis_(cleanLength(cleanNumber(paragraph_->ellipsisAdvance)) * size_),
      placeholderWidth_(placeholder ? kPlaceholderEms * size_ : 0),
      lineLimit_(element.lineLimit ? static_cast<std::size_t>(std::max(*element.lineLimit, 1))
                                   : kAnyNumber),
      balanced_(element.balanced) {
  reach_.reserve(paragraph_->clusters.size() + 1);
  reach_.push_back(0);
  for (const TextCluster& cluster : paragraph_->clusters) {
    const double spacing = cluster.takesTracking ? tracking_ : 0;
    const double width = cleanLength(cleanNumber(cluster.advance) * size_ + spacing);
    widestCluster_ = std::max(widestCluster_, width);
    reach_.push_back(reach_.back() + width);
  }
  makeChunks();
}

void TextLayout::makeChunks() {
  const auto& clusters = paragraph_->clusters;
  const auto count = static_cast<std::uint32_t>(clusters.size());
  for (std::uint32_t begin = 0, i = 0; i < count; ++i) {
    const bool isLast = i + 1 == count;
    if (!clusters[i].breakAfter && !clusters[i].mustBreakAfter && !isLast) continue;
    std::uint32_t content = i + 1;
    while (content > begin && clusters[content - 1].isSpace) --content;
    chunks_.push_back({content, i + 1, clusters[i].mustBreakAfter && !isLast});
    begin = i + 1;
  }
}

double TextLayout::leastWidth() const {
  const double whole = reach_.back();
  const double least = lineLimit_ == 1 ? ellipsis_ : std::max(widestCluster_, ellipsis_);
  return std::min(whole, least) * leastScale_;
}

std::size_t TextLayout::linesAllowed(const Room& room, double scale) const {
  const double line = lineHeight_ * scale;
  const double held = line > 0 ? std::floor((room.height + kSlack) / line) : kUnbounded;
  if (!(held < static_cast<double>(lineLimit_))) return lineLimit_;
  return std::max<std::size_t>(1, static_cast<std::size_t>(held));
}

bool TextLayout::breakLines(double width, std::size_t most, Breaking breaking) {
  std::vector<Line>& lines = fit_.lines;
  lines.clear();
  width += kSlack;
  std::uint32_t begin = 0;
  for (std::size_t c = 0; c < chunks_.size();) {
    ++steps_;
    if (lines.size() == most) return false;
    std::size_t next = c;
    bool paragraphEnds = false;
    while (next < chunks_.size() && !paragraphEnds &&
           extent(begin, std::max(begin, chunks_[next].content)) <= width) {
      paragraphEnds = chunks_[next].endsParagraph;
      ++next;
    }
    steps_ += next - c;
    if (next > c) {
      const std::uint32_t last = std::max(begin, chunks_[next - 1].content);
      lines.push_back({begin, last, false, extent(begin, last)});
      begin = chunks_[next - 1].end;
      c = next;
      continue;
    }
    if (breaking == Breaking::betweenChunks) return false;
    // One chunk is wider than the line: it is broken behind the last cluster that fits, but behind
    // one at least.
    const auto beyond = std::upper_bound(
        reach_.begin() + begin + 1, reach_.begin() + chunks_[c].content + 1, reach_[begin] + width);
    const auto last =
        std::max<std::uint32_t>(begin + 1, static_cast<std::uint32_t>(beyond - reach_.begin()) - 1);
    lines.push_back({begin, last, false, extent(begin, last)});
    begin = last;
    if (begin >= chunks_[c].content) begin = chunks_[c++].end;
  }
  if (lines.empty()) lines.push_back({});
  return true;
}

bool TextLayout::fitsAt(double scale, const Room& room, Breaking breaking) {
  return breakLines(room.width / scale, linesAllowed(room, scale), breaking);
}

/// Whether a text fits never changes back while it shrinks, so that the largest scale is found by
/// halving. Between two ways to break the scale is then limited by the widest line or by the height
/// alone.
bool TextLayout::shrinkToFit(const Room& room, Breaking breaking) {
  fit_.scale = mostScale_;
  if (fitsAt(mostScale_, room, breaking)) return true;
  if (leastScale_ == mostScale_ || !fitsAt(leastScale_, room, breaking)) return false;
  double fits = leastScale_;
  double fails = mostScale_;
  for (int i = 0; i < kHalvings && lineLimit_ > 1; ++i) {
    const double middle = (fits + fails) / 2;
    (fitsAt(middle, room, breaking) ? fits : fails) = middle;
  }
  static_cast<void>(fitsAt(fits, room, breaking));
  const double count = static_cast<double>(fit_.lines.size());
  const double byWidth = widestLine() > 0 ? room.width / widestLine() : 1;
  const double byHeight = count > 1 && lineHeight_ > 0 ? room.height / (count * lineHeight_) : 1;
  fit_.scale = std::clamp(std::min(byWidth, byHeight), leastScale_, mostScale_);
  return true;
}

void TextLayout::cut(const Room& room) {
  fit_.scale = leastScale_;
  const double width = room.width / fit_.scale;
  if (breakLines(width, linesAllowed(room, fit_.scale), Breaking::anywhere)) return;
  Line& line = fit_.lines.back();
  const auto& clusters = paragraph_->clusters;
  const double space = width - ellipsis_ + kSlack;
  std::uint32_t last = line.first;
  while (last < clusters.size() && extent(line.first, last + 1) <= space) {
    if (clusters[last++].mustBreakAfter) break;
  }
  // Cut inside a word, a letter of a joined script takes its final form, which may be wider.
  const auto finalForm = [&](std::uint32_t end) {
    if (end == line.first || end == clusters.size() || clusters[end].isSpace) return 0.0;
    return clusters[end - 1].takesTracking ? 0.0 : kFinalForm * size_;
  };
  while (last > line.first &&
         (clusters[last - 1].isSpace || extent(line.first, last) + finalForm(last) > space)) {
    --last;
  }
  line.last = last;
  line.ellipsis = true;
  line.width = extent(line.first, last) + finalForm(last) + ellipsis_;
}

/// The shortest width that keeps the number of lines.
void TextLayout::balance() {
  const std::size_t count = fit_.lines.size();
  double fits = widestLine();
  double fails = 0;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (fits + fails) / 2;
    (breakLines(middle, count, Breaking::betweenChunks) ? fits : fails) = middle;
  }
  static_cast<void>(breakLines(fits, count, Breaking::betweenChunks));
}

double TextLayout::widestLine() const {
  double widest = 0;
  for (const Line& line : fit_.lines) widest = std::max(widest, line.width);
  return widest;
}

const TextLayout::Fit& TextLayout::fit(const Proposal& proposal, double scaleLimit) {
  const double mostScale = sharesScale() ? std::clamp(scaleLimit, leastScale_, 1.0) : 1;
  const double width = std::max(proposal.width.value_or(kUnbounded), leastWidth());
  const Room room{width, proposal.height.value_or(kUnbounded)};
  // A text is mostly measured, looked into and placed with the same offer.
  if (!fit_.lines.empty() && room == fittedRoom_ && mostScale == mostScale_) return fit_;
  fittedRoom_ = room;
  mostScale_ = mostScale;
  fit_.whole = shrinkToFit(room, Breaking::betweenChunks);
  if (fit_.whole) {
    if (balanced_ && fit_.lines.size() > 1) balance();
  } else if (!shrinkToFit(room, Breaking::anywhere)) {
    cut(room);
  }
  finish(width);
  return fit_;
}

void TextLayout::finish(double widthOffered) {
  const double scale = fit_.scale;
  const double wide = std::min(widestLine() * scale, widthOffered);
  fit_.answer.width = std::max(wide, std::min(placeholderWidth_, widthOffered));
  fit_.answer.height = static_cast<double>(fit_.lines.size()) * lineHeight_ * scale;
  fit_.answer.baseline = ascent_ * scale;
}

}  // namespace rendering
