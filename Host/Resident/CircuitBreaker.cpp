#include "Resident/CircuitBreaker.hpp"

#include <algorithm>

namespace resident {
namespace {

using namespace std::chrono_literals;

constexpr Pause kFirstPause = 200ms;
constexpr Pause kLongestPause = 30s;
constexpr Pause kWindow = 5min;
constexpr Pause kQuarantine = 5min;
constexpr std::size_t kFailuresOfAQuarantine = 5;

/// Of the n-th failure in a row, counted from 1.
Pause pauseAfter(int failures) {
  if (failures == 1) return 0ms;
  Pause pause = kFirstPause;
  for (int i = 2; i < failures && pause < kLongestPause; ++i) pause *= 2;
  return std::min(pause, kLongestPause);
}

}  // namespace

void CircuitBreaker::succeeded() {
  consecutive_ = 0;
  quarantined_ = false;
  closedUntil_ = {};
}

Pause CircuitBreaker::failed(Moment now) {
  latestFailure_ = now;
  ++consecutive_;
  std::erase_if(recent_, [&](Moment failure) { return now - failure >= kWindow; });
  recent_.push_back(now);
  Pause pause = pauseAfter(consecutive_);
  quarantined_ = recent_.size() >= kFailuresOfAQuarantine;
  if (quarantined_) {
    pause = kQuarantine;
    recent_.clear();
  }
  closedUntil_ = std::max(closedUntil_, now + pause);
  return remaining(now);
}

Pause CircuitBreaker::remaining(Moment now) const {
  return admits(now) ? Pause{} : std::chrono::ceil<Pause>(closedUntil_ - now);
}

}  // namespace resident
