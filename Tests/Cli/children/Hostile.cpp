// An extension whose every text holds what a terminal would obey.
#include <string>

#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/ExtensionMain.hpp"

namespace {

using namespace widgetruntime;

const std::string kHostile = "\x1B[2J\u009B31m\u202Eabc\u202C\x07\x7F\nnext";

struct Document {
  foundation::Instant generatedAt;
};

struct Entry {
  foundation::Instant date;
  std::optional<Document> snapshot;
};

struct Intent {
  static Intent fromValues(const IntentValues&) { return {}; }
};

struct HostileProvider {
  using Entry = ::Entry;
  using Intent = ::Intent;
  Entry placeholder(const ProviderContext& context) const { return {context.device.now, {}}; }
  Entry snapshot(const Intent&, const ProviderContext& c) const { return placeholder(c); }
  widgetruntime::Timeline<Entry> timeline(const Intent&, const ProviderContext& c) const {
    return {{placeholder(c)}, {}};
  }
};

WidgetContent body(const Entry&, const Environment&) {
  const viewkit::View stack =
      viewkit::VStack{{},
                      viewkit::Text{kHostile},
                      viewkit::Text{"label"}.accessibilityLabel(kHostile).link(kHostile)};
  return {stack.named(kHostile).widgetURL(kHostile), {kHostile}};
}

WidgetBundle makeBundle(const InitializeParameters&) {
  IntentParameter parameter{.name = "card", .title = kHostile, .typeName = kHostile};
  parameter.type = IntentParameter::Type::entity;
  parameter.query.suggestedEntities = [] {
    return std::vector<IntentOption>{{kHostile, kHostile}};
  };
  parameter.query.defaultResult = []() -> std::optional<IntentOption> { return {}; };
  WidgetBundle bundle;
  bundle.widgets = {makeIntentConfiguration({.kind = "Hostile",
                                             .displayName = kHostile,
                                             .description = kHostile,
                                             .families = {WidgetFamily::systemSmall}},
                                            {kHostile, kHostile, {parameter}},
                                            HostileProvider{},
                                            body)};
  bundle.controls = {{kHostile, kHostile, kHostile, kHostile, kHostile, kHostile}};
  bundle.actions = {{"Act", kHostile, true, [] {}}};
  bundle.appGroup = kHostile;
  bundle.urlScheme = kHostile;
  bundle.container = "/nonexistent/" + kHostile;
  return bundle;
}

DiagnoseAnswer diagnose(const DiagnoseParameters&) {
  return {.problems = {{kHostile, 1, 1, kHostile, kHostile}}, .widgets = {{kHostile, kHostile}}};
}

}  // namespace

int main(int argc, char** argv) {
  return NSExtensionMain(argc, argv, {makeBundle, diagnose});
}
