// Lines that may lose a part where they are too long.
#pragma once

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// The fuller line where its width fits, as high as it is by itself: a stack that shares out its
/// height must not choose among lines.
[[nodiscard]] inline viewkit::View fittingWidth(const viewkit::View& fuller,
                                                const viewkit::View& barer) {
  constexpr bool kHorizontal = false;
  constexpr bool kVertical = true;
  return viewkit::Fitting{fuller, barer}.fixedSize(kHorizontal, kVertical);
}

}  // namespace quorvel
