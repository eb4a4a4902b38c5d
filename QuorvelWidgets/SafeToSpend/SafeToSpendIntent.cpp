#include "QuorvelWidgets/SafeToSpend/SafeToSpendIntent.hpp"

#include <string>

namespace quorvel {

widgetruntime::IntentDescription SafeToSpendIntent::description() {
  widgetruntime::IntentParameter style{
      .name = "style",
      .title = "Style",
      .typeName = "Style",
      .defaultValue = std::string{rawValue(SafeToSpendIntent{}.style)}};
  for (const SafeToSpendStyle value : kSafeToSpendStyles) {
    style.cases.push_back({std::string{rawValue(value)}, std::string{displayTitle(value)}});
  }
  return {.name = "SafeToSpendIntent", .title = "Choose Style", .parameters = {style}};
}

SafeToSpendIntent SafeToSpendIntent::fromValues(const widgetruntime::IntentValues& values) {
  SafeToSpendIntent intent;
  const auto chosen = values.find("style");
  if (chosen != values.end())
    intent.style = safeToSpendStyle(chosen->second).value_or(intent.style);
  return intent;
}

}  // namespace quorvel
