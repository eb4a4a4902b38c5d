#include "Foundation/FileWriting.hpp"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <utility>

#include "Foundation/FileDescriptor.hpp"

namespace foundation {
namespace {

std::error_code lastError() {
  return {errno, std::generic_category()};
}

/// Writers of the same file must not share a name, and one that was killed must not block others.
std::string nameSuffix() {
  std::array<std::uint8_t, 6> random{};
  // Too few bytes make a name that is taken, perhaps; the next try has another.
  [[maybe_unused]] const auto count = ::getrandom(random.data(), random.size(), 0);
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string suffix = ".";
  for (const std::uint8_t byte : random) {
    suffix += kDigits[byte >> 4];
    suffix += kDigits[byte & 0xF];
  }
  return suffix;
}

struct NewFile {
  std::string path;
  FileDescriptor descriptor;
};

/// In the same folder: only there can it take the other's name. Hidden, in case somebody looks.
NewFile makeBeside(const std::string& path, mode_t mode) {
  constexpr int kTries = 16;
  constexpr std::size_t kLongestPart = 200;      // a name has at most 255 bytes
  const std::size_t name = path.rfind('/') + 1;  // 0 without a slash
  NewFile file;
  for (int i = 0; i < kTries && !file.descriptor; ++i) {
    file.path = path.substr(0, name) + "." + path.substr(name, kLongestPart) + nameSuffix();
    file.descriptor = FileDescriptor(
        ::open(file.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!file.descriptor && errno != EEXIST) break;
  }
  return file;
}

std::error_code fill(FileDescriptor file,
                     const std::string& path,
                     std::string_view bytes,
                     const ReplaceOptions& options) {
  struct stat status {};
  if (options.keepsMode && ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
      ::fchmod(file.get(), status.st_mode & 0777) != 0) {
    return lastError();
  }
  if (const auto error = writeAll(file.get(), bytes)) return error;
  if (options.isDurable && ::fsync(file.get()) != 0) return lastError();
  // Closed by hand: some file systems say only now that there was no room.
  return ::close(file.release()) == 0 ? std::error_code{} : lastError();
}

/// The new name itself; the bytes are safe already.
void flushFolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const FileDescriptor file(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (file) ::fsync(file.get());
}

}  // namespace

std::error_code writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return lastError();
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return {};
}

std::error_code replaceFile(const std::string& path,
                            std::string_view bytes,
                            const ReplaceOptions& options) {
  NewFile file = makeBeside(path, options.mode);
  if (!file.descriptor) return lastError();
  auto error = fill(std::move(file.descriptor), path, bytes, options);
  if (!error && std::rename(file.path.c_str(), path.c_str()) != 0) error = lastError();
  if (error) ::unlink(file.path.c_str());
  if (!error && options.isDurable) flushFolderOf(path);
  return error;
}

}  // namespace foundation
