// Every request and answer between a host and an extension, as records. Their JSON form is listed
// in MessageMembers.hpp and told in docs/protocol.md:
//
//     const std::string parameters = encode(EntriesParameters{.kind = "Clock", .device = device});
//     const Read<EntriesAnswer> answer = read<EntriesAnswer>(json);
//
// Readers check form and bounds and say in one line what is wrong and where, as in
// "/environments/1/systemMargins/leading: missing"; unknown members are ignored. Instants travel as
// internet date-times, so fractions of a second are dropped.
#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Device.hpp"
#include "Foundation/JsonValue.hpp"
#include "Foundation/JsonWriter.hpp"
#include "ViewKit/View.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/Intents.hpp"
#include "WidgetRuntime/Widget.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace widgetruntime {

inline constexpr int kProtocolVersion = 1;

namespace method {
inline constexpr std::string_view kInitialize = "initialize";
inline constexpr std::string_view kPlaceholder = "widget/placeholder";
inline constexpr std::string_view kSnapshot = "widget/snapshot";
inline constexpr std::string_view kTimeline = "widget/timeline";
inline constexpr std::string_view kOptions = "configuration/options";
inline constexpr std::string_view kPerform = "intent/perform";
inline constexpr std::string_view kDiagnose = "document/diagnose";
inline constexpr std::string_view kShutdown = "shutdown";
inline constexpr std::string_view kExit = "exit";
inline constexpr std::string_view kCancelRequest = "$/cancelRequest";
}  // namespace method

// Bounds of what is read and written, on both sides.

/// Bytes of a message's body.
inline constexpr std::size_t kMaximumMessage = std::size_t{1} << 20;
/// Bytes of a string, but not of a diagnosed text.
inline constexpr std::size_t kMaximumString = std::size_t{16} << 10;
inline constexpr std::size_t kMaximumRequestDepth = 16;
/// A tree of 64 levels takes up to three each.
inline constexpr std::size_t kMaximumAnswerDepth = 256;
inline constexpr std::size_t kMaximumEntries = 32;  ///< of a timeline
inline constexpr std::size_t kMaximumEnvironments = 8;
inline constexpr std::size_t kMaximumItems = 1024;  ///< of any other list
inline constexpr std::size_t kMaximumTitle = 256;   ///< bytes of an option's title, when written

template <class T>
using Read = std::expected<T, std::string>;

// ---- initialize

struct InitializeParameters {
  int protocolVersion = kProtocolVersion;
  std::string host;                          ///< name and version of the host, for people
  std::optional<std::string> containerRoot;  ///< directory that holds the app groups' folders
  std::optional<std::string> container;      ///< the group's own folder; wins over `containerRoot`
  std::optional<std::string> infoPlist;      ///< path of the information property list
  std::optional<std::string> snapshotFile;   ///< read in place of the container's document
  std::vector<std::string> preferredLanguages;  ///< the device's, for the names of what is offered
  bool offersControls = true;                   ///< false: the host shows widgets alone

  friend bool operator==(const InitializeParameters&, const InitializeParameters&) = default;
};

struct WidgetListing {
  WidgetDescription description;
  /// Without queries: those are asked for by configuration/options.
  std::optional<IntentDescription> configuration;
};

struct ControlListing : Control {
  std::string intentTitle;  ///< of the action that its button runs
};

/// What a bundle offers, without the functions behind it.
struct BundleDescription {
  std::vector<WidgetListing> widgets;
  std::vector<ControlListing> controls;
};

struct InitializeAnswer {
  int protocolVersion = kProtocolVersion;
  std::string appGroup;
  std::string urlScheme;  ///< without "://"
  std::string container;  ///< the group's folder, there or not; empty: there is none
  BundleDescription bundle;
};

// ---- widget/placeholder, widget/snapshot, widget/timeline

struct EntriesParameters {
  std::string kind;
  WidgetFamily family = WidgetFamily::systemSmall;
  std::optional<WidgetFamily> previewFamily;
  bool isPreview = false;
  IntentValues configuration;
  foundation::Device device;
  /// One tree of every entry for each. Their families are those above, whatever they say.
  std::vector<Environment> environments;
};

struct RenderedTree {
  viewkit::View view;
  std::optional<std::string> link{};  ///< the tree's own widget link, raw text
  WidgetSummary summary{};

  friend bool operator==(const RenderedTree&, const RenderedTree&) = default;
};

struct RenderedEntry {
  foundation::Instant date;
  bool hasSnapshot = false;
  std::vector<RenderedTree> trees{};  ///< one per environment, in the order asked for
  std::optional<foundation::Instant> generatedAt{};  ///< of the document; absent without one

  friend bool operator==(const RenderedEntry&, const RenderedEntry&) = default;
};

struct EntriesAnswer {
  std::vector<RenderedEntry> entries;  ///< exactly one but for timelines
  std::optional<ReloadPolicy> policy;  ///< timelines only
};

// ---- configuration/options

struct OptionsQuery {
  std::vector<std::string> identifiers;
  friend bool operator==(const OptionsQuery&, const OptionsQuery&) = default;
};

struct OptionsParameters {
  std::string kind;
  std::string parameter;
  std::optional<OptionsQuery> query;  ///< absent: all that are suggested
};

struct OptionsAnswer {
  std::vector<IntentOption> options;
  std::optional<std::string> defaultOption;  ///< an id among those that are suggested
  bool more = false;  ///< there are options beyond these; a query by id finds any

  friend bool operator==(const OptionsAnswer&, const OptionsAnswer&) = default;
};

// ---- intent/perform

struct PerformParameters {
  std::string intent;  ///< an action's name, or that of a widget's configuration

  friend bool operator==(const PerformParameters&, const PerformParameters&) = default;
};

struct PerformAnswer {
  bool openApp = false;  ///< the host then opens the application

  friend bool operator==(const PerformAnswer&, const PerformAnswer&) = default;
};

// ---- document/diagnose

/// At most one of path and text; without both, the document in the container.
struct DiagnoseParameters {
  std::optional<std::string> path;
  std::optional<std::string> text;
  foundation::Device device;
};

/// What one widget will show of a document, in words; never an amount.
struct WidgetOutlook {
  std::string kind;
  std::string shows;

  friend bool operator==(const WidgetOutlook&, const WidgetOutlook&) = default;
};

struct DiagnoseAnswer {
  bool accepted = false;
  std::vector<foundation::JsonProblem> problems;
  std::vector<WidgetOutlook> widgets;
  std::size_t leftOut = 0;  ///< problems beyond those listed, which are only counted

  friend bool operator==(const DiagnoseAnswer&, const DiagnoseAnswer&) = default;
};

// ---- JSON

/// Instantiated for every parameters and answer above, and for the records that answers consist of:
/// bundles, entries, summaries, policies. Writing never fails.
template <class Record>
void write(foundation::JsonWriter& writer, const Record& record);

/// For every parameters and answer; an error is one line with the place of what is wrong.
template <class Message>
[[nodiscard]] Read<Message> read(const foundation::JsonValue& json);

template <class Message>
[[nodiscard]] std::string encode(const Message& message) {
  foundation::JsonWriter writer;
  write(writer, message);
  return writer.take();
}

/// What hosts are told about a bundle.
[[nodiscard]] BundleDescription describe(const WidgetBundle& bundle);

}  // namespace widgetruntime
