// Whether a child that has failed is asked again, and when.
//
// The first failure after a success is tried again at once, further ones after 0.2 s, doubling to
// 30 s; five failures in five minutes are a quarantine of five minutes. Meanwhile requests fail at
// once, but each asking of a person passes once. All times are on the monotonic clock.
#pragma once

#include <chrono>
#include <vector>

namespace resident {

using Moment = std::chrono::steady_clock::time_point;
using Pause = std::chrono::milliseconds;

class CircuitBreaker {
 public:
  /// Whether a request of the host's own may be sent.
  [[nodiscard]] bool admits(Moment now) const { return now >= closedUntil_; }
  /// Whether one that a person made at `asked` may: it has not failed since.
  [[nodiscard]] bool admitsPerson(Moment now, Moment asked) const {
    return admits(now) || asked > latestFailure_;
  }

  void succeeded();
  /// How long to wait before the next try; zero: at once.
  Pause failed(Moment now);

  [[nodiscard]] Pause remaining(Moment now) const;
  [[nodiscard]] bool isQuarantined(Moment now) const { return quarantined_ && !admits(now); }

 private:
  int consecutive_ = 0;
  bool quarantined_ = false;
  Moment closedUntil_{};
  Moment latestFailure_{};
  std::vector<Moment> recent_;
};

}  // namespace resident
