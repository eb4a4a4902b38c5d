#include "Foundation/ListSeparator.hpp"

namespace foundation {

std::string_view listSeparator(std::string_view language) {
  if (language.starts_with("ar")) return "، ";
  if (language.starts_with("ja")) return "、";
  if (language.starts_with("zh")) return "，";
  return ", ";
}

}  // namespace foundation
