#include "Rendering/Layout/LayoutFrame.hpp"

#include "Rendering/Layout/LayoutAlignment.hpp"
#include "Rendering/Layout/LayoutNumbers.hpp"

namespace rendering {

namespace {

using OptionalLength = std::optional<double>;

/// The bounds of one axis, with the impossible ones dropped.
struct Bounds {
  OptionalLength least;
  OptionalLength most;

  Bounds(OptionalLength from, OptionalLength to) {
    if (from && std::isfinite(*from)) least = cleanLength(cleanNumber(*from));
    if (to && !std::isnan(*to)) most = cleanLength(*to);
    if (least && most) most = std::max(*least, *most);
  }
  [[nodiscard]] double clamp(double value) const {
    if (most) value = std::min(value, *most);
    return least ? std::max(value, *least) : value;
  }
  [[nodiscard]] OptionalLength offer(OptionalLength proposed) const {
    return proposed ? OptionalLength{clamp(*proposed)} : proposed;
  }
  [[nodiscard]] double answer(OptionalLength proposed, double target) const {
    if (!least && !most) return target;
    if (!proposed) return clamp(target);
    if (least && most) return clamp(*proposed);
    if (most) return std::min(std::max(std::min(*proposed, *most), target), *most);
    return std::max(std::min(*proposed, target), *least);
  }
};

Arrangement aligned(Size own,
                    viewkit::Alignment alignment,
                    const Proposal& offer,
                    MeasuredSize target) {
  const Point origin = alignedOrigin(alignment, own, target);
  return {{own.width, own.height, carriedBaseline(target, origin)}, {offer, target, origin}};
}

OptionalLength fixedLength(const std::optional<viewkit::Length>& length,
                           const Proposal& reference) {
  if (!length) return std::nullopt;
  if (length->isConstant() && !std::isfinite(length->points())) return std::nullopt;
  return cleanLength(resolveLength(*length, reference));
}

}  // namespace

Arrangement arrange(const viewkit::FixedFrame& frame,
                    const Proposal& proposal,
                    const Proposal& reference,
                    const SubviewProxy& target) {
  const OptionalLength width = fixedLength(frame.width, reference);
  const OptionalLength height = fixedLength(frame.height, reference);
  const Proposal offer{width ? width : proposal.width, height ? height : proposal.height};
  const MeasuredSize answer = target(offer);
  return aligned({width.value_or(answer.width), height.value_or(answer.height)},
                 frame.alignment,
                 offer,
                 answer);
}

Arrangement arrange(const viewkit::FlexibleFrame& frame,
                    const Proposal& proposal,
                    const SubviewProxy& target) {
  const Bounds across(frame.minWidth, frame.maxWidth);
  const Bounds down(frame.minHeight, frame.maxHeight);
  Proposal offer{across.offer(proposal.width), down.offer(proposal.height)};
  // Without a proposal the target's ideal length may pass the maximum: then that is what it is
  // offered.
  const bool mayBeTooWide = !offer.width && across.most;
  const bool mayBeTooHigh = !offer.height && down.most;
  if (mayBeTooWide || mayBeTooHigh) {
    const MeasuredSize ideal = target.estimate(offer);
    if (mayBeTooWide && ideal.width > *across.most) offer.width = across.most;
    if (mayBeTooHigh && ideal.height > *down.most) offer.height = down.most;
  }
  const MeasuredSize answer = target(offer);
  return aligned(
      {across.answer(proposal.width, answer.width), down.answer(proposal.height, answer.height)},
      frame.alignment,
      offer,
      answer);
}

}  // namespace rendering
