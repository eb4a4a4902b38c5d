#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryBackdrop.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMessage.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

std::string WidgetScaffold::lang() const {
  return snapshot ? snapshot->lang : preferredLanguageCode(environment.preferredLanguages);
}

View WidgetScaffold::message(const EmptyState& state) const {
  const std::string language = lang();
  const ModeColors colors{environment.widgetRenderingMode};
  WidgetMessage view{.symbol = std::string{title.symbol},
                     .text = WidgetStrings::text(state.text, language),
                     .label = WidgetStrings::text(state.label, language),
                     .title = WidgetStrings::text(title.text, language),
                     .titleIsStatus = state.labelIsStatus,
                     .accent = colors.accent(snapshot ? snapshot->accent : std::nullopt),
                     .lang = language,
                     .link = link,
                     .colors = colors};
  if (isAccessory(environment.familyInForce()))
    return onBackdrop(accessoryMessage(view, environment));
  return view;
}

widgetruntime::WidgetSummary WidgetScaffold::messageSummary(const EmptyState& state) const {
  return {.text = WidgetStrings::text(state.text, lang())};
}

std::optional<widgetruntime::WidgetSummary> WidgetScaffold::summaryWithoutData() const {
  if (environment.redactionReasons.placeholder) {
    return widgetruntime::WidgetSummary{.text = WidgetStrings::text(title.text, lang())};
  }
  if (!snapshot) return messageSummary(kNoSnapshot);
  return std::nullopt;
}

WidgetChrome WidgetScaffold::chrome(View content) const {
  const bool accessory = isAccessory(environment.familyInForce());
  WidgetChrome root{
      .preview = environment.previewFamily.has_value(),
      .padded = !accessory,
      .content = std::move(content),
      .environment = environment,
      .direction = snapshot ? layoutDirection(snapshot->lang) : environment.layoutDirection,
      .link = link,
  };
  if (!accessory) root.background = Rectangle().fill(palette::canvas);
  return root;
}

View WidgetScaffold::onBackdrop(View layout) const {
  const WidgetFamily family = environment.familyInForce();
  // An inline accessory is a line of text.
  const bool isPlate = isAccessory(family) && family != WidgetFamily::accessoryInline;
  if (!isPlate || environment.showsWidgetContainerBackground) return layout;
  return layout.frame(filling()).background(AccessoryBackdrop{.showsBackground = false});
}

View WidgetScaffold::root(View content) const {
  return chrome(std::move(content));
}

View WidgetScaffold::rootWithoutMargins(View content) const {
  WidgetChrome root = chrome(std::move(content));
  root.padded = false;
  return root;
}

}  // namespace quorvel
