// The document that the application leaves for the widgets, as records whose fields carry the names
// of their JSON keys.
#pragma once

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Foundation/Json.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetMoneyStyle.hpp"

namespace quorvel {

/// The records of a snapshot, named as WidgetSnapshot's own. Amounts are doubles in whole units of
/// the application's currency. Days ("2025-03-20"), months ("2025-03") and colours ("#315792") stay
/// text: decoding never rejects them, whoever reads them decides.
namespace records {

/// One colour for each appearance.
struct Shade {
  std::string light;
  std::string dark;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const Shade&, const Shade&) = default;
};

struct Accent {
  Shade fill;
  Shade ink;
  Shade heat;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const Accent&, const Accent&) = default;
};

/// A payment that falls due.
struct Due {
  std::string id;
  std::string name;
  double amount = 0;
  std::string dueDate;  ///< day
  std::string kind;     ///< "card" or "bill"
  std::optional<std::string> cardId;
  std::optional<std::vector<std::string>> face;  ///< colours
  std::optional<std::string> subtitle;
  std::optional<std::string> brandId;
  std::optional<std::string> symbol;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const Due&, const Due&) = default;
};

struct Card {
  std::string id;
  std::string bankName;
  std::string productName;
  std::optional<std::string> last4;
  double limit = 0;
  double remaining = 0;
  std::vector<std::string> gradient;  ///< colours in drawing order
  bool hasImage = false;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const Card&, const Card&) = default;
};

struct Budget {
  double total = 0;
  double spent = 0;
  std::string periodEnd;                   ///< day
  std::optional<std::string> periodStart;  ///< day

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const Budget&, const Budget&) = default;
};

struct Spending {
  struct Month {
    std::string month;
    std::vector<double> daily;  ///< the first element is day 1

    static std::span<const foundation::JsonField> jsonFields();
    friend bool operator==(const Month&, const Month&) = default;
  };

  std::string month;
  double spent = 0;
  double lastMonthSpent = 0;
  std::optional<std::string> topCategory;
  double topCategoryAmount = 0;
  std::vector<double> daily;  ///< the first element is day 1
  std::optional<std::string> topCategoryIcon;
  std::optional<Shade> topCategoryColor;
  std::optional<std::vector<Month>> earlier;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const Spending&, const Spending&) = default;
};

struct NetWorth {
  struct Point {
    std::string month;
    double value = 0;

    static std::span<const foundation::JsonField> jsonFields();
    friend bool operator==(const Point&, const Point&) = default;
  };

  double value = 0;
  std::optional<double> changePercent;  ///< 5.5 means +5.5 %
  double assets = 0;
  double liabilities = 0;  ///< a positive amount
  std::vector<Point> history;
  std::optional<double> liquid;
  std::optional<double> nonLiquid;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const NetWorth&, const NetWorth&) = default;
};

}  // namespace records

/// The document's root.
struct WidgetSnapshot {
  using Shade = records::Shade;
  using Accent = records::Accent;
  using Due = records::Due;
  using Card = records::Card;
  using Budget = records::Budget;
  using Spending = records::Spending;
  using NetWorth = records::NetWorth;

  foundation::Instant generatedAt;
  bool isHidden = false;
  std::string lang;
  WidgetMoneyStyle money;
  std::vector<Due> dues;
  std::optional<Budget> budget;
  std::vector<Card> cards;
  double totalLimit = 0;
  double totalRemaining = 0;
  std::optional<Spending> spending;
  std::optional<NetWorth> netWorth;
  std::optional<Accent> accent;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const WidgetSnapshot&, const WidgetSnapshot&) = default;
};

/// The whole document or every problem found in it; nothing partial.
[[nodiscard]] std::expected<WidgetSnapshot, foundation::JsonFailure> decodeWidgetSnapshot(
    std::string_view bytes);

/// The same keys and forms; absent fields are left out.
[[nodiscard]] std::string encodeWidgetSnapshot(const WidgetSnapshot& snapshot);

}  // namespace quorvel
