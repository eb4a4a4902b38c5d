#include "Rendering/Output/SvgText.hpp"

#include <fmt/format.h>

#include <cmath>
#include <cstdint>

namespace rendering::svg {

std::string number(double value) {
  std::string text = fmt::format("{:.3f}", std::isfinite(value) ? value : 0);
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string pathData(std::span<const PathVerb> verbs, std::span<const Point> points) {
  std::string d;
  std::size_t next = 0;
  const auto add = [&](char verb, int count) {
    d += verb;
    for (int i = 0; i < count; ++i, ++next) {
      if (i > 0) d += ' ';
      d += number(points[next].x) + ' ' + number(points[next].y);
    }
  };
  for (const PathVerb verb : verbs) {
    switch (verb) {
      case PathVerb::move:
        add('M', 1);
        break;
      case PathVerb::line:
        add('L', 1);
        break;
      case PathVerb::cubic:
        add('C', 3);
        break;
      case PathVerb::close:
        add('Z', 0);
        break;
    }
  }
  return d;
}

std::string pathData(const Path& path) {
  return pathData(path.verbs, path.points);
}

std::string box(const Rect& rect) {
  return fmt::format(R"(x="{}" y="{}" width="{}" height="{}")",
                     number(rect.x),
                     number(rect.y),
                     number(rect.width),
                     number(rect.height));
}

std::string hex(const Rgba& color) {
  return fmt::format("#{:02X}{:02X}{:02X}", color.red, color.green, color.blue);
}

std::string base64(std::string_view bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t value = 0;
    for (std::size_t j = 0; j < 3; ++j) {
      value = value << 8 | (i + j < bytes.size() ? static_cast<unsigned char>(bytes[i + j]) : 0U);
    }
    for (std::size_t j = 0; j < 4; ++j) {
      out += i + j <= bytes.size() ? kDigits[(value >> (18 - 6 * j)) & 63] : '=';
    }
  }
  return out;
}

}  // namespace rendering::svg
