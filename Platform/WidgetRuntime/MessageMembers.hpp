// The members of every message and of the records in it, with their names on the wire, listed once
// for their reader, their writer and the test of docs/protocol.md. The order is the writer's.
#pragma once

#include "Foundation/JsonMembers.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace widgetruntime {

using foundation::AtMost;
using foundation::Bounds;
using foundation::kAlways;
using foundation::kRequired;

inline constexpr AtMost kMostLanguages{64};
inline constexpr AtMost kMostListings{256};
inline constexpr Bounds kWhole{.least = -1e9, .most = 1e9};
inline constexpr Bounds kCount{.least = 0, .most = 1e9};

template <class T>
struct MembersOf;

// ---- what messages share

template <>
struct MembersOf<foundation::Device> {
  using Device = foundation::Device;
  static void list(auto&& member) {
    member("now", &Device::now, kRequired);
    member("timeZone", &Device::timeZone, kRequired);
    member("locale", &Device::locale, kRequired);
    member("languages", &Device::preferredLanguages, kRequired, kMostLanguages);
  }
};
template <>
struct MembersOf<IntentOption> {
  static void list(auto&& member) {
    member("id", &IntentOption::id, kRequired);
    member("title", &IntentOption::title, kRequired);
  }
};

// ---- initialize

template <>
struct MembersOf<InitializeParameters> {
  using Parameters = InitializeParameters;
  static void list(auto&& member) {
    member("protocolVersion", &Parameters::protocolVersion, kRequired, kWhole);
    member("host", &Parameters::host, kAlways);
    member("containerRoot", &Parameters::containerRoot);
    member("container", &Parameters::container);
    member("infoPlist", &Parameters::infoPlist);
    member("snapshotFile", &Parameters::snapshotFile);
    member("languages", &Parameters::preferredLanguages, kMostLanguages);
    member("offersControls", &Parameters::offersControls);
  }
};
template <>
struct MembersOf<IntentParameter> {
  static void list(auto&& member) {
    member("name", &IntentParameter::name, kRequired);
    member("title", &IntentParameter::title, kRequired);
    member("type", &IntentParameter::type, kRequired);
    member("typeName", &IntentParameter::typeName, kRequired);
    member("default", &IntentParameter::defaultValue, kAlways);
    member("cases", &IntentParameter::cases, kRequired, AtMost{kMaximumItems});
  }
};
template <>
struct MembersOf<IntentDescription> {
  static void list(auto&& member) {
    member("intent", &IntentDescription::name, kRequired);
    member("title", &IntentDescription::title, kRequired);
    member("parameters", &IntentDescription::parameters, kRequired, AtMost{64});
  }
};
template <>
struct MembersOf<WidgetDescription> {
  using Description = WidgetDescription;
  static void list(auto&& member) {
    member("kind", &Description::kind, kRequired);
    member("name", &Description::displayName, kRequired);
    member("description", &Description::description, kRequired);
    member("families", &Description::families, kRequired, AtMost{kAllFamilies.size()});
  }
};
template <>
struct MembersOf<WidgetListing> {
  static void list(auto&& member) {
    member(&WidgetListing::description);
    member("configuration", &WidgetListing::configuration, kAlways);
  }
};
template <>
struct MembersOf<ControlListing> {
  static void list(auto&& member) {
    member("kind", &ControlListing::kind, kRequired);
    member("name", &ControlListing::displayName, kRequired);
    member("description", &ControlListing::description, kRequired);
    member("label", &ControlListing::label, kRequired);
    member("symbol", &ControlListing::symbol, kRequired);
    member("intent", &ControlListing::intent, kRequired);
    member("intentTitle", &ControlListing::intentTitle, kAlways);
  }
};
template <>
struct MembersOf<BundleDescription> {
  static void list(auto&& member) {
    member("widgets", &BundleDescription::widgets, kRequired, kMostListings);
    member("controls", &BundleDescription::controls, kRequired, kMostListings);
  }
};
template <>
struct MembersOf<InitializeAnswer> {
  static void list(auto&& member) {
    member("protocolVersion", &InitializeAnswer::protocolVersion, kRequired, kWhole);
    member("appGroup", &InitializeAnswer::appGroup, kRequired);
    member("urlScheme", &InitializeAnswer::urlScheme, kRequired);
    member("container", &InitializeAnswer::container, kRequired);
    member("bundle", &InitializeAnswer::bundle, kRequired);
  }
};

// ---- widget/placeholder, widget/snapshot, widget/timeline

