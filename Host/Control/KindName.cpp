#include "Control/KindName.hpp"

#include <vector>

namespace control {
namespace {

bool isUpper(char c) {
  return c >= 'A' && c <= 'Z';
}

std::vector<std::string_view> wordsOf(std::string_view kind) {
  std::vector<std::string_view> words;
  while (!kind.empty()) {
    std::size_t end = 1;
    while (end < kind.size() && !isUpper(kind[end])) ++end;
    words.push_back(kind.substr(0, end));
    kind.remove_prefix(end);
  }
  return words;
}

}  // namespace

std::string shortKind(std::string_view kind) {
  const auto words = wordsOf(kind);
  if (words.size() < 3 || words.back() != "Widget") return std::string(kind);
  std::string name;
  for (std::size_t i = 1; i + 1 < words.size(); ++i) {
    if (i > 1) name += '-';
    for (const char c : words[i]) name += isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return name;
}

bool namesKind(std::string_view name, std::string_view kind) {
  return name == kind || name == shortKind(kind);
}

}  // namespace control
