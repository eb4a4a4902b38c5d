// Rows, columns and depth stacks: how children share a length, least flexible first, and line up
// across it.
#pragma once

#include <span>
#include <vector>

#include "Rendering/Layout/LayoutRecords.hpp"

namespace rendering {

class LayoutItems;

/// A child of a stack while the stack is worked out; `place` is the result.
struct StackChild {
  ItemId item = 0;
  double priority = 0;
  bool isSpacer = false;
  double flexibility = 0;  ///< main length answered to infinity, less that answered to 0
  ChildPlace place;
};

/// Fills in the children's places and answers for the stack.
[[nodiscard]] MeasuredSize arrangeStack(const viewkit::StackElement& stack,
                                        const Proposal& proposal,
                                        LayoutItems& items,
                                        std::span<StackChild> children);

}  // namespace rendering
