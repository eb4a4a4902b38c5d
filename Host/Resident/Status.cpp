#include "Resident/Status.hpp"

#include <unistd.h>

#include "Control/KindName.hpp"
#include "Foundation/JsonWriter.hpp"

namespace resident {
namespace {

using foundation::formatInternetDateTime;
using foundation::JsonWriter;

double milliseconds(std::chrono::microseconds time) {
  return static_cast<double>(time.count()) / 1000;
}

void writePlacement(JsonWriter& json, const Placement& placement, Resident& host) {
  json.beginObject().member("id", placement.id);
  json.member("kind", control::shortKind(placement.kind));
  json.member("family", widgetruntime::nameOf(placement.family));
  json.key("configuration").beginObject();
  for (const auto& [name, value] : placement.configuration) json.member(name, value);
  json.endObject();
  const auto* instance = host.reloader().find(placement.id);
  const InstanceTimeline nothing;
  const InstanceTimeline& timeline = instance != nullptr ? instance->timeline : nothing;
  json.member("state", foundation::nameOf(timeline.state()));
  if (!timeline.reason().empty()) json.member("reason", timeline.reason());
  if (const auto since = timeline.failingSince())
    json.member("since", formatInternetDateTime(*since));
  if (const auto asOf = timeline.generatedAt(host.reloader().now())) {
    json.member("asOf", formatInternetDateTime(*asOf));
  }
  const auto outlook = host.reloader().outlook(placement.id);
  if (outlook.reload) json.member("nextReload", formatInternetDateTime(*outlook.reload));
  if (outlook.lastCause) json.member("lastCause", foundation::nameOf(*outlook.lastCause));
  json.member("isAsked", outlook.isAsked);
  if (instance != nullptr) json.member("askMilliseconds", milliseconds(instance->took));
  json.member("drawMilliseconds", milliseconds(host.presenter().drawingTime(placement.id)));
  json.endObject();
}

}  // namespace

std::string statusJson(Resident& host) {
  JsonWriter json;
  json.beginObject().member("process", static_cast<std::int64_t>(::getpid()));
  json.member("hidden", host.privacy().isHidden()).key("hiddenBecause").beginArray();
  for (const std::string_view reason : host.privacy().reasons()) json.value(reason);
  json.endArray();
  if (!host.problem().empty()) json.member("problem", host.problem());
  if (!host.sessionProblem.empty()) json.member("sessionProblem", host.sessionProblem);
  if (host.offer() != nullptr) json.member("container", host.offer()->container);
  json.key("placements").beginArray();
  for (const Placement& placement : host.placements().placements) {
    writePlacement(json, placement, host);
  }
  json.endArray().endObject();
  return json.take();
}

}  // namespace resident
