#include <gmock/gmock.h>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryBackdrop.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/CardArtTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/FaceStyle.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetHeader.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetIconTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetPill.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetPrivacyNote.hpp"
#include "Tests/Support/ViewInspection.hpp"

namespace quorvel {
namespace {

using namespace viewkit;
using ::testing::ElementsAre;

TEST(IconTileComponent, Of22HasAnElevenPointSymbolAndACornerOfSixPointSix) {
  const View tile = WidgetIconTile{.symbol = "calendar",
                                   .color = palette::textPrimary,
                                   .background = palette::surface,
                                   .size = 22};
  const auto& symbol = std::get<SymbolElement>(tile.node().element);
  EXPECT_DOUBLE_EQ(symbol.size, 11);
  EXPECT_EQ(symbol.weight, FontWeight::semibold);
  const auto* frame = testsupport::modifier<FixedFrame>(tile);
  EXPECT_DOUBLE_EQ(frame->width->points(), 22);
  EXPECT_DOUBLE_EQ(frame->height->points(), 22);
  const auto& ground =
      std::get<ShapeElement>(testsupport::nodesWith<ShapeElement>(tile)[0]->element);
  EXPECT_DOUBLE_EQ(std::get<RoundedRectangleShape>(ground.geometry).radius.points(), 6.6);
  EXPECT_TRUE(testsupport::modifier<Accessibility>(tile)->hidden);
}

// White needs 4.5:1, which the grey #767676 gives: a veil of 0.35 makes it of #B4 (180 * 0.65 =
// 117), of #BA (186 * 0.65 = 121) it does not.
TEST(FaceStyle, AFaceThatAVeilWouldHideGivesWayToTheDefaultOne) {
  EXPECT_THAT(readableFace({"#315792", "#B4B4B4"}), ElementsAre("#315792", "#B4B4B4"));
  EXPECT_THAT(readableFace({"#315792", "#BABABA"}), ::testing::IsEmpty());
  EXPECT_THAT(readableFace({"#FFFFFF"}), ::testing::IsEmpty());
  EXPECT_THAT(readableFace({}), ::testing::IsEmpty());
}

TEST(HeaderComponent, IsSmallerWhenCompact) {
  const View regular = WidgetHeader{.symbol = "calendar", .text = "Next due"};
  const View compact = WidgetHeader{.symbol = "calendar", .text = "Next due", .compact = true};
  const auto measures = [](const View& view) {
    const auto* text = testsupport::textNode(view, "Next due");
    const auto& symbol =
        std::get<SymbolElement>(testsupport::component(view, "WidgetIconTile")->element);
    return std::vector<double>{
        *std::get<StackElement>(view.node().children.front().node().element).spacing,
        symbol.size * 2,
        std::get<TextElement>(text->element).size};
  };
  EXPECT_THAT(measures(regular), ElementsAre(7, 22, 13));
  EXPECT_THAT(measures(compact), ElementsAre(6, 18, 11.5));
}

TEST(PillComponent, TakesItsMeasuresFromItsSize) {
  const View pill = WidgetPill{
      .text = "On pace", .symbol = "checkmark", .color = palette::statusGood, .size = 13.5};
  EXPECT_DOUBLE_EQ(testsupport::modifier<FixedFrame>(pill)->height->points(), 22);
  EXPECT_DOUBLE_EQ(testsupport::modifier<Padding>(pill)->insets.leading, 8.37);
  const auto& text = std::get<TextElement>(testsupport::textNode(pill, "On pace")->element);
  EXPECT_DOUBLE_EQ(text.size, 11.5);
  EXPECT_EQ(text.weight, FontWeight::semibold);
  const auto& ground =
      std::get<ShapeElement>(testsupport::nodesWith<ShapeElement>(pill)[0]->element);
  EXPECT_EQ(std::get<Color>(ground.paint), palette::statusGood.withOpacity(0.16));
}

TEST(PrivacyNoteComponent, SpeaksTheGivenLanguageOrEnglish) {
  EXPECT_THAT(testsupport::texts(WidgetPrivacyNote{.lang = "es"}), ElementsAre("Importes ocultos"));
  EXPECT_THAT(testsupport::texts(WidgetPrivacyNote{}), ElementsAre("Amounts hidden"));
  EXPECT_THAT(testsupport::symbols(WidgetPrivacyNote{}), ElementsAre("lock.fill"));
}

TEST(BackdropComponent, IsClearWhileTheHostDrawsTheBackground) {
  const auto paint = [](bool showsBackground) {
    const View view = AccessoryBackdrop{.showsBackground = showsBackground};
    return std::get<Color>(std::get<ShapeElement>(view.node().element).paint);
  };
  EXPECT_EQ(paint(true).opacity, 0);
  EXPECT_EQ(paint(false), Color::white().withOpacity(0.14));
}

WidgetSnapshot::Card cardWith(std::vector<std::string> gradient) {
  WidgetSnapshot::Card card;
  card.id = "AB 12/x.y";
  card.gradient = std::move(gradient);
  return card;
}

const Gradient& gradientOf(const View& tile) {
  return std::get<Gradient>(std::get<ShapeElement>(tile.node().element).paint);
}

TEST(CardArtComponent, DrawsItsColoursFromCornerToCornerInTheirOrder) {
  const View tile = CardArtTile{.card = cardWith({"#315792", "20375D", "blue"})};
  const Gradient& gradient = gradientOf(tile);
  ASSERT_EQ(gradient.stops.size(), 3U);
  EXPECT_EQ(gradient.stops[0].color, Color::same(0x315792));
  EXPECT_EQ(gradient.stops[1].color, Color::same(0x20375D));
  EXPECT_EQ(gradient.stops[2].color, Color::same(0x00000B));
  EXPECT_EQ(gradient.start, (UnitPoint{0, 0}));
  EXPECT_EQ(gradient.end, (UnitPoint{1, 1}));
}

TEST(CardArtComponent, HasADefaultFaceWithoutColours) {
  const View tile = CardArtTile{.card = cardWith({})};
  ASSERT_EQ(gradientOf(tile).stops.size(), 3U);
  EXPECT_EQ(gradientOf(tile).stops[0].color, Color::same(0x3F3F46));
  EXPECT_EQ(gradientOf(tile).stops[1].color, Color::same(0x27272A));
  EXPECT_EQ(gradientOf(tile).stops[2].color, Color::same(0x09090B));
}

TEST(CardArtComponent, IsAFaintPrimaryInTheAccentedMode) {
  const View tile = CardArtTile{.card = cardWith({"#315792"}),
                                .renderingMode = widgetruntime::RenderingMode::accented};
  EXPECT_EQ(std::get<Color>(std::get<ShapeElement>(tile.node().element).paint),
            Color::primary().withOpacity(0.14));
}

TEST(CardArtComponent, LaysThePictureOverTheFaceOnlyWhereThereIsOne) {
  WidgetSnapshot::Card card = cardWith({"#315792"});
  EXPECT_TRUE(testsupport::nodesWith<ImageElement>(CardArtTile{.card = card}).empty());
  card.hasImage = true;
  const View tile = CardArtTile{.card = card, .alignment = Alignment::top};
  const auto images = testsupport::nodesWith<ImageElement>(tile);
  ASSERT_EQ(images.size(), 1U);
  const auto& image = std::get<ImageElement>(images[0]->element);
  EXPECT_EQ(image.path, "widget-cards/AB_12_x_y.jpg");
  EXPECT_EQ(image.alignment, Alignment::top);
  EXPECT_TRUE(images[0]->children.empty());  // an unreadable file leaves the gradient alone
}

TEST(CardArtComponent, IsClippedToContinuousCorners) {
  const View tile = CardArtTile{.card = cardWith({}), .cornerRadius = 9};
  const auto& shape = std::get<RoundedRectangleShape>(testsupport::modifier<Clip>(tile)->shape);
  EXPECT_DOUBLE_EQ(shape.radius.points(), 9);
  EXPECT_EQ(shape.style, CornerStyle::continuous);
}

}  // namespace
}  // namespace quorvel
