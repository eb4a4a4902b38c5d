#include <algorithm>
#include <cmath>
#include <utility>

#include "ViewKit/TreeJson.hpp"
#include "WidgetRuntime/Messages.hpp"
#include "WidgetRuntime/ObjectReader.hpp"

namespace widgetruntime {

using foundation::JsonValue;

namespace {

template <class Message>
Read<Message> finish(Message message, Problem& problem) {
  if (problem) return std::unexpected(std::move(*problem));
  return message;
}

int wholeNumber(ObjectReader& reader, std::string_view key) {
  const double number = reader.number(key);
  if (number != std::trunc(number) || std::abs(number) > 1e9) {
    reader.fail(key, "a whole number is expected");
    return 0;
  }
  return static_cast<int>(number);
}

std::size_t count(ObjectReader& reader, std::string_view key) {
  return static_cast<std::size_t>(std::max(0, wholeNumber(reader, key)));
}

foundation::Device readDevice(ObjectReader& reader) {
  foundation::Device device;
  device.now = reader.instant("now");
  device.timeZone.identifier = reader.string("timeZone");
  device.locale.identifier = reader.string("locale");
  device.preferredLanguages = reader.strings("languages", 64, true);
  return device;
}

viewkit::Insets readInsets(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  return {reader.number("top"),
          reader.number("leading"),
          reader.number("bottom"),
          reader.number("trailing")};
}

std::optional<viewkit::LayoutDirection> layoutDirectionNamed(std::string_view name) {
  if (name == "leftToRight") return viewkit::LayoutDirection::leftToRight;
  if (name == "rightToLeft") return viewkit::LayoutDirection::rightToLeft;
  return std::nullopt;
}

Environment readEnvironment(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  Environment environment;
  if (reader.present("renderingMode") != nullptr) {
    environment.widgetRenderingMode = reader.named("renderingMode", renderingModeNamed);
  }
  environment.redactionReasons.privacy = reader.booleanOr("privacy", false);
  environment.redactionReasons.placeholder = reader.booleanOr("placeholder", false);
  environment.showsWidgetContainerBackground = reader.booleanOr("showsContainerBackground", true);
  if (const JsonValue* margins = reader.present("systemMargins")) {
    environment.systemMargins = readInsets(*margins, reader.pathOf("systemMargins"), problem);
  }
  if (reader.present("layoutDirection") != nullptr) {
    environment.layoutDirection = reader.named("layoutDirection", layoutDirectionNamed);
  }
  return environment;
}

IntentValues readValues(const JsonValue& json, const std::string& path, Problem& problem) {
  IntentValues values;
  ObjectReader reader(json, path, problem);
  if (reader.failed()) return values;
  for (const auto& [key, value] : *json.object()) {
    // A parameter without a value counts as not given, as a host may well keep it.
    if (auto text = reader.optionalString(key)) values.try_emplace(key, std::move(*text));
  }
  return values;
}

std::vector<IntentOption> readOptions(ObjectReader& reader, std::string_view key) {
  std::vector<IntentOption> options;
  reader.array(key, kMaximumItems, true, [&](const JsonValue& element, std::string path) {
    ObjectReader option(element, std::move(path), reader.problem());
    options.push_back({option.string("id"), option.string("title")});
  });
  return options;
}

std::optional<IntentParameter::Type> parameterTypeNamed(std::string_view name) {
  if (name == "enumeration") return IntentParameter::Type::enumeration;
  if (name == "entity") return IntentParameter::Type::entity;
  return std::nullopt;
}

IntentParameter readParameter(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  IntentParameter parameter;
  parameter.name = reader.string("name");
  parameter.title = reader.string("title");
  parameter.type = reader.named("type", parameterTypeNamed);
  parameter.typeName = reader.string("typeName");
  parameter.defaultValue = reader.optionalString("default");
  parameter.cases = readOptions(reader, "cases");
  return parameter;
}

IntentDescription readConfiguration(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  IntentDescription intent;
  intent.name = reader.string("intent");
  intent.title = reader.string("title");
  reader.array("parameters", 64, true, [&](const JsonValue& element, std::string elementPath) {
    intent.parameters.push_back(readParameter(element, std::move(elementPath), problem));
  });
  return intent;
}

WidgetListing readWidget(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  WidgetListing widget;
  widget.description.kind = reader.string("kind");
  widget.description.displayName = reader.string("name");
  widget.description.description = reader.string("description");
  for (const std::string& family : reader.strings("families", kAllFamilies.size(), true)) {
    const auto known = widgetFamilyNamed(family);
    if (!known) {
      reader.fail("families", "unknown family");
    } else {
      widget.description.families.push_back(*known);
    }
  }
  if (const JsonValue* configuration = reader.present("configuration")) {
    widget.configuration =
        readConfiguration(*configuration, reader.pathOf("configuration"), problem);
  }
  return widget;
}

ControlListing readControl(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  ControlListing control;
  control.kind = reader.string("kind");
  control.displayName = reader.string("name");
  control.description = reader.string("description");
  control.label = reader.string("label");
  control.symbol = reader.string("symbol");
  control.intent = reader.string("intent");
  control.intentTitle = reader.optionalString("intentTitle").value_or("");
  return control;
}

BundleDescription readBundle(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  BundleDescription bundle;
  reader.array("widgets", 256, true, [&](const JsonValue& element, std::string elementPath) {
    bundle.widgets.push_back(readWidget(element, std::move(elementPath), problem));
  });
  reader.array("controls", 256, true, [&](const JsonValue& element, std::string elementPath) {
    bundle.controls.push_back(readControl(element, std::move(elementPath), problem));
  });
  return bundle;
}

WidgetSummary readSummary(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  return {reader.string("text", kMaximumSummary), reader.named("state", summaryStateNamed)};
}

RenderedTree readTree(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  RenderedTree result;
  result.link = reader.optionalString("link");
  if (const JsonValue* summary = reader.present("summary")) {
    result.summary = readSummary(*summary, reader.pathOf("summary"), problem);
  }
  const JsonValue* tree = reader.present("tree");
  if (tree == nullptr) {
    reader.fail("tree", "missing");
    return result;
  }
  auto view = viewkit::readView(*tree);
  if (!view) {
    reader.fail("tree", view.error());
  } else {
    result.view = std::move(*view);
  }
  return result;
}

RenderedEntry readEntry(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  RenderedEntry entry;
  entry.date = reader.instant("date");
  entry.hasSnapshot = reader.boolean("hasSnapshot");
  if (reader.present("generatedAt") != nullptr) entry.generatedAt = reader.instant("generatedAt");
  reader.array(
      "trees", kMaximumEnvironments, true, [&](const JsonValue& element, std::string elementPath) {
        entry.trees.push_back(readTree(element, std::move(elementPath), problem));
      });
  return entry;
}

std::optional<ReloadPolicy::Type> policyTypeNamed(std::string_view name) {
  if (name == "atEnd") return ReloadPolicy::Type::atEnd;
  if (name == "after") return ReloadPolicy::Type::after;
  if (name == "never") return ReloadPolicy::Type::never;
  return std::nullopt;
}

ReloadPolicy readPolicy(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  ReloadPolicy policy;
  policy.type = reader.named("type", policyTypeNamed);
  if (policy.type == ReloadPolicy::Type::after) policy.date = reader.instant("date");
  return policy;
}

foundation::JsonProblem readProblem(const JsonValue& json, std::string path, Problem& problem) {
  ObjectReader reader(json, std::move(path), problem);
  foundation::JsonProblem result;
  result.pointer = reader.string("pointer");
  result.line = count(reader, "line");
  result.column = count(reader, "column");
  result.expected = reader.string("expected");
  result.found = reader.string("found");
  return result;
}

}  // namespace

template <>
Read<InitializeParameters> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  InitializeParameters parameters;
  parameters.protocolVersion = wholeNumber(reader, "protocolVersion");
  parameters.host = reader.optionalString("host").value_or("");
  parameters.containerRoot = reader.optionalString("containerRoot");
  parameters.container = reader.optionalString("container");
  parameters.infoPlist = reader.optionalString("infoPlist");
  parameters.snapshotFile = reader.optionalString("snapshotFile");
  if (json.member("languages") != nullptr)
    parameters.preferredLanguages = reader.strings("languages", 64, true);
  if (json.member("offersControls") != nullptr) {
    parameters.offersControls = reader.boolean("offersControls");
  }
  return finish(std::move(parameters), problem);
}

