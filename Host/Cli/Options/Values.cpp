#include "Cli/Options/Values.hpp"

#include <charconv>

namespace cli {
namespace {

constexpr double kLargestSide = 2000;

}  // namespace

std::optional<rendering::PngSize> pngSizeNamed(std::string_view name) {
  if (name == "fast") return rendering::PngSize::fast;
  if (name == "small") return rendering::PngSize::small;
  return std::nullopt;
}

std::optional<double> numberFrom(std::string_view text) {
  if (text.empty() || text.find_first_not_of("0123456789.") != std::string_view::npos)
    return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<rendering::Size> sizeFrom(std::string_view text) {
  const auto cross = text.find('x');
  if (cross == std::string_view::npos) return std::nullopt;
  const auto width = numberFrom(text.substr(0, cross));
  const auto height = numberFrom(text.substr(cross + 1));
  if (!width || !height) return std::nullopt;
  if (*width <= 0 || *height <= 0 || *width > kLargestSide || *height > kLargestSide)
    return std::nullopt;
  return rendering::Size{*width, *height};
}

std::optional<viewkit::Rgb> colorFrom(std::string_view text) {
  if (text.size() != 7 || text[0] != '#') return std::nullopt;
  if (text.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string_view::npos)
    return std::nullopt;
  viewkit::Rgb rgb = 0;
  std::from_chars(text.data() + 1, text.data() + text.size(), rgb, 16);
  return rgb;
}

std::optional<viewkit::RedactionReasons> redactionFrom(std::string_view text) {
  viewkit::RedactionReasons reasons;
  for (;;) {
    const auto comma = text.find(',');
    const std::string_view reason = text.substr(0, comma);
    if (reason == "privacy") {
      reasons.privacy = true;
    } else if (reason == "placeholder") {
      reasons.placeholder = true;
    } else {
      return std::nullopt;
    }
    if (comma == std::string_view::npos) return reasons;
    text.remove_prefix(comma + 1);
  }
}

std::optional<std::pair<std::string, std::string>> assignmentFrom(std::string_view text) {
  const auto equals = text.find('=');
  if (equals == std::string_view::npos || equals == 0) return std::nullopt;
  return std::pair{std::string(text.substr(0, equals)), std::string(text.substr(equals + 1))};
}

}  // namespace cli
