#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotTimeline.hpp"

#include "Foundation/Calendar.hpp"

namespace quorvel {
namespace {

// Five seconds past midnight, so that a reload lands after the day has changed, never on the
// boundary.
constexpr int kRefreshSecond = 5;
constexpr std::int64_t kDay = 86400;

}  // namespace

foundation::Instant SnapshotTimeline::nextRefresh(foundation::Instant now,
                                                  const foundation::Device& device) {
  const foundation::Calendar calendar(device.timeZone);
  return calendar.nextDate(now, 0, 0, kRefreshSecond)
      .value_or(foundation::Instant{now.seconds + kDay, now.nanoseconds});
}

widgetruntime::Timeline<SnapshotEntry> SnapshotTimeline::load(const SnapshotStore& store,
                                                              const foundation::Device& device) {
  widgetruntime::Timeline<SnapshotEntry> timeline;
  timeline.policy = widgetruntime::ReloadPolicy::after(nextRefresh(device.now, device));
  // Moved in: an initializer list would copy a document, which may fill half of the memory.
  timeline.entries.push_back({device.now, store.load()});
  return timeline;
}

}  // namespace quorvel
