#include "Rendering/Output/SvgImages.hpp"

#include <fmt/format.h>

#include "Rendering/Graphics/PainterPixels.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Output/SvgText.hpp"

namespace rendering {

using svg::number;

namespace {

Bitmap bitmapOf(const DecodedImage& image) {
  return {image.width, image.height, image.width, image.pixels};
}

Bitmap tinted(Bitmap bitmap, std::uint32_t tint) {
  for (std::uint32_t& pixel : bitmap.pixels) pixel = scalePixel(tint, pixel >> 24);
  return bitmap;
}

}  // namespace

std::string SvgImages::element(const DecodedImage& image,
                               const DrawImage& command,
                               SvgDocument& document) {
  const Rect& target = command.target;
  const bool isTinted = command.colors == DrawImage::Colors::tinted;
  const std::uint32_t tint = isTinted ? premultiply(command.tint) : 0;
  const auto [found, isNew] = embedded_.try_emplace({&image, isTinted, tint});
  Embedded& first = found->second;
  if (isNew) {
    first = {document.newId('i'), target};
    const Bitmap plain = bitmapOf(image);
    return fmt::format(
        R"(<image id="{}" {} preserveAspectRatio="none" href="data:image/png;base64,{}"/>)",
        first.id,
        svg::box(target),
        svg::base64(encodePng(isTinted ? tinted(plain, tint) : plain)));
  }
  const double width = target.width / first.target.width;
  const double height = target.height / first.target.height;
  return fmt::format(R"svg(<use href="#{}" transform="matrix({} 0 0 {} {} {})"/>)svg",
                     first.id,
                     number(width),
                     number(height),
                     number(target.x - first.target.x * width),
                     number(target.y - first.target.y * height));
}

}  // namespace rendering
