// Icons from SVG files made of <path> and <circle> elements in a box of 16 units.
#pragma once

#include <string>
#include <string_view>

#include "Outline.hpp"

namespace symbolgen {

/// Throws std::runtime_error, naming the file, for anything that it does not understand.
[[nodiscard]] Icon readSvgIcon(const std::string& path);

/// The steps of a `d` attribute; arcs become cubic curves.
[[nodiscard]] IconPath parsePathData(std::string_view data);

}  // namespace symbolgen
