#include "QuorvelWidgets/NetWorth/NetWorthPieces.hpp"

#include <optional>
#include <string>

#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/SpokenTexts.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetDates.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

namespace {

struct Comparison {
  std::string words;
  std::string spoken;  ///< with the change itself
};

std::optional<Comparison> comparison(const NetWorthContent& content) {
  if (content.isHidden()) return std::nullopt;
  const std::string& lang = content.lang();
  const auto change = shownChange(content.netWorth);
  const auto month = comparedMonth(content.netWorth);
  if (!change || !month) return std::nullopt;
  const auto name = abbreviatedMonth(*month, lang);
  if (!name) return std::nullopt;
  return Comparison{WidgetStrings::comparisonWith(*name, lang),
                    spokenChangeFromMonth(*change, *month, lang)};
}

}  // namespace

View changeRow(const NetWorthContent& content) {
  View change = content.change();
  if (change.isEmpty()) return {};
  const auto compared = comparison(content);
  if (!compared) return change;
  const View row = HStack{
      {.spacing = 5},
      change.layoutPriority(1),
      content.caption(compared->words, 11.5, kLeastCaption)
          .foregroundStyle(content.colors.caption()),
  };
  return fittingWidth(row, change)
      .accessibility({.label = compared->spoken, .children = Accessibility::Children::ignore});
}

}  // namespace quorvel
