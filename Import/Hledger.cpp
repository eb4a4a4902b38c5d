#include "Import/Hledger.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>

#include "Import/BalanceReader.hpp"
#include "Import/HledgerRunner.hpp"
#include "Import/PrintReader.hpp"

namespace importer {
namespace {

constexpr int kMonthsBack = 13;

/// A name as a regular expression that matches it alone.
std::string exactly(std::string_view name) {
  std::string pattern = "^";
  for (const char c : name) {
    if (std::string_view("\\^$.|?*+()[]{}").contains(c)) pattern += '\\';
    pattern += c;
  }
  return pattern + "$";
}

/// "expenses:food    ; type: X"
void takeAccount(std::string_view line, AccountTypes& types) {
  constexpr std::string_view kMark = "; type:";
  const auto mark = line.rfind(kMark);
  std::string_view name = line.substr(0, mark);
  while (name.ends_with(' ')) name.remove_suffix(1);
  if (name.empty()) return;
  std::string_view type = mark == std::string_view::npos ? "" : line.substr(mark + kMark.size());
  type.remove_prefix(std::min(type.find_first_not_of(' '), type.size()));
  types.emplace(name, type.empty() ? '\0' : type.front());
}

class JournalReader {
 public:
  JournalReader(const JournalRequest& request, const Settings& settings)
      : runner_(request), settings_(settings) {
    journal_.today = request.today;
    journal_.name = runner_.journal();
  }

  Result<Journal> accounts() {
    return run({&JournalReader::readVersion, &JournalReader::readChart});
  }
  Result<Journal> all() {
    return run({&JournalReader::readVersion,
                &JournalReader::readChart,
                &JournalReader::readTags,
                &JournalReader::readEntries,
                &JournalReader::chooseCommodity,
                &JournalReader::readBalances});
  }

 private:
  using Step = Result<void> (JournalReader::*)();

  Result<Journal> run(std::initializer_list<Step> steps) {
    for (const Step step : steps) {
      if (auto done = (this->*step)(); !done) return std::unexpected(done.error());
    }
    return std::move(journal_);
  }

  Result<void> readVersion();
  Result<void> readChart();
  Result<void> readTags();
  Result<void> readEntries();
  Result<void> chooseCommodity();
  Result<void> readBalances();

  [[nodiscard]] Result<void> noEntries() const {
    return refused(fmt::format("{}: there are no entries up to {}; `hledger add` writes one",
                               journal_.name,
                               text(runner_.end() - 1)));
  }
  void takeAhead(const Book& book);
  [[nodiscard]] std::vector<std::string> withStyles(std::vector<std::string> words) const;
  HledgerRun balances(std::vector<std::string> words, BalanceReader::Handler handler) const;
  HledgerRun monthlyValues();

