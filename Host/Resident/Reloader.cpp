#include "Resident/Reloader.hpp"

#include <utility>

#include "Session/HostEnvironment.hpp"

namespace resident {

using foundation::Instant;
using surfaces::Subject;
using widgetruntime::EntriesAnswer;

namespace {

Urgency urgencyOf(const Ask& ask) {
  return ask.isAwaited ? Urgency::person : Urgency::reload;
}

}  // namespace

Reloader::Reloader(Loop& loop, WallClock& clock, Asker& asker, DeviceAt device)
    : loop_(loop), clock_(clock), asker_(asker), device_(std::move(device)) {
  clock_.onTime = [this] {
    for (const std::string& id : scheduler_.takeSwaps(clock_.now())) notify(id, Urgency::reload);
    pump();
  };
  clock_.onSet = [this] {
    scheduler_.requestAllAfterClockChange();
    notifyAll();
    pump();
  };
}

void Reloader::add(const Subject& subject, Cause cause) {
  instances_.insert_or_assign(subject.id, Instance{.subject = subject});
  scheduler_.add(subject.id, cause);
  pump();
}

void Reloader::remove(const std::string& id) {
  instances_.erase(id);
  scheduler_.remove(id);
  pump();
}

void Reloader::reload(const std::string& id, Cause cause) {
  scheduler_.request(id, cause);
  pump();
}

void Reloader::reloadAll(Cause cause) {
  scheduler_.requestAll(cause);
  pump();
}

void Reloader::documentChanged() {
  ++version_;
  // What could not be asked for anew may no longer agree with the document.
  for (const auto& [id, instance] : instances_) {
    if (instance.timeline.failingSince()) notify(id, Urgency::person);
  }
  reloadAll(Cause::document);
}

void Reloader::setModes(const Modes& modes) {
  if (modes == modes_ || modes.empty()) return;
  modes_ = modes;
  reloadAll(Cause::configuration);
}

Reloader::Instance* Reloader::find(const std::string& id) {
  const auto found = instances_.find(id);
  return found == instances_.end() ? nullptr : &found->second;
}

void Reloader::pump() {
  for (const Ask& due : scheduler_.take(clock_.now())) ask(due);
  clock_.wakeAt(scheduler_.nextWake());
}

void Reloader::ask(const Ask& due) {
  const Instant now = clock_.now();
  const auto begin = std::chrono::steady_clock::now();
  asker_.timeline(urgencyOf(due),
                  due.instance,
                  parametersOf(instances_.at(due.instance).subject, now),
                  [this, due, now, begin, version = version_, modes = modes_](auto answer) {
                    if (Instance* instance = find(due.instance)) {
                      instance->took = std::chrono::duration_cast<std::chrono::microseconds>(
                          std::chrono::steady_clock::now() - begin);
                    }
                    settle(due, now, version, modes, std::move(answer));
                  });
}

void Reloader::settle(const Ask& ask,
                      Instant asked,
                      DocumentVersion version,
                      const Modes& modes,
                      Asked<EntriesAnswer> answer) {
  if (answer && answer->entries.empty()) {
    answer = std::unexpected(AskFailure{"the extension: a timeline without entries", std::nullopt});
  }
  if (!answer) {
    if (!scheduler_.failed(ask)) return;
    AskFailure& failure = answer.error();
    instances_.at(ask.instance).timeline.failed(std::move(failure.reason), clock_.now());
    if (failure.retryIn) retryAfter(*failure.retryIn);
  } else {
    if (!scheduler_.answered(ask, InstanceTimeline::planOf(*answer, asked))) return;
    instances_.at(ask.instance).timeline.answered(*std::move(answer), modes, version);
  }
  notify(ask.instance, urgencyOf(ask));
  pump();
}

void Reloader::retryAfter(Pause pause) {
  // All wait for the same child: the latest word counts for every one of them.
  retryAt_ = clock_.now();
  retryAt_.seconds += std::chrono::ceil<std::chrono::seconds>(pause).count();
  retry_ = loop_.after(pause, [this] {
    retry_.reset();
    scheduler_.retryFailed();
    pump();
  });
}

void Reloader::notify(const std::string& id, Urgency urgency) {
  if (onChange) onChange(id, urgency);
}

void Reloader::notifyAll() {
  for (const auto& [id, instance] : instances_) notify(id, Urgency::reload);
}

widgetruntime::EntriesParameters Reloader::parametersOf(const Subject& subject, Instant now) const {
  widgetruntime::EntriesParameters parameters{.kind = subject.kind,
                                              .family = subject.family,
                                              .configuration = subject.configuration,
                                              .device = device_(now)};
  for (const viewkit::RenderingMode mode : modes_) {
    for (const bool redacted : {false, true}) {
      parameters.environments.push_back(
          session::hostEnvironment(subject.family, mode, {.privacy = redacted}, parameters.device));
    }
  }
  return parameters;
}

}  // namespace resident
