#include "Resident/RedactedPictures.hpp"

#include <fmt/format.h>

#include <cmath>
#include <filesystem>

#include "Control/Paths.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/FileWriting.hpp"
#include "Rendering/Images/ImageDecoder.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace resident {

void RedactedPictures::save(const Slot& slot,
                            const surfaces::Demand& demand,
                            const rendering::Bitmap& bitmap) const {
  if (control::makePrivateFolder(folder_)) return;
  // What a power cut or a full disk takes is drawn again.
  std::ignore = foundation::replaceFile(
      path(slot, demand), rendering::encodePng(bitmap), {.isDurable = false});
}

std::optional<rendering::Bitmap> RedactedPictures::load(const Slot& slot,
                                                        const surfaces::Demand& demand) const {
  const auto bytes = foundation::contentsOfFile(path(slot, demand));
  if (!bytes) return std::nullopt;
  const rendering::RenderOptions& options = demand.options;
  const rendering::Size pixels{std::round(options.size.width * options.scale),
                               std::round(options.size.height * options.scale)};
  const auto image = rendering::decodeImage(*bytes, pixels);
  if (!image || image->width != pixels.width || image->height != pixels.height) return std::nullopt;
  return rendering::Bitmap{image->width, image->height, image->width, image->pixels};
}

void RedactedPictures::remove(const std::string& id) const {
  std::error_code ignored;
  for (const auto& file : std::filesystem::directory_iterator(folder_, ignored)) {
    if (file.path().filename().string().starts_with(id + ".")) {
      std::filesystem::remove(file.path(), ignored);
    }
  }
}

std::string RedactedPictures::path(const Slot& slot, const surfaces::Demand& demand) const {
  const rendering::RenderOptions& options = demand.options;
  const bool isDark = options.appearance == viewkit::Appearance::dark;
  return fmt::format("{}/{}.{}.{}.{}{}.png",
                     folder_,
                     slot.id,
                     slot.surface,
                     isDark ? "dark" : "light",
                     widgetruntime::nameOf(options.mode),
                     options.showsBackground ? "" : ".bare");
}

}  // namespace resident
