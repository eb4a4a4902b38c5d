#include <gmock/gmock.h>

#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMessage.hpp"
#include "Tests/Support/ViewInspection.hpp"

namespace quorvel {
namespace {

using namespace viewkit;
using ::testing::ElementsAre;
using widgetruntime::Environment;
using widgetruntime::WidgetFamily;

WidgetMessage noBudget() {
  return {.symbol = "gauge.with.needle",
          .text = "Set a monthly budget in Quorvel",
          .label = "Set a budget",
          .title = "Safe to spend",
          .lang = "en"};
}

Color colorOf(const viewkit::Node& node) {
  return std::get<Color>(testsupport::modifier<ForegroundStyle>(node)->paint);
}

TEST(MessageComponent, ReadsTitleMessageLabel) {
  EXPECT_THAT(testsupport::texts(noBudget()),
              ElementsAre("Safe to spend", "Set a monthly budget in Quorvel", "Set a budget"));
}

TEST(MessageComponent, TheMessageIsBalancedInAtMostThreeLines) {
  const View view = noBudget();
  const auto* node = testsupport::textNode(view, "Set a monthly budget in Quorvel");
  const auto& text = std::get<TextElement>(node->element);
  EXPECT_DOUBLE_EQ(text.size, 13);
  EXPECT_EQ(text.weight, FontWeight::regular);
  EXPECT_EQ(text.lineLimit, 3);
  EXPECT_DOUBLE_EQ(text.minimumScaleFactor, 0.85);
  EXPECT_TRUE(text.balanced);
  EXPECT_EQ(colorOf(*node), palette::textPrimary);
}

TEST(MessageComponent, AnActionIsAnAccentablePillInTheAccentColour) {
  const View view = noBudget();
  const auto* node = testsupport::textNode(view, "Set a budget");
  EXPECT_EQ(colorOf(*node), WAccent{}.ink);
  EXPECT_DOUBLE_EQ(testsupport::modifier<FixedFrame>(*node)->height->points(), 26);
  const View ground = testsupport::modifier<Background>(*node)->content;
  EXPECT_NE(testsupport::modifier<Accentable>(ground), nullptr);
  const auto& shape = std::get<ShapeElement>(ground.node().element);
  EXPECT_EQ(std::get<Color>(shape.paint), WAccent{}.soft);
  EXPECT_EQ(std::get<RoundedRectangleShape>(shape.geometry).style, CornerStyle::continuous);
  EXPECT_DOUBLE_EQ(testsupport::modifier<Padding>(*node)->insets.top, 10);
}

TEST(MessageComponent, AnActionLeadsWhereItsLinkDoes) {
  WidgetMessage message = noBudget();
  message.link = "quorvel://open/budget";
  const View view = message;
  const auto* node = testsupport::textNode(view, "Set a budget");
  ASSERT_NE(testsupport::modifier<Link>(*node), nullptr);
  EXPECT_EQ(testsupport::modifier<Link>(*node)->url, "quorvel://open/budget");
  const View without = noBudget();
  EXPECT_EQ(testsupport::modifier<Link>(*testsupport::textNode(without, "Set a budget")), nullptr);
}

TEST(MessageComponent, AStatusHasNoGround) {
  WidgetMessage message = noBudget();
  message.label = "All clear";
  message.titleIsStatus = true;
  const View view = message;
  const auto* node = testsupport::textNode(view, "All clear");
  EXPECT_EQ(colorOf(*node), palette::statusGood);
  EXPECT_DOUBLE_EQ(std::get<TextElement>(node->element).size, 12);
  EXPECT_EQ(testsupport::modifier<Background>(*node), nullptr);
  EXPECT_DOUBLE_EQ(testsupport::modifier<Padding>(*node)->insets.top, 10);
}

TEST(MessageComponent, MayHaveNoLabel) {
  WidgetMessage message = noBudget();
  message.label.reset();
  EXPECT_THAT(testsupport::texts(message),
              ElementsAre("Safe to spend", "Set a monthly budget in Quorvel"));
}

TEST(MessageComponent, FitsItsAccessory) {
  Environment environment;
  environment.widgetFamily = WidgetFamily::accessoryCircular;
  EXPECT_THAT(testsupport::symbols(accessoryMessage(noBudget(), environment)),
              ElementsAre("gauge.with.needle"));
  environment.widgetFamily = WidgetFamily::accessoryInline;
  EXPECT_THAT(testsupport::texts(accessoryMessage(noBudget(), environment)),
              ElementsAre("Set a monthly budget in Quorvel"));
  environment.widgetFamily = WidgetFamily::accessoryRectangular;
  EXPECT_THAT(testsupport::texts(accessoryMessage(noBudget(), environment)),
              ElementsAre("Safe to spend", "Set a monthly budget in Quorvel"));
}

}  // namespace
}  // namespace quorvel
