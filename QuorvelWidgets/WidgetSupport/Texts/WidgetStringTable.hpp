// The table behind WidgetStrings: one row per key, one text per language.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"

namespace quorvel {

/// A text in each language. A language that is forgotten does not compile.
struct Translations {
  std::string_view en;
  std::string_view id;
  std::string_view es;
  std::string_view ptBR;
  std::string_view fr;
  std::string_view de;
  std::string_view ru;
  std::string_view ja;
  std::string_view ko;
  std::string_view zhHans;
  std::string_view zhHant;
  std::string_view hi;
  std::string_view ar;

  [[nodiscard]] constexpr std::string_view in(Language language) const {
    constexpr std::string_view Translations::*kMembers[kLanguageCount] = {&Translations::en,
                                                                          &Translations::id,
                                                                          &Translations::es,
                                                                          &Translations::ptBR,
                                                                          &Translations::fr,
                                                                          &Translations::de,
                                                                          &Translations::ru,
                                                                          &Translations::ja,
                                                                          &Translations::ko,
                                                                          &Translations::zhHans,
                                                                          &Translations::zhHant,
                                                                          &Translations::hi,
                                                                          &Translations::ar};
    return this->*kMembers[static_cast<std::size_t>(language)];
  }

  /// Every language has a text.
  [[nodiscard]] constexpr bool complete() const {
    for (std::size_t i = 0; i < kLanguageCount; ++i) {
      if (in(static_cast<Language>(i)).empty()) return false;
    }
    return true;
  }
};

struct StringRow {
  std::string_view key;
  Translations texts;
};

[[nodiscard]] std::span<const StringRow> stringRows();

[[nodiscard]] const StringRow& stringRow(TextKey key);

/// For keys that are not ours; null for an unknown one.
[[nodiscard]] const StringRow* findStringRow(std::string_view key);

}  // namespace quorvel
