// Which instances are asked for a new timeline, when and why. Pure: the clock is handed in.
//
// A reload comes from the policy's date or from an event; of several events before a request the
// latest is its cause. An answer or a failure counts even when a newer request waits, unless that
// of a newer request came first; serial numbers tell. So asking without a pause never hides an
// answer.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Foundation/Names.hpp"

namespace resident {

enum class Cause : std::uint8_t {
  start,
  date,      ///< the policy's
  document,  ///< anything that changed in the container
  configuration,
  zone,
  clock,  ///< set, or resumed after sleep
  retry,
  person
};
constexpr auto namesOf(Cause) {
  return foundation::names(
      "start", "date", "document", "configuration", "zone", "clock", "retry", "person");
}

struct Ask {
  std::string instance;
  Cause cause = Cause::start;
  std::uint64_t serial = 0;
  bool isAwaited = false;  ///< by a person: this request, or one that it replaces

  friend bool operator==(const Ask&, const Ask&) = default;
};

/// When a timeline changes by itself.
struct Plan {
  std::vector<foundation::Instant> swaps;  ///< dates of entries after the first, ascending
  std::optional<foundation::Instant> reload;
};

class Scheduler {
 public:
  /// Seconds between two reloads of one instance by dates of its own.
  static constexpr std::int64_t kShortestInterval = 60;

  void add(const std::string& instance, Cause cause = Cause::start);
  void remove(const std::string& instance);

  void request(const std::string& instance, Cause cause);
  void requestAll(Cause cause);
  /// The clock was set: dates that were reckoned with the old one count no more.
  void requestAllAfterClockChange();
  /// Those whose latest request failed, and that are not being asked again.
  void retryFailed();

  /// What is to be asked now, in the order of the instances' names.
  [[nodiscard]] std::vector<Ask> take(foundation::Instant now);

  /// False when it comes too late: something newer came back, or the instance is gone.
  bool answered(const Ask& ask, Plan plan);
  bool failed(const Ask& ask);

  /// Instances whose entry changes at or before now; each is named once for each passed date.
  [[nodiscard]] std::vector<std::string> takeSwaps(foundation::Instant now);

  /// When there is something to take again.
  [[nodiscard]] std::optional<foundation::Instant> nextWake() const;

  struct Outlook {
    std::optional<foundation::Instant> reload;
    std::optional<Cause> lastCause;
    bool isAsked = false;  ///< an answer is awaited
  };
  [[nodiscard]] Outlook outlook(const std::string& instance) const;

 private:
  struct Row {
    std::optional<Cause> wanted;
    std::optional<Cause> lastCause;
    std::uint64_t latest = 0;   // serial of the newest request
    std::uint64_t settled = 0;  // newest serial that was answered or has failed
    bool hasFailed = false;
    std::uint64_t awaited = 0;  // serial of the newest request that a person made
    std::optional<foundation::Instant> reloadedByDate;
    Plan plan;
  };

  /// The instance's row, when this is the newest that came back.
  Row* settle(const Ask& ask);

  std::map<std::string, Row> rows_;
  std::uint64_t serial_ = 0;
};

}  // namespace resident
