// Frames: a view of a given length, or of one within bounds, around another.
#pragma once

#include "Rendering/Layout/SubviewProxy.hpp"

namespace rendering {

/// Exactly the given lengths, proposed to the target as well; an axis without one is the target's.
[[nodiscard]] Arrangement arrange(const viewkit::FixedFrame& frame,
                                  const Proposal& proposal,
                                  const Proposal& reference,
                                  const SubviewProxy& target);

/// A maximum alone: the proposal or the longer target, up to it. A minimum alone: the target within
/// the proposal, but not below it. Both: the proposal between them. Without a proposal, the target
/// between them.
[[nodiscard]] Arrangement arrange(const viewkit::FlexibleFrame& frame,
                                  const Proposal& proposal,
                                  const SubviewProxy& target);

}  // namespace rendering
