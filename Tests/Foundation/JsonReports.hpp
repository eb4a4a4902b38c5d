// A document of every kind of member, and what a reader says of its variants.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Json.hpp"
#include "JsonRecords.hpp"

namespace foundation {

inline constexpr std::string_view kReport =
    R"({"writtenAt":"2025-03-14T09:30:00Z","isFinal":true,"title":"March","total":15.99,)"
    R"("daily":[1,2.5,0],"figures":[{"month":"2025-03","value":97260}]})";

template <class T>
inline std::optional<T> readAs(const std::string& json) {
  auto decoded = decodeJson<Holder<T>>("{\"v\":" + json + "}");
  if (!decoded) return std::nullopt;
  return decoded->v;
}

/// Whether an ignored key may hold it.
inline bool isWellFormed(const std::string& json) {
  return decodeJson<Holder<double>>("{\"x\":" + json + ",\"v\":1}").has_value();
}

inline std::vector<JsonProblem> problemsOf(std::string_view document) {
  auto decoded = decodeJson<Report>(document);
  return decoded ? std::vector<JsonProblem>() : decoded.error().problems;
}

inline std::string with(std::string document, std::string_view from, std::string_view to) {
  const std::size_t at = document.find(from);
  EXPECT_NE(at, std::string::npos);
  return document.replace(at, from.size(), to);
}

inline std::string nested(std::size_t levels) {
  return std::string(levels, '[') + std::string(levels, ']');
}

}  // namespace foundation
