// Views as text for people: the form that tests approve and that a reviewer reads.
//
//     WidgetHeader HStack spacing 6 .padding(top 8) .foreground(#6B1F3A/#B4416A)
//       Symbol "calendar" size 13 weight semibold
//       Text "Due" size 13
//
// One node per line: its component, its element, what differs from the defaults, then its modifiers
// from the inside out. Children are indented below it, after the contents of its backgrounds and
// overlays, which carry a label. Numbers have up to six digits, so that dumps do not depend on the
// last bit.
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
