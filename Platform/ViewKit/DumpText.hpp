// The words of a dump: numbers, quoted texts and lengths.
#pragma once

#include <string>
#include <string_view>

#include "ViewKit/Length.hpp"

namespace viewkit {

/// Six digits at most, no trailing zeros, no negative zero; "infinity".
void appendNumber(std::string& out, double number);

/// In double quotes; control characters, spaces that look like others and characters that show
/// nothing are written as \n or \u2066.
void appendQuoted(std::string& out, std::string_view text);

void appendLength(std::string& out, const Length& length);

}  // namespace viewkit
