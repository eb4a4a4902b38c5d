#include <gmock/gmock.h>

#include "QuorvelWidgets/CardLimit/CardFigures.hpp"
#include "QuorvelWidgets/CardLimit/CardLimitView.hpp"
#include "QuorvelWidgets/CardLimit/CardStack.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/Snapshots.hpp"
#include "Tests/Support/ViewInspection.hpp"
#include "ViewKit/Dump.hpp"

namespace quorvel {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using widgetruntime::Environment;
using widgetruntime::WidgetFamily;

WidgetSnapshot::Card card(std::string id, double limit = 1000, double remaining = 800) {
  WidgetSnapshot::Card result;
  result.productName = "Card " + id;
  result.id = std::move(id);
  result.bankName = "Northbank";
  result.last4 = "8478";
  result.limit = limit;
  result.remaining = remaining;
  result.gradient = {"#315792", "#20375D"};
  return result;
}

WidgetSnapshot snapshotOf(std::vector<WidgetSnapshot::Card> cards, std::string lang = "en") {
  WidgetSnapshot snapshot = testsupport::emptySnapshot(std::move(lang));
  for (const auto& each : cards) {
    snapshot.totalLimit += each.limit;
    snapshot.totalRemaining += each.remaining;
  }
  snapshot.cards = std::move(cards);
  return snapshot;
}

WidgetSnapshot fiveCards() {
  return snapshotOf({card("1"), card("2"), card("3"), card("4"), card("5")});
}

viewkit::View view(const CardEntry& entry, WidgetFamily family, Environment environment = {}) {
  environment.widgetFamily = family;
  return CardLimitView{{.entry = entry, .environment = environment, .urlScheme = "quorvel-widget"}};
}

std::vector<std::string> drawnIds(const std::vector<const WidgetSnapshot::Card*>& cards) {
  std::vector<std::string> ids;
  for (const auto* each : cards) ids.push_back(each->id);
  return ids;
}

std::string link(const viewkit::View& view) {
  return testsupport::modifier<viewkit::WidgetURL>(view)->url;
}

TEST(CardUsage, FollowsTheRemainingPartOfTheLimit) {
  EXPECT_EQ(usedFraction(1000, 1000), 0);
  EXPECT_EQ(usedFraction(1000, 500), 0.5);
  EXPECT_DOUBLE_EQ(usedFraction(1000, 200), 0.8);
  EXPECT_EQ(usedFraction(1000, 1200), 0);
  EXPECT_EQ(usedFraction(1000, -1), 1);
  EXPECT_EQ(usedFraction(0.5, 0.25), 0.5);
  EXPECT_EQ(usedFraction(0, 10), 0);
  EXPECT_EQ(usedFraction(-5, 10), 0);
}

TEST(CardUsage, AFractionThatIsNotFiniteCountsAsNothing) {
  EXPECT_EQ(usedFraction(5e-324, -1e308), 0);
}

TEST(CardUsage, BothBoundsBelongToTheHeavierSide) {
  EXPECT_EQ(usageOf(0.8), Usage::heavy);
  EXPECT_EQ(usageOf(0.7999), Usage::considerable);
  EXPECT_EQ(usageOf(0.5), Usage::considerable);
  EXPECT_EQ(usageOf(0.4999), Usage::healthy);
}

TEST(CardUsage, APercentageRoundsHalvesAwayFromZero) {
  const CardEntry entry{{}, snapshotOf({card("1", 1000, 875)}), {}};
  EXPECT_THAT(testsupport::texts(view(entry, WidgetFamily::systemSmall)),
              Contains(AllOf(HasSubstr("13%"), HasSubstr("used"))));
}

TEST(CardOrder, TheChosenCardComesFirst) {
  const WidgetSnapshot snapshot = fiveCards();
  EXPECT_THAT(drawnIds(orderedCards(snapshot.cards, "3", 1)), ElementsAre("3"));
  EXPECT_THAT(drawnIds(orderedCards(snapshot.cards, "3", 3)), ElementsAre("3", "1", "2"));
  EXPECT_THAT(drawnIds(orderedCards(snapshot.cards, "3", 5)), ElementsAre("3", "1", "2", "4", "5"));
}

TEST(CardOrder, AStaleOrMissingChoiceKeepsTheDocumentsOrder) {
  const WidgetSnapshot snapshot = fiveCards();
  EXPECT_THAT(drawnIds(orderedCards(snapshot.cards, "gone", 3)), ElementsAre("1", "2", "3"));
  EXPECT_THAT(drawnIds(orderedCards(snapshot.cards, std::nullopt, 3)), ElementsAre("1", "2", "3"));
}

TEST(CardOrder, TwoCardsOfTheChosenIdBothComeFirst) {
  const WidgetSnapshot snapshot = snapshotOf({card("1"), card("x"), card("2"), card("x")});
  const auto ordered = orderedCards(snapshot.cards, "x", 5);
  EXPECT_THAT(drawnIds(ordered), ElementsAre("x", "x", "1", "2"));
  EXPECT_EQ(ordered[0], &snapshot.cards[1]);
  EXPECT_EQ(ordered[1], &snapshot.cards[3]);
}

TEST(CardLimitView, WithoutASnapshotAsksForTheApplication) {
  const auto shown = view({}, WidgetFamily::systemMedium);
  EXPECT_THAT(testsupport::texts(shown),
              ElementsAre("Remaining limit", "Open Quorvel to get started", "Open Quorvel"));
  EXPECT_EQ(link(shown), "quorvel-widget://open/cards");
}

TEST(CardLimitView, WithoutCardsAsksForOneInTheSnapshotsLanguage) {
  const CardEntry entry{{}, snapshotOf({}, "id"), {}};
  const auto shown = view(entry, WidgetFamily::systemSmall);
  EXPECT_THAT(testsupport::texts(shown),
              ElementsAre("Sisa limit", "Tambah kartu di Quorvel", "Tambah kartu"));
  EXPECT_EQ(link(shown), "quorvel-widget://open/cards");
}

TEST(CardLimitView, AStaleChoiceShowsTheFirstCard) {
  const CardEntry entry{{}, fiveCards(), "gone"};
  const auto shown = view(entry, WidgetFamily::systemSmall);
  EXPECT_THAT(testsupport::texts(shown), Contains("Card 1"));
  EXPECT_EQ(link(shown), "quorvel-widget://open/card/1");
}

TEST(CardLimitView, TheThirdCardChosen) {
  const CardEntry entry{{}, fiveCards(), "3"};
  EXPECT_THAT(testsupport::texts(view(entry, WidgetFamily::systemSmall)), Contains("Card 3"));
  const auto medium = testsupport::texts(view(entry, WidgetFamily::systemMedium));
  EXPECT_THAT(medium, AllOf(Contains("Card 3"), Contains("Card 1"), Contains("Card 2")));
  EXPECT_THAT(medium, Not(Contains("Card 4")));
  EXPECT_EQ(link(view(entry, WidgetFamily::systemSmall)), "quorvel-widget://open/card/3");
  EXPECT_EQ(link(view(entry, WidgetFamily::systemMedium)), "quorvel-widget://open/cards");
  EXPECT_EQ(link(view(entry, WidgetFamily::systemLarge)), "quorvel-widget://open/cards");
}

TEST(CardLimitView, EveryAccessoryKeepsTheSmallLayoutAsItIs) {
  Environment environment;
  environment.showsWidgetContainerBackground = false;
  const auto dumpOf = [&](WidgetFamily family) {
    return viewkit::dump(view({.snapshot = fiveCards()}, family, environment));
  };
  const std::string circular = dumpOf(WidgetFamily::accessoryCircular);
  EXPECT_EQ(dumpOf(WidgetFamily::accessoryRectangular), circular);
  EXPECT_EQ(dumpOf(WidgetFamily::accessoryInline), circular);
  EXPECT_THAT(circular, AllOf(HasSubstr("CardArtTile"), Not(HasSubstr("AccessoryBackdrop"))));
}

TEST(CardLimitView, SevenCardsShowThreeFacesAndCountSeven) {
  WidgetSnapshot snapshot = fiveCards();
  snapshot.cards.push_back(card("6"));
  snapshot.cards.push_back(card("7"));
  const CardEntry entry{{}, snapshot, {}};
  const auto texts = testsupport::texts(view(entry, WidgetFamily::systemMedium));
  EXPECT_THAT(texts, Contains("7 cards"));
  EXPECT_THAT(texts, Not(Contains("Card 4")));
}

TEST(CardStack, IsAsHighAsItsFacesNeed) {
  const WidgetSnapshot snapshot = fiveCards();
  const auto height = [&](std::size_t count) {
    return CardStack{.cards = orderedCards(snapshot.cards, {}, count), .snapshot = snapshot}
        .pileHeight();
  };
  EXPECT_EQ(height(0), 96);
  EXPECT_EQ(height(1), 96);
  EXPECT_EQ(height(3), 164);
}

TEST(CardStack, OnlyTranslucentFacesCutOutWhatLiesBehind) {
  using widgetruntime::RenderingMode;
  const auto dumpOf = [](RenderingMode mode) {
    return viewkit::dump(view({.snapshot = fiveCards()},
                              WidgetFamily::systemMedium,
                              Environment{.widgetRenderingMode = mode}));
  };
  EXPECT_THAT(dumpOf(RenderingMode::accented),
              AllOf(HasSubstr(".cutout"), Not(HasSubstr(".shadow"))));
  EXPECT_THAT(dumpOf(RenderingMode::vibrant),
              AllOf(Not(HasSubstr(".cutout")), Not(HasSubstr(".shadow"))));
  EXPECT_THAT(dumpOf(RenderingMode::fullColor),
              AllOf(Not(HasSubstr(".cutout")), HasSubstr(".shadow")));
}

TEST(CardLimitView, BothCausesOfPrivacyLookTheSame) {
  CardEntry hidden{{}, fiveCards(), {}};
  hidden.snapshot->isHidden = true;
  const CardEntry open{{}, fiveCards(), {}};
  Environment redacted;
  redacted.redactionReasons.privacy = true;
  for (const auto family :
       {WidgetFamily::systemSmall, WidgetFamily::systemMedium, WidgetFamily::systemLarge}) {
    const auto shown = view(hidden, family);
    EXPECT_EQ(shown, view(open, family, redacted));
    EXPECT_THAT(testsupport::texts(shown), Not(Contains(HasSubstr("%"))));
    EXPECT_THAT(testsupport::texts(shown), Contains("••••"));
  }
  EXPECT_THAT(testsupport::texts(view(hidden, WidgetFamily::systemSmall)),
              Contains("Amounts hidden"));
}

TEST(CardLimitView, ArtCarriesItsOwnPrinting) {
  WidgetSnapshot snapshot = snapshotOf({card("1")});
  snapshot.cards[0].hasImage = true;
  const CardEntry entry{{}, snapshot, {}};
  const auto texts = testsupport::texts(view(entry, WidgetFamily::systemSmall));
  EXPECT_THAT(texts, Not(Contains("Card 1")));
  EXPECT_THAT(texts, Not(Contains(HasSubstr("8478"))));
}

// The veil that white texts need would leave a white face grey and a yellow one brown.
TEST(CardLimitView, APaleFaceKeepsItsColoursUnderTextsOnPills) {
  const auto dumpOf = [](std::vector<std::string> gradient, Environment environment = {}) {
    auto pale = card("1");
    pale.gradient = std::move(gradient);
    return viewkit::dump(
        view({.snapshot = snapshotOf({pale})}, WidgetFamily::systemSmall, environment));
  };
  // 0.8 of white has 4.5:1 on white under 0.61 of black, not under 0.60.
  const std::string pill = "RoundedRectangle radius 0.5H style continuous fill #000000 0.61";
  const std::string onWhite = dumpOf({"#FFFFFF"});
  EXPECT_NE(onWhite.find(pill), std::string::npos);
  EXPECT_NE(onWhite.find(pill, onWhite.find(pill) + 1), std::string::npos) << "title and number";
  EXPECT_THAT(onWhite, Not(HasSubstr("fill gradient (0, 0) to (0, 1)")));
  EXPECT_THAT(dumpOf({"#FFFFFF"}, {.widgetRenderingMode = widgetruntime::RenderingMode::accented}),
              Not(HasSubstr("#000000 0.6")));

  // A grey of the middle keeps its veil, a dark face needs nothing.
  EXPECT_THAT(dumpOf({"#808080"}),
              AllOf(HasSubstr("fill gradient (0, 0) to (0, 1)"), Not(HasSubstr("radius 0.5H"))));
  EXPECT_THAT(dumpOf({"#20375D"}),
              AllOf(Not(HasSubstr("to (0, 1)")), Not(HasSubstr("radius 0.5H"))));
}

TEST(CardLimitView, AnEmptyProductNameLeavesTheBanks) {
  WidgetSnapshot snapshot = snapshotOf({card("1")});
  snapshot.cards[0].productName.clear();
  snapshot.cards[0].last4 = "";
  const CardEntry entry{{}, snapshot, {}};
  const auto texts = testsupport::texts(view(entry, WidgetFamily::systemSmall));
  EXPECT_THAT(texts, Contains("Northbank"));
  EXPECT_THAT(texts, Not(Contains(HasSubstr("••"))));
}

TEST(CardLimitView, TenThousandCardsDrawNoMoreThanThree) {
  WidgetSnapshot snapshot = fiveCards();
  const auto few = testsupport::nodes(view({{}, snapshot, {}}, WidgetFamily::systemLarge)).size();
  snapshot.cards.resize(10000, card("more"));
  const auto many = testsupport::nodes(view({{}, snapshot, {}}, WidgetFamily::systemLarge)).size();
  EXPECT_EQ(many, few);
}

/// Rows of pixels between `from` and `to` that are darker than a white face, in one column.
std::vector<int> darkRows(const rendering::Bitmap& bitmap, int x, int from, int to) {
  std::vector<int> rows;
  for (int y = from; y < to; ++y) {
    const auto pixel = bitmap.pixels[static_cast<std::size_t>(y * bitmap.stride + x)];
    if ((pixel >> 24) == 255 && (pixel & 0xFF) < 240) rows.push_back(y);
  }
  return rows;
}

// A pile of three is 164 high, of which its box may show less; one face is 96 high.
TEST(CardStackEdges, AWhitePileEndsInOneLine) {
  rendering::Renderer renderer;
  WidgetSnapshot snapshot = snapshotOf({card("1"), card("2"), card("3")});
  for (auto& each : snapshot.cards) each.gradient = {"#FFFFFF"};
  const auto bottomLines = [&](std::size_t faces, double height) {
    CardStack stack{.snapshot = snapshot, .width = 152};
    for (std::size_t i = 0; i < faces; ++i) stack.cards.push_back(&snapshot.cards[i]);
    rendering::RenderOptions options;
    options.size = {152, height};
    options.scale = 1;
    options.cornerRadius = 0;
    options.showsBackground = false;
    const viewkit::View pile = viewkit::View{stack}.frame(viewkit::FlexibleFrame{
        .maxHeight = viewkit::kInfinity, .alignment = viewkit::Alignment::top});
    // Below the titles and their pills.
    return darkRows(renderer.bitmap(pile, options).value(),
                    76,
                    static_cast<int>(height) - 20,
                    static_cast<int>(height));
  };
  EXPECT_THAT(bottomLines(3, 164), ElementsAre(163));
  EXPECT_THAT(bottomLines(3, 142), ElementsAre(141));
  EXPECT_THAT(bottomLines(3, 127), ElementsAre(126));
  EXPECT_THAT(bottomLines(1, 96), ElementsAre(95));
}

}  // namespace
}  // namespace quorvel
