// The languages that the widgets speak, and what follows from each for dates and layout.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Locale.hpp"
#include "ViewKit/Geometry.hpp"

namespace quorvel {

enum class Language : std::uint8_t { en, id, es, ptBR, fr, de, ru, ja, ko, zhHans, zhHant, hi, ar };

inline constexpr std::size_t kLanguageCount = 13;

/// The codes in the enumeration's order.
inline constexpr std::array<std::string_view, kLanguageCount> kLanguageCodes{
    "en", "id", "es", "pt-BR", "fr", "de", "ru", "ja", "ko", "zh-Hans", "zh-Hant", "hi", "ar"};

/// An exact, case-sensitive match; English for an absent or any other code.
[[nodiscard]] Language languageForCode(std::optional<std::string_view> lang);

/// The first of the device's preferred language identifiers that the widgets speak, as a code; "en"
/// when there is none.
[[nodiscard]] std::string preferredLanguageCode(const std::vector<std::string>& preferredLanguages);

/// The locale under which dates are written in that language, always with Latin digits.
[[nodiscard]] foundation::Locale localeFor(std::optional<std::string_view> lang);

[[nodiscard]] viewkit::LayoutDirection layoutDirection(std::optional<std::string_view> lang);

}  // namespace quorvel
