// A small extension for tests: widgets that say what they were asked, and some that behave badly.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ViewKit/TreeJson.hpp"
#include "ViewKit/ViewKit.hpp"
#include "WidgetRuntime/Dispatcher.hpp"

namespace testsupport::fake {

using widgetruntime::Environment;
using widgetruntime::IntentValues;
using widgetruntime::ProviderContext;
using widgetruntime::WidgetFamily;

struct Document {
  foundation::Instant generatedAt;
};

struct Entry {
  foundation::Instant date;
  std::optional<Document> snapshot;
  std::string text;
};

/// Made a minute before it is asked for.
inline Document documentOf(const ProviderContext& context) {
  return {{context.device.now.seconds - 60, 0}};
}

/// Its timeline has as many entries as it is told, an hour apart, and is to be renewed after an
/// hour.
struct ClockProvider {
  using Entry = testsupport::fake::Entry;
  int count = 2;
  std::size_t padding = 0;  ///< bytes that each entry's text is made longer by

  Entry entry(const ProviderContext& context, std::int64_t hours) const {
    return {{context.device.now.seconds + 3600 * hours, 0},
            context.isPreview ? std::optional(documentOf(context)) : std::nullopt,
            context.device.timeZone.identifier + std::string(padding, 'x')};
  }
  Entry placeholder(const ProviderContext& context) const {
    return {context.device.now, documentOf(context), "placeholder"};
  }
  Entry getSnapshot(const ProviderContext& context) const { return entry(context, 0); }
  widgetruntime::Timeline<Entry> getTimeline(const ProviderContext& context) const {
    widgetruntime::Timeline<Entry> timeline;
    for (int i = 0; i < count; ++i) timeline.entries.push_back(entry(context, i));
    timeline.policy = widgetruntime::ReloadPolicy::after({context.device.now.seconds + 3600, 0});
    return timeline;
  }
};

struct CardIntent {
  std::string card;
  static CardIntent fromValues(const IntentValues& values) {
    const auto found = values.find("card");
    return {found == values.end() ? "any card" : found->second};
  }
};

struct CardProvider {
  using Entry = testsupport::fake::Entry;
  using Intent = CardIntent;
  Entry placeholder(const ProviderContext& context) const {
    return {context.device.now, documentOf(context), "placeholder"};
  }
  Entry snapshot(const CardIntent& intent, const ProviderContext& context) const {
    return {context.device.now, documentOf(context), intent.card};
  }
  widgetruntime::Timeline<Entry> timeline(const CardIntent& intent,
                                          const ProviderContext& context) const {
    return {{snapshot(intent, context)}, {}};
  }
};

struct ThrowingProvider {
  using Entry = testsupport::fake::Entry;
  [[noreturn]] Entry placeholder(const ProviderContext&) const {
    throw std::runtime_error("1234.56");
  }
  Entry getSnapshot(const ProviderContext& c) const { return placeholder(c); }
  widgetruntime::Timeline<Entry> getTimeline(const ProviderContext& c) const {
    return {{placeholder(c)}, {}};
  }
};

inline viewkit::View view(const Entry& entry, const Environment& environment) {
  const std::string text = environment.redactionReasons.privacy ? "hidden" : entry.text;
  const std::string link = "fake://open/" + std::string(nameOf(environment.familyInForce()));
  // One text may not be longer than a tree's strings: a large entry has many.
  constexpr std::size_t kPiece = viewkit::kMaximumWrittenText;
  if (text.size() <= kPiece) return viewkit::Text{text}.widgetURL(link);
  std::vector<viewkit::View> pieces;
  for (std::size_t at = 0; at < text.size(); at += kPiece) {
    pieces.push_back(viewkit::Text{text.substr(at, kPiece)});
  }
  return viewkit::VStack{{}, std::move(pieces)}.widgetURL(link);
}

/// Its state says whether there is a document; its line is short.
inline widgetruntime::WidgetContent body(const Entry& entry, const Environment& environment) {
  using State = widgetruntime::WidgetSummary::State;
  return {view(entry, environment),
          {environment.redactionReasons.privacy ? "hidden" : entry.text.substr(0, 20),
           entry.snapshot ? State::good : State::none}};
}

inline widgetruntime::IntentDescription cardIntent() {
  const std::vector<widgetruntime::IntentOption> cards{{"a", "Card A"}, {"b", "Card B"}};
  widgetruntime::IntentParameter card{.name = "card", .title = "Card", .typeName = "Card"};
  card.type = widgetruntime::IntentParameter::Type::entity;
  card.query.suggestedEntities = [cards] { return cards; };
  card.query.defaultResult = [cards] { return std::optional(cards.front()); };
  card.query.entitiesForIdentifiers = [cards](const std::vector<std::string>& ids) {
    std::vector<widgetruntime::IntentOption> found;
    for (const auto& option : cards) {
      for (const auto& id : ids) {
        if (option.id == id) found.push_back(option);
      }
    }
    return found;
  };
  widgetruntime::IntentParameter style{.name = "style", .title = "Style", .typeName = "Style"};
  style.cases = {{"plain", "Plain"}, {"ring", "Ring"}};
  style.defaultValue = "plain";
  return {"FakeCardIntent", "Choose Card", {card, style}};
}

inline widgetruntime::WidgetBundle makeBundle(
    const widgetruntime::InitializeParameters& parameters) {
  using widgetruntime::makeStaticConfiguration;
  const auto described = [](std::string kind) {
    return widgetruntime::WidgetDescription{
        std::move(kind), "Fake", "A fake widget.", {WidgetFamily::systemSmall}};
  };
  widgetruntime::WidgetBundle bundle;
  bundle.widgets = {makeStaticConfiguration(described("Clock"), ClockProvider{}, body),
                    makeIntentConfiguration(described("Card"), cardIntent(), CardProvider{}, body),
                    makeStaticConfiguration(described("Long"), ClockProvider{.count = 100}, body),
                    makeStaticConfiguration(
                        described("Wide"), ClockProvider{.count = 20, .padding = 100'000}, body),
                    makeStaticConfiguration(
                        described("Huge"), ClockProvider{.count = 1, .padding = 1'100'000}, body),
                    makeStaticConfiguration(described("Empty"), ClockProvider{.count = 0}, body),
                    makeStaticConfiguration(described("Throwing"), ThrowingProvider{}, body)};
  bundle.controls = {{"FakeControl", "Do", "Does it.", "Do it", "plus", "DoIntent"}};
  bundle.actions = {{"DoIntent", "Do", true, [] {}}, {"StayIntent", "Stay", false, [] {}}};
  bundle.appGroup = "group.fake";
  bundle.urlScheme = "fake";
  bundle.container = parameters.container.value_or("");
  return bundle;
}

inline widgetruntime::DiagnoseAnswer diagnose(const widgetruntime::DiagnoseParameters& parameters) {
  widgetruntime::DiagnoseAnswer answer;
  answer.accepted = parameters.text == "{}";
  if (!answer.accepted) answer.problems = {{"/money", 2, 7, "an object", "a string"}};
  answer.widgets = {{"Clock", answer.accepted ? "the time" : "nothing"}};
  return answer;
}

inline widgetruntime::ExtensionDefinition definition() {
  return {makeBundle, diagnose};
}

}  // namespace testsupport::fake
