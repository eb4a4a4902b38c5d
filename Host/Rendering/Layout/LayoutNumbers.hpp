// Arithmetic that keeps sizes free of NaN and of negative lengths, whatever comes in.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "Rendering/Graphics/Geometry.hpp"
#include "ViewKit/Length.hpp"

namespace rendering {

inline constexpr double kUnbounded = std::numeric_limits<double>::infinity();
/// What shapes, images and relative lengths take for a length that nobody proposed.
inline constexpr double kDefaultLength = 10;
/// Lengths that went through sums may miss each other by this much and still count as equal.
inline constexpr double kSlack = 1e-6;
/// Placed coordinates stay within this.
inline constexpr double kFarthest = 1e9;

/// A size: infinity stays, since it answers an infinite proposal.
inline double cleanLength(double value) {
  return value > 0 ? value : 0;
}

inline double cleanNumber(double value, double otherwise = 0) {
  return std::isfinite(value) ? std::clamp(value, -kFarthest, kFarthest) : otherwise;
}

inline std::optional<double> cleanOffer(std::optional<double> offer) {
  if (!offer || std::isnan(*offer)) return std::nullopt;
  return cleanLength(*offer);
}

inline Proposal cleanProposal(Proposal proposal) {
  return {cleanOffer(proposal.width), cleanOffer(proposal.height)};
}

inline Proposal proposalOf(Size size) {
  return {size.width, size.height};
}

/// A length against a proposal. Infinity times nothing would be NaN, so that an infinite axis
/// counts as a very long one and a very long result as infinite.
inline double resolveLength(const viewkit::Length& length, const Proposal& reference) {
  if (length.isConstant()) return cleanNumber(length.points());
  constexpr double kVeryLong = 1e12;
  const double width = std::min(reference.width.value_or(kDefaultLength), kVeryLong);
  const double height = std::min(reference.height.value_or(kDefaultLength), kVeryLong);
  const double result = length.resolve(width, height);
  const bool isOpen = width == kVeryLong || height == kVeryLong;
  if (isOpen && std::abs(result) > kFarthest) return std::copysign(kUnbounded, result);
  return cleanNumber(result);
}

}  // namespace rendering
