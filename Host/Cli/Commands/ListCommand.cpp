// `list`: what the extension offers.
#include <fmt/format.h>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Guest.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Foundation/Printable.hpp"

namespace cli {
namespace {

using foundation::printable;
using widgetruntime::BundleDescription;
using widgetruntime::IntentParameter;

std::string casesOf(const IntentParameter& parameter) {
  if (parameter.type == IntentParameter::Type::entity) return "see `quorvel-host options`";
  std::string text;
  for (const auto& option : parameter.cases) text += (text.empty() ? "" : ", ") + option.id;
  return text;
}

std::string asText(const BundleDescription& bundle) {
  std::string text;
  for (const auto& [description, configuration] : bundle.widgets) {
    text += fmt::format("{}\n  {}: {}\n ",
                        printable(description.kind),
                        printable(description.displayName),
                        printable(description.description));
    for (const auto family : description.families)
      text += fmt::format(" {}", widgetruntime::nameOf(family));
    text += "\n";
    if (!configuration) continue;
    for (const auto& parameter : configuration->parameters) {
      text += fmt::format("  --configure {}=... ({}): {}\n",
                          printable(parameter.name),
                          printable(parameter.title),
                          printable(casesOf(parameter)));
    }
  }
  for (const auto& control : bundle.controls) {
    text += fmt::format("{}\n  {}: {}\n  runs {}\n",
                        printable(control.kind),
                        printable(control.displayName),
                        printable(control.description),
                        printable(control.intent));
  }
  return text;
}

}  // namespace

Result<void> list(const Options& options, const Program& program) {
  const auto device = deviceFrom(options.device, program.environment);
  auto guest = Guest::open(options.source, program, device.preferredLanguages);
  if (!guest) return std::unexpected(guest.error());
  const BundleDescription& bundle = guest->about().bundle;
  return print(options.json ? widgetruntime::encode(bundle) + "\n" : asText(bundle));
}

}  // namespace cli
