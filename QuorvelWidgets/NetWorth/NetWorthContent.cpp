#include "QuorvelWidgets/NetWorth/NetWorthContent.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "QuorvelWidgets/NetWorth/AreaChart.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetChange.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/ChangeDescription.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

// A point a half pixel apart is the most that the widest chart can show.
constexpr std::size_t kMostPoints = 240;
constexpr int kChangePrecision = 1;

}  // namespace

std::span<const WidgetSnapshot::NetWorth::Point> NetWorthContent::history() const {
  const std::span all{netWorth.history};
  return all.last(std::min(all.size(), kMostPoints));
}

View NetWorthContent::chart(ChartGrid grid) const {
  const bool showsGrid = grid == ChartGrid::shown;
  if (isHidden()) {
    return HiddenChart{.color = colors.track(),
                       .showsGrid = showsGrid,
                       .renderingMode = environment.widgetRenderingMode};
  }
  std::vector<double> values;
  for (const auto& point : history()) values.push_back(point.value);
  return AreaChart{.points = std::move(values),
                   .accent = accent.ink,
                   .showsGrid = showsGrid,
                   .renderingMode = environment.widgetRenderingMode};
}

View NetWorthContent::change() const {
  if (isHidden()) return silentPrivacyNote();
  if (!netWorth.changePercent) return {};
  return WidgetChange{.value = *netWorth.changePercent,
                      .precision = kChangePrecision,
                      .size = 12,
                      .lang = snapshot.lang,
                      .colors = colors};
}

std::optional<ChangeDescription> shownChange(const WidgetSnapshot::NetWorth& netWorth) {
  if (!netWorth.changePercent) return std::nullopt;
  return describeChange(*netWorth.changePercent, kChangePrecision, /*favorableWhenPositive=*/true);
}

std::optional<std::string> comparedMonth(const WidgetSnapshot::NetWorth& netWorth) {
  const auto& history = netWorth.history;
  if (history.size() < 2) return std::nullopt;
  const auto& previous = history[history.size() - 2];
  const double percent = (netWorth.value - previous.value) / std::abs(previous.value) * 100;
  const auto shown = shownChange(netWorth);
  const auto borneOut = describeChange(percent, kChangePrecision, /*favorableWhenPositive=*/true);
  if (!shown || shown != borneOut) return std::nullopt;
  return previous.month;
}

}  // namespace quorvel
