// The grammatical forms in which the widgets' languages count.
#pragma once

#include <cstdint>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

namespace quorvel {

enum class PluralForm : std::uint8_t { one, two, few, many, other };

/// The form that goes with a whole number: in English `one` for 1 and `other` for the rest.
[[nodiscard]] PluralForm pluralForm(std::int64_t count, Language language);

}  // namespace quorvel
