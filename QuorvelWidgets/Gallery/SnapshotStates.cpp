#include "QuorvelWidgets/Gallery/SnapshotStates.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace quorvel {
namespace {

constexpr const char* kLongName =
    "The Extraordinarily Long Name That Somebody Gave To This Payment And Never Shortened Again";
constexpr std::size_t kManyCards = 9;
constexpr int kManyMonths = 60;

std::vector<double*> amountsOf(WidgetSnapshot& snapshot) {
  std::vector<double*> amounts{&snapshot.totalLimit, &snapshot.totalRemaining};
  const auto add = [&](auto&... each) { (amounts.push_back(&each), ...); };
  if (auto& budget = snapshot.budget) add(budget->total, budget->spent);
  if (auto& spending = snapshot.spending) {
    add(spending->spent, spending->lastMonthSpent, spending->topCategoryAmount);
    for (double& day : spending->daily) add(day);
  }
  if (auto& worth = snapshot.netWorth) {
    add(worth->value, worth->assets, worth->liabilities);
    if (worth->liquid) add(*worth->liquid);
    if (worth->nonLiquid) add(*worth->nonLiquid);
    for (auto& point : worth->history) add(point.value);
  }
  for (auto& card : snapshot.cards) add(card.limit, card.remaining);
  for (auto& due : snapshot.dues) add(due.amount);
  return amounts;
}

void clear(WidgetSnapshot& snapshot) {
  snapshot.cards.clear();
  snapshot.dues.clear();
  snapshot.budget.reset();
  snapshot.spending.reset();
  snapshot.netWorth.reset();
}

void exceed(WidgetSnapshot& snapshot) {
  if (auto& budget = snapshot.budget) budget->spent = budget->total + 210;
}

void spend(WidgetSnapshot& snapshot, double amount) {
  if (auto& budget = snapshot.budget) budget->spent = amount;
}

void useLimits(WidgetSnapshot& snapshot, double totalRemaining, double remainingFraction) {
  snapshot.totalRemaining = totalRemaining;
  for (auto& card : snapshot.cards) card.remaining = card.limit * remainingFraction;
}

void setDueDates(WidgetSnapshot& snapshot, std::initializer_list<const char*> days) {
  auto due = snapshot.dues.begin();
  for (const char* day : days) {
    if (due == snapshot.dues.end()) return;
    (due++)->dueDate = day;
  }
}

void bareDues(WidgetSnapshot& snapshot) {
  for (auto& due : snapshot.dues) {
    due.cardId.reset();
    due.face.reset();
    due.subtitle.reset();
    due.brandId.reset();
    due.symbol.reset();
  }
}

void lightFaces(WidgetSnapshot& snapshot) {
  const std::vector<std::string> light{"#FFFFFF", "#F2D16B"};
  for (auto& card : snapshot.cards) card.gradient = light;
  for (auto& due : snapshot.dues) due.face = light;
}

/// The month before cost `spent`, and net worth changed by so many percent.
void compare(WidgetSnapshot& snapshot, double spent, std::optional<double> percent) {
  if (auto& spending = snapshot.spending) spending->lastMonthSpent = spent;
  if (auto& worth = snapshot.netWorth) worth->changePercent = percent;
}

void turnBelowZero(WidgetSnapshot& snapshot) {
  auto& worth = snapshot.netWorth;
  if (!worth) return;
  worth->value = -worth->value;
  for (auto& point : worth->history) point.value = -point.value;
}

void keepOneOfEach(WidgetSnapshot& snapshot) {
  const auto keep = [](auto& list) { list.resize(std::min<std::size_t>(list.size(), 1)); };
  keep(snapshot.cards);
  keep(snapshot.dues);
  if (auto& worth = snapshot.netWorth; worth && !worth->history.empty()) {
    worth->history.erase(worth->history.begin(), worth->history.end() - 1);
  }
}

void repeatCards(WidgetSnapshot& snapshot) {
  const std::size_t own = snapshot.cards.size();
  if (own == 0) return;
  while (snapshot.cards.size() < kManyCards) {
    auto card = snapshot.cards[snapshot.cards.size() % own];
    card.id = fmt::format("card-{}", snapshot.cards.size() + 1);
    snapshot.cards.push_back(std::move(card));
  }
}

void forgetHistory(WidgetSnapshot& snapshot) {
  if (snapshot.netWorth) snapshot.netWorth->history.clear();
  if (snapshot.spending) snapshot.spending->daily.clear();
}

/// Up to March 2025, from a third of the present value upwards, with some lean months per year.
void rememberFiveYears(WidgetSnapshot& snapshot) {
  auto& worth = snapshot.netWorth;
  if (!worth) return;
  worth->history.clear();
  for (int month = 0; month < kManyMonths; ++month) {
    const double trend = worth->value * (1 + month / 29.5) / 3;
    const double dip = month % 12 < 4 ? worth->value * 0.02 * (month % 12) : 0;
    const int index = 2020 * 12 + 3 + month;
    const bool isPresent = month == kManyMonths - 1;
    worth->history.push_back({fmt::format("{}-{:02}", index / 12, index % 12 + 1),
                              isPresent ? worth->value : trend - dip});
  }
}

constexpr bool kUsual = true;
constexpr bool kExtreme = false;

constexpr SnapshotState kStates[] = {
    {"empty", "no data", kUsual, clear},
    {"hidden", "amounts hidden by the application", kUsual, [](auto& s) { s.isHidden = true; }},
    {"exceeded", "over budget", kExtreme, exceed},
    {"exceeded-hidden",
     "",
     kExtreme,
     [](auto& s) {
       exceed(s);
       s.isHidden = true;
     }},
    {"a-bit-fast", "", kExtreme, [](auto& s) { spend(s, 1550); }},
    {"critical-pace", "", kExtreme, [](auto& s) { spend(s, 2900); }},
    {"middle-use", "", kExtreme, [](auto& s) { useLimits(s, 12000, 0.4); }},
    {"heavy-use", "", kExtreme, [](auto& s) { useLimits(s, 300, 0); }},
    {"due-today",
     "",
     kExtreme,
     [](auto& s) {
       setDueDates(s, {"2025-03-14", "2025-03-15", "2026-03-15"});
     }},
    {"bare-dues", "", kExtreme, bareDues},
    {"light-faces", "light faces", kExtreme, lightFaces},
    {"spent-more", "", kExtreme, [](auto& s) { compare(s, 630, -3.3); }},
    {"unchanged", "", kExtreme, [](auto& s) { compare(s, s.spending ? s.spending->spent : 0, 0); }},
    {"nothing-to-compare", "", kExtreme, [](auto& s) { compare(s, 0, std::nullopt); }},
    {"no-category",
     "",
     kExtreme,
     [](auto& s) {
       if (s.spending) s.spending->topCategory.reset();
     }},
    {"no-split",
     "",
     kExtreme,
     [](auto& s) {
       if (s.netWorth) s.netWorth->liquid.reset();
     }},
    {"negative-net-worth", "net worth below zero", kExtreme, turnBelowZero},
    {"one-of-each", "one of each", kExtreme, keepOneOfEach},
    {"nine-cards", "nine cards", kExtreme, repeatCards},
    {"no-history", "no history", kExtreme, forgetHistory},
    {"sixty-months", "sixty months", kExtreme, rememberFiveYears},
    {"long-names", "long names", kExtreme, [](auto& s) { s = renamed(std::move(s), kLongName); }},
    {"emoji-names",
     "names with emoji",
     kExtreme,
     [](auto& s) { s = renamed(std::move(s), "👨‍👩‍👧‍👦🏠 Familie 🇮🇩"); }},
    {"thai-names",
     "Thai names",
     kExtreme,
     [](auto& s) { s = renamed(std::move(s), "ธนาคารกรุงเทพ บัตรเครดิต"); }},
    {"hebrew-names",
     "Hebrew names",
     kExtreme,
     [](auto& s) { s = renamed(std::move(s), "תשלום חודשי לחברת החשמל"); }},
    {"huge-amounts",
     "huge amounts",
     kExtreme,
     [](auto& s) { s = scaled(std::move(s), 123456789.123); }},
    {"tiny-amounts",
     "tiny amounts",
     kExtreme,
     [](auto& s) {
       s = scaled(std::move(s), 1e-5);
       s.money.showDecimals = true;
     }},
    {"long-currency",
     "amounts of many digits",
     kExtreme,
     [](auto& s) { s.money = {.symbol = "Rp ", .showDecimals = true, .conversionRate = 16250}; }},
};

}  // namespace

