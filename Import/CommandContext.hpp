// What every command starts from: settings, today, the request to hledger, the container.
#pragma once

#include <string>

#include "Foundation/Calendar.hpp"
#include "Foundation/Instant.hpp"
#include "Import/Hledger.hpp"
#include "Import/Options.hpp"
#include "Import/Places.hpp"
#include "Import/Program.hpp"
#include "Import/Result.hpp"
#include "Import/Settings.hpp"
#include "Import/SnapshotMaker.hpp"

namespace importer {

struct CommandContext {
  Places places;
  std::string settingsFile;  ///< read or to be read; empty without a home
  std::string container;     ///< absolute where it is known
  Settings settings;
  foundation::Instant now;
  foundation::Instant midnight;  ///< the start of tomorrow
  JournalRequest request;
  std::string language;
};

/// The present, the places and, unless they are wrong, the settings.
[[nodiscard]] Result<CommandContext> makeContext(const Options& options, const Program& program);

/// The places without reading settings: what `init` and the watch need before there are any.
[[nodiscard]] CommandContext makePlaces(const Options& options, const Program& program);

/// A journal and its figures. Move it only while no figures are held elsewhere.
struct Reading {
  Journal journal;
  Figures figures;  ///< point into the journal
};
[[nodiscard]] Result<Reading> readFigures(const CommandContext& context);

}  // namespace importer
