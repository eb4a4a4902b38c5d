// `sheet`: kinds x families x light and dark on one picture, and more axes on request.
#include <algorithm>
#include <iterator>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Output.hpp"
#include "Cli/Sheet/SheetRows.hpp"
#include "Rendering/Images/PngEncoder.hpp"

namespace cli {

Result<void> sheet(const Options& options, const Program& program) {
  if (auto target = checkPictureTarget(options.output.file); !target) return target;
  auto rows = sheetRows(options, program);
  if (!rows) return std::unexpected(rows.error());
  if (options.axes.components) {
    std::ranges::move(componentRows(options, program), std::back_inserter(*rows));
  }
  const auto picture = drawSheet(*rows, options.picture.scale);
  if (!picture) return std::unexpected(picture.error());
  return write(options.output.file, rendering::encodePng(*picture, options.output.png));
}

}  // namespace cli
