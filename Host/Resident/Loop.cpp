#include "Resident/Loop.hpp"

#include <sys/epoll.h>
#include <systemd/sd-event.h>

#include <csignal>
#include <stdexcept>
#include <utility>

namespace resident {

struct Watch::Source {
  // A callback that resets its own watch must not be destroyed while it runs: it is called from a
  // copy of this pointer.
  std::shared_ptr<std::function<void(std::uint32_t)>> callback;
  sd_event_source* source = nullptr;

  void call(std::uint32_t events) const {
    const auto kept = callback;
    (*kept)(events);
  }
};

namespace {

using Source = Watch::Source;

int onDescriptor(sd_event_source*, int, std::uint32_t events, void* source) {
  static_cast<Source*>(source)->call(events);
  return 0;
}

int onTimer(sd_event_source*, std::uint64_t, void* source) {
  static_cast<Source*>(source)->call(0);
  return 0;
}

int onDeferred(sd_event_source*, void* source) {
  static_cast<Source*>(source)->call(0);
  return 0;
}

int onSignalInfo(sd_event_source*, const signalfd_siginfo*, void* source) {
  static_cast<Source*>(source)->call(0);
  return 0;
}

std::unique_ptr<Source> makeSource(std::function<void(std::uint32_t)> callback) {
  auto source = std::make_unique<Source>();
  source->callback = std::make_shared<std::function<void(std::uint32_t)>>(std::move(callback));
  return source;
}

std::function<void(std::uint32_t)> ignoringEvents(Loop::Callback callback) {
  return [callback = std::move(callback)](std::uint32_t) { callback(); };
}

Watch finished(int result, std::unique_ptr<Source> source, const char* what) {
  if (result < 0) throw std::runtime_error(what);
  return Watch{std::move(source)};
}

}  // namespace

Watch::Watch() = default;
Watch::Watch(std::unique_ptr<Source> source) : source_(std::move(source)) {}
Watch::Watch(Watch&&) noexcept = default;
Watch& Watch::operator=(Watch&& other) noexcept {
  if (this != &other) {
    reset();
    source_ = std::move(other.source_);
  }
  return *this;
}
Watch::~Watch() {
  reset();
}

void Watch::reset() {
  if (!source_) return;
  sd_event_source_set_enabled(source_->source, SD_EVENT_OFF);
  sd_event_source_unref(source_->source);
  source_.reset();
}

void Watch::setEvents(std::uint32_t events) {
  if (source_) sd_event_source_set_io_events(source_->source, events);
}

Loop::Loop() {
  if (sd_event_new(&event_) < 0) throw std::runtime_error("no event loop");
}

Loop::~Loop() {
  sd_event_unref(event_);
}

Watch Loop::onReadable(int descriptor, Callback callback) {
  return onEvents(descriptor, EPOLLIN, ignoringEvents(std::move(callback)));
}

Watch Loop::onEvents(int descriptor,
                     std::uint32_t events,
                     std::function<void(std::uint32_t)> callback) {
  auto source = makeSource(std::move(callback));
  const int result =
      sd_event_add_io(event_, &source->source, descriptor, events, onDescriptor, source.get());
  return finished(result, std::move(source), "a descriptor cannot be watched");
}

Watch Loop::onSignal(int signal, Callback callback) {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, signal);
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  auto source = makeSource(ignoringEvents(std::move(callback)));
  const int result =
      sd_event_add_signal(event_, &source->source, signal, onSignalInfo, source.get());
  return finished(result, std::move(source), "a signal cannot be watched");
}

Watch Loop::after(std::chrono::milliseconds time, Callback callback) {
  auto source = makeSource(ignoringEvents(std::move(callback)));
  const auto microseconds = static_cast<std::uint64_t>(std::chrono::microseconds(time).count());
  // An accuracy of zero would mean a quarter of a second.
  const int result = sd_event_add_time_relative(
      event_, &source->source, CLOCK_MONOTONIC, microseconds, 1, onTimer, source.get());
  return finished(result, std::move(source), "no timer");
}

Watch Loop::soon(Callback callback) {
  auto source = makeSource(ignoringEvents(std::move(callback)));
  const int result = sd_event_add_defer(event_, &source->source, onDeferred, source.get());
  return finished(result, std::move(source), "no deferred work");
}

void Loop::run() {
  sd_event_loop(event_);
}

void Loop::quit() {
  sd_event_exit(event_, 0);
}

bool Loop::step(std::chrono::milliseconds longest) {
  return sd_event_run(event_,
                      static_cast<std::uint64_t>(std::chrono::microseconds(longest).count())) > 0;
}

}  // namespace resident
