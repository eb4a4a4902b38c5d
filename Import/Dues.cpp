#include "Import/Dues.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <map>

#include "Foundation/Characters.hpp"

namespace importer {
namespace {

/// FNV-1a: the same bill has the same number in every document.
std::uint64_t hashOf(std::string_view text) {
  std::uint64_t hash = 14695981039346656037ULL;
  for (const char c : text) {
    hash ^= static_cast<unsigned char>(c);
    hash *= 1099511628211ULL;
  }
  return hash;
}

/// What one transaction pays, seen from the accounts that it moves money between.
struct Payment {
  Decimal spent;     ///< into spending accounts, refunds taken off
  Decimal paidBack;  ///< into liabilities that are no card
  bool fromAsset = false;
  bool fromLiability = false;
  std::uint32_t account = 0;  ///< the first that is paid into
  bool hasAccount = false;

  [[nodiscard]] Decimal amount() const {
    Decimal sum;
    if (fromAsset || fromLiability) sum += spent;
    if (fromAsset) sum += paidBack;
    return sum;
  }
};

void take(const Posting& posting, const AccountTraits& traits, Payment& payment) {
  const bool isIn = posting.amount > Decimal{};
  bool isPaidInto = false;
  if (traits.isPaidInto) {
    payment.spent += posting.amount;
    isPaidInto = isIn;
  } else if (traits.isAsset) {
    payment.fromAsset |= posting.amount < Decimal{};
  } else if (traits.isLiability) {
    payment.fromLiability |= posting.amount < Decimal{};
    isPaidInto = isIn && !traits.isCard;
    if (isPaidInto) payment.paidBack += posting.amount;
  }
  if (isPaidInto && !payment.hasAccount) {
    payment.account = posting.account;
    payment.hasAccount = true;
  }
}

std::vector<DueFigures> bills(const Journal& journal, const Settings& settings) {
  const auto traits = journal.accounts.traits(journal.lexicon.accounts, settings);
  std::vector<Payment> payments(journal.ahead.transactions.size());
  for (const Posting& posting : journal.ahead.postings) {
    if (posting.commodity == journal.commodity)
      take(posting, traits[posting.account], payments[posting.transaction]);
  }
  std::vector<DueFigures> result;
  std::map<std::string, int> uses;  // of an id: two equal bills are two
  for (std::size_t i = 0; i < payments.size(); ++i) {
    const Transaction& transaction = journal.ahead.transactions[i];
    const std::string& description = journal.lexicon.descriptions[transaction.description];
    const bool isDue = transaction.day > journal.today && payments[i].hasAccount &&
                       payments[i].amount() > Decimal{} &&
                       !foundation::trimmingSpaces(description).empty();
    if (!isDue) continue;
    std::string id = fmt::format("bill-{:016x}",
                                 hashOf(text(transaction.day) + "\n" + description + "\n" +
                                        journal.lexicon.accounts[payments[i].account]));
    if (const int use = ++uses[id]; use > 1) id += fmt::format("-{}", use);
    result.push_back({.id = std::move(id),
                      .name = description,
                      .day = transaction.day,
                      .amount = payments[i].amount()});
  }
  return result;
}

}  // namespace

Day nextDueDay(Day today, int dayOfMonth) {
  const Month month = monthOf(today);
  const Day day = dayIn(month, dayOfMonth);
  return day >= today ? day : dayIn(month + 1, dayOfMonth);
}

std::vector<DueFigures> dueFigures(const Journal& journal,
                                   const Settings& settings,
                                   const std::vector<CardFigures>& cards) {
  std::vector<DueFigures> dues;
  for (const CardFigures& card : cards) {
    if (!card.dueDay || card.owed <= Decimal{}) continue;
    const Day day = nextDueDay(journal.today, *card.dueDay);
    dues.push_back({.id = card.id + "-" + text(day),
                    .name = card.product,
                    .day = day,
                    .amount = card.owed,
                    .card = &card});
  }
  const auto more = bills(journal, settings);
  dues.insert(dues.end(), more.begin(), more.end());
  std::ranges::stable_sort(dues, {}, &DueFigures::day);
  return dues;
}

}  // namespace importer
