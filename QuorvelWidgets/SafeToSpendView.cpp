#include "QuorvelWidgets/SafeToSpendView.hpp"

#include <optional>
#include <utility>

#include "Foundation/Calendar.hpp"
#include "QuorvelWidgets/SafeToSpendLayouts.hpp"
#include "QuorvelWidgets/WidgetSupport/AccessoryBackdrop.hpp"
#include "QuorvelWidgets/WidgetSupport/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetChrome.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetEnvironment.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetLink.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetMessage.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::Environment;
using widgetruntime::WidgetFamily;

namespace {

/// What the widget shows instead of a budget, in words.
struct Message {
  std::string_view text;
  std::string_view action;
};
constexpr Message kNoSnapshot{"signIn", "openQuorvel"};
constexpr Message kNoBudget{"noBudget", "setBudget"};

View widgetMessage(const Message& message,
                   const std::string& lang,
                   const WAccent& accent,
                   const Environment& environment) {
  WidgetMessage view{.symbol = std::string{kSafeToSpendSymbol},
                     .text = WidgetStrings::text(message.text, lang),
                     .label = WidgetStrings::text(message.action, lang),
                     .title = WidgetStrings::text("safeToSpend", lang),
                     .accent = accent,
                     .lang = lang};
  if (isAccessory(environment.familyInForce())) return accessoryMessage(view, environment);
  return view;
}

std::optional<SafeToSpendContent> makeContent(const SafeToSpendView& view) {
  if (!view.entry.snapshot || !view.entry.snapshot->budget) return std::nullopt;
  const WidgetSnapshot& snapshot = *view.entry.snapshot;
  const WidgetSnapshot::Budget& budget = *snapshot.budget;
  const foundation::Calendar calendar{view.environment.locale, view.environment.timeZone};
  const auto metrics = makeSafeToSpendMetrics(
      budget.total, budget.spent, budget.periodEnd, view.entry.date, calendar);
  if (!metrics) return std::nullopt;
  return SafeToSpendContent{.snapshot = withEffectivePrivacy(snapshot, view.environment),
                            .budget = budget,
                            .metrics = *metrics,
                            .pace = budgetPace(budget, view.entry.date, calendar),
                            .accent = WAccent{snapshot.accent},
                            .environment = view.environment,
                            .showsBackground = view.showsBackground};
}

/// The accent tile is for the small family; wider ones have room for everything.
bool isAccentTile(const SafeToSpendView& view) {
  return view.environment.familyInForce() == WidgetFamily::systemSmall &&
         view.entry.style == SafeToSpendStyle::accent;
}

View layout(const SafeToSpendView& view, const SafeToSpendContent& content) {
  const WidgetFamily family = view.environment.familyInForce();
  if (isAccessory(family)) return safeToSpendAccessory(content);
  if (family != WidgetFamily::systemSmall) return safeToSpendMedium(content);
  return isAccentTile(view) ? safeToSpendAccentTile(content) : safeToSpendRing(content);
}

}  // namespace

View SafeToSpendView::body() const {
  const std::optional<WidgetSnapshot>& snapshot = entry.snapshot;
  const std::string lang =
      snapshot ? snapshot->lang : preferredLanguageCode(environment.preferredLanguages);
  const bool accessory = isAccessory(environment.familyInForce());

  WidgetChrome chrome{
      .preview = environment.previewFamily.has_value(),
      .padded = !accessory,
      .environment = environment,
      .direction = snapshot ? layoutDirection(lang) : environment.layoutDirection,
      .link = widgetLink(urlScheme, "budget"),
  };
  Color ground = palette::canvas;
  if (const auto content = makeContent(*this)) {
    chrome.content = layout(*this, *content);
    if (isAccentTile(*this)) {
      ground = content->accent.fill;
      if (!showsBackground) chrome.backdrop = AccessoryBackdrop{.showsBackground = false};
    }
  } else {
    const Message& message = snapshot ? kNoBudget : kNoSnapshot;
    const WAccent accent{snapshot ? snapshot->accent : std::nullopt};
    chrome.content = widgetMessage(message, lang, accent, environment);
  }
  if (!accessory) chrome.background = Rectangle().fill(ground);
  return chrome;
}

}  // namespace quorvel
