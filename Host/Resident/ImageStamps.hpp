// Which files the images of a view are now, so that a tree with equal images can be told from one
// whose images were replaced.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "ViewKit/View.hpp"

namespace resident {

struct ImageStamp {
  std::string path;         ///< as the view names it
  std::uint64_t inode = 0;  ///< 0: there is no such file
  std::int64_t size = 0;
  std::int64_t modified = 0;  ///< nanoseconds since 1970

  friend bool operator==(const ImageStamp&, const ImageStamp&) = default;
};

/// In the order of the tree, backgrounds and overlays included.
[[nodiscard]] std::vector<ImageStamp> imageStamps(const viewkit::View& view,
                                                  const std::filesystem::path& container);

}  // namespace resident
