// A layout tree as rows and columns of characters, for terminals.
#pragma once

#include <string>

#include "Rendering/Layout/LayoutTree.hpp"
#include "ViewKit/Appearance.hpp"

namespace rendering {

struct PlainTextOptions {
  int columns = 80;  ///< at most; a narrow widget takes fewer, so that its letters stay close
  viewkit::RedactionReasons redaction;
};

/// Texts where they stand, each row of them on a row of its own, columns lined up at the edge that
/// they share; meters as "[######----]"; covered
/// views, and the texts of a placeholder, as "▒▒▒▒". Right-to-left text is in logical order, wide
/// East Asian characters count as two columns.
[[nodiscard]] std::string plainText(const LayoutTree& tree, const PlainTextOptions& options);

}  // namespace rendering
