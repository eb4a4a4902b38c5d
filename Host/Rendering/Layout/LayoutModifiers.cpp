#include "Rendering/Layout/LayoutModifiers.hpp"

#include "Rendering/Layout/LayoutAlignment.hpp"
#include "Rendering/Layout/LayoutNumbers.hpp"

namespace rendering {

namespace {

std::optional<double> reduced(std::optional<double> proposed, double by) {
  return proposed ? std::optional{cleanLength(*proposed - by)} : proposed;
}

/// The size of the ratio that touches the proposal from inside (fit) or from outside (fill).
Proposal sizeOfRatio(double ratio,
                     bool fill,
                     const Proposal& proposal,
                     const SubviewProxy& target) {
  if (!proposal.width && !proposal.height) {
    const double ideal = target.estimate(proposal).width;
    return {ideal, ideal / ratio};
  }
  if (!proposal.height) return {proposal.width, *proposal.width / ratio};
  if (!proposal.width) return {*proposal.height * ratio, proposal.height};
  const double widthForHeight = *proposal.height * ratio;
  const bool byHeight = (widthForHeight < *proposal.width) != fill;
  return byHeight ? Proposal{widthForHeight, proposal.height}
                  : Proposal{proposal.width, *proposal.width / ratio};
}

}  // namespace

bool isTransparent(const viewkit::Modifier& modifier) {
  return std::visit(
      foundation::Overloaded{
          [](const TransparentModifier auto&) { return true; },
          [](const viewkit::Offset&) { return true; },  // moves the target, and answers as it does
          [](const foundation::OneOf<viewkit::FixedFrame,
                                     viewkit::FlexibleFrame,
                                     viewkit::Padding,
                                     viewkit::Position,
                                     viewkit::AspectRatio,
                                     viewkit::FixedSize> auto&) { return false; }},
      modifier);
}

Arrangement arrangeTransparent(const Proposal& proposal, const SubviewProxy& target) {
  const MeasuredSize answer = target(proposal);
  return {answer, {proposal, answer, {}}};
}

Arrangement arrange(const viewkit::Padding& padding,
                    const Proposal& proposal,
                    const SubviewProxy& target) {
  const double top = cleanNumber(padding.insets.top);
  const double leading = cleanNumber(padding.insets.leading);
  const double across = leading + cleanNumber(padding.insets.trailing);
  const double down = top + cleanNumber(padding.insets.bottom);
  const Proposal offer{reduced(proposal.width, across), reduced(proposal.height, down)};
  const MeasuredSize answer = target(offer);
  const Point origin{leading, top};
  return {{answer.width + across, answer.height + down, carriedBaseline(answer, origin)},
          {offer, answer, origin}};
}

Arrangement arrange(const viewkit::Offset& offset,
                    const Proposal& proposal,
                    const Proposal& reference,
                    const SubviewProxy& target) {
  Arrangement result = arrangeTransparent(proposal, target);
  result.target.origin = {cleanNumber(resolveLength(offset.x, reference)),
                          cleanNumber(resolveLength(offset.y, reference))};
  return result;
}

Arrangement arrange(const viewkit::Position& position,
                    const Proposal& proposal,
                    const Proposal& reference,
                    const SubviewProxy& target) {
  const MeasuredSize answer = target(proposal);
  const Size own{proposal.width.value_or(answer.width), proposal.height.value_or(answer.height)};
  const Point origin{cleanNumber(resolveLength(position.x, reference) - answer.width / 2),
                     cleanNumber(resolveLength(position.y, reference) - answer.height / 2)};
  return {{own.width, own.height, {}}, {proposal, answer, origin}};
}

Arrangement arrange(const viewkit::AspectRatio& ratio,
                    const Proposal& proposal,
                    const SubviewProxy& target) {
  if (!(ratio.ratio > 0) || !std::isfinite(ratio.ratio)) {
    return arrangeTransparent(proposal, target);
  }
  const bool fill = ratio.mode == viewkit::ImageElement::ContentMode::fill;
  return arrangeTransparent(sizeOfRatio(ratio.ratio, fill, proposal, target), target);
}

Arrangement arrange(const viewkit::FixedSize& fixed,
                    const Proposal& proposal,
                    const SubviewProxy& target) {
  return arrangeTransparent({fixed.horizontal ? std::nullopt : proposal.width,
                             fixed.vertical ? std::nullopt : proposal.height},
                            target);
}

}  // namespace rendering
