#include "Cli/Sheet/DocumentStates.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace cli {
namespace {

using foundation::JsonValue;
using Change = std::function<JsonValue(const JsonValue&)>;

/// The object with one of its members changed; as it is when it has no such member.
JsonValue changed(const JsonValue& object, std::string_view key, const Change& change) {
  const JsonValue* member = object.member(key);
  if (member == nullptr || member->isNull()) return object;
  return with(object, key, change(*member));
}

JsonValue eachOf(const JsonValue& list, const Change& change) {
  JsonValue::Array elements;
  if (const auto* array = list.array())
    std::ranges::transform(*array, std::back_inserter(elements), change);
  return elements;
}

JsonValue withoutData(const JsonValue& document) {
  JsonValue::Object kept;
  if (const auto* object = document.object()) kept = *object;
  std::erase_if(kept, [](const auto& member) {
    return member.first == "budget" || member.first == "spending" || member.first == "netWorth";
  });
  return with(with(kept, "dues", JsonValue::Array{}), "cards", JsonValue::Array{});
}

JsonValue renamed(const JsonValue& document, std::string_view name) {
  const auto payment = [&](const JsonValue& due) {
    return with(with(due, "name", name), "subtitle", name);
  };
  JsonValue result = changed(document, "cards", [&](const JsonValue& cards) {
    return eachOf(cards, [&](const JsonValue& card) { return with(card, "productName", name); });
  });
  result = changed(result, "dues", [&](const JsonValue& dues) { return eachOf(dues, payment); });
  return changed(result, "spending", [&](const JsonValue& spending) {
    return with(spending, "topCategory", name);
  });
}

JsonValue scaled(const JsonValue& document, double factor) {
  return withAmounts(document, [factor](double amount) { return amount * factor; });
}

JsonValue withMoney(const JsonValue& document, std::string_view symbol, double rate) {
  return changed(document, "money", [&](const JsonValue& money) {
    return with(with(with(money, "symbol", symbol), "conversionRate", rate), "showDecimals", true);
  });
}

JsonValue withDecimals(const JsonValue& document) {
  return changed(
      document, "money", [](const JsonValue& money) { return with(money, "showDecimals", true); });
}

JsonValue overBudget(const JsonValue& document) {
  return changed(document, "budget", [](const JsonValue& budget) {
    const JsonValue* total = budget.member("total");
    const double* amount = total ? total->number() : nullptr;
    return amount ? with(budget, "spent", *amount * 1.07) : budget;
  });
}

JsonValue belowZero(const JsonValue& document) {
  const auto negated = [](const JsonValue& value) {
    const double* number = value.number();
    return number ? JsonValue{-*number} : value;
  };
  return changed(document, "netWorth", [&](const JsonValue& netWorth) {
    return changed(changed(netWorth, "value", negated), "history", [&](const JsonValue& history) {
      return eachOf(history,
                    [&](const JsonValue& point) { return changed(point, "value", negated); });
    });
  });
}

JsonValue lightFaces(const JsonValue& document) {
  const JsonValue light = JsonValue::Array{"#FFFFFF", "#F2D16B"};
  const auto faced = [&](std::string_view key) {
    return [&light, key](const JsonValue& list) {
      return eachOf(list, [&](const JsonValue& element) { return with(element, key, light); });
    };
  };
  return changed(changed(document, "cards", faced("gradient")), "dues", faced("face"));
}

/// The last element alone where `last` is set, else the first.
JsonValue oneOf(const JsonValue& list, bool last) {
  const auto* array = list.array();
  if (!array || array->empty()) return list;
  return JsonValue::Array{last ? array->back() : array->front()};
}

JsonValue oneOfEach(const JsonValue& document) {
  const auto first = [](const JsonValue& list) { return oneOf(list, false); };
  const auto last = [](const JsonValue& list) { return oneOf(list, true); };
  return changed(changed(changed(document, "cards", first), "dues", first),
                 "netWorth",
                 [&](const JsonValue& netWorth) { return changed(netWorth, "history", last); });
}

JsonValue nineCards(const JsonValue& document) {
  return changed(document, "cards", [](const JsonValue& cards) {
    const auto* array = cards.array();
    if (!array || array->empty()) return cards;
    JsonValue::Array nine;
    for (std::size_t i = 0; i < 9; ++i) {
      nine.push_back(with((*array)[i % array->size()], "id", fmt::format("card-{}", i + 1)));
    }
    return JsonValue{nine};
  });
}

JsonValue noHistory(const JsonValue& document) {
  const auto none = [](const JsonValue&) { return JsonValue{JsonValue::Array{}}; };
  return changed(
      changed(document,
              "netWorth",
              [&](const JsonValue& netWorth) { return changed(netWorth, "history", none); }),
      "spending",
      [&](const JsonValue& spending) { return changed(spending, "daily", none); });
}

/// Up to March 2025, from a third of the present value upwards, with some lean months a year.
JsonValue fiveYears(const JsonValue& netWorth) {
  const JsonValue* present = netWorth.member("value");
  const double* value = present ? present->number() : nullptr;
  if (!value) return netWorth;
  JsonValue::Array history;
  for (int month = 0; month < 60; ++month) {
    const double trend = *value * (1 + month / 29.5) / 3;
    const double dip = month % 12 < 4 ? *value * 0.02 * (month % 12) : 0;
    const int index = 2020 * 12 + 3 + month;
    JsonValue::Object point{{"month", fmt::format("{}-{:02}", index / 12, index % 12 + 1)},
                            {"value", month == 59 ? *value : trend - dip}};
    history.emplace_back(std::move(point));
  }
  return with(netWorth, "history", std::move(history));
}

}  // namespace

