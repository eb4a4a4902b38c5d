// `timeline`: a widget's entries and when the extension is asked again.
#include <fmt/format.h>

#include <algorithm>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Session/HostEnvironment.hpp"

namespace cli {
namespace {

using foundation::formatInternetDateTime;
using widgetruntime::EntriesAnswer;
using widgetruntime::ReloadPolicy;
using widgetruntime::RenderedEntry;
using widgetruntime::WidgetSummary;

/// Of the one environment that is asked for.
const WidgetSummary* summaryOf(const RenderedEntry& entry) {
  return entry.trees.empty() ? nullptr : &entry.trees.front().summary;
}

/// As on the wire, but without the trees.
std::string asJson(const EntriesAnswer& answer) {
  foundation::JsonWriter json;
  json.beginObject().key("entries").beginArray();
  for (const auto& entry : answer.entries) {
    json.beginObject().member("date", formatInternetDateTime(entry.date));
    json.member("hasSnapshot", entry.hasSnapshot);
    if (entry.generatedAt) json.member("generatedAt", formatInternetDateTime(*entry.generatedAt));
    if (const WidgetSummary* summary = summaryOf(entry)) {
      widgetruntime::write(json.key("summary"), *summary);
    }
    json.endObject();
  }
  widgetruntime::write(json.endArray().key("policy"), answer.policy.value_or(ReloadPolicy{}));
  json.endObject();
  return json.take() + "\n";
}

/// "$1,100 ↗ 10.0% (good), from 2025-03-14T09:30:00Z".
std::string describe(const RenderedEntry& entry) {
  const WidgetSummary* summary = summaryOf(entry);
  if (summary == nullptr) return entry.hasSnapshot ? "shows the document" : "has no document";
  std::string text = summary->text;
  std::ranges::replace(text, '\n', ' ');
  if (summary->state != WidgetSummary::State::none) {
    text += fmt::format(" ({})", widgetruntime::nameOf(summary->state));
  }
  if (entry.generatedAt) text += ", from " + formatInternetDateTime(*entry.generatedAt);
  return text;
}

std::string asText(const EntriesAnswer& answer) {
  const ReloadPolicy policy = answer.policy.value_or(ReloadPolicy{});
  std::string text;
  for (const auto& entry : answer.entries) {
    text += fmt::format("{}  {}\n", formatInternetDateTime(entry.date), describe(entry));
  }
  text += fmt::format("asked again: {}", widgetruntime::nameOf(policy.type));
  if (policy.type == ReloadPolicy::Type::after) text += " " + formatInternetDateTime(policy.date);
  return text + "\n";
}

}  // namespace

Result<void> timeline(const Options& options, const Program& program) {
  auto guest = Guest::open(options.source, program);
  if (!guest) return std::unexpected(guest.error());
  const auto widget = guest->widget(options.kind);
  if (!widget) return std::unexpected(widget.error());
  if (auto known = checkConfiguration(**widget, options.picture.configuration); !known)
    return known;
  const auto device = deviceFrom(options.device, program.environment);
  const auto family =
      options.picture.family.value_or(session::defaultFamily((*widget)->description.families));
  const auto answer = said(guest->client().timeline(
      entriesParameters((*widget)->description.kind, family, options.picture, device)));
  if (!answer) return std::unexpected(answer.error());
  return print(options.json ? asJson(*answer) : asText(*answer));
}

}  // namespace cli
