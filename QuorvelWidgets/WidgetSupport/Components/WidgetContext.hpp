// What the layouts of every widget draw from, and the pieces that all of them share.
//
//     struct DueContent : WidgetContext {
//       std::vector<UpcomingDue> upcoming;
//     };
//     content.caption(content.text("remaining"), 11.5).foregroundStyle(content.colors.caption())
#pragma once

#include <string>

#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/WAccent.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetTitle.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace quorvel {

/// Keeps references: use it while the snapshot and the environment live.
struct WidgetContext {
  WidgetTitle title;
  const WidgetSnapshot& snapshot;  ///< its `isHidden` is the effective privacy
  const widgetruntime::Environment& environment;
  ModeColors colors{environment.widgetRenderingMode};

  [[nodiscard]] bool isHidden() const { return snapshot.isHidden; }
  [[nodiscard]] const std::string& lang() const { return snapshot.lang; }
  [[nodiscard]] std::string text(TextKey key) const;
  /// One line in the snapshot's language.
  [[nodiscard]] viewkit::Text caption(std::string words,
                                      double size,
                                      double leastScale = 0.8) const;
  /// Says that amounts are hidden, but not aloud: the amount beside it does.
  [[nodiscard]] viewkit::View silentPrivacyNote() const;
};

enum class HeaderSize { regular, compact };

/// The same for widgets that wear the accent; working it out takes microseconds.
struct AccentedContext : WidgetContext {
  WAccent accent = colors.accent(snapshot.accent);

  /// The widget's title line.
  [[nodiscard]] viewkit::View header(HeaderSize size) const;
};

}  // namespace quorvel
