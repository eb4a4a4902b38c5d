// What is wrong in thousands of pictures, in a few lines.
#pragma once

#include <map>
#include <string>
#include <utility>

namespace testsupport {

/// One line for each thing that is wrong, with the number of pictures that show it.
class Faults {
 public:
  void add(const std::string& what, const std::string& where) {
    auto& [count, first] = found_[what];
    if (count++ == 0) first = where;
  }
  [[nodiscard]] std::string lines() const {
    std::string lines;
    for (const auto& [what, places] : found_) {
      lines +=
          what + " (" + std::to_string(places.first) + " times, first in " + places.second + ")\n";
    }
    return lines;
  }

 private:
  std::map<std::string, std::pair<int, std::string>> found_;
};

}  // namespace testsupport
