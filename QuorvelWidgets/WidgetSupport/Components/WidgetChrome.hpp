// The frame around every widget's content: margins, background, tap link and layout direction.
#pragma once

#include <string>
#include <string_view>

#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// In a preview the background is drawn behind the content; otherwise the host draws it behind the
/// whole widget.
struct WidgetChrome : viewkit::Modifiers<WidgetChrome> {
  static constexpr std::string_view kName = "WidgetChrome";

  bool preview = false;
  bool padded = true;
  viewkit::View background;
  viewkit::View content;
  widgetruntime::Environment environment;
  viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
  std::string link;  ///< the whole widget's tap link

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
