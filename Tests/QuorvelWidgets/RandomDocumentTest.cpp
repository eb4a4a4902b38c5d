// Whatever a document holds, as long as it fits the format, every widget can be laid out.
#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "Foundation/JsonValue.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/Devices.hpp"
#include "Tests/Support/PlacedTexts.hpp"
#include "ViewKit/TreeJson.hpp"

namespace quorvel {
namespace {

using rendering::Rect;
using testsupport::inkBox;
using testsupport::WidgetLayout;
using testsupport::WidgetState;

/// Chooses within the format, with a liking for its edges.
class Chooser {
 public:
  explicit Chooser(unsigned seed) : random_(seed) {}

  std::size_t below(std::size_t end) { return random_() % end; }
  bool coin() { return below(2) == 0; }
  template <class T, std::size_t N>
  T oneOf(const T (&values)[N]) {
    return values[below(N)];
  }
  double amount() {
    static constexpr double kEdges[] = {
        0, -0.0, 0.005, -1, 1, 999.5, 15.99, 1e6, -1e9, 9e18, 1e300, -1e308, 5e-324};
    if (coin()) return oneOf(kEdges);
    return static_cast<double>(random_() % 2000000) / 100 - 5000;
  }
  std::string text() {
    static constexpr const char* kTexts[] = {"",
                                             "A",
                                             "Everyday",
                                             "two\nlines",
                                             "نص عربي مع رقم 12",
                                             "👨‍👩‍👧‍👦",
                                             "\u202Eabc\u2066",
                                             "mnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmnmn",
                                             "e\u0301\u0301\u0301\u0301\u0301",
                                             "日本語の長い名前がここに入ります"};
    return oneOf(kTexts);
  }
  std::string day() {
    static constexpr const char* kDays[] = {
        "2025-03-14", "2025-03-15", "2025-04-01", "2099-12-31", "2025-02-30", "", "soon", "1-1-1"};
    return oneOf(kDays);
  }
  std::string month() {
    static constexpr const char* kMonths[] = {"2025-03", "2025-02", "2025-13", "", "March"};
    return coin() ? "2025-03" : oneOf(kMonths);
  }
  std::string color() {
    static constexpr const char* kColors[] = {"#315792", "#FFFFFF", "#000000", "red", "", "#12"};
    return oneOf(kColors);
  }
  WidgetSnapshot::Shade shade() { return {color(), color()}; }
  template <class Make>
  auto maybe(const Make& make) -> std::optional<decltype(make())> {
    if (coin()) return std::nullopt;
    return make();
  }
  template <class Make>
  auto list(std::size_t most, const Make& make) {
    std::vector<decltype(make())> items(below(most + 1));
    for (auto& item : items) item = make();
    return items;
  }

  std::vector<std::string> colors() {
    return list(4, [this] { return color(); });
  }

