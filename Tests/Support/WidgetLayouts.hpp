// Every layout that a person can place, as the extension's bundle offers it, and what the extension
// shows there of a state.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "Tests/Support/WidgetStates.hpp"
#include "ViewKit/View.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace testsupport {

struct WidgetLayout {
  std::string kind;
  widgetruntime::WidgetFamily family = widgetruntime::WidgetFamily::systemSmall;
  widgetruntime::IntentValues configuration{};

  std::string widget{};  ///< "SafeToSpend"
  std::string form{};    ///< "small", "small-ring"
  std::string name{};    ///< "safe-to-spend-small-ring"
};

inline void PrintTo(const WidgetLayout& layout, std::ostream* out) {
  *out << layout.name;
}

[[nodiscard]] WidgetLayout layoutOf(std::string_view kind,
                                    widgetruntime::WidgetFamily family,
                                    const widgetruntime::IntentValues& configuration = {});

/// In English, with controls.
[[nodiscard]] const widgetruntime::WidgetBundle& bundle();

/// Each widget in each declared family, in each choice of its configuration that looks different
/// there, then the accessory forms of the due widget, which are drawn for previews.
[[nodiscard]] const std::vector<WidgetLayout>& layouts();

/// The extension reads the state's snapshot as a document, and shows it to the state's environment.
[[nodiscard]] widgetruntime::WidgetContent contentOf(const WidgetLayout& layout,
                                                     const WidgetState& state);
[[nodiscard]] viewkit::View viewOf(const WidgetLayout& layout, const WidgetState& state);

/// "safe-to-spend" is "SafeToSpend".
[[nodiscard]] std::string inUpperCamel(std::string_view hyphenated);

}  // namespace testsupport