template <>
struct MembersOf<viewkit::Insets> {
  static void list(auto&& member) {
    member("top", &viewkit::Insets::top, kRequired);
    member("leading", &viewkit::Insets::leading, kRequired);
    member("bottom", &viewkit::Insets::bottom, kRequired);
    member("trailing", &viewkit::Insets::trailing, kRequired);
  }
};
template <>
struct MembersOf<RedactionReasons> {
  static void list(auto&& member) {
    member("privacy", &RedactionReasons::privacy, kAlways);
    member("placeholder", &RedactionReasons::placeholder, kAlways);
  }
};
template <>
struct MembersOf<Environment> {
  static void list(auto&& member) {
    member("renderingMode", &Environment::widgetRenderingMode, kAlways);
    member(&Environment::redactionReasons);
    member("showsContainerBackground", &Environment::showsWidgetContainerBackground, kAlways);
    member("systemMargins", &Environment::systemMargins, kAlways);
    member("layoutDirection", &Environment::layoutDirection, kAlways);
  }
};
template <>
struct MembersOf<EntriesParameters> {
  using Parameters = EntriesParameters;
  static void list(auto&& member) {
    member("kind", &Parameters::kind, kRequired);
    member("family", &Parameters::family, kRequired);
    member("previewFamily", &Parameters::previewFamily);
    member("isPreview", &Parameters::isPreview, kAlways);
    member("configuration", &Parameters::configuration, kAlways);
    member(&Parameters::device);
    member("environments", &Parameters::environments, kRequired, AtMost{kMaximumEnvironments});
  }
};
template <>
struct MembersOf<WidgetSummary> {
  static void list(auto&& member) {
    member("text", &WidgetSummary::text, kRequired, foundation::CutTo{kMaximumSummary});
    member("state", &WidgetSummary::state, kRequired);
  }
};
template <>
struct MembersOf<RenderedTree> {
  static void list(auto&& member) {
    member("link", &RenderedTree::link);
    member("summary", &RenderedTree::summary, kAlways);
    member("tree", &RenderedTree::view, kRequired);
  }
};
template <>
struct MembersOf<RenderedEntry> {
  static void list(auto&& member) {
    member("date", &RenderedEntry::date, kRequired);
    member("hasSnapshot", &RenderedEntry::hasSnapshot, kRequired);
    member("generatedAt", &RenderedEntry::generatedAt);
    member("trees", &RenderedEntry::trees, kRequired, AtMost{kMaximumEnvironments});
  }
};
template <>
struct MembersOf<ReloadPolicy> {
  static constexpr foundation::When<ReloadPolicy> kAfter{
      [](const ReloadPolicy& policy) { return policy.type == ReloadPolicy::Type::after; }};
  static void list(auto&& member) {
    member("type", &ReloadPolicy::type, kRequired);
    member("date", &ReloadPolicy::date, kAfter);
  }
};
template <>
struct MembersOf<EntriesAnswer> {
  static void list(auto&& member) {
    member("entries", &EntriesAnswer::entries, kRequired, AtMost{kMaximumEntries});
    member("policy", &EntriesAnswer::policy);
  }
};

// ---- configuration/options

template <>
struct MembersOf<OptionsQuery> {
  static void list(auto&& member) {
    member("identifiers", &OptionsQuery::identifiers, kRequired, AtMost{kMaximumItems});
  }
};
template <>
struct MembersOf<OptionsParameters> {
  static void list(auto&& member) {
    member("kind", &OptionsParameters::kind, kRequired);
    member("parameter", &OptionsParameters::parameter, kRequired);
    member("query", &OptionsParameters::query);
  }
};
template <>
struct MembersOf<OptionsAnswer> {
  static void list(auto&& member) {
    member("options", &OptionsAnswer::options, kRequired, AtMost{kMaximumItems});
    member("default", &OptionsAnswer::defaultOption, kAlways);
    member("more", &OptionsAnswer::more);
  }
};

// ---- intent/perform

template <>
struct MembersOf<PerformParameters> {
  static void list(auto&& member) { member("intent", &PerformParameters::intent, kRequired); }
};
template <>
struct MembersOf<PerformAnswer> {
  static void list(auto&& member) { member("openApp", &PerformAnswer::openApp, kRequired); }
};

// ---- document/diagnose

template <>
struct MembersOf<DiagnoseParameters> {
  static void list(auto&& member) {
    member("path", &DiagnoseParameters::path);
    member("text", &DiagnoseParameters::text, foundation::MaximumBytes{kMaximumMessage});
    member(&DiagnoseParameters::device);
  }
};
template <>
struct MembersOf<foundation::JsonProblem> {
  using JsonProblem = foundation::JsonProblem;
  static void list(auto&& member) {
    member("pointer", &JsonProblem::pointer, kRequired);
    member("line", &JsonProblem::line, kRequired, kCount);
    member("column", &JsonProblem::column, kRequired, kCount);
    member("expected", &JsonProblem::expected, kRequired);
    member("found", &JsonProblem::found, kRequired);
  }
};
template <>
struct MembersOf<WidgetOutlook> {
  static void list(auto&& member) {
    member("kind", &WidgetOutlook::kind, kRequired);
    member("shows", &WidgetOutlook::shows, kRequired);
  }
};
template <>
struct MembersOf<DiagnoseAnswer> {
  static void list(auto&& member) {
    member("accepted", &DiagnoseAnswer::accepted, kRequired);
    member("problems", &DiagnoseAnswer::problems, kRequired, AtMost{kMaximumItems});
    member("leftOut", &DiagnoseAnswer::leftOut, kCount);
    member("widgets", &DiagnoseAnswer::widgets, kRequired, AtMost{kMaximumItems});
  }
};

}  // namespace widgetruntime
