#include <utility>

#include "QuorvelWidgets/Due/DueContent.hpp"
#include "QuorvelWidgets/Due/DueTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FittingWidth.hpp"

namespace quorvel {

using namespace viewkit;

View dueSmall(const DueContent& content) {
  const UpcomingDue& next = content.upcoming.front();
  const auto headRow = [&](View tile) {
    return HStack{
        {.alignment = VerticalAlignment::top, .spacing = 0},
        std::move(tile),
        Spacer{4},
        content.relativePill(next, 11),
    };
  };
  const DueTile tile{
      .due = *next.due, .size = 30, .renderingMode = content.environment.widgetRenderingMode};
  const View head = fittingWidth(headRow(tile), headRow(View{}));
  // A name takes a second line rather than lose its end, which may cost the subtitle its place.
  constexpr double kLeastNameScale = 0.84;
  const auto name = content.name(*next.due, 13);
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      head,
      Spacer{4},
      Fitting{name.lineLimit(1).minimumScaleFactor(kLeastNameScale), name.lineLimit(2)}
          .layoutPriority(1),
      whereItFits(mayBeCut(content.subtitle(*next.due)).padding({.top = 1})),
      content.amount(*next.due, 22).padding({.top = 6}),
      content.dueDate(*next.due, 11).opacity(0.85).padding({.top = 1}),
  }
      .accessibility({.children = Accessibility::Children::combine});
}

}  // namespace quorvel
