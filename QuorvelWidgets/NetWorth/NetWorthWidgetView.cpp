#include "QuorvelWidgets/NetWorth/NetWorthWidgetView.hpp"

#include "QuorvelWidgets/NetWorth/NetWorthContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryFigure.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeText.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

constexpr EmptyState kNoNetWorth{"noNetWorth", "addAssets"};

View layout(const NetWorthContent& content, WidgetFamily family) {
  if (isAccessory(family)) {
    return accessoryFigure(content.title.symbol, content.netWorth.value, content.snapshot, family);
  }
  if (family == WidgetFamily::systemLarge) return netWorthLarge(content);
  if (family == WidgetFamily::systemMedium) return netWorthMedium(content);
  return netWorthSmall(content);
}

}  // namespace

View NetWorthWidgetView::body() const {
  const WidgetScaffold scaffold = this->scaffold();
  if (!snapshot) return scaffold.root(scaffold.message(kNoSnapshot));
  const auto& netWorth = snapshot->netWorth;
  if (!netWorth) return scaffold.root(scaffold.message(kNoNetWorth));
  const NetWorthContent content{{context()}, *netWorth};
  const View shown = layout(content, environment.familyInForce());
  return scaffold.root(scaffold.onBackdrop(shown.foregroundStyle(content.colors.text())));
}

widgetruntime::WidgetSummary NetWorthWidgetView::summary() const {
  const WidgetScaffold scaffold = this->scaffold();
  if (const auto summary = scaffold.summaryWithoutData()) return *summary;
  const auto& netWorth = snapshot->netWorth;
  if (!netWorth) return scaffold.messageSummary(kNoNetWorth);
  const auto change = snapshot->isHidden ? std::nullopt : shownChange(*netWorth);
  return {.text = amountWithChange(amountText(netWorth->value, *snapshot), change, snapshot->lang)};
}

}  // namespace quorvel
