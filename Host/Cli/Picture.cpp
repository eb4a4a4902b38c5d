#include "Cli/Picture.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "Cli/Output.hpp"
#include "Foundation/Locale.hpp"
#include "Foundation/Printable.hpp"
#include "Session/HostEnvironment.hpp"

namespace cli {
namespace {

using widgetruntime::isAccessory;
using widgetruntime::WidgetFamily;

foundation::Instant clockNow() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto seconds = std::chrono::floor<std::chrono::seconds>(now);
  const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(now - seconds);
  return {seconds.count(), static_cast<std::int32_t>(rest.count())};
}

bool showsBackground(WidgetFamily family, const PictureOptions& options) {
  return options.background && session::showsContainerBackground(family, options.mode);
}

const widgetruntime::IntentParameter* parameterNamed(const widgetruntime::WidgetListing& widget,
                                                     std::string_view name) {
  if (!widget.configuration) return nullptr;
  const auto& parameters = widget.configuration->parameters;
  const auto found = std::ranges::find(parameters, name, &widgetruntime::IntentParameter::name);
  return found == parameters.end() ? nullptr : &*found;
}

bool hasCase(const widgetruntime::IntentParameter& parameter, std::string_view value) {
  return std::ranges::find(parameter.cases, value, &widgetruntime::IntentOption::id) !=
         parameter.cases.end();
}

}  // namespace

foundation::Device deviceFrom(const DeviceOptions& options,
                              const foundation::ProcessEnvironment& environment) {
  return {.now = options.now ? *options.now : clockNow(),
          .timeZone = options.timeZone.empty() ? foundation::currentTimeZone(environment)
                                               : foundation::TimeZone{options.timeZone},
          .locale = options.locale.empty() ? foundation::currentLocale(environment)
                                           : foundation::Locale{options.locale},
          .preferredLanguages = options.languages.empty()
                                    ? foundation::preferredLanguages(environment)
                                    : options.languages};
}

widgetruntime::EntriesParameters entriesParameters(const std::string& kind,
                                                   WidgetFamily family,
                                                   const PictureOptions& options,
                                                   const foundation::Device& device) {
  auto environment = session::hostEnvironment(family, options.mode, options.redaction, device);
  environment.showsWidgetContainerBackground = showsBackground(family, options);
  return {.kind = kind,
          .family = family,
          .isPreview = options.preview,
          .configuration = options.configuration,
          .device = device,
          .environments = {environment}};
}

rendering::RenderOptions renderOptions(WidgetFamily family,
                                       const PictureOptions& options,
                                       const foundation::Device& device,
                                       const std::filesystem::path& images) {
  rendering::RenderOptions result;
  result.size = options.size.value_or(surfaces::presetSize(family, options.preset));
  result.scale = options.scale;
  result.appearance = options.appearance;
  result.mode = options.mode;
  result.tint = options.tint;
  result.showsBackground = showsBackground(family, options);
  if (isAccessory(family)) result.cornerRadius = 0;
  result.redaction = options.redaction;
  result.direction = session::layoutDirection(device);
  result.container = images;
  return result;
}

Result<viewkit::View> fetchView(Guest& guest, const widgetruntime::EntriesParameters& parameters) {
  const bool placeholder = parameters.environments.front().redactionReasons.placeholder;
  auto entry = said(placeholder ? guest.client().placeholder(parameters)
                                : guest.client().snapshot(parameters));
  if (!entry) return std::unexpected(entry.error());
  if (!entry->hasSnapshot) {
    const std::string problem = documentProblem(guest, parameters.device);
    if (!problem.empty()) complain("warning: " + problem + "\n");
  }
  return std::move(entry->trees.front().view);
}

Result<void> checkConfiguration(const widgetruntime::WidgetListing& widget,
                                const widgetruntime::IntentValues& values) {
  for (const auto& [name, value] : values) {
    const auto* parameter = parameterNamed(widget, name);
    if (!parameter) {
      return refused(
          fmt::format("--configure: {} has no parameter \"{}\"", widget.description.kind, name));
    }
    if (parameter->type == widgetruntime::IntentParameter::Type::enumeration &&
        !hasCase(*parameter, value)) {
      return refused(
          fmt::format("--configure: \"{}\" is no {} (see `quorvel-host list`)", value, name));
    }
  }
  return {};
}

std::string documentProblem(Guest& guest, const foundation::Device& device) {
  if (guest.document().empty())
    return "there is no container, so there is no document (name one with --container)";
  const std::string file = guest.document().string();
  const auto diagnosis =
      said(guest.client().diagnose({.path = file, .text = std::nullopt, .device = device}));
  if (!diagnosis) return foundation::printable(diagnosis.error().line);
  if (diagnosis->accepted || diagnosis->problems.empty()) return {};
  const auto& problem = diagnosis->problems.front();
  std::string place = file;
  if (problem.line > 0) place += fmt::format(":{}:{}", problem.line, problem.column);
  if (!problem.pointer.empty()) place += ": " + problem.pointer;
  return foundation::printable(
      fmt::format("{}: expected {}, found {}", place, problem.expected, problem.found));
}

}  // namespace cli
