// The scanner that colours are read with.
#include "Foundation/HexScanner.hpp"

#include <charconv>
#include <limits>

#include "Foundation/Ascii.hpp"
#include "Foundation/Characters.hpp"

namespace foundation {

std::optional<std::uint64_t> scanHexLongLong(std::string_view text) {
  text = skippingSpacesAndLineBreaks(text);
  const auto isHexDigit = [&](std::size_t i) {
    return i < text.size() &&
           (isAsciiDigit(text[i]) || ((text[i] | 0x20) >= 'a' && (text[i] | 0x20) <= 'f'));
  };
  const bool hasPrefix = text.size() > 2 && text[0] == '0' && (text[1] | 0x20) == 'x';
  if (hasPrefix && isHexDigit(2)) text.remove_prefix(2);

  std::uint64_t value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (result.ec == std::errc::invalid_argument) return std::nullopt;
  if (result.ec == std::errc::result_out_of_range) return std::numeric_limits<std::uint64_t>::max();
  return value;
}

}  // namespace foundation
