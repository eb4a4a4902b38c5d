#include <algorithm>
#include <variant>

#include "Foundation/Utf8.hpp"
#include "ViewKit/TreeJson.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace widgetruntime {

using foundation::JsonWriter;

namespace {

// Absent values are left out, so that a message can be read by eye.
void writeOptional(JsonWriter& writer,
                   std::string_view key,
                   const std::optional<std::string>& text) {
  if (text) writer.member(key, std::string_view{*text});
}

void writeText(JsonWriter& writer, std::string_view key, const std::string& text) {
  writer.member(key, std::string_view{text});
}

void writeInstant(JsonWriter& writer, std::string_view key, foundation::Instant instant) {
  writeText(writer, key, foundation::formatInternetDateTime(instant));
}

void writeStrings(JsonWriter& writer, std::string_view key, const std::vector<std::string>& texts) {
  writer.key(key).beginArray();
  for (const std::string& text : texts) writer.value(std::string_view{text});
  writer.endArray();
}

void writeDevice(JsonWriter& writer, const foundation::Device& device) {
  writeInstant(writer, "now", device.now);
  writeText(writer, "timeZone", device.timeZone.identifier);
  writeText(writer, "locale", device.locale.identifier);
  writeStrings(writer, "languages", device.preferredLanguages);
}

void writeOptions(JsonWriter& writer,
                  std::string_view key,
                  const std::vector<IntentOption>& options) {
  writer.key(key).beginArray();
  for (const IntentOption& option : options) {
    writer.beginObject();
    writeText(writer, "id", option.id);
    writeText(writer, "title", option.title);
    writer.endObject();
  }
  writer.endArray();
}

// A missing default is said, not left out: it is an answer of its own.
void writeDefault(JsonWriter& writer, const std::optional<std::string>& id) {
  writer.key("default");
  if (id) {
    writer.value(std::string_view{*id});
  } else {
    writer.null();
  }
}

void writeParameter(JsonWriter& writer, const IntentParameter& parameter) {
  const bool isEntity = parameter.type == IntentParameter::Type::entity;
  writer.beginObject();
  writeText(writer, "name", parameter.name);
  writeText(writer, "title", parameter.title);
  writer.member("type", isEntity ? "entity" : "enumeration");
  writeText(writer, "typeName", parameter.typeName);
  writeDefault(writer, parameter.defaultValue);
  writeOptions(writer, "cases", parameter.cases);
  writer.endObject();
}

void writeWidget(JsonWriter& writer, const WidgetListing& widget) {
  writer.beginObject();
  writeText(writer, "kind", widget.description.kind);
  writeText(writer, "name", widget.description.displayName);
  writeText(writer, "description", widget.description.description);
  writer.key("families").beginArray();
  for (const WidgetFamily family : widget.description.families) writer.value(name(family));
  writer.endArray().key("configuration");
  if (!widget.configuration) {
    writer.null();
  } else {
    writer.beginObject();
    writeText(writer, "intent", widget.configuration->name);
    writeText(writer, "title", widget.configuration->title);
    writer.key("parameters").beginArray();
    for (const IntentParameter& parameter : widget.configuration->parameters) {
      writeParameter(writer, parameter);
    }
    writer.endArray().endObject();
  }
  writer.endObject();
}

void writeControl(JsonWriter& writer, const ControlListing& control) {
  writer.beginObject();
  writeText(writer, "kind", control.kind);
  writeText(writer, "name", control.displayName);
  writeText(writer, "description", control.description);
  writeText(writer, "label", control.label);
  writeText(writer, "symbol", control.symbol);
  writeText(writer, "intent", control.intent);
  writeText(writer, "intentTitle", control.intentTitle);
  writer.endObject();
}

void writeEnvironment(JsonWriter& writer, const Environment& environment) {
  const viewkit::Insets& margins = environment.systemMargins;
  writer.beginObject();
  writer.member("renderingMode", name(environment.widgetRenderingMode));
  writer.member("privacy", environment.redactionReasons.privacy);
  writer.member("placeholder", environment.redactionReasons.placeholder);
  writer.member("showsContainerBackground", environment.showsWidgetContainerBackground);
  writer.key("systemMargins").beginObject();
  writer.member("top", margins.top).member("leading", margins.leading);
  writer.member("bottom", margins.bottom).member("trailing", margins.trailing).endObject();
  const bool isMirrored = environment.layoutDirection == viewkit::LayoutDirection::rightToLeft;
  writer.member("layoutDirection", isMirrored ? "rightToLeft" : "leftToRight");
  writer.endObject();
}

void writeSummary(JsonWriter& writer, const WidgetSummary& summary) {
  writer.key("summary").beginObject();
  writer.member("text", foundation::utf8Prefix(summary.text, kMaximumSummary));
  writer.member("state", name(summary.state));
  writer.endObject();
}

}  // namespace

