#include <optional>
#include <string>
#include <vector>

#include "QuorvelWidgets/NetWorth/AreaChart.hpp"
#include "QuorvelWidgets/NetWorth/ChartGeometry.hpp"
#include "QuorvelWidgets/NetWorth/NetWorthContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetDates.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

View hero(const NetWorthContent& content) {
  // The privacy note has no figure to share a baseline with.
  const VerticalAlignment alignment =
      content.isHidden() ? VerticalAlignment::center : VerticalAlignment::firstTextBaseline;
  return HStack{
      {.alignment = alignment, .spacing = 8},
      Amount{.value = content.netWorth.value, .snapshot = content.snapshot, .size = 32},
      content.change().layoutPriority(1),
  };
}

/// Months by their names; a history of more than a year by its years.
std::optional<std::string> labelText(const NetWorthContent& content, std::size_t index) {
  const std::string& month = content.history()[index].month;
  if (content.history().size() > kMostNamedMonths) return month.substr(0, month.find('-'));
  return standaloneMonth(month, content.lang());
}

std::vector<std::size_t> labelledIndices(const NetWorthContent& content) {
  const auto history = content.history();
  if (history.size() <= kMostNamedMonths) return labelledPoints(history.size());
  std::vector<std::string> months;
  months.reserve(history.size());
  for (const auto& point : history) months.push_back(point.month);
  return labelledYears(months);
}

// A label at either end of the history is pushed inside the chart's frame.
View monthLabel(const NetWorthContent& content, std::size_t index, std::size_t count) {
  const auto name = labelText(content, index);
  if (!name) return {};
  const View label = content.caption(*name, 11, kLeastCaption)
                         .foregroundStyle(content.colors.caption())
                         .fixedSize();
  if (index + 1 == count) return label.frame(filling(Alignment::trailing));
  if (index == 0) return label.frame(filling(Alignment::leading));
  const double along = static_cast<double>(index) / static_cast<double>(count - 1);
  return label.position((kWidth - kChartEndInset) * along, kHeight / 2);
}

View monthLabels(const NetWorthContent& content) {
  const std::size_t count = content.history().size();
  std::vector<View> labels;
  for (const std::size_t index : labelledIndices(content)) {
    if (View label = monthLabel(content, index, count); !label.isEmpty()) {
      labels.push_back(std::move(label));
    }
  }
  return Canvas{std::move(labels)}.frame(FixedFrame{.height = 13.3}).accessibilityHidden();
}

struct BreakdownRow {
  TextKey key;
  std::string_view symbol;
  double amount = 0;
  Color color;
};

std::vector<BreakdownRow> breakdown(const WidgetSnapshot::NetWorth& netWorth) {
  std::vector<BreakdownRow> rows;
  if (netWorth.liquid && netWorth.nonLiquid) {
    rows.push_back({"liquidAssets", "drop.fill", *netWorth.liquid, palette::assetGreen});
    rows.push_back({"nonLiquidAssets", "house.fill", *netWorth.nonLiquid, palette::assetGreen});
  } else {
    rows.push_back({"assets", "square.stack.3d.up.fill", netWorth.assets, palette::assetGreen});
  }
  rows.push_back({"liabilities", "creditcard.fill", netWorth.liabilities, palette::liabilityPink});
  return rows;
}

View breakdownRow(const NetWorthContent& content, const BreakdownRow& row) {
  const View tile =
      Symbol{std::string{row.symbol}}
          .font(13, FontWeight::semibold)
          .foregroundStyle(content.colors.mark(row.color))
          .frame(FixedFrame{.width = 26, .height = 26})
          .background(RoundedRectangle(6).fill(content.colors.ground(row.color.withOpacity(0.16))))
          .accessibilityHidden();
  return HStack{
      {.spacing = 10},
      tile,
      content.caption(content.text(row.key), 13.5, kLeastCaption)
          .foregroundStyle(content.colors.text()),
      Spacer{},
      Amount{.value = row.amount,
             .snapshot = content.snapshot,
             .size = 13.5,
             .weight = FontWeight::semibold}
          .layoutPriority(1),
  }
      .accessibility({.children = Accessibility::Children::combine});
}

}  // namespace

View netWorthLarge(const NetWorthContent& content) {
  const View rows = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 10},
      forEach(breakdown(content.netWorth),
              [&](const BreakdownRow& row) { return breakdownRow(content, row); }),
  };
  const View hairline =
      Rectangle().fill(content.colors.ground(palette::surfaceAlt)).frame(FixedFrame{.height = 1});
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 6},
      content.header(HeaderSize::regular),
      hero(content).padding({.top = 8}),
      content.chart(ChartGrid::shown).padding({.top = 10}),
      monthLabels(content),
      hairline.padding({.top = 10}),
      rows.padding({.top = 10}),
  };
}

}  // namespace quorvel
