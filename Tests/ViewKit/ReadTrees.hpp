// Trees written by hand, and what the reader says of them.
#pragma once

#include <expected>
#include <string>

#include "ViewKit/TreeJson.hpp"

namespace viewkit {

inline std::expected<View, std::string> read(const std::string& json,
                                             const TreeLimits& limits = {}) {
  const auto value = foundation::parseJson(json);
  if (!value) return std::unexpected("not JSON: " + value.error().expected);
  return readView(*value, limits);
}

inline std::string failure(const std::string& json, const TreeLimits& limits = {}) {
  const auto view = read(json, limits);
  return view ? "accepted" : view.error();
}

inline std::string element(const std::string& members) {
  return "{\"type\":" + members + "}";
}

inline std::string modified(const std::string& modifier) {
  return R"({"type":"Spacer","modifiers":[)" + modifier + "]}";
}

}  // namespace viewkit
