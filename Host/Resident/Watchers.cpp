#include "Resident/Watchers.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "Control/KindName.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Surfaces/WidgetSize.hpp"

namespace resident {

using surfaces::Demand;
using surfaces::Shown;
using surfaces::Subject;
using widgetruntime::WidgetFamily;

namespace {

constexpr int kTooltipColumns = 60;

std::string lineOf(const Subject& subject, const Shown& shown, const std::string& tooltip) {
  foundation::JsonWriter json;
  json.beginObject().member("kind", control::shortKind(subject.kind));
  json.member("text", shown.summary.text)
      .member("state", widgetruntime::nameOf(shown.summary.state));
  json.member("tooltip", tooltip).member("status", foundation::nameOf(shown.state));
  json.member("hidden", shown.isHidden).member("stale", shown.state == surfaces::State::stale);
  if (!shown.reason.empty()) json.member("reason", shown.reason);
  if (shown.asOf) json.member("asOf", foundation::formatInternetDateTime(*shown.asOf));
  json.member("link", shown.link).endObject();
  return json.take();
}

}  // namespace

Done Watchers::watch(ControlServer::Client client, const std::string& target) {
  auto subject = host_.subjectOf(target, WidgetFamily::systemMedium);
  // Before the extension has started, any target may turn out to name something.
  if (!subject && host_.offer() != nullptr) return std::unexpected(subject.error());
  const std::string line = subject ? lineFor(*std::move(subject)) : std::string{};
  clients_.insert_or_assign(client, Client{target, line});
  if (!line.empty() && !lines_.at(line).json.empty()) tell(client, lines_.at(line).json);
  dropUnused();
  return {};
}

void Watchers::leave(ControlServer::Client client) {
  if (clients_.erase(client) > 0) dropUnused();
}

void Watchers::refresh() {
  std::vector<std::pair<ControlServer::Client, std::string>> targets;
  targets.reserve(clients_.size());
  for (const auto& [client, watching] : clients_) targets.emplace_back(client, watching.target);
  for (const auto& [client, target] : targets) {
    auto subject = host_.subjectOf(target, WidgetFamily::systemMedium);
    const std::string line = subject ? lineFor(*std::move(subject)) : std::string{};
    Client& watching = clients_.at(client);
    if (line == watching.line) continue;
    watching.line = line;
    if (!line.empty() && !lines_.at(line).json.empty()) tell(client, lines_.at(line).json);
  }
  dropUnused();
}

std::string Watchers::lineFor(Subject subject) {
  subject.isPlaced = false;
  for (const auto& [id, line] : lines_) {
    subject.id = id;
    if (line.subject == subject) return id;
  }
  subject.id = fmt::format("watch-{}", next_++);
  lines_.emplace(subject.id, Line{.subject = subject});
  host_.introduce(subject);
  return subject.id;
}

void Watchers::dropUnused() {
  std::vector<std::string> unused;
  for (const auto& [id, line] : lines_) {
    const auto isUsed = [&](const auto& client) { return client.second.line == id; };
    if (std::ranges::none_of(clients_, isUsed)) unused.push_back(id);
  }
  for (const std::string& id : unused) {
    lines_.erase(id);
    host_.dismiss(id);
  }
}

std::optional<Demand> Watchers::place(const Subject& subject) {
  if (!lines_.contains(subject.id)) return std::nullopt;
  Demand demand{.medium = surfaces::Medium::plainText, .columns = kTooltipColumns};
  demand.options.size = surfaces::standardSize(subject.family);
  demand.options.showsBackground = false;
  return demand;
}

void Watchers::show(const Subject& subject, const Shown& shown) {
  const auto found = lines_.find(subject.id);
  if (found == lines_.end()) return;
  Line& line = found->second;
  if (shown.picture) line.tooltip = shown.picture->text;
  // Without an answer yet there is nothing to say, not even why.
  if (shown.state == surfaces::State::placeholder) return;
  std::string json = lineOf(subject, shown, line.tooltip);
  if (json == line.json) return;
  line.json = std::move(json);
  for (const auto& [client, watching] : clients_) {
    if (watching.line == subject.id) tell(client, line.json);
  }
}

}  // namespace resident