std::span<const SnapshotState> snapshotStates() {
  return kStates;
}

const SnapshotState* snapshotState(std::string_view name) {
  const auto found = std::ranges::find(kStates, name, &SnapshotState::name);
  return found == std::end(kStates) ? nullptr : found;
}

WidgetSnapshot inState(WidgetSnapshot snapshot, std::string_view name) {
  if (const SnapshotState* state = snapshotState(name)) state->edit(snapshot);
  return snapshot;
}

WidgetSnapshot renamed(WidgetSnapshot snapshot, const std::string& name) {
  for (auto& card : snapshot.cards) card.productName = name;
  for (auto& due : snapshot.dues) due.name = due.subtitle.emplace(name);
  if (snapshot.spending) snapshot.spending->topCategory = name;
  return snapshot;
}

WidgetSnapshot scaled(WidgetSnapshot snapshot, double factor) {
  for (double* amount : amountsOf(snapshot)) *amount *= factor;
  return snapshot;
}

/// By whole units and a hundredth, so that no text of a picture stays as it was.
WidgetSnapshot withOtherAmounts(WidgetSnapshot snapshot, int step) {
  const int own = step % 9973;
  int place = 0;
  for (double* amount : amountsOf(snapshot)) {
    if (*amount != 0) *amount += 1.01 * (own + (own * 37 + ++place * 11) % 101);
  }
  return snapshot;
}

}  // namespace quorvel
