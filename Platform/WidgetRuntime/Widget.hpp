// Widgets as an extension declares them: a kind, gallery texts, families, a provider of entries and
// a view of each entry.
//
//     Widget widget = makeStaticConfiguration(
//         {.kind = "Kind", .displayName = "Name", .description = "What it shows."},
//         SnapshotProvider{store},
//         [](const SnapshotEntry& entry, const Environment& environment) {
//           const NetWorthWidgetView view{...};
//           return WidgetContent{view.body(), view.summary()};
//         });
//
// A provider has an `Entry` type and the three operations of the timeline-provider protocol; an
// intent provider gets the configuration's intent as well. An entry has a `date`, and an optional
// `snapshot` that says in `generatedAt` when it was made.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Device.hpp"
#include "ViewKit/View.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/Intents.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace widgetruntime {

/// What a provider is told about a request.
struct ProviderContext {
  WidgetFamily family = WidgetFamily::systemSmall;
  bool isPreview = false;
  foundation::Device device;
};

/// When the host asks again.
struct ReloadPolicy {
  enum class Type { atEnd, after, never };
  friend constexpr auto namesOf(Type) { return foundation::names("atEnd", "after", "never"); }

  Type type = Type::atEnd;
  foundation::Instant date{};  ///< `after` only

  static ReloadPolicy after(foundation::Instant date) {
    return {.type = Type::after, .date = date};
  }
  friend bool operator==(const ReloadPolicy&, const ReloadPolicy&) = default;
};

template <class Entry>
struct Timeline {
  std::vector<Entry> entries;
  ReloadPolicy policy;
};

/// What a widget shows of an entry in one environment.
struct WidgetContent {
  viewkit::View view;
  WidgetSummary summary{};
};

/// An entry whose type the runtime does not know: its date, whether data stand behind it and when
/// they were made, and its content.
struct AnyEntry {
  foundation::Instant date;
  bool hasSnapshot = false;
  std::optional<foundation::Instant> generatedAt;
  std::function<WidgetContent(const Environment&)> content;
};
using AnyTimeline = Timeline<AnyEntry>;

struct WidgetDescription {
  std::string kind;
  std::string displayName;
  std::string description;
  std::vector<WidgetFamily> families;
  bool contentMarginsDisabled = true;
};

/// A declared widget with its provider and content erased.
struct Widget {
  WidgetDescription description;
  std::optional<IntentDescription> configuration;  ///< absent: a static widget
  std::function<AnyEntry(const ProviderContext&)> placeholder;
  std::function<AnyEntry(const ProviderContext&, const IntentValues&)> snapshot;
  std::function<AnyTimeline(const ProviderContext&, const IntentValues&)> timeline;
};

struct Control {
  std::string kind;
  std::string displayName;
  std::string description;
  std::string label;
  std::string symbol;
  std::string intent;  ///< the name of the intent that its button runs
};

/// An action that the extension performs when a control asks for it.
struct Action {
  std::string name;
  std::string title;
  bool openAppWhenRun = false;
  std::function<void()> perform;
};

/// Everything an extension offers.
struct WidgetBundle {
  std::vector<Widget> widgets;
  std::vector<Control> controls;
  std::vector<Action> actions;

  // Where the application and its files are, for a host that opens links and images.
  std::string appGroup{};
  std::string urlScheme{};  ///< without "://"
  std::string container{};  ///< the group's folder, there or not; empty: there is none
};

namespace detail {
template <class Entry, class Content>
AnyEntry eraseEntry(Entry entry, const Content& content) {
  AnyEntry any;
  any.date = entry.date;
  any.hasSnapshot = entry.snapshot.has_value();
  if (entry.snapshot) any.generatedAt = entry.snapshot->generatedAt;
  any.content = [content, entry = std::make_shared<const Entry>(std::move(entry))](
                    const Environment& environment) { return content(*entry, environment); };
  return any;
}
template <class Entry, class Content>
AnyTimeline eraseTimeline(Timeline<Entry> timeline, const Content& content) {
  AnyTimeline any;
  any.policy = timeline.policy;
  for (Entry& entry : timeline.entries)
    any.entries.push_back(eraseEntry(std::move(entry), content));
  return any;
}
}  // namespace detail

/// Provider: Entry placeholder(context), Entry getSnapshot(context), Timeline<Entry>
/// getTimeline(context).
template <class Provider, class Content>
[[nodiscard]] Widget makeStaticConfiguration(WidgetDescription description,
                                             const Provider& provider,
                                             const Content& content) {
  return {std::move(description),
          std::nullopt,
          [=](const ProviderContext& c) {
            return detail::eraseEntry(provider.placeholder(c), content);
          },
          [=](const ProviderContext& c, const IntentValues&) {
            return detail::eraseEntry(provider.getSnapshot(c), content);
          },
          [=](const ProviderContext& c, const IntentValues&) {
            return detail::eraseTimeline(provider.getTimeline(c), content);
          }};
}

/// Provider: has a type `Intent` with `static IntentDescription description(...)`-made description
/// handed in here and `static Intent fromValues(const IntentValues&)`; Entry placeholder(context),
/// Entry snapshot(intent, context), Timeline<Entry> timeline(intent, context).
template <class Provider, class Content>
[[nodiscard]] Widget makeIntentConfiguration(WidgetDescription description,
                                             IntentDescription intent,
                                             const Provider& provider,
                                             const Content& content) {
  using Intent = typename Provider::Intent;
  return {std::move(description),
          std::move(intent),
          [=](const ProviderContext& c) {
            return detail::eraseEntry(provider.placeholder(c), content);
          },
          [=](const ProviderContext& c, const IntentValues& values) {
            return detail::eraseEntry(provider.snapshot(Intent::fromValues(values), c), content);
          },
          [=](const ProviderContext& c, const IntentValues& values) {
            return detail::eraseTimeline(provider.timeline(Intent::fromValues(values), c), content);
          }};
}

}  // namespace widgetruntime
