#include "Cli/Commands/Timings.hpp"

#include <algorithm>
#include <cstddef>

namespace cli {

Summary summaryOf(std::vector<double> samples) {
  if (samples.empty()) return {};
  std::ranges::sort(samples);
  const std::size_t count = samples.size();
  const double median =
      count % 2 == 1 ? samples[count / 2] : (samples[count / 2 - 1] + samples[count / 2]) / 2;
  const std::size_t rank = (count * 95 + 99) / 100;
  return {samples.front(), median, samples[rank - 1]};
}

}  // namespace cli
