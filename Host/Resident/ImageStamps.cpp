#include "Resident/ImageStamps.hpp"

#include <sys/stat.h>

#include <variant>

namespace resident {
namespace {

ImageStamp stampOf(const std::string& path, const std::filesystem::path& container) {
  ImageStamp stamp{.path = path};
  struct stat status {};
  if (container.empty() || ::stat((container / path).c_str(), &status) != 0) return stamp;
  stamp.inode = status.st_ino;
  stamp.size = status.st_size;
  stamp.modified = status.st_mtim.tv_sec * 1'000'000'000LL + status.st_mtim.tv_nsec;
  return stamp;
}

void collect(const viewkit::View& view,
             const std::filesystem::path& container,
             std::vector<ImageStamp>& stamps) {
  const viewkit::Node& node = view.node();
  if (const auto* image = std::get_if<viewkit::ImageElement>(&node.element)) {
    stamps.push_back(stampOf(image->path, container));
  }
  for (const viewkit::View& child : node.children) collect(child, container, stamps);
  for (const viewkit::Modifier& modifier : node.modifiers) {
    if (const auto* background = std::get_if<viewkit::Background>(&modifier)) {
      collect(background->content, container, stamps);
    } else if (const auto* overlay = std::get_if<viewkit::Overlay>(&modifier)) {
      collect(overlay->content, container, stamps);
    } else if (const auto* ground = std::get_if<viewkit::ContainerBackground>(&modifier)) {
      collect(ground->content, container, stamps);
    }
  }
}

}  // namespace

std::vector<ImageStamp> imageStamps(const viewkit::View& view,
                                    const std::filesystem::path& container) {
  std::vector<ImageStamp> stamps;
  if (!view.isEmpty()) collect(view, container, stamps);
  return stamps;
}

}  // namespace resident
