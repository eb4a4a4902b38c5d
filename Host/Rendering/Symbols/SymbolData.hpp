// The generated symbol table: names in byte order, icons, and their outlines in a compact form.
//
// An outline is a sequence of operations: 0 ends the icon, 1 and 2 begin a path filled by the
// non-zero or the even-odd rule, 3 moves, 4 draws a line, 5 a cubic curve, 6 closes. Points follow
// their operation as differences from the point before, in 1/128 of a unit of the 16-unit box, y
// downwards: sign in the lowest bit, seven bits per byte, low ones first.
#pragma once

#include <cstdint>

namespace rendering::symboldata {

struct NameRow {
  std::uint16_t name;  ///< offset in kNameText, where a zero byte ends it
  std::uint16_t icon;
  std::int16_t badge;      ///< icon; -1 none
  std::uint8_t container;  ///< 0 none, 1 circle, 2 solid circle, 3 square, 4 solid square
};

struct IconRow {
  std::uint32_t offset;  ///< in kOutlines
  bool material;         ///< its box has a margin
  bool filled;           ///< not made bolder by weight
};

extern const char kNameText[];
extern const NameRow kNames[];
extern const unsigned kNameCount;
extern const IconRow kIcons[];
extern const unsigned kIconCount;
extern const char kOutlines[];

}  // namespace rendering::symboldata
