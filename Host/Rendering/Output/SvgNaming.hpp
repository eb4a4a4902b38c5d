// What an SVG document calls itself and its parts.
#pragma once

#include <string>
#include <string_view>

#include "Foundation/Ascii.hpp"

namespace rendering {

struct SvgNaming {
  /// What a screen reader says of the picture; without one the picture has no role either.
  std::string title;
  /// In front of every id, so that several pictures can stand in one document. As `isIdPrefix`
  /// allows.
  std::string idPrefix;
};

/// A letter or "_", then letters, digits, "_", "-" and ".", at most 64 together; nothing at all is
/// a prefix too.
[[nodiscard]] constexpr bool isIdPrefix(std::string_view text) {
  constexpr std::size_t kLongest = 64;
  const auto isLetter = [](char c) { return foundation::isAsciiLetter(c) || c == '_'; };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool isLater = foundation::isAsciiDigit(c) || c == '-' || c == '.';
    if (!isLetter(c) && (i == 0 || !isLater)) return false;
  }
  return text.size() <= kLongest;
}

}  // namespace rendering