template <>
Read<InitializeAnswer> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  InitializeAnswer answer;
  answer.protocolVersion = wholeNumber(reader, "protocolVersion");
  answer.appGroup = reader.string("appGroup");
  answer.urlScheme = reader.string("urlScheme");
  answer.container = reader.string("container");
  if (const JsonValue* bundle = reader.present("bundle")) {
    answer.bundle = readBundle(*bundle, "bundle", problem);
  } else {
    reader.fail("bundle", "missing");
  }
  return finish(std::move(answer), problem);
}

template <>
Read<EntriesParameters> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  EntriesParameters parameters;
  parameters.kind = reader.string("kind");
  parameters.family = reader.named("family", widgetFamilyNamed);
  if (reader.present("previewFamily") != nullptr) {
    parameters.previewFamily = reader.named("previewFamily", widgetFamilyNamed);
  }
  parameters.isPreview = reader.booleanOr("isPreview", false);
  if (const JsonValue* values = reader.present("configuration")) {
    parameters.configuration = readValues(*values, "configuration", problem);
  }
  parameters.device = readDevice(reader);
  reader.array(
      "environments", kMaximumEnvironments, true, [&](const JsonValue& element, std::string path) {
        Environment environment = readEnvironment(element, std::move(path), problem);
        environment.widgetFamily = parameters.family;
        environment.previewFamily = parameters.previewFamily;
        parameters.environments.push_back(environment);
      });
  return finish(std::move(parameters), problem);
}

