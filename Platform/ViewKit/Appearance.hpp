// How a host draws a tree: light or dark, in full colour or tinted, open or redacted.
#pragma once

#include <cstdint>

#include "Foundation/Names.hpp"

namespace viewkit {

enum class Appearance : std::uint8_t { light, dark };
constexpr auto namesOf(Appearance) {
  return foundation::names("light", "dark");
}

/// accented: two flat tints, opacity kept; vibrant: greys over what lies behind.
enum class RenderingMode : std::uint8_t { fullColor, accented, vibrant };
constexpr auto namesOf(RenderingMode) {
  return foundation::names("fullColor", "accented", "vibrant");
}

struct RedactionReasons {
  bool privacy = false;
  bool placeholder = false;

  friend bool operator==(const RedactionReasons&, const RedactionReasons&) = default;
};

}  // namespace viewkit
