// How a layout asks a child what it answers to a proposal.
#pragma once

#include "Rendering/LayoutRecords.hpp"

namespace rendering {

class LayoutItems;

struct LayoutProbe {
  LayoutItems& items;
  ItemId child;
  [[nodiscard]] Answer operator()(const Proposal& proposal) const;
  /// A question whose answer only decides what is offered.
  [[nodiscard]] Answer estimate(const Proposal& proposal) const;
};

}  // namespace rendering
