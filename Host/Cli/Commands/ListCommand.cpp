// `list`: what the extension offers.
#include <fmt/format.h>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Guest.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Foundation/Printable.hpp"

namespace cli {
namespace {

using foundation::printable;
using widgetruntime::BundleDescription;
using widgetruntime::IntentParameter;

std::string_view typeName(IntentParameter::Type type) {
  return type == IntentParameter::Type::enumeration ? "enumeration" : "entity";
}

void write(foundation::JsonWriter& json, const IntentParameter& parameter) {
  json.beginObject().member("name", parameter.name).member("title", parameter.title);
  json.member("type", typeName(parameter.type)).member("typeName", parameter.typeName);
  json.key("default");
  parameter.defaultValue ? json.value(*parameter.defaultValue) : json.null();
  json.key("cases").beginArray();
  for (const auto& option : parameter.cases) {
    json.beginObject().member("id", option.id).member("title", option.title).endObject();
  }
  json.endArray().endObject();
}

void write(foundation::JsonWriter& json, const widgetruntime::WidgetListing& widget) {
  const auto& description = widget.description;
  json.beginObject().member("kind", description.kind).member("name", description.displayName);
  json.member("description", description.description).key("families").beginArray();
  for (const auto family : description.families) json.value(widgetruntime::name(family));
  json.endArray().key("configuration");
  if (widget.configuration) {
    json.beginObject()
        .member("intent", widget.configuration->name)
        .member("title", widget.configuration->title);
    json.key("parameters").beginArray();
    for (const auto& parameter : widget.configuration->parameters) write(json, parameter);
    json.endArray().endObject();
  } else {
    json.null();
  }
  json.endObject();
}

std::string asJson(const BundleDescription& bundle) {
  foundation::JsonWriter json;
  json.beginObject().key("widgets").beginArray();
  for (const auto& widget : bundle.widgets) write(json, widget);
  json.endArray().key("controls").beginArray();
  for (const auto& control : bundle.controls) {
    json.beginObject().member("kind", control.kind).member("name", control.displayName);
    json.member("description", control.description).member("label", control.label);
    json.member("symbol", control.symbol).member("intent", control.intent);
    json.member("intentTitle", control.intentTitle).endObject();
  }
  json.endArray().endObject();
  return json.take() + "\n";
}

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
      text += fmt::format(" {}", widgetruntime::name(family));
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
  return print(options.json ? asJson(bundle) : asText(bundle));
}

}  // namespace cli
