// The states in which a document, a day and a host can put a widget.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/Gallery/SnapshotStates.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "WidgetRuntime/Environment.hpp"

namespace testsupport {

using quorvel::WidgetSnapshot;
using widgetruntime::Environment;

struct WidgetState {
  std::string_view name;
  foundation::Instant date;
  std::optional<WidgetSnapshot> snapshot;
  Environment environment;
};

inline foundation::Instant morningOf(std::string_view day) {
  return *foundation::parseInternetDateTime(std::string{day} + "T09:30:00Z");
}

/// The sample document of a day, in a language, with as many cards as the tallest layout draws.
inline WidgetSnapshot richSnapshot(std::string_view lang, foundation::Instant date) {
  WidgetSnapshot snapshot =
      quorvel::sampleSnapshot({.now = date, .preferredLanguages = {std::string{lang}}});
  snapshot.cards.push_back(
      {"d", "Northbank", "Evergreen", "0417", 6000, 5240, {"#1F6F54", "#0E3B2D"}, false});
  snapshot.cards.push_back(
      {"e", "Harbor Bank", "Mulberry", "7730", 4000, 1870, {"#7A2E52", "#3D1629"}, false});
  return snapshot;
}

namespace detail {

inline void addDocumentStates(std::vector<WidgetState>& states, std::string_view lang) {
  const auto now = morningOf("2025-03-14");
  const WidgetSnapshot rich = richSnapshot(lang, now);
  states.push_back({"full", now, rich, {}});
  for (const auto& state : quorvel::snapshotStates()) {
    states.push_back({state.name, now, quorvel::inState(rich, state.name), {}});
  }
}

inline void addDayStates(std::vector<WidgetState>& states, std::string_view lang) {
  for (const auto& [name, day] : {std::pair{"last-of-month", "2025-03-31"},
                                  std::pair{"first-of-month", "2025-03-01"},
                                  std::pair{"twenty-eight-days", "2025-02-10"}}) {
    const auto date = morningOf(day);
    states.push_back({name, date, richSnapshot(lang, date), {}});
  }
  states.push_back({"last-day-exceeded", states[states.size() - 3].date, {}, {}});
  states.back().snapshot = states[states.size() - 4].snapshot;
  states.back().snapshot->budget->spent = 3500;
}

inline void addHostStates(std::vector<WidgetState>& states, std::string_view lang) {
  const auto now = morningOf("2025-03-14");
  const WidgetSnapshot rich = richSnapshot(lang, now);
  const auto add = [&](std::string_view name, const std::function<void(Environment&)>& change) {
    states.push_back({name, now, rich, {}});
    change(states.back().environment);
  };
  add("redacted", [](auto& e) { e.redactionReasons.privacy = true; });
  add("placeholder", [](auto& e) { e.redactionReasons.placeholder = true; });
  const auto bare = [](auto& e) { e.showsWidgetContainerBackground = false; };
  add("without-background", bare);
  add("accented", [&](auto& e) {
    bare(e);
    e.widgetRenderingMode = widgetruntime::RenderingMode::accented;
  });
  add("vibrant", [&](auto& e) {
    bare(e);
    e.widgetRenderingMode = widgetruntime::RenderingMode::vibrant;
  });
  add("vibrant-exceeded", [&](auto& e) {
    bare(e);
    e.widgetRenderingMode = widgetruntime::RenderingMode::vibrant;
  });
  states.back().snapshot->budget->spent = 3500;
  for (const auto mode :
       {widgetruntime::RenderingMode::accented, widgetruntime::RenderingMode::vibrant}) {
    add(mode == widgetruntime::RenderingMode::accented ? "accented-empty" : "vibrant-empty",
        [&](auto& e) {
          bare(e);
          e.widgetRenderingMode = mode;
        });
    states.back().snapshot.reset();
  }
  add("no-snapshot", [&](auto& e) { e.preferredLanguages = {std::string{lang}}; });
  states.back().snapshot.reset();
  states.back().environment.layoutDirection = quorvel::layoutDirection(lang);
}

}  // namespace detail

inline std::vector<WidgetState> widgetStates(std::string_view lang) {
  std::vector<WidgetState> states;
  detail::addDocumentStates(states, lang);
  detail::addDayStates(states, lang);
  detail::addHostStates(states, lang);
  return states;
}

namespace detail {

inline std::set<std::string> namesIn(const WidgetSnapshot& snapshot) {
  std::set<std::string> names;
  for (const auto& card : snapshot.cards) names.insert({card.productName, card.bankName});
  for (const auto& due : snapshot.dues) names.insert({due.name, due.subtitle.value_or(due.name)});
  if (snapshot.spending) names.insert(snapshot.spending->topCategory.value_or(""));
  return names;
}

}  // namespace detail

/// What the user wrote: these alone may be cut. The names in the sample are the widgets' own.
inline std::set<std::string> userTexts(const std::optional<WidgetSnapshot>& snapshot) {
  if (!snapshot) return {};
  std::set<std::string> texts = detail::namesIn(*snapshot);
  const WidgetSnapshot sample = quorvel::sampleSnapshot(
      {.now = snapshot->generatedAt, .preferredLanguages = {snapshot->lang}});
  for (const std::string& name : detail::namesIn(sample)) texts.erase(name);
  texts.erase("");
  return texts;
}

}  // namespace testsupport
