#include "BarWatch/BarWatch.hpp"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <tuple>
#include <utility>

#include "Control/Paths.hpp"
#include "Control/Requests.hpp"
#include "Foundation/FileWriting.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Foundation/Printable.hpp"

namespace watch {

using control::Client;
using foundation::FileDescriptor;
using foundation::JsonValue;
using foundation::JsonWriter;
using surfaces::BarLine;

namespace {

constexpr int kLeftButton = 1;
constexpr int kRightButton = 3;
constexpr int kPause = 1000;  // milliseconds

BarLine lineFrom(const JsonValue& json) {
  JsonWriter whole;
  json.write(whole);
  const JsonValue* hidden = json.member("hidden");
  return {.kind = json.textOf("kind"),
          .text = json.textOf("text"),
          .state = json.textOf("state"),
          .tooltip = json.textOf("tooltip"),
          .status = json.textOf("status"),
          .reason = json.textOf("reason"),
          .isHidden = hidden != nullptr && hidden->boolean() != nullptr && *hidden->boolean(),
          .json = whole.take()};
}

/// Without a host nobody can say whether amounts are to be hidden: none is left standing.
BarLine lineWithoutHost(const std::string& target) {
  JsonWriter json;
  json.beginObject().member("kind", target).member("text", "").member("state", "none");
  json.member("status", "missing").member("reason", "no resident host runs").endObject();
  return {.kind = target,
          .state = "none",
          .status = "missing",
          .reason = "no resident host runs",
          .isHidden = true,
          .json = json.take()};
}

/// The button of a click as i3bar's protocol or i3blocks tell it; nothing for any other line.
std::optional<int> buttonIn(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(" ,[");
  if (begin == std::string_view::npos) return std::nullopt;
  const auto json = foundation::parseJson(line.substr(begin), 8, 4096);
  if (!json) return std::nullopt;
  const JsonValue* button = json->number() != nullptr ? &*json : json->member("button");
  const double* number = button != nullptr ? button->number() : nullptr;
  if (number == nullptr || *number < 1 || *number > 32) return std::nullopt;
  return static_cast<int>(*number);
}

Result print(std::string_view text) {
  const auto error = foundation::writeAll(STDOUT_FILENO, foundation::printableLines(text));
  if (error) return std::unexpected("standard output: " + error.message());
  return {};
}

}  // namespace

Result BarWatch::run() {
  arrival_ = FileDescriptor{::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)};
  const std::string folder = socket_.substr(0, socket_.rfind('/'));
  if (const auto problem = control::makePrivateFolder(folder)) return std::unexpected(*problem);
  ::inotify_add_watch(arrival_.get(), folder.c_str(), IN_CREATE | IN_MOVED_TO);
  if (auto printed = print(surfaces::opening(format_)); !printed) return printed;
  while (hasReader_) {
    if (!client_ && !isPausing_) {
      if (auto connected = connect(); !connected) return connected;
    }
    if (auto waited = wait(); !waited) return waited;
  }
  return {};
}

Result BarWatch::connect() {
  auto client = Client::connect(socket_);
  if (!client) {
    if (!client.error().isMissing) return std::unexpected(client.error().line);
    return show(lineWithoutHost(target_));
  }
  client_ = *std::move(client);
  const auto sent = client_->send(control::WatchRequest::kMethod,
                                  control::encode(control::WatchRequest{.target = target_}));
  if (!sent) return lose();
  watching_ = *sent;
  return {};
}

Result BarWatch::wait() {
  std::array<pollfd, 3> polled{pollfd{client_ ? client_->descriptor() : arrival_.get(), POLLIN, 0},
                               // Nothing is awaited of standard output but that its reader goes.
                               pollfd{STDOUT_FILENO, 0, 0},
                               pollfd{hasClicks_ ? STDIN_FILENO : -1, POLLIN, 0}};
  const bool wasPausing = std::exchange(isPausing_, false);
  if (::poll(polled.data(), polled.size(), wasPausing ? kPause : -1) < 0) return {};
  if ((polled[1].revents & (POLLERR | POLLHUP | POLLNVAL)) != 0) {
    hasReader_ = false;
    return {};
  }
  if (polled[2].revents != 0) readClicks();
  if (polled[0].revents == 0) return {};
  if (client_) return readMessages();
  std::array<char, 4096> events;
  while (::read(arrival_.get(), events.data(), events.size()) > 0) {
  }
  return {};
}

Result BarWatch::readMessages() {
  for (;;) {
    if (!client_) return lose();
    const auto message = client_->next();
    if (!message) return lose();
    const std::optional<control::Message>& next = *message;
    if (!next) return {};
    const control::Message& said = *next;
    if (said.id && !said.error.empty()) {
      if (said.id == watching_) return std::unexpected(said.error);
      std::ignore = foundation::writeAll(
          STDERR_FILENO, "quorvel-host watch: " + foundation::printable(said.error) + "\n");
    }
    if (said.method != "summary") continue;
    if (auto shown = show(lineFrom(said.content)); !shown) return shown;
  }
}

Result BarWatch::lose() {
  client_.reset();
  watching_.reset();
  // A host that lets everybody go at once is not asked again and again without a rest.
  isPausing_ = true;
  return show(lineWithoutHost(target_));
}

Result BarWatch::show(const BarLine& line) {
  std::string text = surfaces::format(line, format_);
  if (text == shown_) return {};
  shown_ = std::move(text);
  return print(shown_);
}

void BarWatch::readClicks() {
  std::array<char, 4096> bytes;
  const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
  if (count <= 0) {
    hasClicks_ = false;
    return;
  }
  clicks_.append({bytes.data(), static_cast<std::size_t>(count)});
  while (const auto line = clicks_.next()) {
    if (const auto button = buttonIn(*line)) click(*button);
  }
  if (clicks_.isTooLong()) hasClicks_ = false;
}

void BarWatch::click(int button) {
  if (!client_) return;
  JsonWriter json;
  json.beginObject();
  // What cannot be sent is noticed by the next reading.
  if (button == kLeftButton) {
    json.member("target", target_).endObject();
    std::ignore = client_->send("open", json.text());
  } else if (button == kRightButton) {
    json.member("hide", "toggle").endObject();
    std::ignore = client_->send("hide", json.text());
  }
}

}  // namespace watch
