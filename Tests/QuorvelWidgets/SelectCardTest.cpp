#include <gmock/gmock.h>

#include "Foundation/Bundle.hpp"
#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/CardLimit/CardProvider.hpp"
#include "QuorvelWidgets/CardLimit/SelectCardIntent.hpp"
#include "Tests/Support/Snapshots.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace quorvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using widgetruntime::ProviderContext;

class SelectCardTest : public ::testing::Test {
 protected:
  void SetUp() override {
    context_.device.now = *foundation::parseInternetDateTime("2025-03-14T09:30:00Z");
  }

  void writeCards(const std::vector<std::pair<std::string, std::string>>& idsAndProducts) {
    WidgetSnapshot snapshot = testsupport::emptySnapshot();
    for (const auto& [id, product] : idsAndProducts) {
      WidgetSnapshot::Card card;
      card.id = id;
      card.bankName = "Northbank";
      card.productName = product;
      snapshot.cards.push_back(card);
    }
    folder_.write(kSnapshotFileName, encodeWidgetSnapshot(snapshot));
  }

  [[nodiscard]] SnapshotStore store() const {
    return {foundation::Bundle{}, foundation::FileManager::withContainer(folder_.path().string())};
  }

  testsupport::TemporaryFolder folder_;
  ProviderContext context_;
};

TEST_F(SelectCardTest, IdentifiersAreAnsweredInTheDocumentsOrder) {
  writeCards({{"A", "One"}, {"B", "Two"}, {"C", "Three"}});
  EXPECT_THAT(CardQuery{store()}.entitiesForIdentifiers({"C", "X", "A"}),
              ElementsAre(CardEntity{"A", "Northbank One"}, CardEntity{"C", "Northbank Three"}));
}

TEST_F(SelectCardTest, WithoutADocumentThereIsNothingToPick) {
  const CardQuery query{store()};
  EXPECT_THAT(query.suggestedEntities(), IsEmpty());
  EXPECT_EQ(query.defaultResult(), std::nullopt);
  EXPECT_TRUE(CardProvider{store()}.placeholder(context_).snapshot.has_value());
}

TEST_F(SelectCardTest, TheFirstCardIsTheDefault) {
  writeCards({{"A", "One"}, {"B", "Two"}});
  EXPECT_EQ(CardQuery{store()}.defaultResult(), (CardEntity{"A", "Northbank One"}));
}

TEST_F(SelectCardTest, AnEmptyProductLeavesNoTrailingSpace) {
  writeCards({{"A", ""}});
  EXPECT_THAT(CardQuery{store()}.suggestedEntities(), ElementsAre(CardEntity{"A", "Northbank"}));
}

TEST_F(SelectCardTest, ADeletedCardKeepsItsIdOnTheEntries) {
  writeCards({{"A", "One"}});
  const CardProvider provider{store()};
  const SelectCardIntent chosen{.card = "B"};
  const auto timeline = provider.timeline(chosen, context_);
  ASSERT_EQ(timeline.entries.size(), 1U);
  EXPECT_EQ(timeline.entries[0].cardId, "B");
  EXPECT_EQ(timeline.entries[0].date, context_.device.now);
  EXPECT_EQ(timeline.policy.type, widgetruntime::ReloadPolicy::Type::after);
  EXPECT_EQ(provider.snapshot(chosen, context_).cardId, "B");
}

TEST_F(SelectCardTest, OnlyAPreviewFallsBackToTheSample) {
  const CardProvider provider{store()};
  EXPECT_FALSE(provider.snapshot({}, context_).snapshot.has_value());
  context_.isPreview = true;
  EXPECT_TRUE(provider.snapshot({}, context_).snapshot.has_value());
  EXPECT_FALSE(provider.timeline({}, context_).entries[0].snapshot.has_value());
}

TEST_F(SelectCardTest, TheIntentHasOneParameterWithoutADefault) {
  const auto intent = SelectCardIntent::description(store());
  EXPECT_EQ(intent.title, "Choose Card");
  ASSERT_EQ(intent.parameters.size(), 1U);
  EXPECT_EQ(intent.parameters[0].name, "card");
  EXPECT_EQ(intent.parameters[0].title, "Card");
  EXPECT_EQ(intent.parameters[0].typeName, "Card");
  EXPECT_EQ(intent.parameters[0].type, widgetruntime::IntentParameter::Type::entity);
  EXPECT_EQ(intent.parameters[0].defaultValue, std::nullopt);
  EXPECT_EQ(SelectCardIntent::fromValues({{"card", "x"}}).card, "x");
  EXPECT_EQ(SelectCardIntent::fromValues({}).card, std::nullopt);
}

}  // namespace
}  // namespace quorvel
