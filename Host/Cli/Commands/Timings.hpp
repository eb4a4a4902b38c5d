// Times of one stage over many images, and their summary.
#pragma once

#include <chrono>
#include <utility>
#include <vector>

namespace cli {

struct Summary {
  double least = 0;
  double median = 0;
  double p95 = 0;
};

/// In milliseconds; zeros for no samples. The median of an even count is the mean of the middle
/// two; the 95th percentile is the smallest sample that at least 95 of 100 do not exceed.
[[nodiscard]] Summary summaryOf(std::vector<double> samples);

/// Laps of the monotonic clock, in milliseconds.
class StopWatch {
 public:
  /// Since the last lap or the construction.
  double lap() {
    const auto now = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::milli>(now - std::exchange(last_, now)).count();
  }

 private:
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

}  // namespace cli
