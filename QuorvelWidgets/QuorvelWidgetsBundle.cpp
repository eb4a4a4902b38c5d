#include "QuorvelWidgets/QuorvelWidgetsBundle.hpp"

#include "QuorvelWidgets/AddExpense/AddExpenseIntent.hpp"
#include "QuorvelWidgets/CardLimit/CardLimitWidget.hpp"
#include "QuorvelWidgets/Due/DueWidget.hpp"
#include "QuorvelWidgets/NetWorth/NetWorthWidget.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendWidget.hpp"
#include "QuorvelWidgets/Spending/SpendingWidget.hpp"

namespace quorvel {

widgetruntime::WidgetBundle makeQuorvelWidgetsBundle(const SnapshotStore& store,
                                                     const foundation::FileManager& files,
                                                     bool offersControls) {
  widgetruntime::WidgetBundle bundle;
  bundle.widgets = {
      CardLimitWidget::configuration(store),
      DueWidget::configuration(store),
      NetWorthWidget::configuration(store),
      SafeToSpendWidget::configuration(store),
      SpendingWidget::configuration(store),
  };
  if (!offersControls) return bundle;
  const AddExpenseIntent intent{store, files, foundation::NotificationCenter::defaultCenter()};
  bundle.controls = {AddExpenseControl::configuration()};
  bundle.actions = {intent.action()};
  return bundle;
}

}  // namespace quorvel
