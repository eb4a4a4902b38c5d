#include <gmock/gmock.h>

#include "Foundation/Bundle.hpp"
#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/SafeToSpend/SafeToSpendProvider.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"
#include "Tests/Support/SafeToSpendCases.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace quorvel {
namespace {

using ::testing::ElementsAre;
using widgetruntime::IntentOption;
using widgetruntime::ProviderContext;

TEST(SafeToSpendStyle, TheRawValuesMapToTheirCasesAndNothingElseDoes) {
  EXPECT_EQ(safeToSpendStyle("accent"), SafeToSpendStyle::accent);
  EXPECT_EQ(safeToSpendStyle("ring"), SafeToSpendStyle::ring);
  for (const char* other : {"", "Accent", "RING", "accent ", "0", "Accent Tile", "tile"}) {
    EXPECT_EQ(safeToSpendStyle(other), std::nullopt) << other;
  }
}

TEST(SafeToSpendIntent, AWidgetThatWasNeverConfiguredUsesAccent) {
  EXPECT_EQ(SafeToSpendIntent::fromValues({}).style, SafeToSpendStyle::accent);
  EXPECT_EQ(SafeToSpendIntent::fromValues({{"style", "unknown"}}).style, SafeToSpendStyle::accent);
  EXPECT_EQ(SafeToSpendIntent::fromValues({{"style", "ring"}}).style, SafeToSpendStyle::ring);
}

TEST(SafeToSpendIntent, DescribesItsOneParameter) {
  const auto intent = SafeToSpendIntent::description();
  EXPECT_EQ(intent.title, "Choose Style");
  ASSERT_EQ(intent.parameters.size(), 1U);
  const auto& style = intent.parameters[0];
  EXPECT_EQ(style.name, "style");
  EXPECT_EQ(style.title, "Style");
  EXPECT_EQ(style.typeName, "Style");
  EXPECT_EQ(style.type, widgetruntime::IntentParameter::Type::enumeration);
  EXPECT_THAT(
      style.cases,
      ElementsAre(IntentOption{"accent", "Accent Tile"}, IntentOption{"ring", "Budget Ring"}));
  EXPECT_EQ(style.defaultValue, "accent");
}

class SafeToSpendProviderTest : public ::testing::Test {
 protected:
  [[nodiscard]] SafeToSpendProvider provider() const {
    return {SnapshotStore{foundation::Bundle{},
                          foundation::FileManager::withContainer(folder_.path().string())}};
  }
  void writeDocument(const WidgetSnapshot& snapshot) const {
    folder_.write(kSnapshotFileName, encodeWidgetSnapshot(snapshot));
  }

  static ProviderContext context(bool isPreview) {
    ProviderContext context;
    context.isPreview = isPreview;
    context.device.now = testsupport::marchFourteenth();
    return context;
  }

  testsupport::TemporaryFolder folder_;
};

TEST_F(SafeToSpendProviderTest, TheGalleryShowsTheSampleWithoutADocument) {
  const SafeToSpendEntry entry =
      provider().snapshot({.style = SafeToSpendStyle::ring}, context(true));
  ASSERT_TRUE(entry.snapshot.has_value());
  EXPECT_EQ(*entry.snapshot, sampleSnapshot(context(true).device));
  EXPECT_EQ(entry.style, SafeToSpendStyle::ring);
}

TEST_F(SafeToSpendProviderTest, OutsideTheGalleryAMissingDocumentIsNoSnapshot) {
  const SafeToSpendEntry entry = provider().snapshot({}, context(false));
  EXPECT_EQ(entry.snapshot, std::nullopt);
  EXPECT_EQ(entry.date, testsupport::marchFourteenth());
}

TEST_F(SafeToSpendProviderTest, TheGalleryPrefersTheDocument) {
  const WidgetSnapshot snapshot =
      testsupport::snapshotWith(testsupport::budgetOf(1000, 400, "2025-03-24"), "es");
  writeDocument(snapshot);
  EXPECT_EQ(provider().snapshot({}, context(true)).snapshot->lang, "es");
}

TEST_F(SafeToSpendProviderTest, ThePlaceholderIsTheSampleInAccentAndReadsNoFile) {
  writeDocument(testsupport::snapshotWith(testsupport::budgetOf(1000, 400, "2025-03-24"), "es"));
  const SafeToSpendEntry entry = provider().placeholder(context(false));
  EXPECT_EQ(entry.style, SafeToSpendStyle::accent);
  EXPECT_EQ(*entry.snapshot, sampleSnapshot(context(false).device));
}

TEST_F(SafeToSpendProviderTest, TheTimelineIsTheSharedOneInTheChosenStyle) {
  const auto timeline = provider().timeline({.style = SafeToSpendStyle::ring}, context(false));
  ASSERT_EQ(timeline.entries.size(), 1U);
  EXPECT_EQ(timeline.entries[0].date, testsupport::marchFourteenth());
  EXPECT_EQ(timeline.entries[0].snapshot, std::nullopt);
  EXPECT_EQ(timeline.entries[0].style, SafeToSpendStyle::ring);
  EXPECT_EQ(timeline.policy,
            widgetruntime::ReloadPolicy::after(
                *foundation::parseInternetDateTime("2025-03-15T00:00:05Z")));
}

}  // namespace
}  // namespace quorvel
