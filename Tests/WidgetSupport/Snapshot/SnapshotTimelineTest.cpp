// When the widgets are drawn again, and what each of the host's three questions is answered with.
#include <gtest/gtest.h>

#include <ostream>

#include "Foundation/Bundle.hpp"
#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotTimeline.hpp"
#include "SnapshotFixtures.hpp"

namespace quorvel {
namespace {

using foundation::Instant;
using foundation::parseInternetDateTime;

struct Refresh {
  const char* name;
  const char* zone;
  const char* now;
  const char* expected;
};
void PrintTo(const Refresh& refresh, std::ostream* out) {
  *out << refresh.name;
}

class SnapshotTimelineRefresh : public testing::TestWithParam<Refresh> {};

TEST_P(SnapshotTimelineRefresh, IsFiveSecondsPastTheNextMidnight) {
  const auto now = parseInternetDateTime(GetParam().now);
  ASSERT_TRUE(now);
  EXPECT_EQ(formatInternetDateTime(
                SnapshotTimeline::nextRefresh(*now, testsupport::device(0, GetParam().zone))),
            GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases,
    SnapshotTimelineRefresh,
    testing::ValuesIn(std::initializer_list<Refresh>{
        {"lastSecondOfTheDay", "UTC", "2025-03-14T23:59:59Z", "2025-03-15T00:00:05Z"},
        {"fourSecondsPastMidnight", "UTC", "2025-03-14T00:00:04Z", "2025-03-14T00:00:05Z"},
        {"exactlyFiveSecondsPastMidnight", "UTC", "2025-03-14T00:00:05Z", "2025-03-15T00:00:05Z"},
        {"localNotUniversalMidnight",
         "Asia/Jakarta",
         "2025-03-14T09:30:00Z",
         "2025-03-14T17:00:05Z"},
        {"shortDay", "America/New_York", "2025-03-09T05:30:00Z", "2025-03-10T04:00:05Z"},
        {"longDay", "America/New_York", "2025-11-02T04:30:00Z", "2025-11-03T05:00:05Z"},
        {"skippedMidnight", "America/Sao_Paulo", "2018-11-03T15:00:00Z", "2018-11-04T03:00:00Z"},
        {"repeatedMidnight", "America/Havana", "2024-11-02T16:00:00Z", "2024-11-03T04:00:05Z"},
        {"endOfTheYear", "Europe/Berlin", "2025-12-31T22:59:59Z", "2025-12-31T23:00:05Z"},
    }),
    [](const auto& test) { return test.param.name; });

TEST(SnapshotTimeline, FractionOfASecondStillReachesTheFifth) {
  const auto midnight = *parseInternetDateTime("2025-03-14T00:00:04Z");
  const Instant next =
      SnapshotTimeline::nextRefresh({midnight.seconds, 750'000'000}, testsupport::device(0));
  EXPECT_EQ(next, (Instant{midnight.seconds + 1, 0}));
}

TEST(SnapshotTimeline, BeyondTheCalendarItIsADayLater) {
  const Instant late{std::int64_t{1} << 60, 7};
  EXPECT_EQ(SnapshotTimeline::nextRefresh(late, testsupport::device(0)),
            (Instant{late.seconds + 86400, 7}));
}

TEST(SnapshotTimeline, MapKeepsThePolicyAndTurnsEachEntry) {
  widgetruntime::Timeline<SnapshotEntry> timeline{
      {{Instant{1, 0}, std::nullopt}, {Instant{2, 0}, std::nullopt}},
      widgetruntime::ReloadPolicy::after({9, 0})};
  const auto mapped =
      SnapshotTimeline::map(timeline, [](SnapshotEntry entry) { return entry.date.seconds * 10; });
  EXPECT_EQ(mapped.entries, (std::vector<std::int64_t>{10, 20}));
  EXPECT_EQ(mapped.policy, timeline.policy);
}

class SnapshotProviderAnswers : public testing::Test {
 protected:
  testsupport::TemporaryFolder folder;
  const SnapshotProvider provider{
      SnapshotStore({}, foundation::FileManager::withContainer(folder.path().string()))};
  widgetruntime::ProviderContext context = [] {
    widgetruntime::ProviderContext made;
    made.device = testsupport::device(1741944600, "Asia/Jakarta");
    return made;
  }();
  const Instant now{1741944600, 0};
  const Instant refresh = *parseInternetDateTime("2025-03-14T17:00:05Z");

  void writeDocument() const {
    folder.write("widget-snapshot.json", testsupport::minimalDocument().dump());
  }
};

TEST_F(SnapshotProviderAnswers, PlaceholderIsTheSampleWithOrWithoutADocument) {
  writeDocument();
  const SnapshotEntry entry = provider.placeholder(context);
  EXPECT_EQ(entry.date, now);
  EXPECT_EQ(entry.snapshot, provider.store.sample(context.device));
}

TEST_F(SnapshotProviderAnswers, SnapshotOutsideAPreviewWithoutDocumentIsEmpty) {
  EXPECT_EQ(provider.getSnapshot(context), (SnapshotEntry{now, std::nullopt}));
}

TEST_F(SnapshotProviderAnswers, SnapshotInAPreviewWithoutDocumentIsTheSample) {
  context.isPreview = true;
  EXPECT_EQ(provider.getSnapshot(context),
            (SnapshotEntry{now, provider.store.sample(context.device)}));
}

TEST_F(SnapshotProviderAnswers, SnapshotWithDocumentIsTheDocumentEvenInAPreview) {
  writeDocument();
  for (const bool isPreview : {false, true}) {
    context.isPreview = isPreview;
    const SnapshotEntry entry = provider.getSnapshot(context);
    EXPECT_EQ(entry.date, now);
    ASSERT_TRUE(entry.snapshot);
    EXPECT_EQ(entry.snapshot->lang, "es");
  }
}

TEST_F(SnapshotProviderAnswers, TimelineHoldsOneEntryAndReloadsPastMidnight) {
  writeDocument();
  const auto timeline = provider.getTimeline(context);
  ASSERT_EQ(timeline.entries.size(), 1U);
  EXPECT_EQ(timeline.entries[0], (SnapshotEntry{now, provider.store.load()}));
  EXPECT_TRUE(timeline.entries[0].snapshot);
  EXPECT_EQ(timeline.policy, widgetruntime::ReloadPolicy::after(refresh));
}

TEST_F(SnapshotProviderAnswers, TimelineWithoutDocumentHasTheSameShapeEvenInAPreview) {
  context.isPreview = true;
  const auto timeline = provider.getTimeline(context);
  ASSERT_EQ(timeline.entries.size(), 1U);
  EXPECT_EQ(timeline.entries[0], (SnapshotEntry{now, std::nullopt}));
  EXPECT_EQ(timeline.policy, widgetruntime::ReloadPolicy::after(refresh));
}

TEST_F(SnapshotProviderAnswers, RewrittenDocumentIsSeenAtTheNextCall) {
  EXPECT_FALSE(provider.getTimeline(context).entries[0].snapshot);
  writeDocument();
  EXPECT_TRUE(provider.getTimeline(context).entries[0].snapshot);
}

}  // namespace
}  // namespace quorvel
