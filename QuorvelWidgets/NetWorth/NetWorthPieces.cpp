#include "QuorvelWidgets/NetWorth/NetWorthPieces.hpp"

#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetDates.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

std::string comparison(const NetWorthContent& content) {
  if (content.snapshot.isHidden) return {};
  const auto month = comparedMonth(content.netWorth);
  const auto name = month ? abbreviatedMonth(*month, content.snapshot.lang) : std::nullopt;
  return name ? WidgetStrings::comparisonWith(*name, content.snapshot.lang) : std::string{};
}

}  // namespace

View changeRow(const NetWorthContent& content) {
  const View change = content.change();
  if (change.isEmpty()) return {};
  const std::string words = comparison(content);
  return HStack{
      {.spacing = 5},
      change.layoutPriority(1),
      when(!words.empty(),
           [&] { return content.caption(words, 11.5).foregroundStyle(palette::textSecondary); }),
  }
      .accessibility({.children = Accessibility::Children::combine});
}

}  // namespace quorvel
