// What stands between the items of a list that is read aloud.
#pragma once

#include <string_view>

namespace foundation {

/// ", " or the comma of the language's own script. Languages are codes such as "ja" or "zh-Hant".
[[nodiscard]] std::string_view listSeparator(std::string_view language);

}  // namespace foundation