JsonValue with(const JsonValue& object, std::string_view key, JsonValue value) {
  JsonValue::Object members;
  if (const auto* own = object.object()) members = *own;
  const auto found = std::ranges::find(
      members, key, [](const auto& member) { return std::string_view(member.first); });
  if (found != members.end()) {
    found->second = std::move(value);
  } else {
    members.emplace_back(key, std::move(value));
  }
  return members;
}

JsonValue withAmounts(const JsonValue& document, const std::function<double(double)>& change) {
  if (const double* number = document.number()) {
    return *number == 0 ? document : JsonValue{change(*number)};
  }
  if (document.array()) {
    return eachOf(document, [&](const JsonValue& element) { return withAmounts(element, change); });
  }
  const auto* object = document.object();
  if (!object) return document;
  JsonValue::Object members;
  for (const auto& [key, member] : *object) {
    const bool stays = key == "money" || key == "changePercent";
    members.emplace_back(key, stays ? member : withAmounts(member, change));
  }
  return members;
}

std::string_view name(DocumentState state) {
  switch (state) {
    case DocumentState::hidden:
      return "amounts hidden";
    case DocumentState::noData:
      return "no data";
    case DocumentState::noDocument:
      return "no document";
    case DocumentState::overBudget:
      return "over budget";
    case DocumentState::belowZero:
      return "net worth below zero";
    case DocumentState::hugeAmounts:
      return "huge amounts";
    case DocumentState::tinyAmounts:
      return "tiny amounts";
    case DocumentState::longCurrency:
      return "amounts of many digits";
    case DocumentState::longNames:
      return "long names";
    case DocumentState::emojiNames:
      return "names with emoji";
    case DocumentState::thaiNames:
      return "Thai names";
    case DocumentState::hebrewNames:
      return "Hebrew names";
    case DocumentState::lightFaces:
      return "light faces";
    case DocumentState::oneOfEach:
      return "one of each";
    case DocumentState::nineCards:
      return "nine cards";
    case DocumentState::noHistory:
      return "no history";
    case DocumentState::sixtyMonths:
      return "sixty months";
    case DocumentState::asWritten:
      break;
  }
  return {};
}

JsonValue inState(const JsonValue& document, DocumentState state) {
  switch (state) {
    case DocumentState::hidden:
      return with(document, "isHidden", true);
    case DocumentState::noData:
      return withoutData(document);
    case DocumentState::overBudget:
      return overBudget(document);
    case DocumentState::belowZero:
      return belowZero(document);
    case DocumentState::hugeAmounts:
      return scaled(document, 123456789.123);
    case DocumentState::tinyAmounts:
      return withDecimals(scaled(document, 1e-5));
    case DocumentState::longCurrency:
      return withMoney(document, "Rp ", 16250);
    case DocumentState::longNames:
      return renamed(document, "The Account That Somebody Gave A Very Long Name To");
    case DocumentState::emojiNames:
      return renamed(document, "👨‍👩‍👧‍👦🏠 Familie 🇮🇩");
    case DocumentState::thaiNames:
      return renamed(document, "บัตรเครดิตของครอบครัว");
    case DocumentState::hebrewNames:
      return renamed(document, "תשלום חודשי לחברת החשמל");
    case DocumentState::lightFaces:
      return lightFaces(document);
    case DocumentState::oneOfEach:
      return oneOfEach(document);
    case DocumentState::nineCards:
      return nineCards(document);
    case DocumentState::noHistory:
      return noHistory(document);
    case DocumentState::sixtyMonths:
      return changed(document, "netWorth", fiveYears);
    case DocumentState::asWritten:
    case DocumentState::noDocument:
      break;
  }
  return document;
}

}  // namespace cli
