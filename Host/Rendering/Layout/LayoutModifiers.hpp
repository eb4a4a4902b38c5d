// Layout of the modifiers with one target that are not frames.
#pragma once

#include "Foundation/Overloaded.hpp"
#include "Rendering/Layout/SubviewProxy.hpp"
#include "ViewKit/View.hpp"

namespace rendering {

/// Modifiers that layout does not notice: their target has their proposal and place.
template <class M>
concept TransparentModifier = foundation::OneOf<M,
                                                viewkit::Background,
                                                viewkit::Overlay,
                                                viewkit::ForegroundStyle,
                                                viewkit::Opacity,
                                                viewkit::Clip,
                                                viewkit::Cutout,
                                                viewkit::Shadow,
                                                viewkit::ZIndex,
                                                viewkit::LayoutPriority,
                                                viewkit::Accessibility,
                                                viewkit::PrivacySensitive,
                                                viewkit::Accentable,
                                                viewkit::Link,
                                                viewkit::WidgetURL,
                                                viewkit::ContainerBackground,
                                                viewkit::Direction,
                                                viewkit::SharedScale>;

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