void write(JsonWriter& writer, const InitializeParameters& parameters) {
  writer.beginObject();
  writer.member("protocolVersion", parameters.protocolVersion);
  writeText(writer, "host", parameters.host);
  writeOptional(writer, "containerRoot", parameters.containerRoot);
  writeOptional(writer, "container", parameters.container);
  writeOptional(writer, "infoPlist", parameters.infoPlist);
  writeOptional(writer, "snapshotFile", parameters.snapshotFile);
  if (!parameters.preferredLanguages.empty())
    writeStrings(writer, "languages", parameters.preferredLanguages);
  if (!parameters.offersControls) writer.member("offersControls", false);
  writer.endObject();
}

void write(JsonWriter& writer, const BundleDescription& bundle) {
  writer.beginObject().key("widgets").beginArray();
  for (const WidgetListing& widget : bundle.widgets) writeWidget(writer, widget);
  writer.endArray().key("controls").beginArray();
  for (const ControlListing& control : bundle.controls) writeControl(writer, control);
  writer.endArray().endObject();
}

void write(JsonWriter& writer, const InitializeAnswer& answer) {
  writer.beginObject();
  writer.member("protocolVersion", answer.protocolVersion);
  writeText(writer, "appGroup", answer.appGroup);
  writeText(writer, "urlScheme", answer.urlScheme);
  writeText(writer, "container", answer.container);
  writer.key("bundle");
  write(writer, answer.bundle);
  writer.endObject();
}

void write(JsonWriter& writer, const EntriesParameters& parameters) {
  writer.beginObject();
  writeText(writer, "kind", parameters.kind);
  writer.member("family", name(parameters.family));
  if (parameters.previewFamily) writer.member("previewFamily", name(*parameters.previewFamily));
  writer.member("isPreview", parameters.isPreview);
  writer.key("configuration").beginObject();
  for (const auto& [parameter, value] : parameters.configuration) {
    writeText(writer, parameter, value);
  }
  writer.endObject();
  writeDevice(writer, parameters.device);
  writer.key("environments").beginArray();
  for (const Environment& environment : parameters.environments) {
    writeEnvironment(writer, environment);
  }
  writer.endArray().endObject();
}

void write(JsonWriter& writer, const RenderedEntry& entry) {
  writer.beginObject();
  writeInstant(writer, "date", entry.date);
  writer.member("hasSnapshot", entry.hasSnapshot);
  if (entry.generatedAt) writeInstant(writer, "generatedAt", *entry.generatedAt);
  writer.key("trees").beginArray();
  for (const RenderedTree& tree : entry.trees) {
    writer.beginObject();
    writeOptional(writer, "link", tree.link);
    writeSummary(writer, tree.summary);
    writer.key("tree");
    viewkit::writeView(writer, tree.view);
    writer.endObject();
  }
  writer.endArray().endObject();
}

