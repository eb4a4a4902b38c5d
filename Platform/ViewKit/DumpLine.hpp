// One line of a dump, which goes on in the next one where it is too long.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace viewkit {

struct DumpLine {
  std::string text;
  std::vector<std::size_t> spaces{};  ///< where in `text` the line may be broken

  /// A space at which the line may be broken.
  void space();
  /// Indented by so many spaces, what follows a break by four more, each with a newline.
  void appendTo(std::string& out, std::size_t indent) const;
};

}  // namespace viewkit
