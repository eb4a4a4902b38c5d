// Views as text for people: the form that tests approve and that a reviewer reads.
//
//     WidgetHeader HStack spacing 6
//       .padding(top 8)
//       .background
//         Capsule fill #6B1F3A/#B4416A
//       Symbol "calendar" size 13 weight semibold
//       Text "Due" size 13
//
// A node's line holds its component, its element and what differs from the defaults. Below it,
// indented, stand its modifiers from the inside out, one per line, each with its content, then the
// children. Modifiers that change nothing, such as an opacity of 1, are left out. A line longer
// than 100 columns goes on in the next one, indented twice. Numbers have up to six digits, so that
// dumps do not depend on the last bit.
#pragma once

#include <string>

#include "ViewKit/View.hpp"

namespace viewkit {

/// Ends with a newline.
[[nodiscard]] std::string dump(const View& view);

/// An expression such as `0.5W - 4.5` or `min(W/62, 1.5)`.
[[nodiscard]] std::string dump(const Length& length);

/// `#6B1F3A/#B4416A 0.1/0.24`.
[[nodiscard]] std::string dump(const Color& color);

}  // namespace viewkit
