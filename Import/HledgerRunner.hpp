// One run of hledger after another, or two side by side, each with a reader of its report.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Import/Csv.hpp"
#include "Import/Hledger.hpp"
#include "Import/Result.hpp"
#include "Import/Subprocess.hpp"

namespace importer {

/// A run and the reader of its report.
struct HledgerRun {
  Subprocess process;
  /// Where a person should look when hledger names no place; empty: the journal.
  std::string place;
  /// What the reader found wrong with the report.
  std::function<std::string()> problem = [] { return std::string{}; };
  /// The report is at its end; false when it was no whole one.
  std::function<bool()> finish = [] { return true; };
};

class HledgerRunner {
 public:
  explicit HledgerRunner(const JournalRequest& request);

  /// "1.25"; to be called before all other runs.
  [[nodiscard]] Result<std::string> readVersion();

  /// A report of one name per line.
  [[nodiscard]] HledgerRun list(std::vector<std::string> words, std::string& text) const;

  /// A table. Readers take row after row, the header first.
  template <class Reader>
  [[nodiscard]] HledgerRun report(std::vector<std::string> words,
                                  std::shared_ptr<Reader> reader) const {
    auto csv = std::make_shared<CsvReader>(
        [reader](const CsvReader::Row& row) { return reader->take(row); });
    words.insert(words.end(), {"-O", "csv"});
    HledgerRun run;
    run.process.command = command(std::move(words));
    run.process.output = [csv](std::string_view piece) { return csv->read(piece); };
    run.problem = [csv, reader] {
      return csv->isTooLong() ? std::string("has a row without an end") : reader->problem();
    };
    run.finish = [csv, reader] { return csv->finish() && reader->hasHeader(); };
    return run;
  }

  [[nodiscard]] Result<void> runAll(std::vector<HledgerRun>& runs) const;

  /// Periodic rules turn in this report, from the start of the year to the last day that is shown.
  [[nodiscard]] std::vector<std::string> withForecast(std::vector<std::string> words) const;
  /// The same, with each rule named in the comments of what it made.
  [[nodiscard]] std::vector<std::string> withNamedForecast(std::vector<std::string> words) const;

  /// What a person calls the journal.
  [[nodiscard]] const std::string& journal() const { return journal_; }
  /// The day after the last on which something may fall due.
  [[nodiscard]] Day end() const;

 private:
  [[nodiscard]] std::vector<std::string> command(std::vector<std::string> words) const;

  const JournalRequest& request_;
  Environment environment_;
  std::string journal_;
  std::string versionText_;
  int version_ = 0;
};

[[nodiscard]] std::vector<std::string> linesOf(const std::string& text);

}  // namespace importer
