// Filtered rows through zlib at its best.
#include "Rendering/PngSmall.hpp"

#include <zlib.h>

#include <algorithm>
#include <cstdlib>

namespace rendering {

namespace {

using Row = std::vector<std::uint8_t>;

Row straightRow(const Bitmap& bitmap, int y, int channels) {
  Row bytes;
  bytes.reserve(static_cast<std::size_t>(bitmap.width) * static_cast<std::size_t>(channels));
  const std::uint32_t* pixels =
      bitmap.pixels.data() + static_cast<std::ptrdiff_t>(y) * bitmap.stride;
  for (int x = 0; x < bitmap.width; ++x) {
    const std::uint32_t alpha = pixels[x] >> 24;
    for (int shift : {16, 8, 0}) {
      const std::uint32_t value = (pixels[x] >> shift) & 255;
      bytes.push_back(static_cast<std::uint8_t>(
          alpha == 0 ? 0 : std::min(255u, (value * 255 + alpha / 2) / alpha)));
    }
    if (channels == 4) bytes.push_back(static_cast<std::uint8_t>(alpha));
  }
  return bytes;
}

int paeth(int left, int above, int corner) {
  const int estimate = left + above - corner;
  const int a = std::abs(estimate - left);
  const int b = std::abs(estimate - above);
  const int c = std::abs(estimate - corner);
  return a <= b && a <= c ? left : b <= c ? above : corner;
}

/// The row as the PNG filter of that number leaves it.
Row filtered(int filter, const Row& row, const Row& above, std::size_t pixel) {
  Row out(row.size());
  for (std::size_t i = 0; i < row.size(); ++i) {
    const int left = i >= pixel ? row[i - pixel] : 0;
    const int up = above.empty() ? 0 : above[i];
    const int corner = i >= pixel && !above.empty() ? above[i - pixel] : 0;
    const int guess = filter == 1   ? left
                      : filter == 2 ? up
                      : filter == 3 ? (left + up) / 2
                      : filter == 4 ? paeth(left, up, corner)
                                    : 0;
    out[i] = static_cast<std::uint8_t>(row[i] - guess);
  }
  return out;
}

/// How far a row's bytes are from zero, as signed numbers.
long cost(const Row& row) {
  long sum = 0;
  for (std::uint8_t byte : row) sum += std::min<int>(byte, 256 - byte);
  return sum;
}

std::string compressed(const std::string& data, int strategy) {
  z_stream stream{};
  if (deflateInit2(&stream, 9, Z_DEFLATED, 15, 9, strategy) != Z_OK) return {};
  std::string out(deflateBound(&stream, static_cast<uLong>(data.size())), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
  stream.avail_in = static_cast<uInt>(data.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  const int result = deflate(&stream, Z_FINISH);
  out.resize(result == Z_STREAM_END ? stream.total_out : 0);
  deflateEnd(&stream);
  return out;
}

}  // namespace

std::string deflateSmall(const Bitmap& bitmap, bool opaque) {
  const int channels = opaque ? 3 : 4;
  std::string plain;
  std::string adaptive;
  Row above;
  for (int y = 0; y < bitmap.height; ++y) {
    const Row row = straightRow(bitmap, y, channels);
    plain.push_back(0);
    plain.append(row.begin(), row.end());
    int best = 0;
    Row bestRow = row;
    for (int filter = 1; filter <= 4; ++filter) {
      Row candidate = filtered(filter, row, above, static_cast<std::size_t>(channels));
      if (cost(candidate) < cost(bestRow)) {
        best = filter;
        bestRow = std::move(candidate);
      }
    }
    adaptive.push_back(static_cast<char>(best));
    adaptive.append(bestRow.begin(), bestRow.end());
    above = row;
  }
  std::string a = compressed(plain, Z_DEFAULT_STRATEGY);
  std::string b = compressed(adaptive, Z_FILTERED);
  return !b.empty() && (a.empty() || b.size() < a.size()) ? b : a;
}

}  // namespace rendering
