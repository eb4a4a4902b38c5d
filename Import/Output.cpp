#include "Import/Output.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace importer {
namespace {

int writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

}  // namespace

Result<void> print(std::string_view text) {
  if (const int error = writeAll(STDOUT_FILENO, text))
    return refused(std::string("standard output: ") + std::strerror(error));
  return {};
}

void complain(std::string_view text) {
  writeAll(STDERR_FILENO, text);
}

std::string oneLine(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  }
  return text;
}

}  // namespace importer
