#include "Import/Output.hpp"

#include <unistd.h>

#include <tuple>

#include "Foundation/FileWriting.hpp"

namespace importer {
Result<void> print(std::string_view text) {
  if (const auto error = foundation::writeAll(STDOUT_FILENO, text))
    return refused("standard output: " + error.message());
  return {};
}

void complain(std::string_view text) {
  std::ignore = foundation::writeAll(STDERR_FILENO, text);
}

std::string oneLine(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  }
  return text;
}

}  // namespace importer
