// `hledger`: makes the document, once or on every change.
#include <fmt/format.h>

#include "Foundation/EnvironmentVariables.hpp"
#include "Foundation/Printable.hpp"
#include "Import/Commands.hpp"
#include "Import/FileWatch.hpp"
#include "Import/Result.hpp"
#include "Import/Session.hpp"
#include "Import/SnapshotFile.hpp"

namespace importer {
namespace {

SnapshotFile documentOf(const Session& session) {
  return {session.container, "quorvel-import " QUORVEL_VERSION};
}

Result<void> checkPlace(const Session& session, Foreign foreign) {
  if (session.container.empty())
    return refused("there is no home folder to hold the document; name a folder with --container");
  return documentOf(session).check(foreign);
}

Result<void> importOnce(const Options& options, const Program& program, Foreign foreign) {
  const auto session = makeSession(options, program);
  if (!session) return std::unexpected(session.error());
  // Before hledger runs: what cannot be written need not be read.
  if (auto place = checkPlace(*session, foreign); !place) return place;
  const auto reading = readFigures(*session);
  if (!reading) return std::unexpected(reading.error());
  const SnapshotFile document = documentOf(*session);
  const auto snapshot = makeSnapshot(
      reading->figures, reading->journal, session->settings, {session->now, session->language});
  if (auto written = document.write(snapshot, foreign); !written) return written;
  return print(foundation::printable(document.path()) + "\n");
}

/// The journal and all that it includes, and the settings; true when there are new ones among them.
/// While the journal cannot be read, what was watched before.
bool followFiles(const Session& session, std::vector<std::string>& journals, FileWatch& watch) {
  if (auto files = journalFiles(session.request)) journals = *std::move(files);
  std::vector<std::string> all = journals;
  if (!session.settingsFile.empty()) all.push_back(session.settingsFile);
  return watch.follow(all);
}

/// Where hledger would look for the journal.
std::string journalFile(const Session& session) {
  if (!session.request.file.empty()) return session.request.file;
  const std::string set = foundation::valueOf(session.request.environment, "LEDGER_FILE");
  return set.empty()
             ? foundation::valueOf(session.request.environment, "HOME") + "/.hledger.journal"
             : set;
}

Result<void> importAlways(const Options& options, const Program& program) {
  Foreign foreign = options.force ? Foreign::replace : Foreign::keep;
  const Session first = makePlaces(options, program);
  if (auto place = checkPlace(first, foreign); !place) return place;
  auto watch = FileWatch::make();
  if (!watch) return std::unexpected(watch.error());
  std::vector<std::string> journals{journalFile(first)};
  followFiles(first, journals, *watch);
  std::string lastComplaint;
  while (true) {
    // What changes while the journal is being read is seen at the next wait.
    const Session session = makePlaces(options, program);
    const auto done = importOnce(options, program, foreign);
    if (done) foreign = Foreign::keep;
    const std::string complaint = done ? std::string{} : done.error().line;
    if (!complaint.empty() && complaint != lastComplaint)
      complain("quorvel-import hledger: " + foundation::printable(complaint) + "\n");
    lastComplaint = complaint;
    // Files that were not followed yet may have changed since they were read.
    if (followFiles(session, journals, *watch)) continue;
    if (watch->wait(session.midnight) == WatchEvent::ended) return {};
  }
}

}  // namespace

Result<void> importJournal(const Options& options, const Program& program) {
  if (options.watch) return importAlways(options, program);
  return importOnce(options, program, options.force ? Foreign::replace : Foreign::keep);
}

}  // namespace importer
