// What the importer keeps of a journal's entries: accounts, commodities and descriptions as
// numbers, a few words for each posting.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Import/Day.hpp"
#include "Import/Decimal.hpp"

namespace importer {

/// Each different text once, numbered from 0 in order of appearance.
class Names {
 public:
  std::uint32_t number(std::string_view name);
  [[nodiscard]] const std::string& operator[](std::uint32_t number) const { return all_[number]; }
  [[nodiscard]] std::uint32_t size() const { return static_cast<std::uint32_t>(all_.size()); }

 private:
  std::deque<std::string> all_;  // its strings stay where the keys look
  std::unordered_map<std::string_view, std::uint32_t> numbers_;
};

/// Whether an entry stands in the journal or was made by one of its periodic rules.
enum class Origin : std::uint8_t { entry, monthlyRule, otherRule };

struct Transaction {
  Day day;
  Origin origin = Origin::entry;
  std::uint32_t description = 0;
};

struct Posting {
  Decimal amount;
  Day day;  ///< its own, else the transaction's
  std::uint32_t transaction = 0;
  std::uint32_t account = 0;
  std::uint32_t commodity = 0;
};

/// The transactions of one report; the postings of each stand together.
struct Book {
  std::vector<Transaction> transactions;
  std::vector<Posting> postings;
};

/// Names that all books of a journal share.
struct Lexicon {
  Names accounts;
  Names commodities;
  Names descriptions;
};

}  // namespace importer
