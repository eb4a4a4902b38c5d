#include "Session/ExtensionClient.hpp"

#include <fmt/format.h>

#include <utility>

namespace session {

using widgetruntime::DiagnoseAnswer;
using widgetruntime::DiagnoseParameters;
using widgetruntime::EntriesAnswer;
using widgetruntime::EntriesParameters;
using widgetruntime::InitializeAnswer;
using widgetruntime::InitializeParameters;
using widgetruntime::OptionsAnswer;
using widgetruntime::OptionsParameters;
using widgetruntime::PerformAnswer;
using widgetruntime::PerformParameters;
using widgetruntime::RenderedEntry;
namespace method = widgetruntime::method;

namespace {

std::unexpected<SessionError> unreadable(std::string_view name, std::string_view what) {
  return std::unexpected(
      SessionError{SessionError::Kind::unreadable, fmt::format("{}: answer: {}", name, what)});
}

template <class Answer>
Result<Answer> decode(std::string_view name, const foundation::JsonValue& json) {
  auto answer = widgetruntime::read<Answer>(json);
  if (!answer) return unreadable(name, answer.error());
  return std::move(*answer);
}

}  // namespace

ExtensionClient::ExtensionClient(std::unique_ptr<Transport> transport,
                                 InitializeParameters parameters,
                                 Deadlines deadlines)
    : transport_(std::move(transport)), parameters_(std::move(parameters)), deadlines_(deadlines) {}

Result<const InitializeAnswer*> ExtensionClient::prepare() {
  if (initialized_ && transport_->isRunning()) return &*initialized_;
  initialized_.reset();
  if (auto started = transport_->start(); !started) return std::unexpected(started.error());
  auto json = transport_->call(
      method::kInitialize, widgetruntime::encode(parameters_), deadlines_.initialize);
  if (!json) return std::unexpected(std::move(json.error()));
  auto answer = decode<InitializeAnswer>(method::kInitialize, *json);
  if (!answer) return std::unexpected(std::move(answer.error()));
  if (answer->protocolVersion != widgetruntime::kProtocolVersion) {
    return unreadable(method::kInitialize, "another protocol version");
  }
  return &initialized_.emplace(std::move(*answer));
}

template <class Answer>
Result<Answer> ExtensionClient::ask(std::string_view name,
                                    const std::string& parametersJson,
                                    std::chrono::milliseconds deadline) {
  if (auto ready = prepare(); !ready) return std::unexpected(std::move(ready.error()));
  auto json = transport_->call(name, parametersJson, deadline);
  if (!json) return std::unexpected(std::move(json.error()));
  return decode<Answer>(name, *json);
}

Result<EntriesAnswer> ExtensionClient::entries(std::string_view name,
                                               const EntriesParameters& parameters,
                                               std::chrono::milliseconds deadline) {
  auto answer = ask<EntriesAnswer>(name, widgetruntime::encode(parameters), deadline);
  if (!answer) return answer;
  for (const RenderedEntry& entry : answer->entries) {
    if (entry.trees.size() != parameters.environments.size()) {
      return unreadable(name, "/entries: expected one tree per environment");
    }
  }
  return answer;
}

Result<InitializeAnswer> ExtensionClient::initialize() {
  const auto offer = prepare();
  if (!offer) return std::unexpected(offer.error());
  return **offer;
}

Result<RenderedEntry> ExtensionClient::singleEntry(std::string_view name,
                                                   const EntriesParameters& parameters) {
  auto answer = entries(name, parameters, deadlines_.request);
  if (!answer) return std::unexpected(std::move(answer.error()));
  if (answer->entries.size() != 1) return unreadable(name, "/entries: expected one");
  return std::move(answer->entries.front());
}

Result<RenderedEntry> ExtensionClient::placeholder(const EntriesParameters& parameters) {
  return singleEntry(method::kPlaceholder, parameters);
}

Result<RenderedEntry> ExtensionClient::snapshot(const EntriesParameters& parameters) {
  return singleEntry(method::kSnapshot, parameters);
}

Result<EntriesAnswer> ExtensionClient::timeline(const EntriesParameters& parameters) {
  auto answer = entries(method::kTimeline, parameters, deadlines_.timeline);
  if (answer && !answer->policy) return unreadable(method::kTimeline, "/policy: missing");
  return answer;
}

Result<OptionsAnswer> ExtensionClient::options(const OptionsParameters& parameters) {
  return ask<OptionsAnswer>(
      method::kOptions, widgetruntime::encode(parameters), deadlines_.request);
}

Result<PerformAnswer> ExtensionClient::perform(const PerformParameters& parameters) {
  return ask<PerformAnswer>(
      method::kPerform, widgetruntime::encode(parameters), deadlines_.request);
}

Result<DiagnoseAnswer> ExtensionClient::diagnose(const DiagnoseParameters& parameters) {
  return ask<DiagnoseAnswer>(
      method::kDiagnose, widgetruntime::encode(parameters), deadlines_.request);
}

}  // namespace session
