// `sample`: a complete document, as a start for whoever writes them.
#include "Cli/Commands.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"

namespace cli {

Result<void> sample(const Options& options, const Program& program) {
  const auto device = deviceFrom(options.device, program.environment);
  return write(options.output.file, program.sampleDocument(device, options.language) + "\n");
}

}  // namespace cli
