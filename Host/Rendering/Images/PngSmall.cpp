// Rows as they are, since filters make flat pictures larger, through libdeflate at its best.
#include "Rendering/Images/PngSmall.hpp"

#include <libdeflate.h>

#include <memory>
#include <vector>

#include "Rendering/Images/PngRow.hpp"

namespace rendering {

namespace {

constexpr int kBestLevel = 12;

struct CompressorDeleter {
  void operator()(libdeflate_compressor* compressor) const {
    libdeflate_free_compressor(compressor);
  }
};

}  // namespace

std::string deflateSmall(const Bitmap& bitmap, bool opaque) {
  const std::uint32_t channels = opaque ? 3 : 4;
  const auto width = static_cast<std::size_t>(bitmap.width);
  const std::size_t rowBytes = width * channels + 1;
  std::vector<unsigned char> rows(rowBytes * static_cast<std::size_t>(bitmap.height), kNoFilter);
  for (std::size_t y = 0; y < static_cast<std::size_t>(bitmap.height); ++y) {
    const std::uint32_t* pixels =
        bitmap.pixels.data() + y * static_cast<std::size_t>(bitmap.stride);
    writePngRow(pixels, width, channels, rows.data() + y * rowBytes + 1);
  }
  const std::unique_ptr<libdeflate_compressor, CompressorDeleter> compressor(
      libdeflate_alloc_compressor(kBestLevel));
  if (!compressor) return {};
  std::string out(libdeflate_zlib_compress_bound(compressor.get(), rows.size()), '\0');
  out.resize(
      libdeflate_zlib_compress(compressor.get(), rows.data(), rows.size(), out.data(), out.size()));
  return out;
}

}  // namespace rendering
