// POSIX files behind the small interface.
#include "Foundation/FileManager.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "Foundation/FileDescriptor.hpp"

namespace foundation {
namespace {

FileError errorOf(int code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR:
      return FileError::missing;
    case EACCES:
    case EPERM:
      return FileError::notPermitted;
    case ENXIO:
    case ENODEV:
    case EISDIR:
    case ELOOP:
      return FileError::notRegular;
    default:
      return FileError::unreadable;
  }
}

/// Reads to the end; a file that grows meanwhile may still pass the limit.
std::expected<std::string, FileError> readAll(int file, std::size_t size, std::size_t limit) {
  std::string bytes(std::min(size, limit) + 1, '\0');
  std::size_t filled = 0;
  while (true) {
    const ssize_t got = ::read(file, bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::unexpected(errorOf(errno));
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
    if (filled > limit) return std::unexpected(FileError::tooLarge);
    if (filled == bytes.size()) bytes.resize(std::min(filled * 2, limit + 1));
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace

std::string_view describe(FileError error) {
  switch (error) {
    case FileError::missing:
      return "no such file";
    case FileError::notPermitted:
      return "no permission";
    case FileError::notRegular:
      return "not a regular file";
    case FileError::tooLarge:
      return "larger than the limit";
    case FileError::unreadable:
      break;
  }
  return "cannot be read";
}

std::expected<std::string, FileError> readFile(const std::string& path, std::size_t limit) {
  if (path.contains('\0')) return std::unexpected(FileError::missing);
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  if (!file) return std::unexpected(errorOf(errno));
  struct stat status {};
  if (::fstat(file.get(), &status) != 0) return std::unexpected(errorOf(errno));
  if (!S_ISREG(status.st_mode)) return std::unexpected(FileError::notRegular);
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > limit) return std::unexpected(FileError::tooLarge);
  return readAll(file.get(), size, limit);
}

std::optional<std::string> contentsOfFile(const std::string& path, std::size_t limit) {
  auto bytes = readFile(path, limit);
  if (!bytes) return std::nullopt;
  return std::move(*bytes);
}

std::string appendingPathComponent(std::string_view path, std::string_view component) {
  std::string out(path);
  if (component.empty()) return out;
  while (out.ends_with('/')) out.pop_back();
  while (component.starts_with('/')) component.remove_prefix(1);
  if (!path.empty()) out += '/';
  return out += component;
}

bool isDirectory(const std::string& path) {
  struct stat status {};
  return !path.contains('\0') && ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

FileManager FileManager::withContainer(std::string folder) {
  FileManager manager(std::move(folder));
  manager.isContainer_ = true;
  return manager;
}

std::optional<std::string> FileManager::containerPath(std::string_view identifier) const {
  const bool isPlainName = !identifier.empty() && identifier != "." && identifier != ".." &&
                           !identifier.contains('/') && !identifier.contains('\0');
  if (!isPlainName || root_.empty()) return std::nullopt;
  return isContainer_ ? root_ : appendingPathComponent(root_, identifier);
}

std::optional<std::string> FileManager::containerURLForSecurityApplicationGroupIdentifier(
    std::string_view identifier) const {
  auto folder = containerPath(identifier);
  if (folder && !isDirectory(*folder)) folder.reset();
  return folder;
}

}  // namespace foundation
