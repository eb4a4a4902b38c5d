// Which file draws which script: the fonts of a Debian system by path, without any scan of what is
// installed.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "ViewKit/Elements.hpp"

namespace rendering {

/// Families in the order in which a character looks for one that covers it.
enum class FontFamily : std::uint8_t {
  latin,  ///< Latin, Cyrillic, Greek, digits, punctuation, currency signs; in every language
  arabic,
  devanagari,
  cjk,  ///< Han, kana, Hangul; one face, its forms chosen by language
  thai,
  bengali,
  tamil,
  telugu,
  gujarati,
  gurmukhi,
  kannada,
  malayalam,
  sinhala,
  khmer,
  lao,
  myanmar,
  hebrew,
  armenian,
  georgian,
  emoji,  ///< coloured pictures, one weight
};
inline constexpr int kFontFamilies = 20;
inline constexpr int kFontWeights = 5;

struct FontSource {
  std::string path;
  int face = 0;  ///< index in a collection
};

/// The file of a family and weight: the first that exists of those that come near the weight. Empty
/// when none does.
[[nodiscard]] std::optional<FontSource> fontSource(FontFamily family, viewkit::FontWeight weight);

/// Joined and stacked scripts are never letter-spaced.
[[nodiscard]] constexpr bool takesTracking(FontFamily family) {
  return family == FontFamily::latin || family == FontFamily::cjk || family == FontFamily::hebrew ||
         family == FontFamily::armenian || family == FontFamily::georgian ||
         family == FontFamily::emoji;
}

}  // namespace rendering
