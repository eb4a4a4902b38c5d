#include "QuorvelWidgets/WidgetSupport/Components/WidgetContext.hpp"

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Components/WidgetHeader.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetPrivacyNote.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

using namespace viewkit;

std::string WidgetContext::text(TextKey key) const {
  return WidgetStrings::text(key, snapshot.lang);
}

Text WidgetContext::caption(std::string words, double size, double leastScale) const {
  return Text{std::move(words)}
      .font(size)
      .lineLimit(1)
      .minimumScaleFactor(leastScale)
      .language(snapshot.lang);
}

View WidgetContext::silentPrivacyNote() const {
  return WidgetPrivacyNote{.lang = snapshot.lang, .color = colors.caption()}.accessibilityHidden();
}

View AccentedContext::header(HeaderSize size) const {
  return WidgetHeader{.symbol = std::string{title.symbol},
                      .text = text(title.text),
                      .compact = size == HeaderSize::compact,
                      .accent = accent,
                      .lang = snapshot.lang,
                      .colors = colors};
}

}  // namespace quorvel
