// Keeps every instance's timeline current: asks when something happens or a date comes, and says
// when there is something new to show.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "Foundation/Device.hpp"
#include "Resident/Asker.hpp"
#include "Resident/InstanceTimeline.hpp"
#include "Resident/Loop.hpp"
#include "Resident/Scheduler.hpp"
#include "Resident/WallClock.hpp"

namespace resident {

class Reloader {
 public:
  /// `device` says where and for whom, at the given time.
  using DeviceAt = std::function<foundation::Device(foundation::Instant now)>;

  Reloader(Loop& loop, WallClock& clock, Asker& asker, DeviceAt device);

  /// An instance's answer, failure or entry in force has changed.
  std::function<void(const std::string& id, Urgency urgency)> onChange;

  void add(const surfaces::Subject& subject, Cause cause);
  void remove(const std::string& id);
  void reload(const std::string& id, Cause cause);
  void reloadAll(Cause cause);
  void documentChanged();
  /// Of which trees are asked for; what is new is asked for at once.
  void setModes(const Modes& modes);

  struct Instance {
    surfaces::Subject subject;
    InstanceTimeline timeline;
    std::chrono::microseconds took{};  ///< of the latest answer, from the asking
  };
  /// Null without one.
  [[nodiscard]] Instance* find(const std::string& id);
  [[nodiscard]] Scheduler::Outlook outlook(const std::string& id) const {
    return scheduler_.outlook(id);
  }
  /// When what failed is asked for again; nothing while nothing has.
  [[nodiscard]] std::optional<foundation::Instant> nextRetry() const {
    return retry_ ? std::optional(retryAt_) : std::nullopt;
  }
  [[nodiscard]] DocumentVersion documentVersion() const { return version_; }
  [[nodiscard]] foundation::Instant now() const { return clock_.now(); }

 private:
  void pump();
  void ask(const Ask& ask);
  void settle(const Ask& ask,
              foundation::Instant asked,
              DocumentVersion version,
              const Modes& modes,
              Asked<widgetruntime::EntriesAnswer> answer);
  void retryAfter(Pause pause);
  void notify(const std::string& id, Urgency urgency);
  void notifyAll();
  [[nodiscard]] widgetruntime::EntriesParameters parametersOf(const surfaces::Subject& subject,
                                                              foundation::Instant now) const;

  Loop& loop_;
  WallClock& clock_;
  Asker& asker_;
  DeviceAt device_;
  Modes modes_{viewkit::RenderingMode::fullColor};
  Scheduler scheduler_;
  std::map<std::string, Instance> instances_;
  DocumentVersion version_ = 0;
  Watch retry_;
  foundation::Instant retryAt_;
};

}  // namespace resident
