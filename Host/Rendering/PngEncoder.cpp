// Our pictures are flat: long runs of one colour, rows that repeat the row above, and letters whose
// edges have few shades. One pass over whole pixels finds all three.
#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

#include "Rendering/PngHuffman.hpp"
#include "Rendering/PngSmall.hpp"
#include "Rendering/Renderer.hpp"

namespace rendering {

namespace {

constexpr int kEndOfBlock = 256;
constexpr int kLiterals = 286;
constexpr int kDistances = 30;
constexpr std::size_t kFarthest = 32768;
constexpr std::uint32_t kAdlerBase = 65521;

/// Lowest bit first, as deflate wants it.
class BitWriter {
 public:
  explicit BitWriter(std::string& out) : out_(out) {}

  void put(std::uint64_t bits, int count) {
    held_ |= bits << used_;
    used_ += count;
    if (used_ >= 32) {
      if (out_.size() < at_ + 8) [[unlikely]]
        out_.resize(out_.size() * 2 + 4096);
      const auto low = static_cast<std::uint32_t>(held_);
      const std::array<char, 4> bytes{static_cast<char>(low),
                                      static_cast<char>(low >> 8),
                                      static_cast<char>(low >> 16),
                                      static_cast<char>(low >> 24)};
      std::memcpy(out_.data() + at_, bytes.data(), bytes.size());
      at_ += 4;
      held_ >>= 32;
      used_ -= 32;
    }
  }
  void start() { at_ = out_.size(); }
  void finish() {
    out_.resize(at_);
    for (; used_ > 0; used_ -= 8, held_ >>= 8) out_.push_back(static_cast<char>(held_));
    used_ = 0;
  }

 private:
  std::string& out_;
  std::size_t at_ = 0;
  std::uint64_t held_ = 0;
  int used_ = 0;
};

struct Code {
  std::uint16_t symbol;
  std::uint8_t extraBits;
  std::uint16_t extra;
};

Code lengthCode(unsigned length) {
  if (length == 258) return {285, 0, 0};
  if (length < 11) return {static_cast<std::uint16_t>(254 + length), 0, 0};
  const unsigned value = length - 3;
  const int bits = std::bit_width(value) - 3;
  return {static_cast<std::uint16_t>(257 + 4 * bits + (value >> bits)),
          static_cast<std::uint8_t>(bits),
          static_cast<std::uint16_t>(value & ((1u << bits) - 1))};
}

Code distanceCode(unsigned distance) {
  const unsigned value = distance - 1;
  if (value < 4) return {static_cast<std::uint16_t>(value), 0, 0};
  const int bits = std::bit_width(value) - 2;
  return {static_cast<std::uint16_t>(2 * bits + (value >> bits)),
          static_cast<std::uint8_t>(bits),
          static_cast<std::uint16_t>(value & ((1u << bits) - 1))};
}

std::uint32_t straight(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  if (alpha == 255) return pixel;
  if (alpha == 0) return 0;
  const auto channel = [&](int shift) {
    return std::min(255u, (((pixel >> shift) & 255) * 255 + alpha / 2) / alpha) << shift;
  };
  return alpha << 24 | channel(16) | channel(8) | channel(0);
}

/// Pixels that were there before, so many bytes back.
struct Copy {
  int pixels = 0;
  std::uint32_t distance = 0;
};

/// Where a pixel, or it and the next one, was last seen.
class LastSeen {
 public:
  struct Place {
    int x = -1;  ///< below 0: nowhere
    int y = 0;
  };

  Place& operator[](std::uint64_t pixels) {
    return places_[(pixels * 0x9E3779B97F4A7C15u) >> (64 - kBits)];
  }

 private:
  static constexpr int kBits = 12;
  std::array<Place, 1u << kBits> places_{};
};

class Encoder {
 public:
  Encoder(const Bitmap& bitmap, bool opaque)
      : bitmap_(bitmap),
        channels_(opaque ? 3 : 4),
        rowBytes_(static_cast<std::size_t>(bitmap.width) * channels_ + 1),
        mostPixels_(258 / channels_) {}

  std::string deflated() {
    tokens_.reserve(static_cast<std::size_t>(bitmap_.height) * 64);
    for (int y = 0; y < bitmap_.height; ++y) tokenizeRow(y);
    std::string out("\x78\x01", 2);
    write(out);
    const std::uint32_t adler = sumB_ << 16 | sumA_;
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<char>(adler >> shift));
    return out;
  }

 private:
  [[nodiscard]] const std::uint32_t* row(int y) const {
    return bitmap_.pixels.data() + static_cast<std::ptrdiff_t>(y) * bitmap_.stride;
  }

