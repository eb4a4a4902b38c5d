#include "QuorvelWidgets/Due/DueContent.hpp"
#include "QuorvelWidgets/Due/DueTile.hpp"

namespace quorvel {

using namespace viewkit;

View dueSmall(const DueContent& content) {
  const UpcomingDue& next = content.upcoming.front();
  const View head = HStack{
      {.alignment = VerticalAlignment::top, .spacing = 0},
      DueTile{
          .due = *next.due, .size = 30, .renderingMode = content.environment.widgetRenderingMode},
      Spacer{4},
      content.relativePill(next, 11),
  };
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 0},
      head,
      Spacer{4},
      content.name(*next.due, 13),
      content.subtitle(*next.due).padding({.top = 1}),
      content.amount(*next.due, 22).padding({.top = 6}),
      content.dueDate(*next.due, 11).opacity(0.85).padding({.top = 1}),
  }
      .accessibility({.children = Accessibility::Children::combine});
}

}  // namespace quorvel
