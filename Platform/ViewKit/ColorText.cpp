#include "ViewKit/ColorText.hpp"

#include <charconv>
#include <system_error>

#include "ViewKit/Names.hpp"

namespace viewkit {

namespace {

void appendRgb(std::string& out, Rgb rgb) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out += '#';
  for (int shift = 20; shift >= 0; shift -= 4) out += kDigits[(rgb >> shift) & 0xF];
}

bool takeOne(std::string_view& text, char c) {
  if (!text.starts_with(c)) return false;
  text.remove_prefix(1);
  return true;
}

std::optional<Rgb> takeRgb(std::string_view& text) {
  constexpr std::size_t kDigits = 6;
  if (!takeOne(text, '#') || text.size() < kDigits) return std::nullopt;
  const std::string_view digits = text.substr(0, kDigits);
  text.remove_prefix(kDigits);
  Rgb rgb = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), rgb, 16);
  if (end != digits.data() + digits.size()) return std::nullopt;
  return rgb;
}

std::optional<Color> takeGround(std::string_view& text) {
  if (text.starts_with('#')) {
    const std::optional<Rgb> light = takeRgb(text);
    const std::optional<Rgb> dark = takeOne(text, '/') ? takeRgb(text) : light;
    if (!light || !dark) return std::nullopt;
    return Color::dynamic(*light, *dark);
  }
  const std::string_view word = text.substr(0, text.find(' '));
  text.remove_prefix(word.size());
  if (const auto role = named<ColorRole>(word)) return Color{*role};
  return std::nullopt;
}

bool takeOpacity(std::string_view& text, double& opacity) {
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), opacity);
  text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
  return error == std::errc{} && opacity >= 0 && opacity <= 1;
}

}  // namespace

void appendColor(std::string& out, const Color& color, void (*number)(std::string&, double)) {
  if (const auto* pair = std::get_if<Color::Pair>(&color.value)) {
    appendRgb(out, pair->light);
    if (pair->dark != pair->light) {
      out += '/';
      appendRgb(out, pair->dark);
    }
  } else {
    out += nameOf(std::get<ColorRole>(color.value));
  }
  const bool twoOpacities = color.darkOpacity >= 0;
  if (color.opacity == 1 && !twoOpacities) return;
  out += ' ';
  number(out, color.opacity);
  if (!twoOpacities) return;
  out += '/';
  number(out, color.darkOpacity);
}

std::optional<Color> parseColor(std::string_view text) {
  std::optional<Color> color = takeGround(text);
  if (!color || text.empty()) return color;
  if (!takeOne(text, ' ') || !takeOpacity(text, color->opacity)) return std::nullopt;
  if (takeOne(text, '/') && !takeOpacity(text, color->darkOpacity)) return std::nullopt;
  if (!text.empty()) return std::nullopt;
  return color;
}

}  // namespace viewkit
