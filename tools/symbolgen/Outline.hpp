// An icon's outline: one or more paths, each with its fill rule, in a box of 16 units with y
// downwards.
#pragma once

#include <vector>

namespace symbolgen {

struct Point {
  double x = 0;
  double y = 0;
};

struct Step {
  char verb = 'M';  ///< M and L: one point; C: three; Z: none
  Point p[3];
};

struct IconPath {
  bool evenOdd = false;
  std::vector<Step> steps;
};

using Icon = std::vector<IconPath>;

}  // namespace symbolgen
