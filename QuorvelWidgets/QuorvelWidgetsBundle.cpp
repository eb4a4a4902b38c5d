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
                                                     const BundleOptions& options) {
  widgetruntime::WidgetBundle bundle;
  bundle.widgets = {
      CardLimitWidget::configuration(store, options.lang),
      DueWidget::configuration(store, options.lang),
      NetWorthWidget::configuration(store, options.lang),
      SafeToSpendWidget::configuration(store, options.lang),
      SpendingWidget::configuration(store, options.lang),
  };
  if (!options.offersControls) return bundle;
  const AddExpenseIntent intent{store, files, foundation::NotificationCenter::defaultCenter()};
  bundle.controls = {AddExpenseControl::configuration(options.lang)};
  bundle.actions = {intent.action(options.lang)};
  return bundle;
}

}  // namespace quorvel
