// `open`: what a widget's link stands for.
#include <unistd.h>

#include "Import/CommandContext.hpp"
#include "Import/Commands.hpp"
#include "Import/Links.hpp"

namespace importer {
namespace {

/// An editor in a terminal needs one; without it the desktop knows what opens text.
constexpr const char* kInTerminal = "exec ${VISUAL:-${EDITOR:-sensible-editor}} \"$1\"";
constexpr const char* kOnDesktop = "exec xdg-open \"$1\"";

Result<void> openJournal(const CommandContext& context) {
  const auto files = journalFiles(context.request);
  if (!files) return std::unexpected(files.error());
  if (files->empty()) return refused("hledger names no journal; set [open] in the settings");
  const bool hasTerminal = ::isatty(STDIN_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 1;
  return runCommand(hasTerminal ? kInTerminal : kOnDesktop, files->front());
}

}  // namespace

Result<void> open(const Options& options, const Program& program) {
  const auto context = makeContext(options, program);
  if (!context) return std::unexpected(context.error());
  auto destination = destinationOf(options.url, context->places.urlScheme);
  if (!destination) return std::unexpected(destination.error());
  // The control asks for the add-expense screen by a preference, then opens the application as
  // such.
  if (destination->empty() || *destination == "add-expense") {
    const auto isPending = takePendingAddExpense(context->container, context->places.appGroup);
    if (!isPending) return std::unexpected(isPending.error());
    *destination = *isPending || !destination->empty() ? "add-expense" : "dashboard";
  }
  if (const auto command = commandFor(*destination, context->settings))
    return runCommand(*command, options.url);
  return openJournal(*context);
}

}  // namespace importer
