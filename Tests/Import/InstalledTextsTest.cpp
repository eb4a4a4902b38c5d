// The manual page, the completion, the desktop entry and docs/ledger.md say what the program says.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "Import/Explain.hpp"
#include "Import/Links.hpp"
#include "Import/Settings.hpp"
#include "Importing.hpp"

namespace importer {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using Words = std::set<std::string>;

const std::string kInstall = QUORVEL_SOURCE_DIR "/Install/";

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string said(const cli::Words& words) {
  return cli::runProgram(cli::builtProgram("quorvel-import"), words).out;
}

std::vector<std::string> commands() {
  static const std::regex line("  ([a-z]+) +[^ ].*");
  std::vector<std::string> names;
  std::smatch match;
  for (const std::string& text : linesOf(said({"--help"}))) {
    if (std::regex_match(text, match, line)) names.push_back(match[1]);
  }
  return names;
}

/// "--file JOURNAL", "--watch": the long names, with the values that they take.
Words optionsOf(const std::string& command) {
  static const std::regex option("  (?:-[a-z],)?(--[a-z]+)( [A-Z]+)?  .*");
  Words options;
  std::smatch match;
  for (const std::string& line : linesOf(said({command, "--help"}))) {
    if (std::regex_match(line, match, option) && match[1] != "--help")
      options.insert(match[1].str() + match[2].str());
  }
  return options;
}

/// The same as the manual page has it, in the synopsis of each command.
std::map<std::string, Words> manualOptions() {
  static const std::regex command("\\.Cm ([a-z]+)");
  static const std::regex option("\\.Op Fl -([a-z]+)(?: Ar ([A-Z]+))?");
  std::map<std::string, Words> all;
  std::string current;
  bool inSynopsis = false;
  std::smatch match;
  for (const std::string& line : linesOf(testsupport::contentsOf(kInstall + "quorvel-import.1"))) {
    if (line == ".It Xo" || line == ".Xc") inSynopsis = line == ".It Xo";
    if (!inSynopsis) continue;
    if (std::regex_match(line, match, command)) all[current = match[1]];
    if (std::regex_match(line, match, option))
      all[current].insert("--" + match[1].str() + (match[2].matched ? " " + match[2].str() : ""));
  }
  return all;
}

/// What the tabulator offers after these words; the last is what is typed of the word at the
/// cursor.
Words offered(const std::string& words) {
  const cli::Outcome outcome = cli::runProgram(
      "/bin/bash",
      {"-c",
       "compopt() { echo \"<$2>\"; }; source " + kInstall +
           "quorvel-import.bash; COMP_WORDS=(quorvel-import " + words +
           "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); $(complete -p quorvel-import | "
           "cut -d' ' -f3); printf '%s\\n' \"${COMPREPLY[@]}\""});
  EXPECT_THAT(outcome.errors, IsEmpty());
  Words offers;
  for (std::string& line : linesOf(outcome.out)) {
    if (!line.empty()) offers.insert(std::move(line));
  }
  return offers;
}

TEST(ImportManualPage, HasEveryCommandWithItsOptions) {
  const auto manual = manualOptions();
  ASSERT_THAT(commands(), ElementsAre("hledger", "check", "explain", "init", "open"));
  for (const std::string& command : commands()) {
    ASSERT_TRUE(manual.contains(command)) << command;
    EXPECT_EQ(manual.at(command), optionsOf(command)) << command;
  }
  EXPECT_EQ(manual.size(), commands().size());
}

TEST(ImportManualPage, IsWellFormed) {
  const auto outcome =
      cli::runProgram("/usr/bin/mandoc", {"-Tlint", "-Wwarning", kInstall + "quorvel-import.1"});
  EXPECT_EQ(outcome.status, 0) << "(Debian package mandoc)";
  EXPECT_THAT(outcome.out + outcome.errors, IsEmpty());
}

TEST(ImportManualPage, ShowsSettingsThatAreAccepted) {
  const std::string page = testsupport::contentsOf(kInstall + "quorvel-import.1");
  const auto begin = page.find("language = ");
  const auto settings = parseSettings(page.substr(begin, page.find(".Ed", begin) - begin), "page");
  ASSERT_TRUE(settings) << settings.error().line;
  EXPECT_EQ(settings->open.size(), std::size(kDestinations));
}

TEST(ImportManualPage, NamesEveryFigure) {
  const std::string page = testsupport::contentsOf(kInstall + "quorvel-import.1");
  for (const std::string_view figure : kFigures)
    EXPECT_THAT(page, HasSubstr(".Cm " + std::string(figure)));
}

TEST(ImportCompletion, OffersCommandsOptionsAndFigures) {
  Words names{"--help"};
  for (const std::string& command : commands()) {
    names.insert(command);
    Words options{"-f", "-h", "--help"};
    for (const std::string& option : optionsOf(command))
      options.insert(option.substr(0, option.find(' ')));
    EXPECT_EQ(offered(command + " -"), options) << command;
  }
  EXPECT_EQ(offered("''"), names);
  EXPECT_EQ(offered("explain ''"), Words(std::begin(kFigures), std::end(kFigures)));
  EXPECT_THAT(offered("hledger --container ''"), ElementsAre("<dirnames>"));
  EXPECT_THAT(offered("hledger -f ''"), ElementsAre("<default>"));
  EXPECT_THAT(offered("check --config ''"), ElementsAre("<default>"));
}

TEST(ImportDesktopEntry, AnswersTheSchemeOfTheExtension) {
  const std::string entry = testsupport::contentsOf(kInstall + "quorvel-import.desktop");
  const std::string list = testsupport::contentsOf(QUORVEL_SOURCE_DIR "/QuorvelWidgets/Info.plist");
  EXPECT_THAT(list, HasSubstr("<string>quorvel-widget</string>"));
  EXPECT_THAT(linesOf(entry),
              IsSupersetOf({"[Desktop Entry]",
                            "Exec=quorvel-import open %u",
                            "MimeType=x-scheme-handler/quorvel-widget;"}));
}

TEST(LedgerDocument, NamesEverySetting) {
  const std::string document = testsupport::contentsOf(QUORVEL_SOURCE_DIR "/docs/ledger.md");
  for (const char* key :
       {"language", "commodity", "symbol",    "decimals", "hidden", "today", "spending", "exclude",
        "liquid",   "total",     "start-day", "account",  "limit",  "last4", "bank",     "product",
        "due-day",  "faces",     "name",      "icon",     "light",  "dark"})
    EXPECT_THAT(document, HasSubstr(key));
  for (const std::string_view destination : kDestinations)
    EXPECT_THAT(document, HasSubstr("    " + std::string(destination)));
}

}  // namespace
}  // namespace importer
