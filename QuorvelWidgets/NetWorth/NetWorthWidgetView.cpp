#include "QuorvelWidgets/NetWorth/NetWorthWidgetView.hpp"

#include "QuorvelWidgets/NetWorth/NetWorthContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryFigure.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetLink.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetEnvironment.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/AmountText.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeText.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

constexpr EmptyState kNoSnapshot{kNetWorthSymbol, "netWorth", "signIn", "openQuorvel"};
constexpr EmptyState kNoNetWorth{kNetWorthSymbol, "netWorth", "noNetWorth", "addAssets"};

View layout(const NetWorthContent& content, WidgetFamily family) {
  if (isAccessory(family)) {
    return accessoryFigure(kNetWorthSymbol, content.netWorth.value, content.snapshot, family);
  }
  if (family == WidgetFamily::systemLarge) return netWorthLarge(content);
  if (family == WidgetFamily::systemMedium) return netWorthMedium(content);
  return netWorthSmall(content);
}

}  // namespace

View NetWorthWidgetView::body() const {
  const WidgetScaffold scaffold{entry.snapshot, environment, widgetLink(urlScheme, "dashboard")};
  if (!entry.snapshot) return scaffold.root(scaffold.message(kNoSnapshot));
  const WidgetSnapshot& snapshot = *entry.snapshot;
  if (!snapshot.netWorth) return scaffold.root(scaffold.message(kNoNetWorth));
  const NetWorthContent content{
      .snapshot = withEffectivePrivacy(snapshot, environment),
      .netWorth = *snapshot.netWorth,
      .accent = ModeColors{environment.widgetRenderingMode}.accent(snapshot.accent),
      .environment = environment};
  return scaffold.root(
      layout(content, environment.familyInForce()).foregroundStyle(content.colors.text()));
}

widgetruntime::WidgetSummary NetWorthWidgetView::summary() const {
  const WidgetScaffold scaffold{entry.snapshot, environment, {}};
  if (environment.redactionReasons.placeholder) return scaffold.titleSummary(kNoSnapshot);
  if (!entry.snapshot) return scaffold.messageSummary(kNoSnapshot);
  const auto& netWorth = entry.snapshot->netWorth;
  if (!netWorth) return scaffold.messageSummary(kNoNetWorth);
  const WidgetSnapshot snapshot = withEffectivePrivacy(*entry.snapshot, environment);
  const auto change = snapshot.isHidden ? std::nullopt : shownChange(*netWorth);
  return {.text = amountWithChange(amountText(netWorth->value, snapshot), change, snapshot.lang)};
}

}  // namespace quorvel
