#include "Surfaces/Pictures/PictureFolder.hpp"

#include <unistd.h>

#include <tuple>

#include "Foundation/FileWriting.hpp"
#include "Rendering/PngEncoder.hpp"
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
  // A folder that cannot be written to keeps its old pictures; nobody is there to be told.
  std::ignore = foundation::replaceFile(
      path(subject.id), rendering::encodePng(shown.picture->bitmap), {.isDurable = false});
}

void PictureFolder::remove(const std::string& id) {
  ::unlink(path(id).c_str());
}

}  // namespace surfaces
