// Records that the JSON tests read and write.
#pragma once

#include <array>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "Foundation/Json.hpp"

namespace foundation {

inline void PrintTo(const JsonProblem& p, std::ostream* out) {
  *out << p.pointer << " " << p.line << ":" << p.column << " expected " << p.expected << ", found "
       << p.found;
}

struct Figure {
  std::string month;
  double value = 0;

  static std::span<const JsonField> jsonFields() {
    static constexpr std::array kFields{jsonField<&Figure::month>("month"),
                                        jsonField<&Figure::value>("value")};
    return kFields;
  }
  friend bool operator==(const Figure&, const Figure&) = default;
};

struct Report {
  Instant writtenAt;
  bool isFinal = false;
  std::string title;
  double total = 0;
  std::optional<double> rate;
  std::vector<double> daily;
  std::vector<Figure> figures;
  std::optional<Figure> best;
  std::optional<std::vector<std::string>> tags;

  static std::span<const JsonField> jsonFields() {
    static constexpr std::array kFields{jsonField<&Report::writtenAt>("writtenAt"),
                                        jsonField<&Report::isFinal>("isFinal"),
                                        jsonField<&Report::title>("title"),
                                        jsonField<&Report::total>("total"),
                                        jsonField<&Report::rate>("rate"),
                                        jsonField<&Report::daily>("daily"),
                                        jsonField<&Report::figures>("figures"),
                                        jsonField<&Report::best>("best"),
                                        jsonField<&Report::tags>("tags")};
    return kFields;
  }
  friend bool operator==(const Report&, const Report&) = default;
};

/// {"v": value}
template <class T>
struct Holder {
  T v{};

  static std::span<const JsonField> jsonFields() {
    static constexpr std::array kFields{jsonField<&Holder::v>("v")};
    return kFields;
  }
};

}  // namespace foundation
