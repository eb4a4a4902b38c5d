// Views as JSON: what an extension sends and a host reads.
//
//     {"type":"HStack","spacing":6,"name":"WidgetHeader",
//      "children":[{"type":"Text","text":"Due","size":13,"weight":"semibold"}],
//      "modifiers":[{"padding":[8,0,0,0]},{"foreground":"#6B1F3A/#B4416A"}]}
//
// Only what differs from the defaults is written. A length is a number, or `[w, h, points,
// term...]` for `w W + h H + points`, with terms `["min", factor, length, length]`.
#pragma once

#include <cstddef>
#include <expected>
#include <string>

#include "Foundation/JsonValue.hpp"
#include "Foundation/JsonWriter.hpp"
#include "ViewKit/View.hpp"

namespace viewkit {

/// Bytes of a text that is written; the rest of a longer one is left out.
inline constexpr std::size_t kMaximumWrittenText = 1024;

/// What a reader accepts. Contents of backgrounds and overlays count like children.
struct TreeLimits {
  std::size_t depth = 64;           ///< nodes from the root to a leaf
  std::size_t nodes = 4000;         ///< of the whole tree
  std::size_t stringBytes = 16384;  ///< of any one string
  std::size_t modifiers = 64;       ///< of a node
  std::size_t pathModifiers = 256;  ///< of all nodes from the root to a leaf
  std::size_t lengthDepth = 8;      ///< choices within choices
  std::size_t lengthTerms = 64;     ///< choices in one length
  std::size_t pathSteps = 4000;     ///< of one path
  std::size_t gradientStops = 64;
};

/// One value. Numbers that are not finite become null, which no reader accepts; a string that
/// is too long is cut between two characters.
void writeView(foundation::JsonWriter& writer, const View& view);

/// A view equal to the one that was written, component names included; or where the tree breaks
/// which rule:
/// "/children/2/modifiers/0/opacity: expected a number in 0...1".
[[nodiscard]] std::expected<View, std::string> readView(const foundation::JsonValue& json,
                                                        const TreeLimits& limits = {});

}  // namespace viewkit
