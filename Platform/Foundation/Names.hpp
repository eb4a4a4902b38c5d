// The names of an enumeration's values, as files, messages and command lines spell them: one list
// for each enumeration, in the order of its values, found by its namespace.
//
//     enum class LineCap { butt, round, square };
//     constexpr auto namesOf(LineCap) { return foundation::names("butt", "round", "square"); }
//
//     foundation::nameOf(LineCap::round);       // "round"
//     foundation::named<LineCap>("butt");       // LineCap::butt; nothing for an unknown name
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace foundation {

template <class... Name>
[[nodiscard]] consteval std::array<std::string_view, sizeof...(Name)> names(const Name&... all) {
  return {std::string_view{all}...};
}

template <class Enum>
concept NamedEnum = std::is_enum_v<Enum> && requires(Enum value) {
  namesOf(value);
};

template <NamedEnum Enum>
inline constexpr auto kNames = namesOf(Enum{});

template <NamedEnum Enum>
[[nodiscard]] constexpr std::string_view nameOf(Enum value) {
  return kNames<Enum>[static_cast<std::size_t>(value)];
}

template <NamedEnum Enum>
[[nodiscard]] constexpr std::optional<Enum> named(std::string_view name) {
  for (std::size_t i = 0; i < kNames<Enum>.size(); ++i) {
    if (kNames<Enum>[i] == name) return static_cast<Enum>(i);
  }
  return std::nullopt;
}

}  // namespace foundation
