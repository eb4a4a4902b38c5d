// How a layout asks a child what it answers to a proposal.
#pragma once

#include "Rendering/Layout/LayoutRecords.hpp"

namespace rendering {

class LayoutItems;

struct SubviewProxy {
  LayoutItems& items;
  ItemId child;
  [[nodiscard]] MeasuredSize operator()(const Proposal& proposal) const;
  /// A question whose answer only decides what is offered.
  [[nodiscard]] MeasuredSize estimate(const Proposal& proposal) const;
};

}  // namespace rendering
