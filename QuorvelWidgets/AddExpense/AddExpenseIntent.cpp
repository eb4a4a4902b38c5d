#include "QuorvelWidgets/AddExpense/AddExpenseIntent.hpp"

#include "Foundation/UserDefaults.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/GalleryName.hpp"

namespace quorvel {
namespace {

std::string addExpense(std::string_view lang) {
  return galleryName("Add Expense", "addExpense", lang);
}

}  // namespace

void AddExpenseIntent::perform() const {
  if (const auto suite = foundation::UserDefaults::initWithSuiteName(store.appGroup(), files)) {
    // A suite that cannot be written leaves the notification, as a missing one does.
    static_cast<void>(suite->setBool(true, std::string{kPendingAddExpenseKey}));
  }
  notifications.postNotificationName(kAddExpenseNotification);
}

widgetruntime::Action AddExpenseIntent::action(std::string_view lang) const {
  return {.name = std::string{kName},
          .title = addExpense(lang),
          .openAppWhenRun = openAppWhenRun,
          .perform = [intent = *this] { intent.perform(); }};
}

widgetruntime::Control AddExpenseControl::configuration(std::string_view lang) {
  return {.kind = std::string{kKind},
          .displayName = addExpense(lang),
          .description = "Open Quorvel to log an expense.",
          .label = addExpense(lang),
          .symbol = "plus",
          .intent = std::string{AddExpenseIntent::kName}};
}

}  // namespace quorvel
