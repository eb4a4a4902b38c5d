// `hledger`: makes the document, once or on every change.
#include <fmt/format.h>

#include "Foundation/EnvironmentVariables.hpp"
#include "Foundation/Printable.hpp"
#include "Import/CommandContext.hpp"
#include "Import/Commands.hpp"
#include "Import/FileWatch.hpp"
#include "Import/Result.hpp"
#include "Import/SnapshotFile.hpp"

namespace importer {
namespace {

SnapshotFile documentOf(const CommandContext& context) {
  return {context.container, "quorvel-import " QUORVEL_VERSION};
}

Result<void> checkPlace(const CommandContext& context, Foreign foreign) {
  if (context.container.empty())
    return refused("there is no home folder to hold the document; name a folder with --container");
  return documentOf(context).check(foreign);
}

Result<void> importOnce(const Options& options, const Program& program, Foreign foreign) {
  const auto context = makeContext(options, program);
  if (!context) return std::unexpected(context.error());
  // Before hledger runs: what cannot be written need not be read.
  if (auto place = checkPlace(*context, foreign); !place) return place;
  const auto reading = readFigures(*context);
  if (!reading) return std::unexpected(reading.error());
  const SnapshotFile document = documentOf(*context);
  const auto snapshot = makeSnapshot(
      reading->figures, reading->journal, context->settings, {context->now, context->language});
  if (auto written = document.write(snapshot, foreign); !written) return written;
  return print(foundation::printable(document.path()) + "\n");
}

/// The journal and all that it includes, and the settings; true when there are new ones among them.
/// While the journal cannot be read, what was watched before.
bool followFiles(const CommandContext& context,
                 std::vector<std::string>& journals,
                 FileWatch& watch) {
  if (auto files = journalFiles(context.request)) journals = *std::move(files);
  std::vector<std::string> all = journals;
  if (!context.settingsFile.empty()) all.push_back(context.settingsFile);
  return watch.follow(all);
}

/// Where hledger would look for the journal.
std::string journalFile(const CommandContext& context) {
  if (!context.request.file.empty()) return context.request.file;
  const std::string set = foundation::valueOf(context.request.environment, "LEDGER_FILE");
  return set.empty()
             ? foundation::valueOf(context.request.environment, "HOME") + "/.hledger.journal"
             : set;
}

Result<void> importAlways(const Options& options, const Program& program) {
  Foreign foreign = options.force ? Foreign::replace : Foreign::keep;
  const CommandContext first = makePlaces(options, program);
  if (auto place = checkPlace(first, foreign); !place) return place;
  auto watch = FileWatch::make();
  if (!watch) return std::unexpected(watch.error());
  std::vector<std::string> journals{journalFile(first)};
  followFiles(first, journals, *watch);
  std::string lastComplaint;
  while (true) {
    // What changes while the journal is being read is seen at the next wait.
    const CommandContext context = makePlaces(options, program);
    const auto done = importOnce(options, program, foreign);
    if (done) foreign = Foreign::keep;
    const std::string complaint = done ? std::string{} : done.error().line;
    if (!complaint.empty() && complaint != lastComplaint)
      complain("quorvel-import hledger: " + foundation::printable(complaint) + "\n");
    lastComplaint = complaint;
    // Files that were not followed yet may have changed since they were read.
    if (followFiles(context, journals, *watch)) continue;
    if (watch->wait(context.midnight) == WatchEvent::ended) return {};
  }
}

}  // namespace

Result<void> importJournal(const Options& options, const Program& program) {
  if (options.watch) return importAlways(options, program);
  return importOnce(options, program, options.force ? Foreign::replace : Foreign::keep);
}

}  // namespace importer
