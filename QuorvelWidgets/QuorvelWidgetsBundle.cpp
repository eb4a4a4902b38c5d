#include "QuorvelWidgets/QuorvelWidgetsBundle.hpp"

#include "QuorvelWidgets/AddExpenseIntent.hpp"
#include "QuorvelWidgets/CardLimitWidget.hpp"
#include "QuorvelWidgets/DueWidget.hpp"
#include "QuorvelWidgets/NetWorthWidget.hpp"
#include "QuorvelWidgets/SafeToSpendWidget.hpp"
#include "QuorvelWidgets/SpendingWidget.hpp"

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
