// Rows that several net worth layouts share.
#pragma once

#include "QuorvelWidgets/NetWorth/NetWorthContent.hpp"

namespace quorvel {

/// The change and the month it compares with; empty without a change.
[[nodiscard]] viewkit::View changeRow(const NetWorthContent& content);

}  // namespace quorvel
