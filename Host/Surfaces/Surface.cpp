#include "Surfaces/Surface.hpp"

#include <array>

namespace surfaces {

std::string_view name(State state) {
  constexpr std::array<std::string_view, 4> kNames{"placeholder", "live", "stale", "failed"};
  return kNames[static_cast<std::size_t>(state)];
}

}  // namespace surfaces
