// The time of day as something that can wake its owner; a seam that tests drive.
#pragma once

#include <functional>
#include <optional>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/Instant.hpp"
#include "Resident/Loop.hpp"

namespace resident {

class WallClock {
 public:
  WallClock() = default;
  WallClock(const WallClock&) = delete;
  WallClock& operator=(const WallClock&) = delete;
  virtual ~WallClock() = default;

  [[nodiscard]] virtual foundation::Instant now() const = 0;
  /// Calls onTime when the date has come, and onSet when the clock was set (resuming sets it too).
  virtual void wakeAt(std::optional<foundation::Instant> date) = 0;

  std::function<void()> onTime;
  std::function<void()> onSet;
};

/// The system's, by a timerfd that is cancelled when the clock is set.
class SystemClock : public WallClock {
 public:
  explicit SystemClock(Loop& loop);

  [[nodiscard]] foundation::Instant now() const override;
  void wakeAt(std::optional<foundation::Instant> date) override;

 private:
  void arm();
  void handle();

  foundation::FileDescriptor timer_;
  std::optional<foundation::Instant> date_;
  Watch watch_;
};

}  // namespace resident
