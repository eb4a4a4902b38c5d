// What elements answer whose size does not depend on their children: spacers, symbols, images,
// shapes, canvases, gauges.
#pragma once

#include "Rendering/Layout/LayoutRecords.hpp"
#include "Rendering/Text/TextMeasurer.hpp"

namespace rendering {

/// At least the minimum length (8 when not given) along the stack; nothing across it.
[[nodiscard]] MeasuredSize answerOf(const viewkit::SpacerElement& spacer,
                                    const Proposal& proposal,
                                    SpacerAxis axis);

/// A symbol stands in a line box like a text of its size: so high, and 1.1 em wide.
[[nodiscard]] MeasuredSize answerOf(const viewkit::SymbolElement& symbol,
                                    const FontMetrics& metrics);

/// The whole proposal: shapes, images and canvases.
[[nodiscard]] MeasuredSize answerOfWholeProposal(const Proposal& proposal);

/// A square as large as the proposal allows.
[[nodiscard]] MeasuredSize answerOfGauge(const Proposal& proposal);

/// What a gauge of this size offers to its label: the largest square inside the ring.
[[nodiscard]] Size gaugeLabelBox(const viewkit::GaugeElement& gauge, Size own);

}  // namespace rendering
