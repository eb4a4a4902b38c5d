#include "Rendering/Images/PngEncoder.hpp"

#include <libdeflate.h>

#include <array>
#include <string_view>

#include "Rendering/Images/BitWriter.hpp"
#include "Rendering/Images/DeflateBlock.hpp"
#include "Rendering/Images/PngSmall.hpp"
#include "Rendering/Images/PngTokens.hpp"

namespace rendering {

namespace {

void putNumber(std::string& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<char>(value >> shift));
}

/// Writes a picture's tokens in the codes of one block.
class TokenWriter {
 public:
  TokenWriter(const deflate::BlockCodes& codes, const PngTokens& tokens, std::uint32_t channels)
      : codes_(codes), tokens_(tokens), channels_(channels), longest_(tokens.longestMatch()) {
    for (std::uint32_t pixels = 1; pixels <= longest_; ++pixels) {
      matches_[pixels] = codes.length(deflate::lengthCode(pixels * channels));
    }
  }

  /// By value, so that the compiler may keep the writer in registers.
  BitWriter write(BitWriter bits, const Bitmap& bitmap) const {
    constexpr std::size_t kMostBytes = 8;  // per pixel, whether it is copied or not
    const auto width = static_cast<std::uint32_t>(bitmap.width);
    const std::uint32_t* row = bitmap.pixels.data();
    auto token = tokens_.tokens().begin();
    for (int y = 0; y < bitmap.height; ++y, row += bitmap.stride) {
      bits.makeRoom((width + 1) * kMostBytes);
      codes_.literal(kNoFilter).writeTo(bits);
      for (std::uint32_t x = 0; x < width; x += token++->pixels) {
        token->isCopy() ? writeCopy(bits, *token) : writePixels(bits, row + x, token->pixels);
      }
    }
    codes_.endOfBlock().writeTo(bits);
    return bits;
  }

 private:
  void writeCopy(BitWriter& bits, const PngTokens::Token& copy) const {
    const deflate::Bits back = codes_.distance(copy.distance, copy.extra);
    std::uint32_t pixels = copy.pixels;
    for (; pixels >= longest_; pixels -= longest_) matches_[longest_].then(back).writeTo(bits);
    if (pixels > 0) matches_[pixels].then(back).writeTo(bits);
  }

  void writePixels(BitWriter& bits, const std::uint32_t* pixels, std::uint32_t count) const {
    for (std::uint32_t i = 0; i < count; ++i) {
      const StraightPixel pixel = straight(pixels[i]);
      const deflate::Bits colors = codes_.literal((pixel >> 16) & 255)
                                       .then(codes_.literal((pixel >> 8) & 255))
                                       .then(codes_.literal(pixel & 255));
      colors.writeTo(bits);
      if (channels_ == 4) codes_.literal(pixel >> 24).writeTo(bits);
    }
  }

  const deflate::BlockCodes& codes_;
  const PngTokens& tokens_;
  std::uint32_t channels_;
  std::uint32_t longest_;                                            ///< pixels of a match
  std::array<deflate::Bits, deflate::kLongestMatch + 1> matches_{};  ///< of so many pixels
};

/// The rows as a zlib stream (RFC 1950): its header, one deflate block, the checksum.
std::string deflateFast(const Bitmap& bitmap, bool opaque) {
  // Deflate in a window of 32 KiB, compressed fast, no dictionary; a multiple of 31.
  constexpr std::string_view kZlibHeader("\x78\x01", 2);
  const std::uint32_t channels = opaque ? 3 : 4;
  const PngTokens tokens(bitmap, channels);
  const deflate::BlockCodes codes(tokens.counts());
  std::string out(kZlibHeader);
  BitWriter bits(out);
  codes.writeHeader(bits);
  TokenWriter(codes, tokens, channels).write(bits, bitmap).finish();
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
