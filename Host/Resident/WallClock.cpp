#include "Resident/WallClock.hpp"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>

namespace resident {

using foundation::Instant;

namespace {

// A timer without a date still has to notice that the clock is set. The kernel takes no larger one.
constexpr std::int64_t kNever = std::int64_t{1} << 33;

}  // namespace

SystemClock::SystemClock(Loop& loop)
    : timer_(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)),
      watch_(loop.onReadable(timer_.get(), [this] { handle(); })) {
  arm();
}

Instant SystemClock::now() const {
  timespec time{};
  ::clock_gettime(CLOCK_REALTIME, &time);
  return {time.tv_sec, static_cast<std::int32_t>(time.tv_nsec)};
}

void SystemClock::wakeAt(std::optional<Instant> date) {
  if (date == date_) return;
  date_ = date;
  arm();
}

void SystemClock::arm() {
  const Instant date = date_.value_or(Instant{kNever, 0});
  itimerspec setting{};
  // A date of zero would disarm it.
  setting.it_value.tv_sec = std::clamp<std::int64_t>(date.seconds, 1, kNever);
  setting.it_value.tv_nsec = date.nanoseconds;
  ::timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &setting, nullptr);
}

void SystemClock::handle() {
  std::uint64_t times = 0;
  const bool wasSet = ::read(timer_.get(), &times, sizeof times) < 0 && errno == ECANCELED;
  if (!wasSet && times == 0) return;
  if (!wasSet) date_.reset();
  arm();
  const auto& callback = wasSet ? onSet : onTime;
  if (callback) callback();
}

}  // namespace resident
