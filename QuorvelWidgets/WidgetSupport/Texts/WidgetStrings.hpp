// Every text of the widgets, in thirteen languages, compiled in.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"

namespace quorvel {

struct WidgetStrings {
  /// The text of a key; English for an absent or unknown language. With `n`, every "{n}" is
  /// replaced by its decimal form; "{period}" is left to the caller.
  [[nodiscard]] static std::string text(TextKey key,
                                        std::optional<std::string_view> lang,
                                        std::optional<std::int64_t> n = std::nullopt);

  /// The same for a key that comes from data; an unknown one is its own text.
  [[nodiscard]] static std::string textNamed(std::string_view key,
                                             std::optional<std::string_view> lang,
                                             std::optional<std::int64_t> n = std::nullopt);

  /// The text of `comparisonWith` for a period's name.
  [[nodiscard]] static std::string comparisonWith(std::string_view period,
                                                  std::optional<std::string_view> lang);
};

/// The phrase for a number of cards, by the language's plural rule.
[[nodiscard]] std::string cardCountText(std::int64_t count, std::optional<std::string_view> lang);

/// What follows an amount per day after a space: "/ day", "/日", else the text of `perDay`, which
/// also stands on a line of its own.
[[nodiscard]] std::string perDayUnit(std::optional<std::string_view> lang);

/// An amount or percentage inside a joined text, read from left to right.
[[nodiscard]] std::string isolatedAmount(std::string_view text);

/// A user's name inside a joined text, in its own direction.
[[nodiscard]] std::string isolatedName(std::string_view text);

}  // namespace quorvel
