#include "Resident/Operations.hpp"

#include <utility>

#include "Foundation/JsonWriter.hpp"
#include "Opening/LinkOpener.hpp"
#include "Resident/Status.hpp"

namespace resident {

using control::AddRequest;
using control::ConfigureRequest;
using control::HideRequest;
using control::MoveRequest;
using control::OpenRequest;
using control::PerformRequest;
using control::ReloadRequest;
using control::RemoveRequest;
using control::WatchRequest;
using foundation::JsonWriter;
using widgetruntime::RpcError;
using widgetruntime::RpcErrorCode;

namespace {

constexpr std::string_view kDone = "{}";
constexpr std::size_t kMostShown = 40;  ///< bytes of a name that nobody knows

std::unexpected<RpcError> refused(std::string line) {
  return std::unexpected(RpcError{RpcErrorCode::internalError, std::move(line)});
}

std::unexpected<RpcError> invalid(std::string line) {
  return std::unexpected(RpcError{RpcErrorCode::invalidParameters, std::move(line)});
}

ControlServer::Answer answer(Done done) {
  if (!done) return refused(std::move(done.error()));
  return std::string(kDone);
}

}  // namespace

void Operations::handle(ControlServer::Client client,
                        const std::string& method,
                        const foundation::JsonValue& parameters,
                        ControlServer::Reply reply) {
  if (method == "status") return reply(status());
  if (method == "board") return reply(board());
  const auto takes = [&]<class Request>(const Request&, const auto& act) {
    if (method != Request::kMethod) return false;
    if (const auto request = control::read<Request>(parameters)) {
      act(*request);
    } else {
      reply(invalid(request.error()));
    }
    return true;
  };
  const auto answers = [&](const auto& act) {
    return [&](const auto& request) { reply(act(request)); };
  };
  const bool isKnown =
      takes(ReloadRequest{}, answers([&](const auto& request) { return reload(request); })) ||
      takes(HideRequest{}, answers([&](const auto& request) { return hide(request); })) ||
      takes(AddRequest{}, answers([&](const auto& request) { return add(request); })) ||
      takes(RemoveRequest{}, answers([&](const auto& request) { return remove(request); })) ||
      takes(ConfigureRequest{}, answers([&](const auto& request) { return configure(request); })) ||
      takes(MoveRequest{}, answers([&](const auto& request) { return move(request); })) ||
      takes(WatchRequest{}, answers([&](const auto& request) { return watch(client, request); })) ||
      takes(OpenRequest{}, [&](const auto& request) { open(request, reply); }) ||
      takes(PerformRequest{}, [&](const auto& request) { perform(request, reply); });
  if (isKnown) return;
  reply(std::unexpected(RpcError{RpcErrorCode::methodNotFound,
                                 "there is no method \"" + method.substr(0, kMostShown) + "\""}));
}

Operations::Answer Operations::status() const {
  return statusJson(host_);
}

Operations::Answer Operations::reload(const ReloadRequest& request) {
  const auto count = host_.reload(request.target);
  if (!count) return refused(count.error());
  JsonWriter json;
  json.beginObject().member("asked", static_cast<int>(*count)).endObject();
  return json.take();
}

Operations::Answer Operations::hide(const HideRequest& request) {
  host_.hide(request.hide);
  JsonWriter json;
  json.beginObject().member("hidden", host_.privacy().isHidden()).key("because").beginArray();
  for (const std::string_view reason : host_.privacy().reasons()) json.value(reason);
  json.endArray().endObject();
  return json.take();
}

Operations::Answer Operations::add(const AddRequest& request) {
  const auto id = host_.add(
      request.kind, request.family, request.configuration.value_or(widgetruntime::IntentValues{}));
  if (!id) return refused(id.error());
  JsonWriter json;
  json.beginObject().member("id", *id).endObject();
  return json.take();
}

Operations::Answer Operations::remove(const RemoveRequest& request) {
  return answer(host_.remove(request.id));
}

Operations::Answer Operations::configure(const ConfigureRequest& request) {
  return answer(host_.configure(request.id, request.family, request.configuration));
}

Operations::Answer Operations::move(const MoveRequest& request) {
  if (request.surface == control::PlaceSurface::board) {
    return answer(host_.moveOnBoard(request.id, {request.column, request.row}));
  }
  return answer(host_.moveOnDesktop(request.id, {request.output, request.column, request.row}));
}

Operations::Answer Operations::board() {
  const auto url = openBoard();
  if (!url) return refused(url.error());
  JsonWriter json;
  json.beginObject().member("url", *url).endObject();
  return json.take();
}

Operations::Answer Operations::watch(ControlServer::Client client, const WatchRequest& request) {
  return answer(watchers_.watch(client, request.target));
}

void Operations::open(const OpenRequest& request, ControlServer::Reply reply) {
  const auto link = host_.linkOf(request.target, request.region);
  if (!link) return reply(refused(link.error()));
  openThen(*link, std::move(reply));
}

void Operations::perform(const PerformRequest& request, const ControlServer::Reply& reply) {
  const auto then = [this, reply](Asked<widgetruntime::PerformAnswer> done) {
    if (!done) return reply(refused("the extension: " + done.error().reason));
    const auto* offer = host_.offer();
    if (!done->openApp || offer == nullptr) return reply(std::string(kDone));
    const auto link = opening::applicationLink(offer->urlScheme);
    if (!link) return reply(refused(link.error()));
    openThen(*link, reply);
  };
  asker_.perform({.intent = request.intent}, then);
}

void Operations::openThen(const std::string& link, ControlServer::Reply reply) {
  host_.openLink(link, [reply = std::move(reply)](const std::string& problem) {
    reply(problem.empty() ? Answer{std::string(kDone)} : refused(problem));
  });
}

}  // namespace resident
