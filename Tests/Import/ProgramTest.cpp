// quorvel-import as a whole: documents, refusals, exit statuses.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Importing.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace importer {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

/// Refused with one line, and the document is as it was.
void expectRefusal(const Home& home,
                   const cli::Words& words,
                   const ::testing::Matcher<const std::string&>& line) {
  home.write(".local/share/group.app.quorvel.widgets/widget-snapshot.json",
             R"({"generatedBy":"quorvel-import 0.1"})");
  const cli::Outcome outcome = home.run(words);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.errors, line);
  EXPECT_THAT(outcome.errors, EndsWith("\n"));
  EXPECT_EQ(outcome.errors.find('\n'), outcome.errors.size() - 1) << outcome.errors;
  EXPECT_EQ(home.written(), R"({"generatedBy":"quorvel-import 0.1"})");
}

TEST(ImportProgram, MakesADocumentThatIsAccepted) {
  const Home home;
  const std::string journal = home.journal(kSmallJournal);
  home.settings("today = 2026-03-14\nlanguage = \"de\"\nhidden = true\n");
  const cli::Outcome outcome = home.import();
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out, home.document() + "\n");
  EXPECT_THAT(home.written(), StartsWith("{\"generatedBy\":\"quorvel-import "));
  const auto snapshot = quorvel::decodeWidgetSnapshot(home.written());
  ASSERT_TRUE(snapshot);
  EXPECT_EQ(snapshot->lang, "de");
  EXPECT_TRUE(snapshot->isHidden);
  EXPECT_EQ(snapshot->spending->spent, 12.5);
  const cli::Outcome validated = cli::runHost({"validate", home.document()});
  EXPECT_EQ(validated.status, 0) << validated.out << validated.errors;
  struct stat status {};
  ASSERT_EQ(::stat(home.document().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST(ImportProgram, SpeaksTheDevicesLanguageUnlessSet) {
  const Home home;
  home.journal(kSmallJournal);
  auto environment = home.environment();
  environment["LANG"] = "pt_PT.UTF-8";
  const auto outcome = cli::runProgram(
      cli::builtProgram("quorvel-import"), {"hledger", "-f", home.at("my.journal")}, environment);
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(quorvel::decodeWidgetSnapshot(home.written())->lang, "pt-BR");
}

TEST(ImportProgram, FindsTheJournalAsHledgerDoes) {
  const Home home;
  home.write(".hledger.journal", kSmallJournal);
  EXPECT_EQ(home.run({"hledger"}).status, 0);
  auto environment = home.environment();
  environment["LEDGER_FILE"] = home.at("gone.journal");
  const auto outcome =
      cli::runProgram(cli::builtProgram("quorvel-import"), {"hledger"}, environment);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("gone.journal: there is no such journal"));
}

TEST(ImportProgram, ReplacesTheDocumentWhole) {
  const Home home;
  home.journal(kSmallJournal);
  ASSERT_EQ(home.import().status, 0);
  struct stat before {};
  ::stat(home.document().c_str(), &before);
  ASSERT_EQ(home.import().status, 0);
  struct stat after {};
  ::stat(home.document().c_str(), &after);
  EXPECT_NE(before.st_ino, after.st_ino);
  int files = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator(home.container())) ++files;
  EXPECT_EQ(files, 1);
}

TEST(ImportProgram, KeepsAForeignDocumentUnlessForced) {
  for (const char* foreign : {"{}", "no json", "", "[]", R"({"generatedBy":"someone else"})"}) {
    const Home home;
    home.journal(kSmallJournal);
    home.write(".local/share/group.app.quorvel.widgets/widget-snapshot.json", foreign);
    const cli::Outcome outcome = home.import();
    EXPECT_EQ(outcome.status, 1) << foreign;
    EXPECT_THAT(outcome.errors, AllOf(HasSubstr(home.document()), HasSubstr("--force")));
    EXPECT_EQ(home.written(), foreign);
    EXPECT_EQ(home.run({"hledger", "-f", home.at("my.journal"), "--force"}).status, 0);
    EXPECT_EQ(home.import().status, 0);
  }
}

