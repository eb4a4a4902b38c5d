// The fixed colours of the widgets, each for the light and the dark appearance.
#pragma once

#include "ViewKit/Color.hpp"

namespace quorvel::palette {

namespace detail {
constexpr viewkit::Color dynamic(viewkit::Rgb light, viewkit::Rgb dark) {
  return {viewkit::Color::Pair{light, dark}, 1, -1};
}
}  // namespace detail

inline constexpr viewkit::Color textPrimary = detail::dynamic(0x0B0B0B, 0xFFFFFF);
inline constexpr viewkit::Color textSecondary = detail::dynamic(0x6B6A65, 0x8F8D87);
inline constexpr viewkit::Color canvas = detail::dynamic(0xFCFCFB, 0x1A1A19);
inline constexpr viewkit::Color surface = detail::dynamic(0xF0EFEA, 0x262523);
inline constexpr viewkit::Color surfaceAlt = detail::dynamic(0xE7E6E1, 0x302F2C);
inline constexpr viewkit::Color meterTrack = detail::dynamic(0xE9E8E3, 0x34332F);
inline constexpr viewkit::Color cellEmpty = detail::dynamic(0xECEBE6, 0x2A2926);
inline constexpr viewkit::Color cellMuted = detail::dynamic(0xD6D5CF, 0x3B3A36);
inline constexpr viewkit::Color statusGood = detail::dynamic(0x006300, 0x0CA30C);
inline constexpr viewkit::Color statusWarning = detail::dynamic(0xB4750B, 0xF2B341);
inline constexpr viewkit::Color statusCritical = detail::dynamic(0xD03B3B, 0xE66767);
inline constexpr viewkit::Color changeFavorable = detail::dynamic(0x2A78D6, 0x3987E5);
inline constexpr viewkit::Color assetGreen = detail::dynamic(0x1BAF7A, 0x199E70);
inline constexpr viewkit::Color liabilityPink = detail::dynamic(0xE87BA4, 0xD55181);

}  // namespace quorvel::palette
