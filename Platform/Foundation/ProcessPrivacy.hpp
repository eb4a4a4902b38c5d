// A process that holds amounts of money keeps its memory to itself.
#pragma once

namespace foundation {

/// From here on no core is dumped, and other processes of the same user may not read this one's
/// memory (root may). Call it first in `main`; a program that is executed later begins anew.
void keepMemoryPrivate();

}  // namespace foundation
