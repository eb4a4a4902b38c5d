// `check` and `explain`: the same figures as the document's, for a person.
#include "Import/Check.hpp"
#include "Import/CommandContext.hpp"
#include "Import/Commands.hpp"
#include "Import/Explain.hpp"
#include "Import/Result.hpp"

namespace importer {

Result<void> check(const Options& options, const Program& program) {
  const auto context = makeContext(options, program);
  if (!context) return std::unexpected(context.error());
  const auto reading = readFigures(*context);
  if (!reading) return std::unexpected(reading.error());
  return print(findings(reading->figures, reading->journal, context->settings));
}

Result<void> explain(const Options& options, const Program& program) {
  const auto context = makeContext(options, program);
  if (!context) return std::unexpected(context.error());
  const auto reading = readFigures(*context);
  if (!reading) return std::unexpected(reading.error());
  return print(explanation(reading->figures, reading->journal, context->settings, options.figure));
}

}  // namespace importer
