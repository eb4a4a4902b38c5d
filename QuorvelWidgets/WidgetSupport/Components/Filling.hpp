// The frame of what takes all the room that it is offered.
#pragma once

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

[[nodiscard]] inline viewkit::FlexibleFrame filling(
    viewkit::Alignment alignment = viewkit::Alignment::center) {
  return {.maxWidth = viewkit::kInfinity, .maxHeight = viewkit::kInfinity, .alignment = alignment};
}

}  // namespace quorvel
