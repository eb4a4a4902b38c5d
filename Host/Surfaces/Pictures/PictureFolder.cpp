#include "Surfaces/Pictures/PictureFolder.hpp"

#include <unistd.h>

#include "Foundation/FileWriting.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Surfaces/WidgetSize.hpp"

namespace surfaces {

std::optional<Demand> PictureFolder::place(const Subject& subject) {
  if (!subject.isPlaced) return std::nullopt;
  Demand demand;
  demand.options.size = standardSize(subject.family);
  demand.options.scale = look_.scale;
  demand.options.appearance = look_.appearance;
  if (widgetruntime::isAccessory(subject.family)) {
    demand.options.showsBackground = false;
    demand.options.cornerRadius = 0;
  }
  return demand;
}

void PictureFolder::show(const Subject& subject, const Shown& shown) {
  if (!shown.picture) return;
  const std::string file = path(subject.id);
  const auto error = foundation::replaceFile(
      file, rendering::encodePng(shown.picture->bitmap), {.isDurable = false});
  // On a full disk the old picture stays, but never one with amounts that are to be hidden.
  if (error && shown.isHidden) ::unlink(file.c_str());
}

void PictureFolder::remove(const std::string& id) {
  ::unlink(path(id).c_str());
}

}  // namespace surfaces
