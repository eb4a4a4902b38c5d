#include "QuorvelWidgets/QuorvelWidgetsBundle.hpp"

#include "QuorvelWidgets/SafeToSpendWidget.hpp"
#include "QuorvelWidgets/SpendingWidget.hpp"

namespace quorvel {

widgetruntime::WidgetBundle makeQuorvelWidgetsBundle(const SnapshotStore& store) {
  widgetruntime::WidgetBundle bundle;
  bundle.widgets = {
      SafeToSpendWidget::configuration(store),
      SpendingWidget::configuration(store),
  };
  return bundle;
}

}  // namespace quorvel