template <>
Read<EntriesAnswer> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  EntriesAnswer answer;
  reader.array("entries", kMaximumEntries, true, [&](const JsonValue& element, std::string path) {
    answer.entries.push_back(readEntry(element, std::move(path), problem));
  });
  if (const JsonValue* policy = reader.present("policy")) {
    answer.policy = readPolicy(*policy, "policy", problem);
  }
  return finish(std::move(answer), problem);
}

template <>
Read<OptionsParameters> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  OptionsParameters parameters;
  parameters.kind = reader.string("kind");
  parameters.parameter = reader.string("parameter");
  if (const JsonValue* query = reader.present("query")) {
    ObjectReader queryReader(*query, "query", problem);
    parameters.identifiers = queryReader.strings("identifiers", kMaximumItems, true);
  }
  return finish(std::move(parameters), problem);
}

template <>
Read<OptionsAnswer> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  OptionsAnswer answer;
  answer.options = readOptions(reader, "options");
  answer.defaultOption = reader.optionalString("default");
  answer.more = reader.booleanOr("more", false);
  return finish(std::move(answer), problem);
}

template <>
Read<PerformParameters> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  PerformParameters parameters{reader.string("intent")};
  return finish(std::move(parameters), problem);
}

template <>
Read<PerformAnswer> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  PerformAnswer answer{reader.boolean("openApp")};
  return finish(answer, problem);
}

template <>
Read<DiagnoseParameters> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  DiagnoseParameters parameters;
  parameters.path = reader.optionalString("path");
  parameters.text = reader.optionalString("text", kMaximumMessage);
  if (parameters.path && parameters.text) reader.fail("text", "not beside a path");
  parameters.device = readDevice(reader);
  return finish(std::move(parameters), problem);
}

template <>
Read<DiagnoseAnswer> read(const JsonValue& json) {
  Problem problem;
  ObjectReader reader(json, "", problem);
  DiagnoseAnswer answer;
  answer.accepted = reader.boolean("accepted");
  reader.array("problems", kMaximumItems, true, [&](const JsonValue& element, std::string path) {
    answer.problems.push_back(readProblem(element, std::move(path), problem));
  });
  if (reader.present("leftOut") != nullptr) answer.leftOut = count(reader, "leftOut");
  reader.array("widgets", kMaximumItems, true, [&](const JsonValue& element, std::string path) {
    ObjectReader widget(element, std::move(path), problem);
    answer.widgets.push_back({widget.string("kind"), widget.string("shows")});
  });
  return finish(std::move(answer), problem);
}

}  // namespace widgetruntime
