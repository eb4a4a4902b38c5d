#include "WidgetRuntime/Dispatcher.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <functional>
#include <new>
#include <stdexcept>
#include <utility>

#include "Foundation/Utf8.hpp"
#include "ViewKit/OutermostModifier.hpp"

namespace widgetruntime {

using foundation::JsonValue;
using foundation::JsonWriter;

namespace {

// What the envelope, the policy and the brackets around the entries may take.
constexpr std::size_t kEnvelope = 1024;

// 9999-12-31T23:59:59Z: later instants have no internet date-time, and nobody waits for them.
constexpr std::int64_t kLastSecond = 253'402'300'799;

std::unexpected<RpcError> fail(RpcErrorCode code, std::string message) {
  return std::unexpected(RpcError{code, std::move(message)});
}

std::unexpected<RpcError> unknown(std::string_view what, std::string_view name) {
  return fail(RpcErrorCode::invalidParameters,
              fmt::format("unknown {} \"{}\"", what, name.substr(0, 80)));
}

template <class Items, class Name>
auto* findNamed(Items& items, Name nameOf, std::string_view name) {
  const auto found = std::ranges::find(items, name, nameOf);
  return found == std::ranges::end(items) ? nullptr : &*found;
}

const Widget* findWidget(const WidgetBundle& bundle, std::string_view kind) {
  const auto kindOf = [](const Widget& widget) {
    return std::string_view{widget.description.kind};
  };
  return findNamed(bundle.widgets, kindOf, kind);
}

std::size_t encodedSize(const IntentOption& option) {
  JsonWriter writer;
  writer.beginArray().value(option.id).value(option.title).endArray();
  return writer.text().size() + std::string_view{R"({"id":,"title":},)"}.size();
}

// As many as a list and a message hold: a document's odd names must not cost the others. A title is
// cut; an id must stay what it is, so one that no host would read is not offered.
void offer(std::vector<IntentOption> options, OptionsAnswer& answer) {
  std::size_t size = kEnvelope;
  for (IntentOption& option : options) {
    if (option.id.size() > kMaximumString) {
      answer.more = true;
      continue;
    }
    foundation::shortenUtf8(option.title, kMaximumTitle);
    size += encodedSize(option);
    // The default's id may stand a second time behind the list.
    const bool isFull = answer.options.size() == kMaximumItems || size > kMaximumMessage * 3 / 4;
    if (isFull) {
      answer.more = true;
      return;
    }
    answer.options.push_back(std::move(option));
  }
}

using Query = std::optional<OptionsQuery>;

OptionsAnswer cases(const IntentParameter& parameter, const Query& query) {
  OptionsAnswer answer{.defaultOption = parameter.defaultValue};
  for (const IntentOption& option : parameter.cases) {
    if (query && findNamed(query->identifiers, std::identity{}, option.id) == nullptr) continue;
    answer.options.push_back(option);
  }
  return answer;
}

// The default is the query's unless that one is not offered and could not be chosen again.
std::optional<std::string> defaultOf(const EntityQuery& query, const OptionsAnswer& answer) {
  const auto option = query.defaultResult();
  if (option &&
      std::ranges::find(answer.options, option->id, &IntentOption::id) != answer.options.end()) {
    return option->id;
  }
  if (answer.options.empty()) return std::nullopt;
  return answer.options.front().id;
}

OptionsAnswer entities(const EntityQuery& source, const Query& query) {
  OptionsAnswer answer;
  offer(query ? source.entitiesForIdentifiers(query->identifiers) : source.suggestedEntities(),
        answer);
  if (!query) {
    answer.defaultOption = defaultOf(source, answer);
  } else if (const auto option = source.defaultResult()) {
    if (option->id.size() <= kMaximumString) answer.defaultOption = option->id;
  }
  return answer;
}

bool configures(const WidgetBundle& bundle, std::string_view intent) {
  return std::ranges::any_of(bundle.widgets, [&](const Widget& widget) {
    return widget.configuration && widget.configuration->name == intent;
  });
}

ProviderContext contextOf(const EntriesParameters& request) {
  return {request.family, request.isPreview, request.device};
}

std::string render(const AnyEntry& entry, const EntriesParameters& request) {
  RenderedEntry rendered{entry.date, entry.hasSnapshot, {}, entry.generatedAt};
  for (Environment environment : request.environments) {
    environment.locale = request.device.locale;
    environment.timeZone = request.device.timeZone;
    environment.preferredLanguages = request.device.preferredLanguages;
    WidgetContent content = entry.content(environment);
    auto link = viewkit::widgetURL(content.view);
    rendered.trees.push_back(
        {std::move(content.view), std::move(link), std::move(content.summary)});
  }
  return encode(rendered);
}

// A timeline that is too long ends early and is asked for again when it has ended.
std::expected<std::string, RpcError> encodeEntries(const std::vector<AnyEntry>& entries,
                                                   std::optional<ReloadPolicy> policy,
                                                   const EntriesParameters& request) {
  const ReloadPolicy never{.type = ReloadPolicy::Type::never};
  const auto end = [&](const ReloadPolicy& early) {
    if (policy) policy = early;
  };
  if (policy && policy->type == ReloadPolicy::Type::after && policy->date.seconds > kLastSecond) {
    policy = never;
  }
  JsonWriter writer;
  writer.beginObject().key("entries").beginArray();
  std::size_t count = 0;
  for (const AnyEntry& entry : entries) {
    if (count > 0 && entry.date.seconds > kLastSecond) {
      end(never);
      break;
    }
    const std::string json = count < kMaximumEntries ? render(entry, request) : "";
    if (json.empty() || writer.text().size() + json.size() + kEnvelope > kMaximumMessage) {
      if (count == 0) {
        return fail(RpcErrorCode::answerTooLarge,
                    fmt::format("an entry of {} takes {} bytes", request.kind, json.size()));
      }
      end({});
      break;
    }
    writer.raw(json);
    ++count;
  }
  writer.endArray();
  if (policy) {
    writer.key("policy");
    write(writer, *policy);
  }
  writer.endObject();
  return writer.take();
}

template <class Ask>
std::expected<std::string, RpcError> answerEntries(const WidgetBundle& bundle,
                                                   const JsonValue& json,
                                                   const Ask& ask) {
  const auto request = read<EntriesParameters>(json);
  if (!request) return fail(RpcErrorCode::invalidParameters, request.error());
  const Widget* widget = findWidget(bundle, request->kind);
  if (widget == nullptr) return unknown("widget kind", request->kind);
  return ask(*widget, *request);
}

std::expected<std::string, RpcError> answerOptions(const WidgetBundle& bundle,
                                                   const JsonValue& json) {
  const auto request = read<OptionsParameters>(json);
  if (!request) return fail(RpcErrorCode::invalidParameters, request.error());
  const Widget* widget = findWidget(bundle, request->kind);
  if (widget == nullptr) return unknown("widget kind", request->kind);
  const IntentParameter* parameter = nullptr;
  if (widget->configuration) {
    parameter =
        findNamed(widget->configuration->parameters, &IntentParameter::name, request->parameter);
  }
  if (parameter == nullptr) return unknown("parameter", request->parameter);
  const bool isEntity = parameter->type == IntentParameter::Type::entity;
  return encode(isEntity ? entities(parameter->query, request->query)
                         : cases(*parameter, request->query));
}

// An empty path is that of no file.
InitializeParameters withoutDocument(InitializeParameters parameters) {
  parameters.snapshotFile = "";
  return parameters;
}

}  // namespace

Dispatcher::Dispatcher(ExtensionDefinition definition) : definition_(std::move(definition)) {}

std::string Dispatcher::handle(std::string_view text) {
  const auto request = readRequest(text);
  return request ? handle(*request) : writeError(request.error());
}

std::string Dispatcher::handle(const RpcRequest& request) {
  if (!request.id) {
    // Cancellations concern requests that wait, and here none does.
    if (request.method == method::kExit) hasExited_ = true;
    return {};
  }
  Answer result = fail(RpcErrorCode::internalError, "the extension failed");
  try {
    result = answer(request);
    if (result && result->size() + kEnvelope > kMaximumMessage) {
      result = fail(RpcErrorCode::answerTooLarge,
                    fmt::format("the answer to {} takes {} bytes", request.method, result->size()));
    }
  } catch (const std::exception&) {
    // What a bundle throws may carry data; the host learns only that it did.
  }
  return result ? writeResult(*request.id, *result) : writeError({*request.id, result.error()});
}

const Dispatcher::Method* Dispatcher::methodNamed(std::string_view name) {
  static constexpr Method kMethods[] = {
      {method::kInitialize, &Dispatcher::initialize, false},
      {method::kShutdown, &Dispatcher::shutdown, false},
      {method::kPlaceholder, &Dispatcher::placeholder},
      {method::kSnapshot, &Dispatcher::snapshot},
      {method::kTimeline, &Dispatcher::timeline},
      {method::kOptions, &Dispatcher::options},
      {method::kPerform, &Dispatcher::perform},
      {method::kDiagnose, &Dispatcher::diagnose},
  };
  return findNamed(kMethods, &Method::name, name);
}

Dispatcher::Answer Dispatcher::answer(const RpcRequest& request) {
  if (isShutDown_) return fail(RpcErrorCode::invalidRequest, "the extension is shut down");
  const Method* method = methodNamed(request.method);
  if (method == nullptr) {
    return fail(RpcErrorCode::methodNotFound, fmt::format("unknown method \"{}\"", request.method));
  }
  if (method->needsBundle && !bundle_) {
    return fail(RpcErrorCode::notInitialized, "initialize comes first");
  }
  return (this->*method->answer)(request.parameters);
}

// A document of more than memory holds is a failure of data, wherever memory ran out: there is an
// answer, that of an extension without a document.
template <class Ask>
Dispatcher::Answer Dispatcher::answerFromDocument(const Ask& ask) const {
  try {
    return ask(*bundle_);
  } catch (const std::bad_alloc&) {
  } catch (const std::length_error&) {
  }
  return ask(definition_.makeBundle(withoutDocument(parameters_)));
}

Dispatcher::Answer Dispatcher::initialize(const Json& json) {
  if (bundle_) return fail(RpcErrorCode::invalidRequest, "initialized already");
  const auto parameters = read<InitializeParameters>(json);
  if (!parameters) return fail(RpcErrorCode::invalidParameters, parameters.error());
  if (parameters->protocolVersion != kProtocolVersion) {
    return fail(RpcErrorCode::invalidParameters,
                fmt::format("/protocolVersion: expected {}, found {}",
                            kProtocolVersion,
                            parameters->protocolVersion));
  }
  parameters_ = *parameters;
  bundle_ = std::make_unique<const WidgetBundle>(definition_.makeBundle(*parameters));
  if (definition_.documentPath) document_ = definition_.documentPath(*parameters);
  return encode(InitializeAnswer{kProtocolVersion,
                                 bundle_->appGroup,
                                 bundle_->urlScheme,
                                 bundle_->container,
                                 describe(*bundle_)});
}

Dispatcher::Answer Dispatcher::shutdown(const Json& /*parameters*/) {
  isShutDown_ = true;
  return "null";
}

Dispatcher::Answer Dispatcher::placeholder(const Json& json) {
  const auto ask = [](const Widget& widget, const EntriesParameters& request) {
    return encodeEntries({widget.placeholder(contextOf(request))}, std::nullopt, request);
  };
  return answerFromDocument(
      [&](const WidgetBundle& bundle) { return answerEntries(bundle, json, ask); });
}

Dispatcher::Answer Dispatcher::snapshot(const Json& json) {
  const auto ask = [](const Widget& widget, const EntriesParameters& request) {
    return encodeEntries(
        {widget.snapshot(contextOf(request), request.configuration)}, std::nullopt, request);
  };
  return answerFromDocument(
      [&](const WidgetBundle& bundle) { return answerEntries(bundle, json, ask); });
}

Dispatcher::Answer Dispatcher::timeline(const Json& json) {
  const auto ask = [](const Widget& widget, const EntriesParameters& request) {
    const AnyTimeline timeline = widget.timeline(contextOf(request), request.configuration);
    return encodeEntries(timeline.entries, timeline.policy, request);
  };
  return answerFromDocument(
      [&](const WidgetBundle& bundle) { return answerEntries(bundle, json, ask); });
}

Dispatcher::Answer Dispatcher::options(const Json& json) {
  return answerFromDocument(
      [&](const WidgetBundle& bundle) { return answerOptions(bundle, json); });
}

Dispatcher::Answer Dispatcher::perform(const Json& json) {
  const auto request = read<PerformParameters>(json);
  if (!request) return fail(RpcErrorCode::invalidParameters, request.error());
  const Action* action = findNamed(bundle_->actions, &Action::name, request->intent);
  // An intent that configures a widget has nothing to do.
  if (action == nullptr && configures(*bundle_, request->intent)) return encode(PerformAnswer{});
  if (action == nullptr) return unknown("intent", request->intent);
  action->perform();
  return encode(PerformAnswer{action->openAppWhenRun});
}

Dispatcher::Answer Dispatcher::diagnose(const Json& json) {
  auto request = read<DiagnoseParameters>(json);
  if (!request) return fail(RpcErrorCode::invalidParameters, request.error());
  if (!request->path && !request->text) request->path = document_;
  return encode(definition_.diagnose(*request));
}

}  // namespace widgetruntime
