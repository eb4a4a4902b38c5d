// Rows as they are, since filters make flat pictures larger, through libdeflate at its best.
#include "Rendering/Images/PngSmall.hpp"

#include <libdeflate.h>

#include <algorithm>
#include <memory>

namespace rendering {

namespace {

constexpr int kBestLevel = 12;
constexpr char kNoFilter = 0;

struct CompressorDeleter {
  void operator()(libdeflate_compressor* compressor) const {
    libdeflate_free_compressor(compressor);
  }
};

void appendRow(std::string& out, const Bitmap& bitmap, int y, bool opaque) {
  const std::uint32_t* pixels =
      bitmap.pixels.data() + static_cast<std::ptrdiff_t>(y) * bitmap.stride;
  out.push_back(kNoFilter);
  for (int x = 0; x < bitmap.width; ++x) {
    const std::uint32_t alpha = pixels[x] >> 24;
    for (int shift : {16, 8, 0}) {
      const std::uint32_t value = (pixels[x] >> shift) & 255;
      out.push_back(
          static_cast<char>(alpha == 0 ? 0 : std::min(255u, (value * 255 + alpha / 2) / alpha)));
    }
    if (!opaque) out.push_back(static_cast<char>(alpha));
  }
}

}  // namespace

std::string deflateSmall(const Bitmap& bitmap, bool opaque) {
  std::string rows;
  rows.reserve(static_cast<std::size_t>(bitmap.height) *
               (static_cast<std::size_t>(bitmap.width) * (opaque ? 3 : 4) + 1));
  for (int y = 0; y < bitmap.height; ++y) appendRow(rows, bitmap, y, opaque);

  const std::unique_ptr<libdeflate_compressor, CompressorDeleter> compressor(
      libdeflate_alloc_compressor(kBestLevel));
  if (!compressor) return {};
  std::string out(libdeflate_zlib_compress_bound(compressor.get(), rows.size()), '\0');
  out.resize(
      libdeflate_zlib_compress(compressor.get(), rows.data(), rows.size(), out.data(), out.size()));
  return out;
}

}  // namespace rendering
