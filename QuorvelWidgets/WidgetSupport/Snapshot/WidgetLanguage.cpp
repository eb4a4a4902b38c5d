#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

#include <algorithm>

namespace quorvel {
namespace {

std::vector<std::string_view> nonEmptyPieces(std::string_view identifier) {
  std::vector<std::string_view> pieces;
  while (!identifier.empty()) {
    const std::size_t end = std::min(identifier.find_first_of("-_"), identifier.size());
    if (end > 0) pieces.push_back(identifier.substr(0, end));
    identifier.remove_prefix(std::min(end + 1, identifier.size()));
  }
  return pieces;
}

std::string lowercased(std::string_view piece) {
  std::string lower(piece);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string_view chineseCode(const std::vector<std::string_view>& pieces) {
  constexpr std::array<std::string_view, 4> kTraditional{"Hant", "TW", "HK", "MO"};
  const bool traditional = std::ranges::any_of(pieces, [&](std::string_view piece) {
    return std::ranges::find(kTraditional, piece) != kTraditional.end();
  });
  return traditional ? "zh-Hant" : "zh-Hans";
}

/// Empty when the widgets do not speak that language.
std::string_view codeFor(std::string_view identifier) {
  const std::vector<std::string_view> pieces = nonEmptyPieces(identifier);
  if (pieces.empty()) return {};
  const std::string language = lowercased(pieces.front());
  if (language == "zh") return chineseCode(pieces);
  if (language == "pt") return "pt-BR";
  if (language == "in") return "id";
  const auto found = std::ranges::find(kLanguageCodes, language);
  return found != kLanguageCodes.end() ? *found : std::string_view{};
}

constexpr std::array<std::string_view, kLanguageCount> kLocales{"en_US",
                                                                "id_ID",
                                                                "es_ES",
                                                                "pt_BR",
                                                                "fr_FR",
                                                                "de_DE",
                                                                "ru_RU",
                                                                "ja_JP",
                                                                "ko_KR",
                                                                "zh_Hans_CN",
                                                                "zh_Hant_TW",
                                                                "hi_IN@numbers=latn",
                                                                "ar@numbers=latn"};

}  // namespace

Language languageForCode(std::optional<std::string_view> lang) {
  if (!lang) return Language::en;
  const auto found = std::ranges::find(kLanguageCodes, *lang);
  if (found == kLanguageCodes.end()) return Language::en;
  return static_cast<Language>(found - kLanguageCodes.begin());
}

std::string preferredLanguageCode(const std::vector<std::string>& preferredLanguages) {
  for (const std::string& identifier : preferredLanguages) {
    if (const std::string_view code = codeFor(identifier); !code.empty()) return std::string(code);
  }
  return "en";
}

foundation::Locale localeFor(std::optional<std::string_view> lang) {
  return {std::string(kLocales[static_cast<std::size_t>(languageForCode(lang))])};
}

viewkit::LayoutDirection layoutDirection(std::optional<std::string_view> lang) {
  return languageForCode(lang) == Language::ar ? viewkit::LayoutDirection::rightToLeft
                                               : viewkit::LayoutDirection::leftToRight;
}

}  // namespace quorvel
