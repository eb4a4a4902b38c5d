#include "Import/Book.hpp"

namespace importer {

std::uint32_t Names::number(std::string_view name) {
  const auto found = numbers_.find(name);
  if (found != numbers_.end()) return found->second;
  const std::uint32_t next = size();
  numbers_.emplace(all_.emplace_back(name), next);
  return next;
}

}  // namespace importer
