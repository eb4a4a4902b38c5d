// What a program asks of its own process at the start of `main`, to hand it on as values.
#pragma once

#include <filesystem>

#include "Foundation/Locale.hpp"

namespace foundation {

[[nodiscard]] ProcessEnvironment processEnvironment();

/// The folder that holds the program; empty when nobody can tell.
[[nodiscard]] std::filesystem::path programFolder();

}  // namespace foundation
