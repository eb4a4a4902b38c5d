// One document in its states and languages, and with other amounts: what sheets and measurements
// show.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Foundation/JsonValue.hpp"

namespace cli {

enum class DocumentState : std::uint8_t {
  asWritten,
  hidden,
  noData,
  noDocument,
  overBudget,
  belowZero,
  hugeAmounts,
  tinyAmounts,
  longCurrency,
  longNames,
  emojiNames,
  thaiNames,
  hebrewNames,
  lightFaces,
  oneOfEach,
  nineCards,
  noHistory,
  sixtyMonths
};

/// What a caption says of it; nothing for `asWritten`.
[[nodiscard]] std::string_view name(DocumentState state);

/// The document in that state and language (empty: its own); an empty text for `noDocument`.
[[nodiscard]] std::string documentText(const foundation::JsonValue& document,
                                       DocumentState state,
                                       std::string_view language);

/// The document with every amount changed, differently for each `step`; zeros, percentages, text
/// and the money style stay.
[[nodiscard]] std::string documentWithOtherAmounts(const foundation::JsonValue& document, int step);

}  // namespace cli