  static int equalAbove(const std::uint32_t* pixel, const std::uint32_t* above, int count) {
    int i = 0;
    for (; i + 4 <= count; i += 4) {
      std::uint64_t a[2];
      std::uint64_t b[2];
      std::memcpy(a, pixel + i, 16);
      std::memcpy(b, above + i, 16);
      const std::uint64_t first = a[0] ^ b[0];
      const std::uint64_t second = a[1] ^ b[1];
      if ((first | second) == 0) continue;
      if (first == 0) i += 2;
      return pixel[i] == above[i] ? i + 1 : i;
    }
    while (i < count && pixel[i] == above[i]) ++i;
    return i;
  }
  static int equalLeft(const std::uint32_t* pixel, int count) {
    return equalAbove(pixel, pixel - 1, count);
  }

  // The checksum's two sums of a row are kept and changed only where pixels differ from the row
  // above; `weight` says how often a byte at that place counts in the second sum.
  void changeSums(std::uint32_t pixel, std::uint32_t before, std::uint64_t weight) {
    const auto add = [&](int shift) {
      const auto change = static_cast<std::int64_t>((pixel >> shift) & 255) -
                          static_cast<std::int64_t>((before >> shift) & 255);
      rowA_ += change;
      rowB_ += change * static_cast<std::int64_t>(weight--);
    };
    add(16);
    add(8);
    add(0);
    if (channels_ == 4) add(24);
  }

  void tokenizeRow(int y) {
    const std::uint32_t* pixels = row(y);
    const int width = bitmap_.width;
    const bool canCopy = y > 0 && rowBytes_ <= kFarthest;
    const std::uint32_t* above = y > 0 ? row(y - 1) : nullptr;
    tokens_.push_back(kRowStart);
    for (int x = 0; x < width;) {
      const int up = canCopy ? equalAbove(pixels + x, above + x, width - x) : 0;
      if (up == width - x || up >= kGoodCopy) {
        x += copy(fromAbove(up));
        continue;
      }
      const int left = x > 0 ? equalLeft(pixels + x, width - x) : 0;
      Copy best = left >= up ? Copy{left, channels_} : fromAbove(up);
      if (best.pixels < kFewPixels) {
        const Copy before = earlier(x, y);
        if (before.pixels > best.pixels) best = before;
      }
      const int count = std::max(best.pixels, 1);
      updateSums(pixels, above, x, count);
      if (best.pixels > 0) {
        copy(best);
      } else {
        literal(straight(pixels[x]));
      }
      remember(x, y);
      x += count;
    }
    literalRun_ = 0;
    finishRowSums();
  }

  [[nodiscard]] Copy fromAbove(int pixels) const {
    return {pixels, static_cast<std::uint32_t>(rowBytes_)};
  }

  [[nodiscard]] std::uint64_t pair(int x, int y) const {
    const std::uint32_t* pixel = row(y) + x;
    return std::uint64_t{pixel[1]} << 32 | pixel[0];
  }

  void remember(int x, int y) {
    const LastSeen::Place place{x, y};
    pixels_[row(y)[x]] = place;
    if (x + 1 < bitmap_.width) pairs_[pair(x, y)] = place;
  }

  /// From where this pixel and the next one, or it alone, was last seen.
  Copy earlier(int x, int y) {
    if (x + 1 < bitmap_.width) {
      const Copy two = copyFrom(pairs_[pair(x, y)], x, y);
      if (two.pixels > 1) return two;
    }
    return copyFrom(pixels_[row(y)[x]], x, y);
  }

  [[nodiscard]] Copy copyFrom(LastSeen::Place from, int x, int y) const {
    if (from.x < 0) return {};
    const auto distance = static_cast<std::size_t>(y - from.y) * rowBytes_ +
                          static_cast<std::size_t>(x - from.x) * channels_;
    if (distance > kFarthest) return {};
    const int room = bitmap_.width - std::max(x, from.x);
    return {equalAbove(row(y) + x, row(from.y) + from.x, room),
            static_cast<std::uint32_t>(distance)};
  }

  void updateSums(const std::uint32_t* pixels, const std::uint32_t* above, int x, int count) {
    std::uint64_t weight = (static_cast<std::uint64_t>(bitmap_.width) - x) * channels_;
    for (int i = x; i < x + count; ++i, weight -= channels_) {
      const std::uint32_t before = above ? above[i] : 0;
      if (pixels[i] != before) changeSums(straight(pixels[i]), straight(before), weight);
    }
  }

