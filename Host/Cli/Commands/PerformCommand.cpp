// `perform`: runs an intent in the extension, then opens the application if the intent asks for
// that.
#include "Cli/Commands/Commands.hpp"
#include "Cli/Guest.hpp"
#include "Cli/Links.hpp"
#include "Cli/Output.hpp"
#include "Opening/LinkOpener.hpp"

namespace cli {
Result<void> perform(const Options& options, const Program& program) {
  auto guest = Guest::open(options.source, program);
  if (!guest) return std::unexpected(guest.error());
  const auto answer = said(guest->client().perform({.intent = options.intent}));
  if (!answer) return std::unexpected(answer.error());
  if (!answer->openApp) return {};
  std::error_code ignored;
  if (const auto& container = guest->about().container;
      container.empty() || !std::filesystem::is_directory(container, ignored)) {
    complain(
        "warning: there is no container, so nothing is left for the application (name one "
        "with --container)\n");
  }
  const auto link = opening::applicationLink(guest->about().urlScheme);
  if (!link) return refused(link.error());
  return options.open ? openLink(*link, options.openWith) : print(*link + "\n");
}

}  // namespace cli