void write(JsonWriter& writer, const ReloadPolicy& policy) {
  writer.beginObject();
  switch (policy.type) {
    case ReloadPolicy::Type::atEnd:
      writer.member("type", "atEnd");
      break;
    case ReloadPolicy::Type::after:
      writer.member("type", "after");
      writeInstant(writer, "date", policy.date);
      break;
    case ReloadPolicy::Type::never:
      writer.member("type", "never");
      break;
  }
  writer.endObject();
}

void write(JsonWriter& writer, const EntriesAnswer& answer) {
  writer.beginObject().key("entries").beginArray();
  for (const RenderedEntry& entry : answer.entries) write(writer, entry);
  writer.endArray();
  if (answer.policy) {
    writer.key("policy");
    write(writer, *answer.policy);
  }
  writer.endObject();
}

void write(JsonWriter& writer, const OptionsParameters& parameters) {
  writer.beginObject();
  writeText(writer, "kind", parameters.kind);
  writeText(writer, "parameter", parameters.parameter);
  if (parameters.identifiers) {
    writer.key("query").beginObject();
    writeStrings(writer, "identifiers", *parameters.identifiers);
    writer.endObject();
  }
  writer.endObject();
}

void write(JsonWriter& writer, const OptionsAnswer& answer) {
  writer.beginObject();
  writeOptions(writer, "options", answer.options);
  writeDefault(writer, answer.defaultOption);
  if (answer.more) writer.member("more", true);
  writer.endObject();
}

void write(JsonWriter& writer, const PerformParameters& parameters) {
  writer.beginObject();
  writeText(writer, "intent", parameters.intent);
  writer.endObject();
}

void write(JsonWriter& writer, const PerformAnswer& answer) {
  writer.beginObject().member("openApp", answer.openApp).endObject();
}

void write(JsonWriter& writer, const DiagnoseParameters& parameters) {
  writer.beginObject();
  writeOptional(writer, "path", parameters.path);
  writeOptional(writer, "text", parameters.text);
  writeDevice(writer, parameters.device);
  writer.endObject();
}

void write(JsonWriter& writer, const DiagnoseAnswer& answer) {
  writer.beginObject().member("accepted", answer.accepted).key("problems").beginArray();
  for (const foundation::JsonProblem& problem : answer.problems) {
    writer.beginObject();
    writeText(writer, "pointer", problem.pointer);
    writer.member("line", static_cast<double>(problem.line));
    writer.member("column", static_cast<double>(problem.column));
    writeText(writer, "expected", problem.expected);
    writeText(writer, "found", problem.found);
    writer.endObject();
  }
  writer.endArray();
  if (answer.leftOut > 0) writer.member("leftOut", static_cast<double>(answer.leftOut));
  writer.key("widgets").beginArray();
  for (const WidgetOutlook& widget : answer.widgets) {
    writer.beginObject();
    writeText(writer, "kind", widget.kind);
    writeText(writer, "shows", widget.shows);
    writer.endObject();
  }
  writer.endArray().endObject();
}

BundleDescription describe(const WidgetBundle& bundle) {
  BundleDescription description;
  for (const Widget& widget : bundle.widgets) {
    description.widgets.push_back({widget.description, widget.configuration});
  }
  for (const Control& control : bundle.controls) {
    const auto action = std::ranges::find(bundle.actions, control.intent, &Action::name);
    description.controls.push_back(
        {control, action == bundle.actions.end() ? std::string{} : action->title});
  }
  return description;
}

std::optional<std::string> widgetURL(const viewkit::View& view) {
  const viewkit::Node& node = view.node();
  for (auto modifier = node.modifiers.rbegin(); modifier != node.modifiers.rend(); ++modifier) {
    if (const auto* link = std::get_if<viewkit::WidgetURL>(&*modifier)) return link->url;
  }
  for (const viewkit::View& child : node.children) {
    if (auto link = widgetURL(child)) return link;
  }
  return std::nullopt;
}

}  // namespace widgetruntime
