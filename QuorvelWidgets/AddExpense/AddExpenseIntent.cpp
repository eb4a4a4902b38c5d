#include "QuorvelWidgets/AddExpense/AddExpenseIntent.hpp"

#include "Foundation/UserDefaults.hpp"

namespace quorvel {

void AddExpenseIntent::perform() const {
  if (const auto suite = foundation::UserDefaults::initWithSuiteName(store.appGroup(), files)) {
    // A suite that cannot be written leaves the notification, as a missing one does.
    static_cast<void>(suite->setBool(true, std::string{kPendingAddExpenseKey}));
  }
  notifications.postNotificationName(kAddExpenseNotification);
}

widgetruntime::Action AddExpenseIntent::action() const {
  return {.name = std::string{kName},
          .title = std::string{kTitle},
          .openAppWhenRun = openAppWhenRun,
          .perform = [intent = *this] { intent.perform(); }};
}

widgetruntime::Control AddExpenseControl::configuration() {
  return {.kind = std::string{kKind},
          .displayName = "Add Expense",
          .description = "Open Quorvel to log an expense.",
          .label = "Add Expense",
          .symbol = "plus",
          .intent = std::string{AddExpenseIntent::kName}};
}

}  // namespace quorvel
