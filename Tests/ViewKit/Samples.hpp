// One view for each element and modifier, with its dump and its JSON form written by hand.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "ViewKit/View.hpp"

namespace viewkit {

struct Sample {
  std::string name;  ///< of the test
  View view;
  std::string dump;
  std::string json;
};

inline void PrintTo(const Sample& sample, std::ostream* out) {
  *out << sample.name;
}

[[nodiscard]] std::vector<Sample> elementSamples();
[[nodiscard]] std::vector<Sample> modifierSamples();
[[nodiscard]] Sample documentedSample();
[[nodiscard]] std::vector<Sample> allSamples();

}  // namespace viewkit
