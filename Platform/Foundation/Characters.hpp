// Text as a reader sees it: extended grapheme clusters of UTF-8 and their classes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

/// Extended grapheme clusters, in order, as views into `text`.
[[nodiscard]] std::vector<std::string_view> graphemeClusters(std::string_view text);
[[nodiscard]] std::size_t graphemeCount(std::string_view text);

/// The cluster's first scalar has the Unicode property Alphabetic.
[[nodiscard]] bool isLetter(std::string_view cluster);
/// The cluster's first scalar has a Numeric_Type.
[[nodiscard]] bool isNumber(std::string_view cluster);

/// The cluster is a picture (an emoji), which not every system has a font for.
[[nodiscard]] bool isEmoji(std::string_view cluster);

/// The first cluster, fully upper-cased without a locale ("ß" gives "SS"); empty for an empty text.
[[nodiscard]] std::string uppercasedFirstCharacter(std::string_view text);

/// Without leading and trailing spaces and tabs (Unicode spaces and U+200B included, line breaks
/// kept).
[[nodiscard]] std::string_view trimmingSpaces(std::string_view text);

/// Without leading white space and line breaks.
[[nodiscard]] std::string_view skippingSpacesAndLineBreaks(std::string_view text);

}  // namespace foundation
