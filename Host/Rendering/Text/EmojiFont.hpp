// Whether emoji are drawn: not every system has a font for them, and tests draw as one without.
#pragma once

#include <cstdint>

namespace rendering {

enum class EmojiFont : std::uint8_t { installed, none };

}  // namespace rendering
