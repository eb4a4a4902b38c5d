// Parts that give way where there is too little room.
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

/// The part where all of it fits, else nothing. In a stack it gives way to parts of a higher
/// priority, and of the same priority to those that stretch less.
[[nodiscard]] inline viewkit::View whereItFits(const viewkit::View& part) {
  return part.isEmpty() ? part : viewkit::Fitting{part, viewkit::VStack{{.spacing = 0}}}.view();
}

/// A name of the document's own, which may lose its end: nothing beside it gives way for that.
[[nodiscard]] inline viewkit::View mayBeCut(const viewkit::View& name) {
  return name.isEmpty() ? name : viewkit::Fitting{name}.view();
}

}  // namespace quorvel