  HledgerRunner runner_;
  const Settings& settings_;
  std::vector<std::string> commodities_;
  Journal journal_;
};

// Styles of the journal may round and use a comma; these do not.
std::vector<std::string> JournalReader::withStyles(std::vector<std::string> words) const {
  constexpr std::string_view kExact = "1000.000000000000";
  for (const std::string& commodity : commodities_) {
    words.emplace_back("-c");
    words.push_back(commodity.empty() ? std::string(kExact)
                                      : fmt::format("{} \"{}\"", kExact, commodity));
  }
  return words;
}

HledgerRun JournalReader::balances(std::vector<std::string> words,
                                   BalanceReader::Handler handler) const {
  words.insert(words.end(), {"--historical", "--layout=bare", "-N"});
  return runner_.report(
      withStyles(std::move(words)),
      std::make_shared<BalanceReader>(BalanceReader::Columns::one, std::move(handler)));
}

Result<void> JournalReader::readVersion() {
  auto version = runner_.readVersion();
  if (!version) return std::unexpected(version.error());
  journal_.version = *std::move(version);
  return {};
}

/// With a forecast: accounts that only a rule names count too.
Result<void> JournalReader::readChart() {
  std::string accounts;
  std::string commodities;
  std::vector<HledgerRun> runs;
  runs.push_back(runner_.list(runner_.withForecast({"accounts", "--types"}), accounts));
  runs.push_back(runner_.list({"commodities"}, commodities));
  struct Query {
    std::string_view key;
    const std::vector<std::string>& queries;
    AccountSet& matches;
    std::string text;
  };
  Accounts& chart = journal_.accounts;
  std::array<Query, 3> queries{Query{"spending", settings_.spending, chart.spending, {}},
                               Query{"exclude", settings_.exclude, chart.exclude, {}},
                               Query{"liquid", settings_.liquid, chart.liquid, {}}};
  for (Query& query : queries) {
    if (query.queries.empty()) continue;
    std::vector<std::string> words = runner_.withForecast({"accounts"});
    words.insert(words.end(), query.queries.begin(), query.queries.end());
    runs.push_back(runner_.list(std::move(words), query.text));
    runs.back().place = fmt::format("{}: [accounts] {}", settings_.file, query.key);
  }
  if (auto done = runner_.runAll(runs); !done) return done;
  for (const std::string& line : linesOf(accounts)) takeAccount(line, chart.types);
  for (std::string& name : linesOf(commodities)) {
    std::erase(name, '"');
    commodities_.push_back(std::move(name));
  }
  for (Query& query : queries) {
    for (std::string& name : linesOf(query.text)) query.matches.insert(std::move(name));
  }
  return commodities_.empty() ? noEntries() : Result<void>{};
}

/// Of the cards whose settings leave something to tags.
Result<void> JournalReader::readTags() {
  struct Wanted {
    std::string account;
    std::string tag;
    std::string text;
  };
  std::vector<Wanted> wanted;
  for (const CardSettings& card : settings_.cards) {
    const bool exists = std::ranges::any_of(journal_.accounts.types, [&](const auto& account) {
      return isAtOrBelow(account.first, card.account);
    });
    if (!exists) {
      return refused(
          fmt::format("{}:{}:{}: there is no account \"{}\" in {}; `hledger accounts` "
                      "lists them",
                      settings_.file,
                      card.place.line,
                      card.place.column,
                      card.account,
                      journal_.name));
    }
    if (!card.limit) wanted.push_back({card.account, "limit", {}});
    if (!card.last4) wanted.push_back({card.account, "last4", {}});
  }
  std::vector<HledgerRun> runs;
  runs.reserve(wanted.size());
  for (Wanted& one : wanted) {
    runs.push_back(runner_.list(
        {"tags", "-I", "--values", exactly(one.tag), "acct:" + exactly(one.account)}, one.text));
  }
  if (auto done = runner_.runAll(runs); !done) return done;
  for (const Wanted& one : wanted) {
    const auto values = linesOf(one.text);
    if (!values.empty()) journal_.tags[one.account][one.tag] = values.front();
  }
  return {};
}

Result<void> JournalReader::readEntries() {
  const Day today = journal_.today;
  const Day period = budgetPeriod(today, settings_.budgetStartDay).first;
  const Day first = firstDay(monthOf(today) - kMonthsBack);
  Book ahead;
  std::vector<HledgerRun> runs;
  runs.push_back(runner_.report(withStyles({"print", "-b", text(first), "-e", text(today + 1)}),
                                std::make_shared<PrintReader>(journal_.lexicon, journal_.past)));
  runs.push_back(runner_.report(withStyles(runner_.withNamedForecast(
                                    {"print", "-b", text(period), "-e", text(runner_.end())})),
                                std::make_shared<PrintReader>(journal_.lexicon, ahead)));
  if (auto done = runner_.runAll(runs); !done) return done;
  takeAhead(ahead);
  return {};
}

// The entries up to today are in both reports.
void JournalReader::takeAhead(const Book& book) {
  const auto isAhead = [&](const Transaction& one) {
    return one.day > journal_.today || one.origin != Origin::entry;
  };
  std::vector<std::uint32_t> numbers(book.transactions.size());
  for (std::size_t i = 0; i < book.transactions.size(); ++i) {
    numbers[i] = static_cast<std::uint32_t>(journal_.ahead.transactions.size());
    if (isAhead(book.transactions[i])) journal_.ahead.transactions.push_back(book.transactions[i]);
  }
  for (Posting posting : book.postings) {
    if (!isAhead(book.transactions[posting.transaction])) continue;
    posting.transaction = numbers[posting.transaction];
    journal_.ahead.postings.push_back(posting);
  }
}

Result<void> JournalReader::chooseCommodity() {
  Names& names = journal_.lexicon.commodities;
  if (settings_.commodity) {
    if (std::ranges::find(commodities_, *settings_.commodity) == commodities_.end()) {
      return refused(
          fmt::format("{}: commodity \"{}\" is not in {}; `hledger commodities` lists "
                      "those that are",
                      settings_.file,
                      *settings_.commodity,
                      journal_.name));
    }
    journal_.commodity = names.number(*settings_.commodity);
    return {};
  }
  std::vector<std::size_t> counts(names.size());
  for (const Book* book : {&journal_.past, &journal_.ahead}) {
    for (const Posting& posting : book->postings) ++counts[posting.commodity];
    // The entries up to today decide, where there are any.
    const auto most = std::ranges::max_element(counts);
    if (most == counts.end() || *most == 0) continue;
    journal_.commodity = static_cast<std::uint32_t>(most - counts.begin());
    return {};
  }
  if (commodities_.size() == 1) {
    journal_.commodity = names.number(commodities_.front());
    return {};
  }
  return refused(
      fmt::format("{}: no entry of the last thirteen months tells which commodity to "
                  "show; set commodity in the settings",
                  journal_.name));
}

/// Up to the end of last month: the column of this one would count what is still to come.
HledgerRun JournalReader::monthlyValues() {
  const auto sums = std::make_shared<std::vector<Decimal>>();
  auto reader = std::make_shared<BalanceReader>(
      BalanceReader::Columns::months,
      [this, sums](std::string_view, std::string_view commodity, const auto& amounts) {
        sums->resize(amounts.size());
        if (commodity != journal_.commodityName()) return;
        for (std::size_t i = 0; i < amounts.size(); ++i) (*sums)[i] += amounts[i];
      });
  HledgerRun run = runner_.report(withStyles({"balance",
                                              "type:AL",
                                              "-M",
                                              "--historical",
                                              "--layout=bare",
                                              "-N",
                                              "-X",
                                              journal_.commodityName(),
                                              "-e",
                                              text(firstDay(monthOf(journal_.today)))}),
                                  reader);
  run.finish = [this, reader, sums, finish = run.finish] {
    // Without entries the report has a column of the day on which it is made.
    std::vector<Month> months = reader->months();
    std::erase_if(months, [&](Month month) { return month >= monthOf(journal_.today); });
    sums->resize(std::max(sums->size(), months.size()));
    for (std::size_t i = 0; i < months.size(); ++i)
      journal_.months.push_back({months[i], (*sums)[i]});
    journal_.firstMonth = months.empty() ? monthOf(journal_.today) : months.front();
    return finish();
  };
  return run;
}

Result<void> JournalReader::readBalances() {
  const std::string tomorrow = text(journal_.today + 1);
  commodities_ = {journal_.commodityName()};
  std::vector<HledgerRun> runs;
  runs.push_back(monthlyValues());
  runs.push_back(
      balances({"balance", "type:AL", "-X", journal_.commodityName(), "-e", tomorrow},
               [this](std::string_view account, std::string_view commodity, const auto& amounts) {
                 const auto traits = journal_.accounts.traits(account, settings_);
                 if (!traits.isAsset && !traits.isLiability) return;
                 auto& group = traits.isAsset ? journal_.assets : journal_.liabilities;
                 group.push_back({std::string(account), std::string(commodity), amounts.front()});
               }));
  // As they are, without prices; the query's own match would take parts of names.
  const auto takeCard =
      [this](std::string_view account, std::string_view commodity, const auto& amounts) {
        if (journal_.accounts.traits(account, settings_).isCard)
          journal_.cards.push_back({std::string(account), std::string(commodity), amounts.front()});
      };
  if (!settings_.cards.empty()) runs.push_back(balances({"balance", "-e", tomorrow}, takeCard));
  if (auto done = runner_.runAll(runs); !done) return done;
  const bool hasEntries = !journal_.months.empty() || !journal_.past.transactions.empty() ||
                          std::ranges::any_of(journal_.ahead.transactions, [](const auto& one) {
                            return one.origin == Origin::entry;
                          });
  return hasEntries ? Result<void>{} : noEntries();
}

}  // namespace

Result<Journal> readJournal(const JournalRequest& request, const Settings& settings) {
  return JournalReader(request, settings).all();
}

Result<Journal> readAccounts(const JournalRequest& request, const Settings& settings) {
  return JournalReader(request, settings).accounts();
}

Result<std::vector<std::string>> journalFiles(const JournalRequest& request) {
  HledgerRunner runner(request);
  if (auto version = runner.readVersion(); !version) return std::unexpected(version.error());
  std::string text;
  std::vector<HledgerRun> runs;
  runs.push_back(runner.list({"files"}, text));
  if (auto done = runner.runAll(runs); !done) return std::unexpected(done.error());
  return linesOf(text);
}

}  // namespace importer
