// `perform`: runs an intent in the extension, then opens the application if the intent asks for
// that.
#include "Cli/Commands.hpp"
#include "Cli/Guest.hpp"
#include "Cli/Opener.hpp"
#include "Cli/Output.hpp"

namespace cli {

Result<void> perform(const Options& options, const Program& program) {
  auto guest = Guest::open(options.source, program);
  if (!guest) return std::unexpected(guest.error());
  const auto answer = guest->perform({.intent = options.intent});
  if (!answer) return std::unexpected(answer.error());
  if (!answer->openApp) return {};
  const auto link = applicationLink(guest->about().urlScheme);
  if (!link) return std::unexpected(link.error());
  return options.open ? openLink(*link, options.openWith) : print(*link + "\n");
}

}  // namespace cli
