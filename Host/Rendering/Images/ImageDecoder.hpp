// Picture files beneath the container: opened without leaving it, bounded, decoded no larger than
// needed.
#pragma once

#include <cstdint>
#include <filesystem>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Rendering/Graphics/Geometry.hpp"

namespace rendering {

/// Premultiplied 0xAARRGGBB, rows top down without padding.
struct DecodedImage {
  int width = 0;
  int height = 0;
  int sourceWidth = 0;  ///< of the file, before it was scaled down
  int sourceHeight = 0;
  bool opaque = false;  ///< no pixel lets anything through
  std::vector<std::uint32_t> pixels;
};

/// Bytes of a file below `container`. Absent for a path that is absolute, climbs, passes through a
/// symbolic link, or does not name a regular file of at most 32 MiB.
[[nodiscard]] std::optional<std::string> readBeneath(const std::filesystem::path& container,
                                                     std::string_view path);

/// PNG or JPEG. The picture is halved, thirded ... while it stays at least as large as `wanted`
/// (pixels) on both axes. Absent when damaged in any way, of another format or beyond the limits
/// of picture files.
[[nodiscard]] std::shared_ptr<const DecodedImage> decodeImage(std::string_view bytes, Size wanted);

/// The pictures of the last drawings, by file and size. A file that has changed is read again.
class ImageCache {
 public:
  [[nodiscard]] std::shared_ptr<const DecodedImage> load(const std::filesystem::path& container,
                                                         std::string_view path,
                                                         Size wanted);

 private:
  struct Entry {
    std::string key;
    std::shared_ptr<const DecodedImage> image;  ///< null: the file cannot be decoded
  };
  std::list<Entry> entries_;
};

}  // namespace rendering
