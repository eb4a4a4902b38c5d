// The figures of a journal as the document that widgets read. Here, and only here, exact amounts
// become doubles.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Import/Budget.hpp"
#include "Import/Cards.hpp"
#include "Import/Dues.hpp"
#include "Import/Journal.hpp"
#include "Import/NetWorth.hpp"
#include "Import/Result.hpp"
#include "Import/Settings.hpp"
#include "Import/Spending.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace importer {

struct Figures {
  std::vector<SpendingPosting> postings;  ///< point into the journal
  std::optional<SpendingFigures> spending;
  std::optional<BudgetFigures> budget;
  std::optional<NetWorthFigures> netWorth;
  std::vector<CardFigures> cards;
  std::vector<DueFigures> dues;  ///< point into cards
};

/// Refused as cardFigures(). The journal must outlive the figures.
[[nodiscard]] Result<Figures> figuresOf(const Journal& journal, const Settings& settings);

/// What the journal and the settings leave to the moment and the device.
struct Moment {
  foundation::Instant now;
  std::string language;
};

[[nodiscard]] quorvel::WidgetSnapshot makeSnapshot(const Figures& figures,
                                                   const Journal& journal,
                                                   const Settings& settings,
                                                   const Moment& moment);

/// Whether a posting in the commodity, of this month so far or of the last one, has cents.
[[nodiscard]] bool hasCents(const Journal& journal);

/// Text for a widget: one line, control characters as spaces, cut where nobody would read on.
[[nodiscard]] std::string displayText(std::string_view text);

}  // namespace importer
