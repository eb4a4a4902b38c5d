// Both forms are walked without building anything but the text that the library reads.
#include "Foundation/PropertyListBounds.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "Foundation/PropertyList.hpp"
#include "Foundation/Utf8.hpp"

namespace foundation {
namespace {

constexpr int kMaximumLevels = 64;
constexpr std::size_t kMaximumUnfolded = 4 * kMaximumPropertyList;

/// A tag's inside can be told from quoted text: quotation marks are paired and hold no angle
/// bracket.
bool isPlainTag(std::string_view tag) {
  return !tag.contains('<') && std::ranges::count(tag, '"') % 2 == 0 &&
         std::ranges::count(tag, '\'') % 2 == 0;
}

/// The text in UTF-8, from UTF-16 or with a byte-order mark too; nothing when it is not
/// well-formed.
std::optional<std::string> utf8Of(std::string_view document) {
  const auto startsAs = [&](std::string_view mark) { return document.starts_with(mark); };
  using std::string_view_literals::operator""sv;
  const bool isBig = startsAs("\xFE\xFF"sv) || startsAs("\0<"sv);
  const bool isLittle = startsAs("\xFF\xFE"sv) || startsAs("<\0"sv);
  if (!isBig && !isLittle) {
    if (startsAs("\xEF\xBB\xBF"sv)) document.remove_prefix(3);
    if (firstInvalidUtf8(document) != document.size()) return std::nullopt;
    return std::string(document);
  }
  if (document.size() % 2 != 0) return std::nullopt;
  const auto unitAt = [&](std::size_t offset) {
    const auto first = static_cast<unsigned char>(document[offset]);
    const auto second = static_cast<unsigned char>(document[offset + 1]);
    return static_cast<char32_t>(isBig ? first << 8 | second : second << 8 | first);
  };
  std::string out;
  for (std::size_t i = unitAt(0) == 0xFEFF ? 2 : 0; i < document.size(); i += 2) {
    char32_t scalar = unitAt(i);
    if (scalar >= 0xD800 && scalar < 0xDC00 && i + 2 < document.size()) {
      const char32_t low = unitAt(i + 2);
      if (low < 0xDC00 || low > 0xDFFF) return std::nullopt;
      scalar = 0x10000 + ((scalar - 0xD800) << 10) + (low - 0xDC00);
      i += 2;
    }
    if (scalar >= 0xD800 && scalar < 0xE000) return std::nullopt;
    appendUtf8(out, scalar);
  }
  return out;
}

/// "#39" or "#x27" names a character other than NUL; the library takes the rest of a text that
/// holds a NUL for the end of memory.
bool isCharacterReference(std::string_view name) {
  name.remove_prefix(1);
  const bool isHexadecimal = name.starts_with('x') || name.starts_with('X');
  if (isHexadecimal) name.remove_prefix(1);
  std::uint32_t value = 0;
  const auto [end, error] =
      std::from_chars(name.data(), name.data() + name.size(), value, isHexadecimal ? 16 : 10);
  const bool isSurrogate = value >= 0xD800 && value < 0xE000;
  return error == std::errc() && end == name.data() + name.size() && value > 0 &&
         value <= 0x10FFFF && !isSurrogate;
}

/// The XML form, tag by tag. The library replaces references in place, which moves the rest of the
/// text for each; so long texts come out in pieces.
class XmlWalk {
 public:
  explicit XmlWalk(std::string_view text) : text_(text) {}

  std::optional<std::string> run() {
    if (text_.contains('\0')) return std::nullopt;
    while (true) {
      const std::size_t tag = std::min(text_.find('<'), text_.size());
      if (!copyText(text_.substr(0, tag))) return std::nullopt;
      text_.remove_prefix(tag);
      if (text_.empty()) break;
      if (!copyMarkup()) return std::nullopt;
    }
    if (level_ != 0) return std::nullopt;
    return std::move(out_);
  }

 private:
  static constexpr int kReferencesOfAPiece = 64;
  static constexpr std::size_t kLongestReference = 32;

  bool copyText(std::string_view text) {
    for (int references = 1; true; ++references) {
      const std::size_t ampersand = text.find('&');
      if (ampersand == std::string_view::npos) break;
      const std::string_view name = text.substr(ampersand + 1, kLongestReference);
      const std::size_t end = name.find(';');
      if (end == std::string_view::npos) return false;
      if (name.starts_with('#') && !isCharacterReference(name.substr(0, end))) return false;
      const std::size_t length = ampersand + 1 + end + 1;
      out_ += text.substr(0, length);
      text.remove_prefix(length);
      if (references % kReferencesOfAPiece == 0) out_ += "<![CDATA[]]>";
    }
    out_ += text;
    return true;
  }

  /// Copies everything through `end`; false when it does not come.
  bool copyThrough(std::string_view end) {
    const std::size_t found = text_.find(end);
    if (found == std::string_view::npos) return false;
    out_ += text_.substr(0, found + end.size());
    text_.remove_prefix(found + end.size());
    return true;
  }

  bool copyMarkup() {
    if (text_.starts_with("<!--")) return copyThrough("-->");
    if (text_.starts_with("<![CDATA[")) return copyThrough("]]>");
    const std::string_view start = text_;
    if (!copyThrough(">")) return false;
    const std::string_view tag = start.substr(1, start.size() - text_.size() - 2);
    if (tag.empty() || !isPlainTag(tag)) return false;
    if (tag.front() == '?') return true;
    if (tag.front() == '!') return tag.starts_with("!DOCTYPE") && !tag.contains('[');
    if (tag.front() == '/') return --level_ >= 0;
    return tag.back() == '/' || ++level_ <= kMaximumLevels;
  }

  std::string_view text_;
  std::string out_;
  int level_ = 0;
};

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

std::optional<std::string> boundedXmlPropertyList(std::string_view document) {
  const auto text = utf8Of(document);
  return text ? XmlWalk(*text).run() : std::nullopt;
}

bool isBoundedBinaryPropertyList(std::string_view document) {
  return BinaryWalk(document).run();
}

}  // namespace foundation
