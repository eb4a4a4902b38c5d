#include "Tests/Support/Transcript.hpp"

#include <vector>

namespace testsupport {

namespace {

std::vector<std::string> logicalLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t first = std::min(line.find_first_not_of(' '), line.size());
    if (line.size() == first) continue;
    if (first > 0 && !lines.empty()) {
      lines.back() += line.substr(first);
    } else {
      lines.emplace_back(line.substr(first));
    }
  }
  return lines;
}

}  // namespace

std::string replay(std::string_view transcript,
                   const std::function<std::string(std::string_view)>& handle) {
  std::string result;
  for (const std::string& line : logicalLines(transcript)) {
    if (line.starts_with("< ")) continue;
    result += line + "\n";
    if (!line.starts_with("> ")) continue;
    const std::string answer = handle(std::string_view{line}.substr(2));
    if (!answer.empty()) result += "< " + answer + "\n";
  }
  return result;
}

std::string joined(std::string_view transcript) {
  std::string result;
  for (const std::string& line : logicalLines(transcript)) result += line + "\n";
  return result;
}

}  // namespace testsupport
