// The accessory families that spending and net worth are not declared for show symbol and amount.
#include <gmock/gmock.h>

#include "QuorvelWidgets/NetWorth/NetWorthWidget.hpp"
#include "QuorvelWidgets/Spending/SpendingWidget.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/PlacedTexts.hpp"
#include "Tests/Support/ViewInspection.hpp"
#include "Tests/Support/WidgetLayouts.hpp"
#include "Tests/Support/WidgetSamples.hpp"

namespace quorvel {
namespace {

using testsupport::WidgetState;
using widgetruntime::WidgetFamily;

constexpr std::array kFamilies{WidgetFamily::accessoryCircular,
                               WidgetFamily::accessoryRectangular,
                               WidgetFamily::accessoryInline};

viewkit::View shown(std::string_view kind, WidgetFamily family, const WidgetSnapshot& snapshot) {
  const WidgetState state{"full", testsupport::februaryTenth(), snapshot, {}};
  return testsupport::viewOf(testsupport::layoutOf(kind, family), state);
}

TEST(AccessoryFigure, UndeclaredFamiliesShowSymbolAndAmount) {
  for (const WidgetFamily family : kFamilies) {
    const auto spending = shown(SpendingWidget::kKind, family, testsupport::smallSnapshot());
    EXPECT_THAT(testsupport::texts(spending), ::testing::ElementsAre("$600"));
    EXPECT_THAT(testsupport::symbols(spending), ::testing::ElementsAre("cart.fill"));
    const auto worth = shown(NetWorthWidget::kKind, family, testsupport::smallSnapshot());
    EXPECT_THAT(testsupport::texts(worth), ::testing::ElementsAre("$1,100"));
  }
}

TEST(AccessoryFigure, HiddenAmountsStayHidden) {
  WidgetSnapshot snapshot = testsupport::smallSnapshot();
  snapshot.isHidden = true;
  for (const WidgetFamily family : kFamilies) {
    EXPECT_THAT(testsupport::texts(shown(NetWorthWidget::kKind, family, snapshot)),
                ::testing::ElementsAre("••••"));
  }
}

TEST(AccessoryFigure, TheSymbolStandsAloneWhereTheAmountHasNoRoom) {
  rendering::Renderer renderer;
  const auto view =
      shown(NetWorthWidget::kKind, WidgetFamily::accessoryCircular, testsupport::smallSnapshot());
  const auto textsIn = [&](double side) {
    return testsupport::find(renderer.place(view, {.size = {side, side}}).value()).texts.size();
  };
  EXPECT_EQ(textsIn(76), 1U);
  EXPECT_EQ(textsIn(30), 0U);
}

}  // namespace
}  // namespace quorvel
