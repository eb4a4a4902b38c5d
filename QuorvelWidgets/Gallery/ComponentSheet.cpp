#include "QuorvelWidgets/Gallery/ComponentSheet.hpp"

#include <limits>
#include <utility>

#include "QuorvelWidgets/SafeToSpend/SpentGauge.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/ModeColors.hpp"
#include "QuorvelWidgets/WidgetSupport/Colors/Palette.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/AccessoryBackdrop.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/Amount.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/CardArtTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetChange.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetHeader.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetIconTile.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMessage.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetMeter.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetPill.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetPrivacyNote.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetScaffold.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetUsageGauge.hpp"

namespace quorvel {

using namespace viewkit;
using widgetruntime::Environment;
using widgetruntime::RenderingMode;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using Samples = std::vector<ComponentSample>;

enum class Amounts { whole, cents, hidden };

WidgetSnapshot snapshotOf(Amounts amounts) {
  WidgetSnapshot snapshot;
  snapshot.isHidden = amounts == Amounts::hidden;
  snapshot.lang = "en";
  snapshot.money = {.symbol = "$", .showDecimals = amounts == Amounts::cents};
  return snapshot;
}

void addAmounts(Samples& out) {
  const WidgetSnapshot whole = snapshotOf(Amounts::whole);
  const WidgetSnapshot cents = snapshotOf(Amounts::cents);
  const WidgetSnapshot hidden = snapshotOf(Amounts::hidden);
  const auto add = [&](std::string_view variant,
                       double value,
                       double size,
                       const WidgetSnapshot& snapshot,
                       FontWeight weight = FontWeight::bold) {
    out.push_back({"Amount",
                   variant,
                   Amount{.value = value, .snapshot = snapshot, .size = size, .weight = weight}});
  };
  add("bold 32", 97260, 32, whole);
  add("bold 24", 1171.41, 24, cents);
  add("semibold 13.5", 24580, 13.5, whole, FontWeight::semibold);
  add("13 characters or more", 12345678.9, 21, cents);
  add("below zero", -1234, 21, whole);
  add("not a number", kNaN, 21, whole);
  add("hidden", 97260, 21, hidden);
}

void addChanges(Samples& out, const ModeColors& colors) {
  enum class Rise { favorable, unfavorable };
  const auto add = [&](std::string_view variant, double value, Rise rise) {
    out.push_back({"WidgetChange",
                   variant,
                   WidgetChange{.value = value,
                                .precision = 1,
                                .favorableWhenPositive = rise == Rise::favorable,
                                .size = 12,
                                .colors = colors}});
  };
  add("rise, favourable", 5.5, Rise::favorable);
  add("fall, unfavourable", -3.26, Rise::favorable);
  add("rise of spending", 8.1, Rise::unfavorable);
  add("fall of spending", -12.4, Rise::unfavorable);
  add("zero", 0, Rise::favorable);
  add("not finite", kNaN, Rise::favorable);
}

void addTilesAndHeaders(Samples& out, const ModeColors& colors) {
  const WAccent accent = colors.accent(std::nullopt);
  const auto tile = [&](std::string_view variant, std::string symbol, double size) {
    out.push_back({"WidgetIconTile",
                   variant,
                   WidgetIconTile{.symbol = std::move(symbol),
                                  .color = accent.ink,
                                  .background = accent.soft,
                                  .size = size}});
  };
  tile("18", "chart.line.uptrend.xyaxis", 18);
  tile("22", "gauge.with.needle", 22);
  tile("26", "creditcard.fill", 26);
  tile("30", "calendar.badge.clock", 30);
  out.push_back({"WidgetHeader",
                 "regular",
                 WidgetHeader{.symbol = "chart.line.uptrend.xyaxis",
                              .text = "Net worth",
                              .accent = accent,
                              .lang = "en",
                              .colors = colors}});
  out.push_back({"WidgetHeader",
                 "compact",
                 WidgetHeader{.symbol = "cart.fill",
                              .text = "Spent this month",
                              .compact = true,
                              .accent = accent,
                              .lang = "en",
                              .colors = colors}});
}

void addPillsAndNotes(Samples& out, const ModeColors& colors) {
  const WAccent accent;
  const Color onTile = colors.mark(accent.glyph);
  const auto pill =
      [&](std::string_view variant, std::string text, std::string symbol, Color color) {
        out.push_back({"WidgetPill",
                       variant,
                       WidgetPill{.text = std::move(text),
                                  .symbol = std::move(symbol),
                                  .color = colors.mark(color),
                                  .size = 13.5,
                                  .lang = "en"}});
      };
  pill("good", "On pace", "checkmark", palette::statusGood);
  pill("warning", "A bit fast", "exclamationmark", palette::statusWarning);
  pill("critical", "Too fast", "exclamationmark", palette::statusCritical);
  out.push_back({"WidgetPrivacyNote",
                 "secondary",
                 WidgetPrivacyNote{.lang = "en", .color = colors.caption()}});
  out.push_back(
      {"WidgetPrivacyNote",
       "on the accent tile",
       WidgetPrivacyNote{.lang = "id", .color = onTile.withOpacity(0.88)}.padding(10).background(
           RoundedRectangle(10).fill(colors.ground(accent.fill)))});
}

void addMetersAndGauges(Samples& out, const Environment& environment) {
  const ModeColors colors{environment.widgetRenderingMode};
  const Color track = colors.track();
  const WidgetSnapshot snapshot = snapshotOf(Amounts::whole);
  const WidgetSnapshot hidden = snapshotOf(Amounts::hidden);
  const auto meter = [&](std::string_view variant, double fraction, Color color) {
    out.push_back(
        {"WidgetMeter",
         variant,
         WidgetMeter{.fraction = fraction, .color = colors.mark(color), .track = track, .height = 5}
             .frame(FixedFrame{.width = 100})});
  };
  meter("0", 0, palette::statusGood);
  meter("0.14", 0.14, palette::statusGood);
  meter("0.5", 0.5, WAccent{}.ink);
  meter("1.7", 1.7, palette::statusCritical);
  meter("not a number", kNaN, palette::statusGood);
  const auto usage = [&](std::string_view variant, double fraction, const WidgetSnapshot& of) {
    out.push_back(
        {"WidgetUsageGauge",
         variant,
         WidgetUsageGauge{.fraction = fraction, .symbol = "creditcard.fill", .snapshot = of}
             .padding(1.75)
             .frame(FixedFrame{.width = 76, .height = 76})});
  };
  usage("0.004", 0.004, snapshot);
  usage("0.14", 0.14, snapshot);
  usage("0.996", 0.996, snapshot);
  usage("hidden", 0.62, hidden);
  const auto spent = [&](std::string_view variant, double fraction, Color color) {
    out.push_back(
        {"SpentGauge",
         variant,
         SpentGauge{.spentFraction = fraction, .color = colors.mark(color), .track = track}.frame(
             FixedFrame{.width = 104, .height = 54})});
  };
  spent("0", 0, palette::statusGood);
  spent("0.61", 0.61, palette::statusGood);
  spent("1", 1, palette::statusCritical);
}

void addFaces(Samples& out, const Environment& environment) {
  const auto add =
      [&](std::string_view variant, std::vector<std::string> gradient, RenderingMode mode) {
        WidgetSnapshot::Card card;
        card.gradient = std::move(gradient);
        out.push_back({"CardArtTile",
                       variant,
                       CardArtTile{.card = card, .cornerRadius = 9, .renderingMode = mode}.frame(
                           FixedFrame{.width = 138, .height = 52})});
      };
  const RenderingMode mode = environment.widgetRenderingMode;
  add("two colours", {"#315792", "#20375D"}, mode);
  add("default", {}, mode);
  add("three colours", {"#EA353E", "#E50914", "#670409"}, mode);
  add("accented", {"#315792"}, RenderingMode::accented);
  out.push_back(
      {"AccessoryBackdrop",
       "without background",
       AccessoryBackdrop{.showsBackground = false}
           .frame(FixedFrame{.width = 104, .height = 52})
           .background(RoundedRectangle(14).fill(
               ModeColors{environment.widgetRenderingMode}.ground(Color::same(0x3B4A66))))});
}

void addMessages(Samples& out, const ModeColors& colors) {
  const auto add = [&](std::string_view variant, WidgetMessage message) {
    message.lang = "en";
    message.accent = colors.accent(std::nullopt);
    message.colors = colors;
    out.push_back(
        {"WidgetMessage", variant, message.frame(FixedFrame{.width = 138, .height = 138})});
  };
  add("action",
      {.symbol = "gauge.with.needle",
       .text = "Set a monthly budget in Quorvel",
       .label = "Set a budget",
       .title = "Safe to spend"});
  add("status",
      {.symbol = "calendar.badge.clock",
       .text = "Nothing due soon",
       .label = "All clear",
       .title = "Next due",
       .titleIsStatus = true});
}

View captioned(const ComponentSample& sample, const ModeColors& colors) {
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 6},
      sample.view,
      Text{std::string{sample.variant}}.font(9).lineLimit(1).foregroundStyle(colors.caption()),
  };
}

