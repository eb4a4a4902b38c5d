#include "Cli/MemoryFile.hpp"

#include <fmt/format.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace cli {

MemoryFile::MemoryFile(int descriptor)
    : descriptor_(descriptor), path_(fmt::format("/proc/{}/fd/{}", ::getpid(), descriptor)) {}

MemoryFile::MemoryFile(MemoryFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

MemoryFile::~MemoryFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

Result<MemoryFile> MemoryFile::make(std::string_view bytes) {
  MemoryFile file{::memfd_create("document", MFD_CLOEXEC)};
  if (file.descriptor_ < 0)
    return refused(fmt::format("no memory for a document: {}", std::strerror(errno)));
  if (auto done = file.replace(bytes); !done) return std::unexpected(done.error());
  return file;
}

Result<void> MemoryFile::replace(std::string_view bytes) {
  if (::ftruncate(descriptor_, 0) == 0) {
    std::size_t at = 0;
    while (at < bytes.size()) {
      const ssize_t count =
          ::pwrite(descriptor_, bytes.data() + at, bytes.size() - at, static_cast<off_t>(at));
      if (count < 0 && errno != EINTR) break;
      if (count > 0) at += static_cast<std::size_t>(count);
    }
    if (at == bytes.size()) return {};
  }
  return refused(fmt::format("no memory for a document: {}", std::strerror(errno)));
}

}  // namespace cli
