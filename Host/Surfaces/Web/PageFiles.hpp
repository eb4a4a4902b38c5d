// The board's page: what is in Page/, built into the program.
#pragma once

#include "Surfaces/Web/WebServer.hpp"

namespace surfaces {

/// By path; "/" is the page itself. Scripts and styles stand without comments and indentation.
[[nodiscard]] const PublicFiles& pageFiles();

}  // namespace surfaces
