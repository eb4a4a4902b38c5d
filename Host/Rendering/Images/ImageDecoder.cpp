// Opening files safely, and the store of decoded pictures.
#include "Rendering/Images/ImageDecoder.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "Foundation/FileDescriptor.hpp"
#include "Rendering/Images/ImageDecoderFormats.hpp"

namespace rendering {

using foundation::FileDescriptor;

namespace {

constexpr off_t kLargestFile = off_t{32} << 20;
constexpr std::size_t kKept = 16;

/// Each component is opened below the one before it and may not be a link, so no name leads out.
FileDescriptor openBeneath(const std::filesystem::path& container, std::string_view path) {
  if (path.empty() || path.front() == '/' || path.find('\0') != std::string_view::npos) {
    return FileDescriptor();
  }
  FileDescriptor at(open(container.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  while (at) {
    const std::size_t slash = path.find('/');
    const std::string name(path.substr(0, slash));
    if (name.empty() || name == "." || name == "..") return FileDescriptor();
    const bool last = slash == std::string_view::npos;
    const int flags = last ? O_RDONLY | O_NONBLOCK : O_PATH | O_DIRECTORY;
    at = FileDescriptor(openat(at.get(), name.c_str(), flags | O_NOFOLLOW | O_CLOEXEC));
    if (last) break;
    path.remove_prefix(slash + 1);
  }
  return at;
}

/// A regular file within the limit.
bool describe(const FileDescriptor& file, struct stat* status) {
  return file && fstat(file.get(), status) == 0 && S_ISREG(status->st_mode) &&
         status->st_size <= kLargestFile;
}

std::optional<std::string> readAll(const FileDescriptor& file, off_t size) {
  std::string bytes(static_cast<std::size_t>(size), '\0');
  std::size_t got = 0;
  while (got < bytes.size()) {
    const ssize_t part = read(file.get(), bytes.data() + got, bytes.size() - got);
    if (part < 0) return std::nullopt;
    if (part == 0) break;
    got += static_cast<std::size_t>(part);
  }
  bytes.resize(got);
  return bytes;
}

}  // namespace

std::optional<std::string> readBeneath(const std::filesystem::path& container,
                                       std::string_view path) {
  const FileDescriptor file = openBeneath(container, path);
  struct stat status {};
  if (!describe(file, &status)) return std::nullopt;
  return readAll(file, status.st_size);
}

std::shared_ptr<const DecodedImage> decodeImage(std::string_view bytes, Size wanted) {
  auto image = isPng(bytes)    ? decodePng(bytes, wanted)
               : isJpeg(bytes) ? decodeJpeg(bytes, wanted)
                               : std::nullopt;
  return image ? std::make_shared<const DecodedImage>(*std::move(image)) : nullptr;
}

std::shared_ptr<const DecodedImage> ImageCache::load(const std::filesystem::path& container,
                                                     std::string_view path,
                                                     Size wanted) {
  const FileDescriptor file = openBeneath(container, path);
  struct stat status {};
  if (!describe(file, &status)) return nullptr;
  std::string key;
  for (auto part : {static_cast<long>(status.st_dev),
                    static_cast<long>(status.st_ino),
                    static_cast<long>(status.st_size),
                    static_cast<long>(status.st_mtim.tv_sec),
                    static_cast<long>(status.st_mtim.tv_nsec),
                    static_cast<long>(wanted.width),
                    static_cast<long>(wanted.height)}) {
    key += std::to_string(part) + ' ';
  }
  for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
    if (entry->key != key) continue;
    entries_.splice(entries_.begin(), entries_, entry);
    return entry->image;
  }
  const auto bytes = readAll(file, status.st_size);
  entries_.push_front({std::move(key), bytes ? decodeImage(*bytes, wanted) : nullptr});
  if (entries_.size() > kKept) entries_.pop_back();
  return entries_.front().image;
}

}  // namespace rendering
