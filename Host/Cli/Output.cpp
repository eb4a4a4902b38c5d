#include "Cli/Output.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

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

}  // namespace

Result<void> print(std::string_view text) {
  if (const int error = writeAll(STDOUT_FILENO, text))
    return refused("standard output: " + reason(error));
  return {};
}

void complain(std::string_view text) {
  writeAll(STDERR_FILENO, text);
}

Result<void> write(const std::string& file, std::string_view bytes) {
  if (file == "-") return print(bytes);
  const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (descriptor < 0) return refused("cannot write " + file + ": " + reason(errno));
  int error = writeAll(descriptor, bytes);
  if (::close(descriptor) != 0 && error == 0) error = errno;
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

std::string oneLine(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  }
  return text;
}

}  // namespace cli
