// `check` and `explain`: the same figures as the document's, for a person.
#include "Import/Check.hpp"
#include "Import/Commands.hpp"
#include "Import/Explain.hpp"
#include "Import/Result.hpp"
#include "Import/Session.hpp"

namespace importer {

Result<void> check(const Options& options, const Program& program) {
  const auto session = makeSession(options, program);
  if (!session) return std::unexpected(session.error());
  const auto reading = readFigures(*session);
  if (!reading) return std::unexpected(reading.error());
  return print(findings(reading->figures, reading->journal, session->settings));
}

Result<void> explain(const Options& options, const Program& program) {
  const auto session = makeSession(options, program);
  if (!session) return std::unexpected(session.error());
  const auto reading = readFigures(*session);
  if (!reading) return std::unexpected(reading.error());
  return print(explanation(reading->figures, reading->journal, session->settings, options.figure));
}

}  // namespace importer
