// Hidden amounts stay hidden: in every widget, in every form in which a picture leaves the host.
#include <gmock/gmock.h>

#include "Foundation/JsonWriter.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/WidgetLayouts.hpp"
#include "ViewKit/Dump.hpp"
#include "ViewKit/TreeJson.hpp"

namespace quorvel {
namespace {

using testsupport::WidgetLayout;
using testsupport::WidgetState;

enum class Cause { applicationsFlag, hostsRedaction };

/// Every amount is `amount` times something whole, so that the same digits return everywhere.
/// `share` is what has been used of limits and budget: 58 % or 63 %, both the same pace.
WidgetState stateWith(double amount, double share, Cause cause) {
  const auto now = testsupport::morningOf("2025-03-14");
  WidgetSnapshot snapshot = testsupport::richSnapshot("en", now);
  snapshot.money.showDecimals = true;
  snapshot.totalLimit = amount;
  snapshot.totalRemaining = amount * (1 - share);
  for (auto& card : snapshot.cards) {
    card.limit = amount;
    card.remaining = amount * (1 - share);
    card.last4.reset();
  }
  for (auto& due : snapshot.dues) {
    due.amount = amount;
    due.subtitle.reset();
  }
  snapshot.budget = WidgetSnapshot::Budget{.total = amount,
                                           .spent = amount * share,
                                           .periodEnd = "2025-03-15",
                                           .periodStart = "2025-03-01"};
  snapshot.spending->spent = amount;
  snapshot.spending->lastMonthSpent = amount * share;
  snapshot.spending->topCategoryAmount = amount;
  snapshot.netWorth = WidgetSnapshot::NetWorth{.value = amount,
                                               .changePercent = share * 100,
                                               .assets = amount,
                                               .liabilities = amount,
                                               .history = {{"2025-01", amount * share},
                                                           {"2025-02", amount},
                                                           {"2025-03", amount * share * share}},
                                               .liquid = amount,
                                               .nonLiquid = amount};
  WidgetState state{"private", now, std::move(snapshot), {}};
  if (cause == Cause::applicationsFlag) {
    state.snapshot->isHidden = true;
  } else {
    state.environment.redactionReasons.privacy = true;
  }
  return state;
}

struct Form {
  std::string name;
  std::string text;
};

/// What stays with the host, then what it gives away.
std::vector<Form> forms(rendering::Renderer& renderer,
                        const WidgetLayout& layout,
                        const WidgetState& state) {
  const viewkit::View view = testsupport::viewOf(layout, state);
  const rendering::RenderOptions options{.size = {364, 382},
                                         .redaction = state.environment.redactionReasons};
  foundation::JsonWriter wire;
  viewkit::writeView(wire, view);
  return {{"wire", wire.take()},
          {"dump", viewkit::dump(view)},
          {"placed dump", renderer.placedDump(view, options).value()},
          {"plain text", renderer.plainText(view, options).value()},
          {"SVG", renderer.svg(view, options).value()},
          {"accessibility", renderer.accessibilityTree(view, options).value()}};
}

// Where the amount can be read, every form holds it: what the tests below miss is hidden.
TEST(Privacy, TheDigitsAreThereWhileNothingIsHidden) {
  constexpr const char* kDigits = "7,391.42";
  rendering::Renderer renderer;
  WidgetState open = stateWith(7391.42, 0.58, Cause::applicationsFlag);
  open.snapshot->isHidden = false;
  std::set<std::string> showing;
  for (const WidgetLayout& layout : testsupport::layouts()) {
    const auto all = forms(renderer, layout, open);
    const auto read = std::ranges::find(all, "plain text", &Form::name);
    if (read->text.find(kDigits) == std::string::npos) continue;  // shows what is left
    showing.insert(layout.name);
    for (const Form& form : all) {
      if (form.name == "SVG") continue;  // letters are shapes there
      EXPECT_THAT(form.text, ::testing::HasSubstr(kDigits)) << layout.name << " " << form.name;
    }
  }
  EXPECT_THAT(showing,
              ::testing::IsSupersetOf({"due-small",
                                       "due-medium",
                                       "due-rectangular",
                                       "due-inline",
                                       "net-worth-small",
                                       "net-worth-medium",
                                       "net-worth-large",
                                       "spending-small",
                                       "spending-medium",
                                       "spending-large"}));
}

TEST(Privacy, NoFormHoldsADigitOfAnAmountOrPercentage) {
  rendering::Renderer renderer;
  for (const Cause cause : {Cause::applicationsFlag, Cause::hostsRedaction}) {
    const WidgetState state = stateWith(7391.42, 0.58, cause);
    for (const WidgetLayout& layout : testsupport::layouts()) {
      for (const Form& form : forms(renderer, layout, state)) {
        for (const char* digits : {"7391",
                                   "7,391",
                                   "391.42",
                                   "7.4K",
                                   "3104",
                                   "3,104",
                                   "4287",
                                   "4,287",
                                   "58%",
                                   "58.0%",
                                   "72.4%",
                                   "%"}) {
          // A percent sign in a picture would be one of its own numbers.
          if (form.name == "SVG" && std::string_view{digits} == "%") continue;
          EXPECT_EQ(form.text.find(digits), std::string::npos)
              << layout.name << " " << form.name << " holds " << digits;
        }
      }
    }
  }
}

// Stronger than looking for digits: no form depends on the amounts at all.
TEST(Privacy, OtherAmountsGiveTheSameForms) {
  rendering::Renderer renderer;
  for (const Cause cause : {Cause::applicationsFlag, Cause::hostsRedaction}) {
    const WidgetState one = stateWith(7391.42, 0.58, cause);
    const WidgetState other = stateWith(186, 0.63, cause);
    for (const WidgetLayout& layout : testsupport::layouts()) {
      const auto first = forms(renderer, layout, one);
      const auto second = forms(renderer, layout, other);
      for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].text, second[i].text) << layout.name << " " << first[i].name;
      }
    }
  }
}

// The application's flag leaves the shape of a month as it is; a host that redacts covers it.
TEST(Privacy, OtherDaysLookTheSameUnderTheHostsRedaction) {
  rendering::Renderer renderer;
  const WidgetState one = stateWith(7391.42, 0.58, Cause::hostsRedaction);
  WidgetState other = one;
  for (double& day : other.snapshot->spending->daily) day = 391.42 - day;
  for (const WidgetLayout& layout : testsupport::layouts()) {
    const viewkit::View first = testsupport::viewOf(layout, one);
    const viewkit::View second = testsupport::viewOf(layout, other);
    rendering::RenderOptions options{.size = {364, 382}};
    options.redaction.privacy = true;
    EXPECT_EQ(renderer.bitmap(first, options).value().pixels,
              renderer.bitmap(second, options).value().pixels)
        << layout.name;
    EXPECT_EQ(renderer.svg(first, options).value(), renderer.svg(second, options).value())
        << layout.name;
    EXPECT_EQ(renderer.plainText(first, options).value(),
              renderer.plainText(second, options).value());
    EXPECT_EQ(renderer.accessibilityTree(first, options).value(),
              renderer.accessibilityTree(second, options).value());
  }
}

}  // namespace
}  // namespace quorvel
