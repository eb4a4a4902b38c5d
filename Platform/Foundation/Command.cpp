#include "Foundation/Command.hpp"

#include <unistd.h>

#include <tuple>

#include "Foundation/FileWriting.hpp"
#include "Foundation/Printable.hpp"

namespace foundation::command {

Result<void> printBytes(std::string_view bytes) {
  if (const auto error = writeAll(STDOUT_FILENO, bytes))
    return refused("standard output: " + error.message());
  return {};
}

Result<void> print(std::string_view text) {
  return printBytes(printableLines(text));
}

void complain(std::string_view text) {
  std::ignore = writeAll(STDERR_FILENO, printableLines(text));
}

}  // namespace foundation::command