  void finishRowSums() {
    const auto a = static_cast<std::uint64_t>(rowA_);
    const auto b = static_cast<std::uint64_t>(rowB_);
    sumB_ = static_cast<std::uint32_t>((sumB_ + rowBytes_ % kAdlerBase * sumA_ + b) % kAdlerBase);
    sumA_ = static_cast<std::uint32_t>((sumA_ + a) % kAdlerBase);
  }

  int copy(const Copy& copy) {
    literalRun_ = 0;
    tokens_.push_back(kCopyFlag | static_cast<std::uint32_t>(copy.pixels));
    tokens_.push_back(copy.distance);
    return copy.pixels;
  }

  void literal(std::uint32_t pixel) {
    if (literalRun_ == 0) {
      literalRun_ = tokens_.size();
      tokens_.push_back(0);
    }
    ++tokens_[literalRun_];
    tokens_.push_back(pixel);
    ++counts_[(pixel >> 16) & 255];
    ++counts_[(pixel >> 8) & 255];
    ++counts_[pixel & 255];
    if (channels_ == 4) ++counts_[pixel >> 24];
  }

  /// Splits a copy into matches of at most 258 bytes, at least one pixel each.
  template <class Use>
  void eachMatch(std::uint32_t pixels, Use use) const {
    while (pixels > 0) {
      const std::uint32_t part = std::min(pixels, mostPixels_);
      use(part);
      pixels -= part;
    }
  }

  void countCopies() {
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      const std::uint32_t token = tokens_[i];
      if (token == kRowStart) {
        ++counts_[0];
      } else if ((token & kCopyFlag) == 0) {
        i += token;
      } else {
        const Code distance = distanceCode(tokens_[++i]);
        eachMatch(token & ~kCopyFlag, [&](std::uint32_t part) {
          ++counts_[lengths_[part].symbol];
          ++distanceCounts_[distance.symbol];
        });
      }
    }
    ++counts_[kEndOfBlock];
  }

