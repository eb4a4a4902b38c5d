#include <gtest/gtest.h>

#include "QuorvelWidgets/WidgetSupport/Snapshot/EffectiveSnapshot.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"

namespace quorvel {
namespace {

using widgetruntime::Environment;

Environment redacting() {
  Environment environment;
  environment.redactionReasons.privacy = true;
  return environment;
}

std::optional<WidgetSnapshot> sample() {
  return sampleSnapshot({.preferredLanguages = {"en"}});
}

TEST(EffectivePrivacy, IsTheApplicationsOrTheHosts) {
  for (const bool application : {false, true}) {
    for (const bool host : {false, true}) {
      std::optional<WidgetSnapshot> document = sample();
      document->isHidden = application;
      const EffectiveSnapshot snapshot{document, host ? redacting() : Environment{}};
      EXPECT_EQ(snapshot->isHidden, application || host);
    }
  }
}

TEST(EffectivePrivacy, IsNotAPlaceholdersMatter) {
  Environment environment;
  environment.redactionReasons.placeholder = true;
  const std::optional<WidgetSnapshot> document = sample();
  EXPECT_FALSE((EffectiveSnapshot { document, environment } -> isHidden));
}

TEST(EffectiveSnapshot, IsTheDocumentItselfUnlessTheHostHidesWhatItShows) {
  const std::optional<WidgetSnapshot> open = sample();
  EXPECT_EQ((&*EffectiveSnapshot{open, {}}), &*open);
  std::optional<WidgetSnapshot> hidden = sample();
  hidden->isHidden = true;
  EXPECT_EQ((&*EffectiveSnapshot{hidden, redacting()}), &*hidden);
}

TEST(EffectiveSnapshot, DiffersFromTheDocumentInTheFlagAlone) {
  const std::optional<WidgetSnapshot> document = sample();
  const EffectiveSnapshot snapshot{document, redacting()};
  WidgetSnapshot expected = *document;
  expected.isHidden = true;
  EXPECT_EQ(*snapshot, expected);
  EXPECT_FALSE(document->isHidden);
  EXPECT_FALSE(snapshot->dues.empty() || snapshot->cards.empty());
  EXPECT_TRUE(snapshot->budget && snapshot->spending && snapshot->netWorth);
}

TEST(EffectiveSnapshot, IsNothingWithoutADocument) {
  const std::optional<WidgetSnapshot> document;
  EXPECT_FALSE((EffectiveSnapshot{document, redacting()}));
}

}  // namespace
}  // namespace quorvel
