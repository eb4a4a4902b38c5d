// A journal with settings in a folder of their own, and what the importer makes of them.
#pragma once

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Import/Hledger.hpp"
#include "Import/SnapshotMaker.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace importer {

[[nodiscard]] inline Day day(std::string_view text) {
  return parseDay(text).value();
}

[[nodiscard]] inline Decimal decimal(std::string_view text) {
  return parseDecimal(text).value();
}

/// The points of net worth as "2026-03 1100".
[[nodiscard]] inline std::vector<std::string> historyOf(const quorvel::WidgetSnapshot& snapshot) {
  std::vector<std::string> points;
  for (const auto& point : snapshot.netWorth->history)
    points.push_back(point.month + " " + decimal(fmt::format("{}", point.value)).text());
  return points;
}

/// Reads a journal of these lines as of a day.
class LedgerFolder {
 public:
  explicit LedgerFolder(std::string_view journal)
      : journal_(folder_.write("my.journal", journal)) {}

  [[nodiscard]] const testsupport::TemporaryFolder& folder() const { return folder_; }
  [[nodiscard]] const std::string& journal() const { return journal_; }

  [[nodiscard]] JournalRequest request(std::string_view today) const {
    return {.file = journal_,
            .environment = {{"PATH", "/usr/bin:/bin"}, {"HOME", "/nonexistent"}},
            .today = day(today)};
  }
  [[nodiscard]] static Settings settings(std::string_view toml) {
    auto settings = parseSettings(toml, "ledger.toml");
    EXPECT_TRUE(settings) << settings.error().line;
    return settings.value_or(Settings{});
  }

  /// The document as of a day.
  [[nodiscard]] quorvel::WidgetSnapshot snapshot(std::string_view today,
                                                 std::string_view toml = {}) const {
    const Settings chosen = settings(toml);
    const auto journal = readJournal(request(today), chosen);
    EXPECT_TRUE(journal) << journal.error().line;
    if (!journal) return {};
    const auto figures = figuresOf(*journal, chosen);
    EXPECT_TRUE(figures) << figures.error().line;
    if (!figures) return {};
    return makeSnapshot(*figures, *journal, chosen, {.now = {}, .language = "en"});
  }

  /// What the importer complains about.
  [[nodiscard]] std::string complaint(std::string_view today, std::string_view toml = {}) const {
    const Settings chosen = settings(toml);
    const auto journal = readJournal(request(today), chosen);
    if (!journal) return journal.error().line;
    const auto figures = figuresOf(*journal, chosen);
    return figures ? "" : figures.error().line;
  }

 private:
  testsupport::TemporaryFolder folder_;
  std::string journal_;
};

}  // namespace importer
