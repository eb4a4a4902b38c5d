// Layout of the modifiers with one target that are not frames. Those not named here are
// transparent.
#pragma once

#include "Rendering/Layout/SubviewProxy.hpp"

namespace rendering {

/// Whether the modifier answers as its target does, to the same proposal. A group of texts
/// with one scale counts as one that does: only the outermost is more.
[[nodiscard]] bool isTransparent(const viewkit::Modifier& modifier);

[[nodiscard]] Arrangement arrangeTransparent(const Proposal& proposal, const SubviewProxy& target);

/// The proposal less the insets goes to the target; the answer has them added again.
[[nodiscard]] Arrangement arrange(const viewkit::Padding& padding,
                                  const Proposal& proposal,
                                  const SubviewProxy& target);

/// Moves the target without changing the answer, its baseline included.
[[nodiscard]] Arrangement arrange(const viewkit::Offset& offset,
                                  const Proposal& proposal,
                                  const Proposal& reference,
                                  const SubviewProxy& target);

/// Takes the whole proposal and puts the target's centre at the point.
[[nodiscard]] Arrangement arrange(const viewkit::Position& position,
                                  const Proposal& proposal,
                                  const Proposal& reference,
                                  const SubviewProxy& target);

/// Offers the target a size of the ratio that fits into the proposal or fills it, and answers as it
/// does.
[[nodiscard]] Arrangement arrange(const viewkit::AspectRatio& ratio,
                                  const Proposal& proposal,
                                  const SubviewProxy& target);

/// The target has its ideal length on the fixed axes.
[[nodiscard]] Arrangement arrange(const viewkit::FixedSize& fixed,
                                  const Proposal& proposal,
                                  const SubviewProxy& target);

}  // namespace rendering