  void write(std::string& out) {
    lengths_.resize(mostPixels_ + 1);
    for (std::uint32_t i = 1; i <= mostPixels_; ++i) lengths_[i] = lengthCode(i * channels_);
    countCopies();
    std::array<std::uint8_t, kLiterals> sizes{};
    std::array<std::uint16_t, kLiterals> codes{};
    std::array<std::uint8_t, kDistances> distanceSizes{};
    std::array<std::uint16_t, kDistances> distanceCodes{};
    huffmanLengths(counts_, 15, sizes);
    huffmanLengths(distanceCounts_, 15, distanceSizes);
    if (std::ranges::all_of(distanceSizes, [](auto s) { return s == 0; })) distanceSizes[0] = 1;
    huffmanCodes(sizes, codes);
    huffmanCodes(distanceSizes, distanceCodes);

    BitWriter bits(out);
    out.reserve(tokens_.size() * 4 + 1024);
    bits.start();
    writeHeader(bits, sizes, distanceSizes);
    const auto match = [&](const Code& length, const Code& distance) {
      std::uint64_t value = codes[length.symbol];
      int count = sizes[length.symbol];
      value |= std::uint64_t{length.extra} << count;
      count += length.extraBits;
      bits.put(value, count);
      bits.put(distanceCodes[distance.symbol] | std::uint64_t{distance.extra}
                                                    << distanceSizes[distance.symbol],
               distanceSizes[distance.symbol] + distance.extraBits);
    };
    const auto byte = [&](std::uint32_t value) { bits.put(codes[value], sizes[value]); };
    const auto bytePair = [&](std::uint32_t a, std::uint32_t b) {
      bits.put(codes[a] | std::uint64_t{codes[b]} << sizes[a], sizes[a] + sizes[b]);
    };
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      const std::uint32_t token = tokens_[i];
      if (token == kRowStart) {
        byte(0);
      } else if ((token & kCopyFlag) == 0) {
        for (std::uint32_t end = token; end > 0; --end) {
          const std::uint32_t p = tokens_[++i];
          bytePair((p >> 16) & 255, (p >> 8) & 255);
          channels_ == 4 ? bytePair(p & 255, p >> 24) : byte(p & 255);
        }
      } else {
        const Code distance = distanceCode(tokens_[++i]);
        eachMatch(token & ~kCopyFlag, [&](std::uint32_t part) { match(lengths_[part], distance); });
      }
    }
    byte(kEndOfBlock);
    bits.finish();
  }

  /// One final block with its own codes.
  static void writeHeader(BitWriter& bits,
                          const std::array<std::uint8_t, kLiterals>& sizes,
                          const std::array<std::uint8_t, kDistances>& distanceSizes) {
    constexpr std::array<std::uint8_t, 19> kOrder{
        16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    std::vector<std::uint8_t> all(sizes.begin(), sizes.end());
    all.insert(all.end(), distanceSizes.begin(), distanceSizes.end());
    std::array<std::uint32_t, 19> counts{};
    struct Item {
      std::uint8_t symbol;
      std::uint8_t extra;
    };
    std::vector<Item> items;
    for (std::size_t i = 0; i < all.size();) {
      std::size_t run = 1;
      while (i + run < all.size() && all[i + run] == all[i]) ++run;
      if (all[i] == 0 && run >= 3) {
        run = std::min<std::size_t>(run, 138);
        items.push_back(run < 11 ? Item{17, static_cast<std::uint8_t>(run - 3)}
                                 : Item{18, static_cast<std::uint8_t>(run - 11)});
      } else {
        run = 1;
        items.push_back({all[i], 0});
      }
      ++counts[items.back().symbol];
      i += run;
    }
    std::array<std::uint8_t, 19> lengths{};
    std::array<std::uint16_t, 19> codes{};
    huffmanLengths(counts, 7, lengths);
    huffmanCodes(lengths, codes);
    bits.put(1, 1);
    bits.put(2, 2);
    bits.put(kLiterals - 257, 5);
    bits.put(kDistances - 1, 5);
    bits.put(19 - 4, 4);
    for (std::uint8_t symbol : kOrder) bits.put(lengths[symbol], 3);
    for (const Item& item : items) {
      bits.put(codes[item.symbol], lengths[item.symbol]);
      if (item.symbol == 17) bits.put(item.extra, 3);
      if (item.symbol == 18) bits.put(item.extra, 7);
    }
  }

  // A token is the start of a row, a copy's pixels and then its distance, or a number of literal
  // pixels and then these.
  static constexpr std::uint32_t kRowStart = 0xFFFFFFFF;
  static constexpr std::uint32_t kCopyFlag = 0x80000000;
  static constexpr int kGoodCopy = 16;
  static constexpr int kFewPixels = 3;

  const Bitmap& bitmap_;
  std::uint32_t channels_;
  std::size_t rowBytes_;
  std::uint32_t mostPixels_;
  std::vector<std::uint32_t> tokens_;
  std::size_t literalRun_ = 0;
  std::array<std::uint32_t, kLiterals> counts_{};
  std::array<std::uint32_t, kDistances> distanceCounts_{};
  std::vector<Code> lengths_;
  LastSeen pixels_;
  LastSeen pairs_;
  std::int64_t rowA_ = 0;
  std::int64_t rowB_ = 0;
  std::uint32_t sumA_ = 1;
  std::uint32_t sumB_ = 0;
};

void putNumber(std::string& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<char>(value >> shift));
}

void putChunk(std::string& out, const char* type, const std::string& data) {
  putNumber(out, static_cast<std::uint32_t>(data.size()));
  const std::size_t begin = out.size();
  out += type;
  out += data;
  putNumber(out, libdeflate_crc32(0, out.data() + begin, data.size() + 4));
}

bool isOpaque(const Bitmap& bitmap) {
  for (int y = 0; y < bitmap.height; ++y) {
    const std::uint32_t* row =
        bitmap.pixels.data() + static_cast<std::ptrdiff_t>(y) * bitmap.stride;
    for (int x = 0; x < bitmap.width; ++x) {
      if (row[x] >> 24 != 255) return false;
    }
  }
  return true;
}

}  // namespace

std::string encodePng(const Bitmap& bitmap, PngSize size) {
  if (bitmap.width <= 0 || bitmap.height <= 0) return {};
  const bool opaque = isOpaque(bitmap);
  std::string header;
  putNumber(header, static_cast<std::uint32_t>(bitmap.width));
  putNumber(header, static_cast<std::uint32_t>(bitmap.height));
  header += {8, static_cast<char>(opaque ? 2 : 6), 0, 0, 0};
  std::string out("\x89PNG\r\n\x1A\n", 8);
  putChunk(out, "IHDR", header);
  std::string data = Encoder(bitmap, opaque).deflated();
  if (size == PngSize::small) {
    std::string smaller = deflateSmall(bitmap, opaque);
    if (!smaller.empty() && smaller.size() < data.size()) data = std::move(smaller);
  }
  putChunk(out, "IDAT", data);
  putChunk(out, "IEND", {});
  return out;
}

}  // namespace rendering