TEST(ImportProgram, TakesHostileNamesAsTheyAre) {
  const Home home;
  const std::string longName(100'000, 'x');
  const std::string file = home.journal(
      "2026-03-01 \"quo,ted\" \\ <b>&amp;</b> %s $(reboot) `x`\n"
      "    expenses:a \"b\", c:d'e  $5\n    активы:банк \"x\"\n\n"
      "2026-03-20 \x1b[2J\x07"
      "bell\x7f\n    expenses:食費:外食  $6\n    assets:cash\n\n"
      "2026-03-21 " +
      longName + "\n    expenses:a  $7\n    assets:cash\n");
  home.settings("today = 2026-03-14\n");
  const auto outcome = home.import();
  ASSERT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(cli::runHost({"validate", home.document()}).status, 0);
  const auto snapshot = quorvel::decodeWidgetSnapshot(home.written());
  ASSERT_TRUE(snapshot);
  EXPECT_EQ(snapshot->spending->topCategory, "a \"b\", c");
  ASSERT_EQ(snapshot->dues.size(), 2u);
  EXPECT_EQ(snapshot->dues[0].name, " [2J bell ");
  EXPECT_EQ(snapshot->dues[1].name, longName.substr(0, 200) + "…");
  for (const char* command : {"check", "explain"}) {
    const auto shown = home.run({command, "-f", file});
    EXPECT_EQ(shown.status, 0);
    EXPECT_EQ(shown.out.find_first_of("\x1b\x07\x7f"), std::string::npos) << command;
  }
}

TEST(ImportProgram, SaysNothingThatATerminalObeys) {
  const Home home;
  const auto outcome = home.run({"hledger", "-f", "a\x1B[31m\u202Eb.journal"});
  EXPECT_NE(outcome.status, 0);
  EXPECT_THAT(outcome.errors, HasSubstr("\\u001B[31m\\u202Eb.journal"));
}

TEST(ImportProgram, RefusesAContainerThatIsMissingOrReadOnly) {
  const Home home;
  home.journal(kSmallJournal);
  const auto missing =
      home.run({"hledger", "-f", home.at("my.journal"), "--container", home.at("nowhere")});
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(
      missing.errors,
      AllOf(HasSubstr(home.at("nowhere") + ": there is no such folder"), HasSubstr("--container")));
  if (::geteuid() == 0) {
    // No permission stops root; /proc takes no files from anybody.
    const auto fixed = home.run({"hledger", "-f", home.at("my.journal"), "--container", "/proc"});
    EXPECT_EQ(fixed.status, 1);
    EXPECT_THAT(fixed.errors, HasSubstr("/proc/widget-snapshot.json: cannot write: "));
  } else {
    fs::permissions(home.container(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THAT(home.import().errors, HasSubstr("cannot write: Permission denied"));
    fs::permissions(home.container(), fs::perms::owner_all);
  }
}

TEST(ImportProgram, SaysWhereAJournalIsWrong) {
  struct Case {
    std::string_view journal;
    std::string_view line;
  };
  for (const auto& [journal, line] : std::initializer_list<Case>{
           {"2026-03-01 x\n    a  $5\n    b  $6\n", ":1: an entry does not balance"},
           {"\n2026-13-01 x\n    a  1\n", ":2:1: there is no such day"},
           {"2026-03-01 x\n  a  $5 = $6\n  b\n", ":2:9: a balance assertion fails"},
           {"include missing.journal\n", ":1:24: an included file is missing"},
           {"not a journal\n", ":1:1: this is not journal syntax"},
           {"include my.journal\n", ":1:19: the file includes itself"},
           {"~ monthly from 2026-01-15\n  a  1\n  b\n\n2026-01-01 x\n  a  1\n  b\n",
            ":1:3: a periodic rule does not start on the first day of its interval"}}) {
    const Home home;
    const std::string file = home.journal(journal);
    expectRefusal(home,
                  {"hledger", "-f", file},
                  StartsWith("quorvel-import hledger: " + file + std::string(line)));
  }
}

TEST(ImportProgram, NamesTheIncludedFileThatIsWrong) {
  const Home home;
  const std::string file = home.journal("include more/rent.journal\n");
  const std::string included =
      home.write("more/rent.journal", "; rent\n2026-03-01 x\n    a  $5\n    b  $6\n");
  expectRefusal(home, {"hledger", "-f", file}, HasSubstr(included + ":2: an entry does not"));
}

TEST(ImportProgram, SaysNoAmountOfWhatIsWrong) {
  const Home home;
  const std::string file = home.journal("2026-03-01 x\n    a  $98765\n    b  $43219\n");
  expectRefusal(
      home, {"hledger", "-f", file}, AllOf(Not(HasSubstr("98765")), Not(HasSubstr("43219"))));
}

TEST(ImportProgram, RefusesAJournalWithoutEntriesOrText) {
  const Home home;
  const std::string empty = home.journal("; nothing yet\n");
  expectRefusal(home, {"hledger", "-f", empty}, HasSubstr("there are no entries up to 20"));
  const std::string rules =
      home.journal("commodity $1,000.00\n~ monthly\n    expenses:a  $5\n    assets:cash\n");
  expectRefusal(home, {"hledger", "-f", rules}, HasSubstr("there are no entries up to 20"));
  const std::string bytes = home.journal("2026-03-01 caf\xe9\n    a  1\n    b\n");
  expectRefusal(home, {"hledger", "-f", bytes}, HasSubstr("the text is not UTF-8"));
  expectRefusal(home, {"hledger", "-f", home.at("gone")}, HasSubstr("there is no such journal"));
  expectRefusal(home, {"hledger", "-f", home.container()}, HasSubstr("there is no such journal"));
}

TEST(ImportProgram, RefusesSettingsThatDoNotFitTheJournal) {
  const Home home;
  const std::string file = home.journal(kSmallJournal);
  home.settings("\n[[card]]\naccount = \"liabilities:visa\"\nlimit = 5\n");
  expectRefusal(home,
                {"hledger", "-f", file},
                HasSubstr("ledger.toml:2:1: there is no account \"liabilities:visa\""));
  home.settings("\n[[card]]\naccount = \"assets:cash\"\n");
  expectRefusal(
      home, {"hledger", "-f", file}, HasSubstr("ledger.toml:2:1: the card \"assets:cash\""));
  home.settings("commodity = \"EUR\"\n");
  expectRefusal(home, {"hledger", "-f", file}, HasSubstr("commodity \"EUR\" is not in "));
  home.settings("[accounts]\nexclude = [\"(\"]\n");
  expectRefusal(home,
                {"hledger", "-f", file},
                HasSubstr("[accounts] exclude: a query is no regular expression"));
  home.settings("langage = \"de\"\n");
  expectRefusal(home, {"hledger", "-f", file}, HasSubstr("ledger.toml:1:1: unknown key"));
  expectRefusal(home,
                {"hledger", "-f", file, "--config", home.at("other.toml")},
                HasSubstr("other.toml: no such file"));
}

TEST(ImportProgram, RefusesAnHledgerThatIsNone) {
  struct Case {
    std::string_view script;
    std::string_view line;
  };
  for (const auto& [script, line] : std::initializer_list<Case>{
           {"#!/bin/sh\nexit 1\n", "hledger refuses it"},
           {"#!/bin/sh\necho something 9\n", "does not name a version"},
           {"#!/bin/sh\necho hledger 1.19.1\n", "hledger 1.19.1 is too old"},
           {"#!/bin/sh\n[ $1 = --version ] && exec echo hledger 1.25\necho garbage\n",
            "the report of hledger 1.25 has no column \"txnidx\""},
           {"#!/bin/sh\n[ $1 = --version ] && exec echo hledger 1.25\nexec yes\n",
            "is longer than any list of names"},
           {"#!/bin/sh\n[ $1 = --version ] && exec echo hledger 1.25\n[ $1 = print ] || exec echo "
            "x\n"
            "exec yes '\"txnidx\",\"date\",\"description\",\"comment\",\"account\",\"amount\","
            "\"commodity\",\"posting-comment\"'\n",
            "has a date that is not like"},
           {"#!/bin/sh\n[ $1 = --version ] && exec echo hledger 1.25\nkill -9 $$\n",
            "hledger refuses it"}}) {
    const Home home;
    const std::string file = home.journal(kSmallJournal);
    home.fakeHledger(script);
    expectRefusal(home, {"hledger", "-f", file}, HasSubstr(std::string(line)));
  }
}

TEST(ImportProgram, SaysHowToGetHledger) {
  const Home home;
  const std::string file = home.journal(kSmallJournal);
  auto environment = home.environment();
  environment["PATH"] = home.at("bin");
  const auto outcome =
      cli::runProgram(cli::builtProgram("quorvel-import"), {"hledger", "-f", file}, environment);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("apt install hledger"));
}

TEST(ImportProgram, KnowsItsUsage) {
  const Home home;
  for (const cli::Words& words : std::initializer_list<cli::Words>{{},
                                                                   {"draw"},
                                                                   {"hledger", "--nonsense"},
                                                                   {"open"},
                                                                   {"explain", "everything"},
                                                                   {"check", "--watch"}}) {
    const auto outcome = home.run(words);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.errors, Not(IsEmpty()));
  }
  EXPECT_EQ(home.run({"--help"}).status, 0);
  EXPECT_THAT(home.run({"--version"}).out, StartsWith("quorvel-import "));
}

TEST(CheckCommand, SaysWhatEachWidgetWillShowAndNoAmount) {
  const Home home;
  const std::string file = home.journal(
      "2026-03-01 market\n    expenses:food:market  $98765\n    aktiva:bank\n\n"
      "2026-03-02 abroad\n    expenses:food  3 EUR\n    assets:cash\n");
  home.settings(
      "today = 2026-03-14\ncommodity = \"$\"\n[category.\"expenses:food\"]\nname = \"Food\"\n"
      "[category.\"expenses:food:market\"]\nname = \"Market\"\n");
  const auto outcome = home.run({"check", "-f", file});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(
      outcome.out,
      AllOf(HasSubstr("Spending       2026-03 and 0 earlier months, top category expenses:food"),
            HasSubstr("Safe to Spend  nothing: set [budget] total"),
            HasSubstr("Net Worth      1 month of history, no change yet"),
            HasSubstr("Card Limit     nothing: add a [[card]]"),
            HasSubstr("Due            nothing due"),
            HasSubstr("without type   aktiva:bank"),
            HasSubstr("not counted    1 spending posting in other commodities"),
            HasSubstr("no category    expenses:food:market: a category is"),
            HasSubstr("without price  EUR")));
  EXPECT_THAT(outcome.out, Not(HasSubstr("98765")));
  EXPECT_FALSE(fs::exists(home.document()));
}

TEST(ExplainCommand, ListsThePostingsBehindAFigure) {
  const Home home;
  const std::string file = home.journal(
      "2026-03-01 market \x1b[31m red\n    expenses:food:market  $12.50\n    assets:cash\n\n"
      "2026-03-02 back\n    expenses:food:market  $-2.25\n    assets:cash\n");
  home.settings("today = 2026-03-14\n");
  const auto outcome = home.run({"explain", "spending", "-f", file});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out,
            "spending of 2026-03 so far\n"
            "  2026-03-01              12.5  market  [31m red                          "
            "expenses:food:market\n"
            "  2026-03-02             -2.25  back                                      "
            "expenses:food:market\n"
            "                         10.25  spent\n");
  const auto all = home.run({"explain", "-f", file});
  for (const char* title :
       {"spending of 2026-02", "top category expenses:food", "assets", "liabilities"})
    EXPECT_THAT(all.out, HasSubstr(title));
}

TEST(InitCommand, WritesSettingsOnceAndMakesTheContainer) {
  const Home home;
  fs::remove_all(home.container());
  const std::string file = home.journal(kSmallJournal);
  const auto first = home.run({"init", "-f", file});
  EXPECT_EQ(first.status, 0) << first.errors;
  const std::string settings = home.at(".config/quorvel-import/ledger.toml");
  EXPECT_THAT(testsupport::contentsOf(settings), HasSubstr("[\"assets:cash\"]"));
  EXPECT_EQ(home.import().status, 0);
  home.settings("hidden = true\n");
  const auto second = home.run({"init", "-f", file});
  EXPECT_EQ(second.status, 1);
  EXPECT_THAT(second.errors, HasSubstr("--force"));
  EXPECT_EQ(testsupport::contentsOf(settings), "hidden = true\n");
  EXPECT_EQ(home.run({"init", "-f", file, "--force"}).status, 0);
}

}  // namespace
}  // namespace importer
