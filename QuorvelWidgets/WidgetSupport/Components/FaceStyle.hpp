// What texts stand on: a face's gradient under a veil that keeps white texts legible, and what
// keeps the faces of a pile apart.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// The colours where white text can stand on them; none, which means the default face, where the
/// veil that the text needs would hide them.
[[nodiscard]] std::vector<std::string> readableFace(std::vector<std::string> colors);

/// The least black veil over a face under which white text of that opacity has enough contrast; 0
/// without text.
[[nodiscard]] double faceVeil(const std::vector<std::string>& colors,
                              std::optional<double> textOpacity);

/// Whether nothing of a face's colour would be left under that veil but brown or grey.
[[nodiscard]] bool hidesTheFace(double veil);

/// A veil of that opacity over a face: full down to `foot`, a fraction of the height at which the
/// texts end, and gone a little below it.
[[nodiscard]] viewkit::Gradient veilGradient(double veil, double foot);
/// A face's colours ("#RRGGBB"; the default face when there are none) from corner to corner, as a
/// rectangle under its veil. Takes the whole proposal.
[[nodiscard]] viewkit::View faceGround(const std::vector<std::string>& colors,
                                       std::optional<double> textOpacity,
                                       double foot = 1);

/// A light line for the top of a face in a pile: between two dark faces a shadow is not seen. As
/// wide as proposed.
[[nodiscard]] viewkit::View faceEdge(double cornerRadius);

/// Removes what lies behind a tinted face and a line around it, so that the faces of a pile stay
/// apart without colours.
[[nodiscard]] viewkit::View faceCutout(double cornerRadius);

}  // namespace quorvel
