#include "QuorvelWidgets/WidgetSupport/Components/WidgetMessage.hpp"

#include <utility>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryFigure.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Filling.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetIconTile.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::WidgetFamily;

namespace {

View titleRow(const WidgetMessage& message) {
  const View tile = WidgetIconTile{.symbol = message.symbol,
                                   .color = message.accent.ink,
                                   .background = message.accent.soft,
                                   .size = 30};
  const View title = Text{message.title}
                         .font(13)
                         .lineLimit(2)
                         .minimumScaleFactor(0.85)
                         .balanced()
                         .language(message.lang)
                         .foregroundStyle(message.colors.caption());
  return fittingWidth(HStack{{.spacing = 8}, tile, title}, tile);
}

View labelView(const WidgetMessage& message) {
  const Text label = Text{message.label.value_or("")}
                         .font(12, FontWeight::semibold)
                         .lineLimit(1)
                         .minimumScaleFactor(0.7)
                         .language(message.lang);
  if (message.titleIsStatus) return label.foregroundStyle(message.colors.mark(palette::statusGood));
  const View ground =
      RoundedRectangle(13, CornerStyle::continuous).fill(message.accent.soft).accentable();
  const View pill = label.foregroundStyle(message.accent.ink)
                        .padding(Insets::horizontal(12))
                        .frame(FixedFrame{.height = 26})
                        .background(ground);
  return message.link.empty() ? pill : pill.link(message.link);
}

}  // namespace

View WidgetMessage::body() const {
  // The spacer stands in the title's own stack, so that it adds no second gap when there is no room
  // for it.
  const View top = VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      titleRow(*this),
      Spacer{0},
  };
  const View words = Text{text}
                         .font(13)
                         .lineLimit(3)
                         .minimumScaleFactor(0.85)
                         .balanced()
                         .language(lang)
                         .foregroundStyle(colors.text());
  const auto column = [&](View head) {
    return VStack{
        {.alignment = HorizontalAlignment::leading, .spacing = 8},
        std::move(head),
        words.layoutPriority(1),
        when(label.has_value(), [&] { return labelView(*this).padding({.top = 10}); }),
    };
  };
  // What there is to do matters more than where it is said.
  return Fitting{column(top), column(Spacer{0})}.frame(filling(Alignment::topLeading));
}

View accessoryMessage(const WidgetMessage& message, const widgetruntime::Environment& environment) {
  const Text words = Text{message.text}.minimumScaleFactor(0.7).language(message.lang);
  switch (environment.familyInForce()) {
    case WidgetFamily::accessoryCircular:
      return Symbol{message.symbol}
          .font(24, FontWeight::semibold)
          .foregroundStyle(Color::primary())
          .accessibilityLabel(message.text);
    case WidgetFamily::accessoryInline:
      return words.font(15).lineLimit(1).foregroundStyle(Color::primary());
    default:
      break;
  }
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 2},
      Text{message.title}
          .font(12, FontWeight::semibold)
          .lineLimit(1)
          .minimumScaleFactor(0.85)
          .language(message.lang),
      words.font(12).lineLimit(2).balanced().foregroundStyle(accessoryCaption(environment)),
  }
      .frame(filling(Alignment::leading))
      .padding({.top = 6, .leading = 10, .bottom = 6, .trailing = 10})
      .foregroundStyle(Color::primary());
}

}  // namespace quorvel
