#include "Rendering/Images/PngEncoder.hpp"

#include <libdeflate.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "Rendering/Images/BitWriter.hpp"
#include "Rendering/Images/DeflateBlock.hpp"
#include "Rendering/Images/PngSmall.hpp"
#include "Rendering/Images/PngTokens.hpp"

namespace rendering {

namespace {

constexpr std::uint32_t kNoFilter = 0;  // the first byte of every row

void putNumber(std::string& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<char>(value >> shift));
}

/// The matches that copies become: whole pixels, no more than a match may have.
class Matches {
 public:
  explicit Matches(std::uint32_t channels) : most_(deflate::kLongestMatch / channels) {
    lengths_.resize(most_ + 1);
    for (std::uint32_t i = 1; i <= most_; ++i) lengths_[i] = deflate::lengthCode(i * channels);
  }

  template <class Use>
  void each(std::uint32_t pixels, Use use) const {
    while (pixels > 0) {
      const std::uint32_t part = std::min(pixels, most_);
      use(lengths_[part]);
      pixels -= part;
    }
  }

 private:
  std::uint32_t most_;
  std::vector<deflate::Code> lengths_;  ///< of matches of so many pixels
};

deflate::SymbolCounts countSymbols(const PngTokens& tokens, const Matches& matches) {
  deflate::SymbolCounts counts = tokens.counts();
  tokens.each([&] { ++counts.literals[kNoFilter]; },
              [](const StraightPixel*, std::uint32_t) {},
              [&](std::uint32_t pixels, std::uint32_t distance) {
                std::uint32_t& distances = counts.distances[deflate::distanceCode(distance).symbol];
                matches.each(pixels, [&](const deflate::Code& length) {
                  ++counts.literals[length.symbol];
                  ++distances;
                });
              });
  ++counts.literals[deflate::kEndOfBlock];
  return counts;
}

void writeTokens(BitWriter& bits,
                 const deflate::BlockCodes& codes,
                 const PngTokens& tokens,
                 const Matches& matches,
                 std::uint32_t channels) {
  tokens.each(
      [&] { codes.writeByte(bits, kNoFilter); },
      [&](const StraightPixel* pixels, std::uint32_t count) {
        for (const StraightPixel* end = pixels + count; pixels < end; ++pixels) {
          const StraightPixel p = *pixels;
          codes.writeBytes(bits, (p >> 16) & 255, (p >> 8) & 255);
          channels == 4 ? codes.writeBytes(bits, p & 255, p >> 24) : codes.writeByte(bits, p & 255);
        }
      },
      [&](std::uint32_t pixels, std::uint32_t distance) {
        const deflate::Code back = deflate::distanceCode(distance);
        matches.each(pixels,
                     [&](const deflate::Code& length) { codes.writeMatch(bits, length, back); });
      });
  codes.writeEnd(bits);
}

/// The rows as a zlib stream (RFC 1950): its header, one deflate block, the checksum.
std::string deflateFast(const Bitmap& bitmap, bool opaque) {
  // Deflate in a window of 32 KiB, compressed fast, no dictionary; a multiple of 31.
  constexpr std::string_view kZlibHeader("\x78\x01", 2);
  const std::uint32_t channels = opaque ? 3 : 4;
  const PngTokens tokens(bitmap, channels);
  const Matches matches(channels);
  const deflate::BlockCodes codes(countSymbols(tokens, matches));
  std::string out(kZlibHeader);
  out.reserve(tokens.size() * 4 + 1024);
  BitWriter bits(out);
  codes.writeHeader(bits);
  writeTokens(bits, codes, tokens, matches, channels);
  bits.finish();
  putNumber(out, tokens.checksum());
  return out;
}

/// Length, type, data and a checksum of the latter two.
void putChunk(std::string& out, std::string_view type, std::string_view data) {
  putNumber(out, static_cast<std::uint32_t>(data.size()));
  const std::size_t begin = out.size();
  out += type;
  out += data;
  putNumber(out, libdeflate_crc32(0, out.data() + begin, out.size() - begin));
}

std::string headerOf(const Bitmap& bitmap, bool opaque) {
  constexpr char kTrueColor = 2;
  constexpr char kTrueColorWithAlpha = 6;
  constexpr char kBitDepth = 8;
  constexpr char kDeflate = 0;
  constexpr char kAdaptiveFilters = 0;
  constexpr char kNoInterlace = 0;
  std::string header;
  putNumber(header, static_cast<std::uint32_t>(bitmap.width));
  putNumber(header, static_cast<std::uint32_t>(bitmap.height));
  header += {kBitDepth,
             opaque ? kTrueColor : kTrueColorWithAlpha,
             kDeflate,
             kAdaptiveFilters,
             kNoInterlace};
  return header;
}

bool isOpaque(const Bitmap& bitmap) {
  for (int y = 0; y < bitmap.height; ++y) {
    const std::uint32_t* row =
        bitmap.pixels.data() + static_cast<std::ptrdiff_t>(y) * bitmap.stride;
    std::uint32_t common = 0xFFFFFFFF;
    for (int x = 0; x < bitmap.width; ++x) common &= row[x];
    if (common >> 24 != 255) return false;
  }
  return true;
}

}  // namespace

std::string encodePng(const Bitmap& bitmap, PngSize size) {
  if (bitmap.width <= 0 || bitmap.height <= 0) return {};
  const bool opaque = isOpaque(bitmap);
  std::string data = deflateFast(bitmap, opaque);
  if (size == PngSize::small) {
    std::string smaller = deflateSmall(bitmap, opaque);
    if (!smaller.empty() && smaller.size() < data.size()) data = std::move(smaller);
  }
  std::string out("\x89PNG\r\n\x1A\n", 8);
  putChunk(out, "IHDR", headerOf(bitmap, opaque));
  putChunk(out, "IDAT", data);
  putChunk(out, "IEND", {});
  return out;
}

}  // namespace rendering
