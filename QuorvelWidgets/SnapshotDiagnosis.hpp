// What is wrong with a document, and what each widget will show of it.
#pragma once

#include <vector>

#include "Foundation/Calendar.hpp"
#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace quorvel {

/// Reads the named file or takes the text. Names problems and outlooks, never an amount.
[[nodiscard]] widgetruntime::DiagnoseAnswer diagnoseSnapshot(
    const widgetruntime::DiagnoseParameters& parameters);

/// One sentence a widget kind; without a snapshot all of them ask for the application.
[[nodiscard]] std::vector<widgetruntime::WidgetOutlook> widgetOutlooks(
    const WidgetSnapshot* snapshot, foundation::Instant now, const foundation::Calendar& calendar);

}  // namespace quorvel
