// The grid on which a person puts widgets: rows and columns of desktop and board.
#pragma once

#include "Foundation/JsonMembers.hpp"

namespace control {

inline constexpr int kMaximumCell = 999;

/// A row or column in JSON.
inline constexpr foundation::Bounds kCell{.least = 0, .most = kMaximumCell};

}  // namespace control
