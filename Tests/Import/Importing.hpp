// Runs quorvel-import as a shell would, in folders of its own.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "Tests/Cli/CommandRunner.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace importer {

/// A home with a container, a journal and settings.
class Home {
 public:
  Home() { std::filesystem::create_directories(container()); }

  [[nodiscard]] std::string at(std::string_view name) const { return folder_.at(name); }
  std::string write(std::string_view name, std::string_view text) const {
    return folder_.write(name, text);
  }
  std::string journal(std::string_view text) const { return write("my.journal", text); }
  std::string settings(std::string_view text) const {
    return write(".config/quorvel-import/ledger.toml", text);
  }
  /// A program named hledger that is found before the real one.
  void fakeHledger(std::string_view script) const {
    const std::string file = write("bin/hledger", script);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
  }

  [[nodiscard]] std::string container() const {
    return at(".local/share/group.app.quorvel.widgets");
  }
  [[nodiscard]] std::string document() const { return container() + "/widget-snapshot.json"; }
  [[nodiscard]] std::string written() const { return testsupport::contentsOf(document()); }

  [[nodiscard]] std::map<std::string, std::string> environment() const {
    return {{"HOME", folder_.path()}, {"PATH", at("bin") + ":/usr/bin:/bin"}, {"TZ", "UTC"}};
  }
  [[nodiscard]] cli::Outcome run(const cli::Words& words) const {
    return cli::runProgram(cli::builtProgram("quorvel-import"), words, environment());
  }
  /// With the home's own journal.
  [[nodiscard]] cli::Outcome import() const { return run({"hledger", "-f", at("my.journal")}); }

 private:
  testsupport::TemporaryFolder folder_;
};

inline constexpr std::string_view kSmallJournal =
    "2026-03-01 market\n    expenses:food:market  $12.50\n    assets:cash\n";

}  // namespace importer