View rowOf(std::string_view component, const Samples& samples, const ModeColors& colors) {
  std::vector<View> views;
  for (const ComponentSample& sample : samples) {
    if (sample.component == component) views.push_back(captioned(sample, colors));
  }
  return VStack{
      {.alignment = HorizontalAlignment::leading, .spacing = 8},
      Text{std::string{component}}.font(12, FontWeight::semibold),
      HStack{{.alignment = VerticalAlignment::bottom, .spacing = 22}, std::move(views)},
  };
}

}  // namespace

Samples componentSamples(const Environment& environment) {
  const ModeColors colors{environment.widgetRenderingMode};
  Samples samples;
  addAmounts(samples);
  addChanges(samples, colors);
  addTilesAndHeaders(samples, colors);
  addPillsAndNotes(samples, colors);
  addMetersAndGauges(samples, environment);
  addFaces(samples, environment);
  addMessages(samples, colors);
  return samples;
}

View componentSheet(const Environment& environment) {
  const ModeColors colors{environment.widgetRenderingMode};
  const Samples samples = componentSamples(environment);
  std::vector<View> rows;
  std::string_view last;
  for (const ComponentSample& sample : samples) {
    if (sample.component != last) rows.push_back(rowOf(sample.component, samples, colors));
    last = sample.component;
  }
  return VStack{{.alignment = HorizontalAlignment::leading, .spacing = 26}, std::move(rows)}
      .padding(24)
      .frame(FlexibleFrame{.minWidth = kComponentSheetWidth,
                           .maxWidth = kComponentSheetWidth,
                           .alignment = Alignment::topLeading})
      .foregroundStyle(colors.text())
      .containerBackground(Rectangle().fill(palette::canvas));
}

}  // namespace quorvel
