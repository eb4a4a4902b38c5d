// A page of pictures in sections, for a browser: no script, nothing from elsewhere.
#pragma once

#include <string>
#include <vector>

#include "Cli/Sheet/Sheet.hpp"

namespace cli {

struct GallerySection {
  std::string id;  ///< in addresses and file names
  std::string title;
  std::string note;  ///< one sentence
  std::vector<SheetRow> rows;
};

/// The file of one picture, relative to the page.
[[nodiscard]] std::string pictureFile(const GallerySection& section,
                                      std::size_t row,
                                      std::size_t cell,
                                      viewkit::Appearance appearance);

/// `introduction` says what was drawn.
[[nodiscard]] std::string galleryPage(const std::vector<GallerySection>& sections,
                                      const std::string& introduction);

}  // namespace cli
