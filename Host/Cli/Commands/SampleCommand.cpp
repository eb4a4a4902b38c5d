// `sample`: a complete document, as a start for whoever writes them.
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <string>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Foundation/JsonWriter.hpp"

namespace cli {

/// Indented, since people go on from here.
Result<void> sample(const Options& options, const Program& program) {
  if (!options.language.empty() &&
      std::ranges::find(program.languages, options.language) == program.languages.end()) {
    return misused(fmt::format("--lang: there is no \"{}\" (there are: {})",
                               options.language,
                               fmt::join(program.languages, ", ")));
  }
  const auto device = deviceFrom(options.device, program.environment);
  const std::string document = program.sampleDocument(device, options.language);
  return write(options.output.file, foundation::indentedJson(document) + "\n");
}

}  // namespace cli
