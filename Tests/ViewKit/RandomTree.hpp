// Trees made of chance, the same for the same seed: every element and modifier, with values inside
// their bounds.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "ViewKit/View.hpp"

namespace viewkit {

class RandomTree {
 public:
  explicit RandomTree(std::uint32_t seed) : engine_(seed) {}

  [[nodiscard]] View view(int depth = 4);

 private:
  [[nodiscard]] Element element();
  [[nodiscard]] Modifier modifier(int depth);
  [[nodiscard]] ShapeGeometry shape();
  [[nodiscard]] PathStep step();
  [[nodiscard]] Length length(int depth = 2);
  [[nodiscard]] LengthPoint point();
  [[nodiscard]] Color color();
  [[nodiscard]] Paint paint();
  [[nodiscard]] Gradient gradient();
  [[nodiscard]] Alignment alignment();
  [[nodiscard]] std::string text();

  [[nodiscard]] std::uint32_t below(std::uint32_t count) {
    return static_cast<std::uint32_t>(engine_() % count);
  }
  [[nodiscard]] bool coin() { return below(2) == 0; }
  [[nodiscard]] double unit() { return static_cast<double>(engine_()) / 4294967295.0; }
  [[nodiscard]] double size() { return unit() * 400; }
  [[nodiscard]] double number() { return (unit() - 0.5) * 1000; }
  template <class Enum>
  [[nodiscard]] Enum one(std::uint32_t count) {
    return static_cast<Enum>(below(count));
  }
  template <class T>
  [[nodiscard]] std::optional<T> maybe(T value) {
    return coin() ? std::optional<T>(std::move(value)) : std::nullopt;
  }

  std::mt19937 engine_;
};

}  // namespace viewkit
