// Looking names up, and what unknown ones fall back to.
#include <algorithm>
#include <array>
#include <cctype>

#include "Foundation/Ascii.hpp"
#include "Rendering/Symbols/SymbolData.hpp"
#include "Rendering/Symbols/SymbolLibrary.hpp"

namespace rendering {

namespace {

using symboldata::NameRow;

constexpr std::string_view kGeneric = "tag.fill";

bool isNumber(std::string_view part) {
  return !part.empty() && std::ranges::all_of(part, foundation::isAsciiDigit);
}

/// The name without its last modifier; empty when it ends in none.
std::string_view withoutModifier(std::string_view name) {
  for (std::string_view mark : {".badge.", ".trianglebadge.", ".and."}) {
    const std::size_t at = name.rfind(mark);
    if (at != std::string_view::npos && at > 0) return name.substr(0, at);
  }
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return {};
  const std::string_view last = name.substr(dot + 1);
  constexpr std::array<std::string_view, 6> kModifiers{
      "fill", "circle", "square", "rectangle", "slash", "inverse"};
  const bool modifier = std::ranges::find(kModifiers, last) != kModifiers.end() || isNumber(last);
  return modifier ? name.substr(0, dot) : std::string_view{};
}

std::optional<SymbolRecipe> findWithOrWithoutFill(std::string_view name, bool filledFirst) {
  const std::string filled = std::string(name) + ".fill";
  if (auto recipe = findSymbol(filledFirst ? std::string_view(filled) : name)) return recipe;
  return findSymbol(filledFirst ? name : std::string_view(filled));
}

/// "7.circle.fill", "a.square": up to two digits or one letter in a container.
std::optional<SymbolRecipe> lettersInContainer(std::string_view name) {
  const std::size_t dot = name.find('.');
  if (dot == std::string_view::npos) return std::nullopt;
  const std::string_view letters = name.substr(0, dot);
  const bool letter = letters.size() == 1 && letters[0] >= 'a' && letters[0] <= 'z';
  if (!letter && !(isNumber(letters) && letters.size() <= 2)) return std::nullopt;
  SymbolRecipe recipe;
  const std::string_view shape = name.substr(dot + 1);
  if (shape == "circle")
    recipe.container = SymbolContainer::circle;
  else if (shape == "circle.fill")
    recipe.container = SymbolContainer::solidCircle;
  else if (shape == "square")
    recipe.container = SymbolContainer::square;
  else if (shape == "square.fill")
    recipe.container = SymbolContainer::solidSquare;
  else
    return std::nullopt;
  for (char c : letters) {
    recipe.letters += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  return recipe;
}

std::optional<SymbolRecipe> resolveKnown(std::string_view name) {
  if (auto recipe = findSymbol(name)) return recipe;
  const bool filled = name.ends_with(".fill");
  for (auto rest = withoutModifier(name); !rest.empty(); rest = withoutModifier(rest)) {
    if (auto recipe = findWithOrWithoutFill(rest, filled)) return recipe;
  }
  for (std::size_t dot = name.rfind('.'); dot != std::string_view::npos && dot > 0;
       dot = name.rfind('.', dot - 1)) {
    if (auto recipe = findWithOrWithoutFill(name.substr(0, dot), filled)) return recipe;
  }
  return lettersInContainer(name);
}

}  // namespace

std::optional<SymbolRecipe> findSymbol(std::string_view name) {
  const auto nameOf = [](const NameRow& row) {
    return std::string_view(symboldata::kNameText + row.name);
  };
  const NameRow* end = symboldata::kNames + symboldata::kNameCount;
  const NameRow* row = std::ranges::lower_bound(symboldata::kNames, end, name, {}, nameOf);
  if (row == end || nameOf(*row) != name) return std::nullopt;
  return SymbolRecipe{row->icon, row->badge, static_cast<SymbolContainer>(row->container), {}};
}

SymbolRecipe resolveSymbol(std::string_view name, std::string_view fallback) {
  if (auto recipe = resolveKnown(name)) return *std::move(recipe);
  if (!fallback.empty()) {
    if (auto recipe = resolveKnown(fallback)) return *std::move(recipe);
  }
  return findSymbol(kGeneric).value_or(SymbolRecipe{});
}

bool mirrorsInRightToLeft(std::string_view name) {
  constexpr std::array<std::string_view, 3> kTrends{
      "arrow.up.right", "arrow.down.right", "arrow.right"};
  if (std::ranges::find(kTrends, name) != kTrends.end()) return true;
  constexpr std::array<std::string_view, 4> kTurning{
      "arrow.forward", "arrow.backward", "chevron.forward", "chevron.backward"};
  return std::ranges::any_of(kTurning, [&](std::string_view beginning) {
    return name.starts_with(beginning) &&
           (name.size() == beginning.size() || name[beginning.size()] == '.');
  });
}

}  // namespace rendering
