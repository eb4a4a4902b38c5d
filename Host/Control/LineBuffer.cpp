#include "Control/LineBuffer.hpp"

#include <algorithm>

namespace control {

std::optional<std::string> LineBuffer::next() {
  const std::size_t end = buffer_.find('\n');
  if (end == std::string::npos || end > maximum_) return std::nullopt;
  std::string line = buffer_.substr(0, end);
  buffer_.erase(0, end + 1);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

bool LineBuffer::isTooLong() const {
  return std::min(buffer_.find('\n'), buffer_.size()) > maximum_;
}

}  // namespace control