 private:
  std::mt19937 random_;
};

WidgetSnapshot::Due randomDue(Chooser& choose) {
  const auto text = [&] { return choose.text(); };
  return {.id = text(),
          .name = text(),
          .amount = choose.amount(),
          .dueDate = choose.day(),
          .kind = text(),
          .cardId = choose.maybe(text),
          .face = choose.maybe([&] { return choose.colors(); }),
          .subtitle = choose.maybe(text),
          .brandId = choose.maybe(text),
          .symbol = choose.maybe(text)};
}

WidgetSnapshot::Card randomCard(Chooser& choose) {
  const auto text = [&] { return choose.text(); };
  return {.id = text(),
          .bankName = text(),
          .productName = text(),
          .last4 = choose.maybe(text),
          .limit = choose.amount(),
          .remaining = choose.amount(),
          .gradient = choose.colors(),
          .hasImage = choose.coin()};
}

WidgetSnapshot::Budget randomBudget(Chooser& choose) {
  return {.total = choose.amount(),
          .spent = choose.amount(),
          .periodEnd = choose.day(),
          .periodStart = choose.maybe([&] { return choose.day(); })};
}

WidgetSnapshot::Spending randomSpending(Chooser& choose) {
  const auto text = [&] { return choose.text(); };
  return {.month = choose.month(),
          .spent = choose.amount(),
          .lastMonthSpent = choose.amount(),
          .topCategory = choose.maybe(text),
          .topCategoryAmount = choose.amount(),
          .daily = choose.list(40, [&] { return choose.amount(); }),
          .topCategoryIcon = choose.maybe(text),
          .topCategoryColor = choose.maybe([&] { return choose.shade(); })};
}

WidgetSnapshot::NetWorth randomNetWorth(Chooser& choose) {
  const auto amount = [&] { return choose.amount(); };
  const auto point = [&] { return WidgetSnapshot::NetWorth::Point{choose.month(), amount()}; };
  return {.value = amount(),
          .changePercent = choose.maybe(amount),
          .assets = amount(),
          .liabilities = amount(),
          .history = choose.list(70, point),
          .liquid = choose.maybe(amount),
          .nonLiquid = choose.maybe(amount)};
}

WidgetSnapshot randomSnapshot(Chooser& choose) {
  WidgetSnapshot snapshot;
  snapshot.generatedAt = testsupport::morningOf("2025-03-14");
  snapshot.isHidden = choose.below(4) == 0;
  snapshot.lang = std::string{kLanguageCodes[choose.below(kLanguageCount)]};
  snapshot.money = {.symbol = choose.coin() ? "$" : choose.text(),
                    .showDecimals = choose.coin(),
                    .conversionRate = choose.maybe([&] { return choose.amount(); })};
  snapshot.dues = choose.list(5, [&] { return randomDue(choose); });
  snapshot.cards = choose.list(7, [&] { return randomCard(choose); });
  snapshot.totalLimit = choose.amount();
  snapshot.totalRemaining = choose.amount();
  snapshot.budget = choose.maybe([&] { return randomBudget(choose); });
  snapshot.spending = choose.maybe([&] { return randomSpending(choose); });
  snapshot.netWorth = choose.maybe([&] { return randomNetWorth(choose); });
  snapshot.accent = choose.maybe([&] {
    return WidgetSnapshot::Accent{choose.shade(), choose.shade(), choose.shade()};
  });
  return snapshot;
}

bool isSound(const Rect& frame) {
  return std::isfinite(frame.x) && std::isfinite(frame.y) && std::isfinite(frame.width) &&
         std::isfinite(frame.height) && frame.width >= 0 && frame.height >= 0;
}

bool overlap(const Rect& a, const Rect& b) {
  const Rect both = testsupport::intersection(a, b);
  return both.width > 0.5 && both.height > 0.5;
}

/// What is wrong with a laid-out tree; empty when nothing is.
std::string faultOf(const rendering::LayoutTree& tree) {
  const auto found = testsupport::find(tree);
  for (const auto* node : found.all) {
    if (!isSound(node->frame)) return "a frame is not sound";
  }
  std::vector<std::pair<Rect, std::string>> lines;
  for (const auto& text : found.texts) {
    for (const auto& line : text.node->text->lines) {
      const Rect box = inkBox(*text.node->text, line);
      const std::string& words = text.element().text;
      if (box.x < -0.5 || box.right() > tree.size.width + 0.5 || box.y < -0.5 ||
          box.bottom() > tree.size.height + 0.5) {
        return "\"" + words + "\" leaves the widget";
      }
      for (const auto& [other, otherWords] : lines) {
        if (overlap(box, other)) return "\"" + words + "\" overlaps \"" + otherWords + "\"";
      }
      lines.emplace_back(box, words);
    }
  }
  return {};
}

TEST(RandomDocuments, EveryWidgetLaysThemOutSoundly) {
  rendering::Renderer renderer;
  constexpr unsigned kDocuments = 300;
  for (unsigned seed = 1; seed <= kDocuments; ++seed) {
    Chooser choose{seed};
    const WidgetSnapshot snapshot = randomSnapshot(choose);
    const auto decoded = decodeWidgetSnapshot(encodeWidgetSnapshot(snapshot));
    ASSERT_TRUE(decoded) << "seed " << seed;
    ASSERT_EQ(*decoded, snapshot) << "seed " << seed;
    const WidgetState state{"random", testsupport::morningOf("2025-03-14"), *decoded, {}};
    for (const WidgetLayout& layout : testsupport::layouts()) {
      const auto tree = renderer
                            .place(testsupport::viewOf(layout, state),
                                   {.size = testsupport::kCompactDevice.sizeOf(layout.family)})
                            .value();
      EXPECT_EQ(faultOf(tree), "") << layout.name << ", seed " << seed;
    }
  }
}

/// Sides of 1 to 1000 points; few pictures are large, since small ones find as much and sooner.
rendering::RenderOptions randomOptions(Chooser& choose) {
  constexpr double kScales[] = {0.5, 1, 2, 3.3};
  const bool isLarge = choose.below(20) == 0;
  const auto side = [&] {
    return 1 + static_cast<double>(choose.below(isLarge ? 9990 : 2990)) / 10;
  };
  rendering::RenderOptions options;
  options.size = {side(), side()};
  options.scale = isLarge ? 1 : choose.oneOf(kScales);
  options.appearance = choose.coin() ? viewkit::Appearance::dark : viewkit::Appearance::light;
  options.mode = static_cast<viewkit::RenderingMode>(choose.below(3));
  options.redaction = {.privacy = choose.below(4) == 0, .placeholder = choose.below(8) == 0};
  return options;
}

TEST(RandomDocuments, EveryWidgetDrawsThemInEveryForm) {
  rendering::Renderer renderer;
  constexpr unsigned kDocuments = 30;
  for (unsigned seed = 1; seed <= kDocuments; ++seed) {
    Chooser choose{seed};
    WidgetState state{"random", testsupport::morningOf("2025-03-14"), randomSnapshot(choose), {}};
    for (const WidgetLayout& layout : testsupport::layouts()) {
      SCOPED_TRACE(layout.name + ", seed " + std::to_string(seed));
      const rendering::RenderOptions options = randomOptions(choose);
      state.environment.widgetRenderingMode = options.mode;
      state.environment.redactionReasons = options.redaction;
      const viewkit::View view = testsupport::viewOf(layout, state);
      const auto bitmap = renderer.bitmap(view, options);
      ASSERT_TRUE(bitmap) << bitmap.error();
      EXPECT_TRUE(rendering::encodePng(*bitmap).starts_with("\x89PNG"));
      const auto svg = renderer.svg(view, options);
      EXPECT_TRUE(svg && svg->ends_with("</svg>\n")) << (svg ? "" : svg.error());
      EXPECT_TRUE(renderer.plainText(view, options));
      EXPECT_TRUE(renderer.accessibilityTree(view, options, "Widget"));
    }
  }
}

// ---- size

std::string wireOf(const WidgetLayout& layout, const WidgetState& state) {
  foundation::JsonWriter writer;
  viewkit::writeView(writer, testsupport::viewOf(layout, state));
  return writer.take();
}

WidgetState decodedState(const WidgetSnapshot& snapshot) {
  return {"decoded",
          testsupport::morningOf("2025-03-14"),
          decodeWidgetSnapshot(encodeWidgetSnapshot(snapshot)).value(),
          {}};
}

TEST(LargeDocuments, GiveTreesOfTheSameSize) {
  WidgetSnapshot few = testsupport::richSnapshot("en", testsupport::morningOf("2025-03-14"));
  WidgetSnapshot many = few;
  many.dues.resize(100000, few.dues.front());
  while (few.cards.size() < 10) few.cards.push_back(few.cards.back());
  // The count is a text of its own: 10 and 10000 differ by three digits and a comma.
  many.cards.resize(10000, few.cards.back());
  const WidgetState small = decodedState(few);
  const WidgetState large = decodedState(many);
  for (const WidgetLayout& layout : testsupport::layouts()) {
    const std::size_t grown = layout.name == "card-limit-medium" ? 3 : 0;
    EXPECT_EQ(wireOf(layout, large).size(), wireOf(layout, small).size() + grown) << layout.name;
  }
}

TEST(LargeDocuments, LongHistoriesAreCutToWhatCanBeSeen) {
  WidgetSnapshot snapshot = testsupport::richSnapshot("en", testsupport::morningOf("2025-03-14"));
  snapshot.netWorth->history.assign(240, {"2025-01", 1});
  snapshot.spending->daily.assign(31, 5);
  const WidgetState small = decodedState(snapshot);
  snapshot.netWorth->history.resize(100000, {"2025-01", 1});
  snapshot.spending->daily.resize(100000, 5);
  const WidgetState large = decodedState(snapshot);
  for (const WidgetLayout& layout : testsupport::layouts()) {
    EXPECT_EQ(wireOf(layout, large).size(), wireOf(layout, small).size()) << layout.name;
  }
}

TEST(LargeDocuments, ANameOfAMegabyteStillGivesAReadableTree) {
  const std::string name(1 << 20, 'n');
  WidgetSnapshot snapshot =
      quorvel::renamed(testsupport::richSnapshot("en", testsupport::morningOf("2025-03-14")), name);
  snapshot.money.symbol = name;
  for (auto& card : snapshot.cards) card.id = card.bankName = card.last4.emplace(name);
  for (auto& due : snapshot.dues) {
    due.id = due.cardId.emplace(name);
    due.brandId = due.symbol = name;
  }
  snapshot.spending->topCategoryIcon = name;
  const WidgetState state = decodedState(snapshot);
  for (const WidgetLayout& layout : testsupport::layouts()) {
    const std::string wire = wireOf(layout, state);
    EXPECT_LT(wire.size(), std::size_t{1} << 20) << layout.name;
    const auto json = foundation::parseJson(wire);
    ASSERT_TRUE(json) << layout.name;
    const auto view = viewkit::readView(*json);
    EXPECT_TRUE(view) << layout.name << ": " << (view ? "" : view.error());
  }
}

}  // namespace
}  // namespace quorvel
