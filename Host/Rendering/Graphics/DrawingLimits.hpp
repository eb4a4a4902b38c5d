// What one picture may cost the host, whatever tree an extension sends. A picture beyond a limit is
// refused in one line that says which; docs/architecture.md lists the same numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <string>

namespace rendering {

/// What was drawn or written, or the line that says why nothing was.
template <class T>
using Drawn = std::expected<T, std::string>;

namespace limits {

// ---- the picture
inline constexpr double kBitmapSide = 16'000;              ///< pixels
inline constexpr double kBitmapPixels = 64 * 1024 * 1024;  ///< 256 MiB
inline constexpr std::size_t kSvgBytes = std::size_t{32} << 20;

// ---- layout
/// Sizes that are asked for and answered exactly; later ones as the most similar one was.
inline constexpr std::size_t kLayoutQuestions = 500'000;

// ---- display list
inline constexpr std::size_t kCommands = 32'768;
inline constexpr std::size_t kPathPoints = 2'000'000;
inline constexpr std::size_t kImages = 64;
/// Of a shadow, as a share of the picture's longer side: at that radius it is a haze over all of
/// it.
inline constexpr double kShadowRadius = 0.5;

// ---- painting
/// How often a pixel may be visited on average; a picture of few pixels has as many visits as one
/// of `kFewPixels`.
inline constexpr std::int64_t kVisitsPerPixel = 256;
inline constexpr std::int64_t kFewPixels = 256 * 1024;
// What some commands cost, in visits.
inline constexpr std::int64_t kGlyphVisits = 2048;  ///< of a glyph, whose image may have to be made
inline constexpr std::int64_t kImageVisits = 4;     ///< of a pixel: its four neighbours
inline constexpr std::int64_t kLayerVisits = 2;     ///< of a pixel: cleared, put on the one below
inline constexpr std::int64_t kMaskVisits = 2;
inline constexpr std::int64_t kBlurVisits = 8;  ///< of a pixel: three passes in two directions
/// Of all layers, masks and shadows that are needed at the same time.
inline constexpr std::int64_t kLayerPixels = 128 * 1024 * 1024;

// ---- picture files
inline constexpr std::uint64_t kImageSide = 16'384;  ///< pixels
inline constexpr std::uint64_t kImagePixels = 50'000'000;
inline constexpr std::uint64_t kProgressivePixels = 16'000'000;  ///< all are held at once
inline constexpr int kImageScans = 100;                          ///< of a progressive file
}  // namespace limits

}  // namespace rendering
