// Both forms are walked without building anything.
#include "Foundation/PropertyListBounds.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "Foundation/PropertyList.hpp"

namespace foundation {
namespace {

constexpr int kMaximumLevels = 64;
constexpr std::size_t kMaximumUnfolded = 4 * kMaximumPropertyList;

/// Drops everything through `end`; false when it does not come.
bool skipThrough(std::string_view& text, std::string_view end) {
  const std::size_t found = text.find(end);
  if (found == std::string_view::npos) return false;
  text.remove_prefix(found + end.size());
  return true;
}

/// A tag's inside can be told from quoted text: quotation marks are paired and hold no angle
/// bracket.
bool isPlainTag(std::string_view tag) {
  return !tag.contains('<') && std::ranges::count(tag, '"') % 2 == 0 &&
         std::ranges::count(tag, '\'') % 2 == 0;
}

/// The binary form: a table of objects that refer to each other by number.
class BinaryWalk {
 public:
  explicit BinaryWalk(std::string_view document) : document_(document) {}

  bool run() {
    constexpr std::size_t kTrailer = 32;
    if (document_.size() < 8 + kTrailer) return false;
    const std::size_t trailer = document_.size() - kTrailer;
    offsetSize_ = static_cast<unsigned char>(document_[trailer + 6]);
    referenceSize_ = static_cast<unsigned char>(document_[trailer + 7]);
    const auto count = number(trailer + 8, 8);
    const auto root = number(trailer + 16, 8);
    const auto table = number(trailer + 24, 8);
    if (!count || !root || !table || !isSize(offsetSize_) || !isSize(referenceSize_)) return false;
    if (*table > trailer || *count > (trailer - *table) / offsetSize_) return false;
    count_ = *count;
    table_ = *table;
    return visit(*root, 1);
  }

 private:
  static bool isSize(std::size_t size) { return size >= 1 && size <= 8; }

  [[nodiscard]] std::optional<std::uint64_t> number(std::size_t offset, std::size_t size) const {
    if (offset > document_.size() || size > document_.size() - offset) return std::nullopt;
    std::uint64_t value = 0;
    for (const char c : document_.substr(offset, size)) {
      value = value << 8 | static_cast<unsigned char>(c);
    }
    return value;
  }

  /// `units` things of `size` bytes at `offset` lie before the table and within what is left to
  /// unfold.
  bool spend(std::size_t offset, std::uint64_t units, std::size_t size) {
    if (offset > table_ || units > (table_ - offset) / size) return false;
    unfolded_ += 32 + units * size;
    return unfolded_ <= kMaximumUnfolded;
  }

  bool visit(std::uint64_t object, int level) {
    if (object >= count_ || level > kMaximumLevels) return false;
    const auto start = number(table_ + object * offsetSize_, offsetSize_);
    if (!start || *start < 8 || *start >= table_) return false;
    const auto marker = static_cast<unsigned char>(document_[*start]);
    std::size_t offset = *start + 1;
    const int kind = marker >> 4;
    const int low = marker & 15;
    switch (kind) {
      case 0x0:
        return spend(offset, 0, 1);
      case 0x1:
      case 0x2:
      case 0x3:
        return low <= 4 && spend(offset, std::uint64_t{1} << low, 1);
      case 0x8:
        return spend(offset, static_cast<std::uint64_t>(low) + 1, 1);
      default:
        break;
    }

    std::uint64_t count = static_cast<std::uint64_t>(low);
    if (low == 15 && !readCount(offset, count)) return false;
    switch (kind) {
      case 0x4:
        return spend(offset, count, 1);
      case 0x5:
        return spend(offset, count, 1) && isWithoutNul(offset, count, 1);
      case 0x6:
        return spend(offset, count, 2) && isWithoutNul(offset, count, 2);
      case 0xA:
        return visitAll(offset, count, level);
      case 0xD:
        return count <= kMaximumUnfolded && visitAll(offset, count * 2, level);
      default:
        return false;
    }
  }

  /// The library ends the program over a string whose length is not that of its C string.
  [[nodiscard]] bool isWithoutNul(std::size_t offset, std::uint64_t units, std::size_t size) const {
    for (std::uint64_t i = 0; i < units; ++i) {
      if (number(offset + i * size, size) == 0) return false;
    }
    return true;
  }

  bool readCount(std::size_t& offset, std::uint64_t& count) {
    const auto marker = number(offset, 1);
    if (!marker || *marker >> 4 != 1 || (*marker & 15) > 3) return false;
    const std::size_t size = std::size_t{1} << (*marker & 15);
    const auto value = number(offset + 1, size);
    if (!value) return false;
    offset += 1 + size;
    count = *value;
    return true;
  }

  bool visitAll(std::size_t offset, std::uint64_t count, int level) {
    if (!spend(offset, count, referenceSize_)) return false;
    for (std::uint64_t i = 0; i < count; ++i) {
      const auto object = number(offset + i * referenceSize_, referenceSize_);
      if (!object || !visit(*object, level + 1)) return false;
    }
    return true;
  }

  std::string_view document_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::uint64_t count_ = 0;
  std::uint64_t table_ = 0;
  std::size_t unfolded_ = 0;
};

}  // namespace

bool isBoundedXmlPropertyList(std::string_view text) {
  if (text.contains('\0') || text.contains("&#0") || text.contains("&#x0")) return false;
  int level = 0;
  while (skipThrough(text, "<")) {
    if (text.starts_with("!--")) {
      text.remove_prefix(3);
      if (!skipThrough(text, "-->")) return false;
      continue;
    }
    if (text.starts_with("![CDATA[")) {
      if (!skipThrough(text, "]]>")) return false;
      continue;
    }
    const std::string_view start = text;
    if (!skipThrough(text, ">")) return false;
    const std::string_view tag = start.substr(0, start.size() - text.size() - 1);
    if (tag.empty() || !isPlainTag(tag)) return false;
    if (tag.front() == '?') continue;
    if (tag.front() == '!') {
      if (!tag.starts_with("!DOCTYPE") || tag.contains('[')) return false;
      continue;
    }
    if (tag.front() == '/') {
      if (--level < 0) return false;
    } else if (tag.back() != '/' && ++level > kMaximumLevels) {
      return false;
    }
  }
  return level == 0;
}

bool isBoundedBinaryPropertyList(std::string_view document) {
  return BinaryWalk(document).run();
}

}  // namespace foundation
