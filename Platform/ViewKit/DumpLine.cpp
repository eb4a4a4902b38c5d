#include "ViewKit/DumpLine.hpp"

#include <algorithm>
#include <string_view>

namespace viewkit {

namespace {

constexpr std::size_t kColumns = 100;
constexpr std::size_t kContinuation = 4;

std::size_t columnsOf(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

}  // namespace

void DumpLine::space() {
  spaces.push_back(text.size());
  text += ' ';
}

void DumpLine::appendTo(std::string& out, std::size_t indent) const {
  const std::string_view all = text;
  std::size_t margin = indent;
  std::size_t start = 0;  // of what is not yet written
  std::size_t end = 0;    // of what is known to fit
  const auto write = [&] {
    out.append(margin, ' ').append(all.substr(start, end - start)) += '\n';
    start = end + 1;
    margin = indent + kContinuation;
  };
  const auto reach = [&](std::size_t stop) {
    const bool fits = margin + columnsOf(all.substr(start, stop - start)) <= kColumns;
    if (!fits && start < end) write();
    end = stop;
  };
  for (const std::size_t space : spaces) reach(space);
  reach(all.size());
  write();
}

}  // namespace viewkit
