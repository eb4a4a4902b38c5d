// Colours from the document's text, and which of a pair an appearance shows.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/Color.hpp"

namespace quorvel {

/// Every "#" is dropped, hexadecimal digits are read up to the first other character, the low 24
/// bits count; 0 when there is nothing to read.
[[nodiscard]] viewkit::Rgb parseHexColor(std::string_view text);

/// A shade as a dynamic colour.
[[nodiscard]] viewkit::Color shadeColor(const WidgetSnapshot::Shade& shade);

/// 30 % towards white, channel by channel, halves away from zero.
[[nodiscard]] viewkit::Rgb lighten30(viewkit::Rgb color);

/// From one colour (0) to another (1), channel by channel, halves away from zero.
[[nodiscard]] viewkit::Rgb mixed(viewkit::Rgb from, viewkit::Rgb to, double fraction);

/// An sRGB colour of channels in 0...1.
struct ResolvedColor {
  double red;
  double green;
  double blue;
  double alpha;

  friend bool operator==(const ResolvedColor&, const ResolvedColor&) = default;
};

/// A pair's value in an appearance; nothing for a role, which only the host can resolve.
[[nodiscard]] std::optional<ResolvedColor> resolved(const viewkit::Color& color,
                                                    viewkit::Appearance appearance);

inline constexpr std::string_view NSAppearanceNameAqua = "NSAppearanceNameAqua";
inline constexpr std::string_view NSAppearanceNameDarkAqua = "NSAppearanceNameDarkAqua";

/// The name in `names` that comes closest to an appearance, by what it derives from; nothing when
/// none does.
[[nodiscard]] std::optional<std::string_view> bestMatchFromAppearancesWithNames(
    std::string_view appearance, std::span<const std::string_view> names);

/// Dark only when the best match is the dark name; light for everything else.
[[nodiscard]] viewkit::Appearance appearanceNamed(std::string_view appearance);

}  // namespace quorvel
