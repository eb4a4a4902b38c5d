#include "Cli/Output.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/Printable.hpp"

namespace cli {
namespace {

/// 0 or the error number.
int writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

std::string reason(int error) {
  return std::strerror(error);
}

Result<void> printBytes(std::string_view bytes) {
  if (const int error = writeAll(STDOUT_FILENO, bytes))
    return refused("standard output: " + reason(error));
  return {};
}

/// A pipe, a device or what a link points to is written into; a file that is or will be one of the
/// folder's own makes room for another.
bool isReplaceable(const std::string& file) {
  struct stat status {};
  if (::lstat(file.c_str(), &status) != 0) return errno == ENOENT;
  return S_ISREG(status.st_mode);
}

int finish(foundation::FileDescriptor descriptor, std::string_view bytes) {
  const int error = writeAll(descriptor.get(), bytes);
  // Closed by hand: some file systems say only now that there was no room.
  const bool isClosed = ::close(descriptor.release()) == 0;
  return error == 0 && !isClosed ? errno : error;
}

int writeInPlace(const std::string& file, std::string_view bytes) {
  foundation::FileDescriptor descriptor(
      ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  return descriptor ? finish(std::move(descriptor), bytes) : errno;
}

int replace(const std::string& file, std::string_view bytes) {
  const auto folder = std::filesystem::path(file).parent_path();
  const std::string temporary = (folder / fmt::format(".quorvel-host.{}", ::getpid())).string();
  foundation::FileDescriptor descriptor(
      ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
  // A folder that takes no new files may still hold one that can be written.
  if (!descriptor) return writeInPlace(file, bytes);
  struct stat status {};
  if (::stat(file.c_str(), &status) == 0) ::fchmod(descriptor.get(), status.st_mode & 07777);
  int error = finish(std::move(descriptor), bytes);
  if (error == 0 && ::rename(temporary.c_str(), file.c_str()) != 0) error = errno;
  if (error != 0) ::unlink(temporary.c_str());
  return error;
}

}  // namespace

Result<void> print(std::string_view text) {
  return printBytes(foundation::printableLines(text));
}

void complain(std::string_view text) {
  writeAll(STDERR_FILENO, foundation::printableLines(text));
}

Result<void> write(const std::string& file, std::string_view bytes) {
  if (file == "-") return printBytes(bytes);
  const int error = isReplaceable(file) ? replace(file, bytes) : writeInPlace(file, bytes);
  if (error != 0) return refused("cannot write " + file + ": " + reason(error));
  return {};
}

Result<void> checkPictureTarget(const std::string& file) {
  if (file == "-" && ::isatty(STDOUT_FILENO) == 1) {
    return misused(
        "a terminal cannot show the picture; name a file with -o, or choose --format text");
  }
  return {};
}

}  // namespace cli
