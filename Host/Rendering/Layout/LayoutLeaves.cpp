#include "Rendering/Layout/LayoutLeaves.hpp"

#include <numbers>

#include "Rendering/Layout/LayoutNumbers.hpp"

namespace rendering {

namespace {

constexpr double kDefaultSpacer = 8;
constexpr double kSymbolWidth = 1.1;
/// Half the height of the capitals: the centre of a symbol stands that far above the baseline of
/// the text beside it.
constexpr double kSymbolCentre = 0.364;

}  // namespace

MeasuredSize answerOf(const viewkit::SpacerElement& spacer,
                      const Proposal& proposal,
                      SpacerAxis axis) {
  const double least = cleanLength(cleanNumber(spacer.minLength.value_or(kDefaultSpacer)));
  MeasuredSize answer;
  if (axis != SpacerAxis::vertical) answer.width = std::max(proposal.width.value_or(least), least);
  if (axis != SpacerAxis::horizontal) {
    answer.height = std::max(proposal.height.value_or(least), least);
  }
  return answer;
}

MeasuredSize answerOf(const viewkit::SymbolElement& symbol, const FontMetrics& metrics) {
  const double size = cleanLength(cleanNumber(symbol.size));
  const double height = size * metrics.lineHeight();
  return {size * kSymbolWidth, height, height / 2 + kSymbolCentre * size};
}

MeasuredSize answerOfWholeProposal(const Proposal& proposal) {
  return {proposal.width.value_or(kDefaultLength), proposal.height.value_or(kDefaultLength), {}};
}

MeasuredSize answerOfGauge(const Proposal& proposal) {
  const double both =
      std::min(proposal.width.value_or(kUnbounded), proposal.height.value_or(kUnbounded));
  const bool open = !proposal.width && !proposal.height;
  const double side = open ? kDefaultLength : both;
  return {side, side, {}};
}

Size gaugeLabelBox(const viewkit::GaugeElement& gauge, Size own) {
  const double inner = own.width - 2 * cleanLength(cleanNumber(gauge.lineWidth));
  const double side = cleanLength(inner) / std::numbers::sqrt2;
  return {side, side};
}

}  // namespace rendering
