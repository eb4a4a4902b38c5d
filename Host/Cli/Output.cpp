#include "Cli/Output.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/FileWriting.hpp"

namespace cli {
namespace {

std::error_code lastError() {
  return {errno, std::generic_category()};
}

/// A pipe, a device or what a link points to is written into; a file that is or will be one of the
/// folder's own makes room for another.
bool isReplaceable(const std::string& file) {
  struct stat status {};
  if (::lstat(file.c_str(), &status) != 0) return errno == ENOENT;
  return S_ISREG(status.st_mode);
}

std::error_code writeInPlace(const std::string& file, std::string_view bytes) {
  foundation::FileDescriptor descriptor(
      ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  auto error = descriptor ? foundation::writeAll(descriptor.get(), bytes) : lastError();
  // Closed by hand: some file systems say only now that there was no room.
  if (!error && ::close(descriptor.release()) != 0) error = lastError();
  return error;
}

std::error_code replace(const std::string& file, std::string_view bytes) {
  const auto error =
      foundation::replaceFile(file, bytes, {.mode = 0666, .keepsMode = true, .isDurable = false});
  // A folder that takes no new files may still hold one that can be written.
  const bool isFolderClosed = error == std::errc::permission_denied ||
                              error == std::errc::operation_not_permitted ||
                              error == std::errc::read_only_file_system;
  return isFolderClosed ? writeInPlace(file, bytes) : error;
}

}  // namespace

Result<void> write(const std::string& file, std::string_view bytes) {
  if (file == "-") return printBytes(bytes);
  const auto error = isReplaceable(file) ? replace(file, bytes) : writeInPlace(file, bytes);
  if (error) return refused("cannot write " + file + ": " + error.message());
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
