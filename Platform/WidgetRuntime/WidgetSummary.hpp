// What a widget says in one line, for bars and titles that have no room for its picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "Foundation/Names.hpp"

namespace widgetruntime {

/// Plain text in the document's language, with amounts masked where the environment redacts, and
/// how things are. A host may colour `state`, and shows nothing for an empty text.
struct WidgetSummary {
  enum class State : std::uint8_t { none, good, warning, critical };
  friend constexpr auto namesOf(State) {
    return foundation::names("none", "good", "warning", "critical");
  }

  std::string text{};
  State state = State::none;

  friend bool operator==(const WidgetSummary&, const WidgetSummary&) = default;
};

/// Bytes of a summary's text on the wire; a longer one, as of a document's odd name, is cut there.
inline constexpr std::size_t kMaximumSummary = 1024;

}  // namespace widgetruntime
