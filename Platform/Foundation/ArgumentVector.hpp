// Texts as exec and its like take them.
#pragma once

#include <string>
#include <vector>

namespace foundation {

/// Ends in a null pointer, and lives as long as the texts do.
[[nodiscard]] inline std::vector<char*> argumentVector(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

}  // namespace foundation
