// The safe-to-spend widget's layouts; each fills what the chrome offers it.
#pragma once

#include "QuorvelWidgets/SafeToSpend/SafeToSpendContent.hpp"

namespace quorvel {

[[nodiscard]] viewkit::View safeToSpendAccentTile(const SafeToSpendContent& content);
[[nodiscard]] viewkit::View safeToSpendRing(const SafeToSpendContent& content);
[[nodiscard]] viewkit::View safeToSpendMedium(const SafeToSpendContent& content);

/// The accessory families, which the widget does not declare: amount and days, as far as they fit.
[[nodiscard]] viewkit::View safeToSpendAccessory(const SafeToSpendContent& content);

}  // namespace quorvel
