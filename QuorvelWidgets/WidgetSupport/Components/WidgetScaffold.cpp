#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMessage.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

std::string WidgetScaffold::lang() const {
  return snapshot ? snapshot->lang : preferredLanguageCode(environment.preferredLanguages);
}

View WidgetScaffold::message(const EmptyState& state) const {
  const std::string language = lang();
  const ModeColors colors{environment.widgetRenderingMode};
  WidgetMessage view{.symbol = std::string{state.symbol},
                     .text = WidgetStrings::text(state.text, language),
                     .label = WidgetStrings::text(state.label, language),
                     .title = WidgetStrings::text(state.title, language),
                     .titleIsStatus = state.labelIsStatus,
                     .accent = colors.accent(snapshot ? snapshot->accent : std::nullopt),
                     .lang = language,
                     .link = link,
                     .colors = colors};
  if (isAccessory(environment.familyInForce())) return accessoryMessage(view, environment);
  return view;
}

widgetruntime::WidgetSummary WidgetScaffold::messageSummary(const EmptyState& state) const {
  return {.text = WidgetStrings::text(state.text, lang())};
}

widgetruntime::WidgetSummary WidgetScaffold::titleSummary(const EmptyState& state) const {
  return {.text = WidgetStrings::text(state.title, lang())};
}

WidgetChrome WidgetScaffold::chrome(View content, bool padded) const {
  const bool accessory = isAccessory(environment.familyInForce());
  WidgetChrome root{
      .preview = environment.previewFamily.has_value(),
      .padded = padded && !accessory,
      .content = std::move(content),
      .environment = environment,
      .direction = snapshot ? layoutDirection(snapshot->lang) : environment.layoutDirection,
      .link = link,
  };
  if (!accessory) root.background = Rectangle().fill(palette::canvas);
  return root;
}

View WidgetScaffold::root(View content, bool padded) const {
  return chrome(std::move(content), padded);
}

}  // namespace quorvel
