// Images within an SVG: each picture stands once and is used again.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <tuple>

#include "Rendering/Images/ImageDecoder.hpp"
#include "Rendering/Output/SvgDocument.hpp"
#include "Rendering/Recording/DisplayList.hpp"

namespace rendering {

class SvgImages {
 public:
  /// The element that draws the image in its target: embedded as PNG, or the use of one that was.
  [[nodiscard]] std::string element(const DecodedImage& image,
                                    const DrawImage& command,
                                    SvgDocument& document);

 private:
  struct Embedded {
    std::string id;
    Rect target;
  };

  std::map<std::tuple<const DecodedImage*, bool, std::uint32_t>, Embedded> embedded_;
};

}  // namespace rendering
