#include "Surfaces/Pictures/PictureFolder.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "Foundation/FileDescriptor.hpp"
#include "Rendering/PngEncoder.hpp"
#include "Surfaces/WidgetSize.hpp"

namespace surfaces {
namespace {

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace

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
  const std::string written = folder_ + "/." + subject.id + ".new";
  const foundation::FileDescriptor out{
      ::open(written.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600)};
  // A folder that cannot be written to keeps its old pictures; nobody is there to be told.
  if (!out || !writeAll(out.get(), rendering::encodePng(shown.picture->bitmap)) ||
      std::rename(written.c_str(), file.c_str()) != 0) {
    ::unlink(written.c_str());
  }
}

void PictureFolder::remove(const std::string& id) {
  ::unlink(path(id).c_str());
}

}  // namespace surfaces
