// The action that asks the application for its add-expense screen.
#pragma once

#include <string_view>

#include "Foundation/FileManager.hpp"
#include "Foundation/NotificationCenter.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace quorvel {

/// The names that the application knows as well.
inline constexpr std::string_view kPendingAddExpenseKey = "widget.pendingAddExpense";
inline constexpr std::string_view kAddExpenseNotification = "quorvelWidgetAddExpense";

struct AddExpenseIntent {
  static constexpr std::string_view kName = "AddExpenseIntent";
  static constexpr bool openAppWhenRun = true;

  SnapshotStore store;
  foundation::FileManager files;
  foundation::NotificationCenter notifications;

  /// Leaves the request in the shared preferences, where they can be opened, and posts the
  /// notification. Always succeeds.
  void perform() const;

  /// Titled in `lang`.
  [[nodiscard]] widgetruntime::Action action(std::string_view lang) const;
};

/// The button that runs it.
struct AddExpenseControl {
  static constexpr std::string_view kKind = "QuorvelAddExpenseControl";
  /// Named in `lang` for the gallery.
  [[nodiscard]] static widgetruntime::Control configuration(std::string_view lang);
};

}  // namespace quorvel
