// Reports as another version of hledger writes them, by its documentation: amounts with the digits
// of the journal, more types of accounts, rules named only when asked, more columns in another
// order.
#include "LedgerFolder.hpp"

namespace importer {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

/// Stands for a program: prints a file for each report, and keeps what it was asked.
constexpr std::string_view kScript = R"sh(#!/bin/sh
cd "$(dirname "$0")" || exit 1
if [ "$1" = --version ]; then echo 'hledger 1.42.1, linux-x86_64'; exit; fi
echo "$*" >> asked
[ "$1" = --no-conf ] && shift
case "$*" in
  accounts*) cat accounts ;;
  commodities*) cat commodities ;;
  print*--forecast*) cat ahead.csv ;;
  print*) cat past.csv ;;
  balance*-M*) cat months.csv ;;
  balance*) cat today.csv ;;
esac
)sh";

class OtherVersion : public ::testing::Test {
 protected:
  OtherVersion() {
    folder_.write("hledger", kScript);
    std::filesystem::permissions(folder_.at("hledger"), std::filesystem::perms::owner_all);
    folder_.write("accounts",
                  "assets:bank          ; type: C\nassets:shares        ; type: A\n"
                  "equity:conversion    ; type: V\nexpenses:food        ; type: X\n"
                  "income:gains         ; type: G\nother\n");
    folder_.write("commodities", "\"GOLD 1\"\n$\n");
    folder_.write(
        "past.csv",
        "txnidx,date,date2,status,code,description,comment,account,amount,commodity,credit,"
        "debit,posting-status,posting-comment,lots\n"
        "1,2026-02-03,,,,\"market\",,expenses:food,40.1,$,,40.1,,,\n"
        "1,2026-02-03,,,,\"market\",,assets:bank,-40.1,$,40.1,,,,\n"
        "2,2026-03-04,,,,\"market\",,expenses:food,9,$,,9,,,\n"
        "2,2026-03-04,,,,\"market\",,assets:bank,-9,$,9,,,,\n");
    folder_.write("ahead.csv",
                  "date,txnidx,description,comment,account,commodity,amount,posting-comment\n"
                  "2026-03-01,3,,\"generated-transaction: ~ monthly\",expenses:food,$,400.,\n"
                  "2026-03-01,3,,\"generated-transaction: ~ monthly\",assets:bank,$,-400.,\n"
                  "2026-04-01,4,Rent,\"generated-transaction: ~ monthly\",expenses:food,$,700,\n"
                  "2026-04-01,4,Rent,\"generated-transaction: ~ monthly\",assets:bank,$,-700,\n");
    folder_.write("months.csv",
                  "\"account\",\"commodity\",\"2026-01-31\",\"2026-02-28\"\n"
                  "\"assets:bank\",\"$\",\"100\",\"59.9\"\n");
    folder_.write("today.csv",
                  "account,commodity,balance\nassets:bank,$,50.9\nassets:shares,$,10\n");
  }

  [[nodiscard]] JournalRequest request() const {
    return {.program = folder_.at("hledger"),
            .file = "my.journal",
            .environment = {{"PATH", "/usr/bin:/bin"}},
            .today = day("2026-03-14")};
  }

  testsupport::TemporaryFolder folder_;
};

TEST_F(OtherVersion, IsReadByTheNamesOfColumns) {
  const Settings settings = LedgerFolder::settings("commodity = \"$\"");
  const auto journal = readJournal(request(), settings);
  ASSERT_TRUE(journal) << journal.error().line;
  const auto figures = figuresOf(*journal, settings);
  ASSERT_TRUE(figures);
  EXPECT_EQ(figures->spending->spent, decimal("9"));
  EXPECT_EQ(figures->spending->lastMonthSpent, decimal("40.1"));
  EXPECT_THAT(figures->spending->earlier, SizeIs(2));
  EXPECT_EQ(figures->budget->total, decimal("400"));
  EXPECT_EQ(figures->netWorth->value, decimal("60.9"));
  EXPECT_EQ(figures->netWorth->liquid, decimal("50.9"));
  EXPECT_THAT(figures->netWorth->history, SizeIs(3));
  ASSERT_THAT(figures->dues, SizeIs(1));
  EXPECT_EQ(figures->dues[0].name, "Rent");
}

TEST_F(OtherVersion, IsAskedForWhatItNoLongerSaysUnasked) {
  const Settings settings;
  ASSERT_TRUE(readJournal(request(), settings));
  std::istringstream asked(testsupport::contentsOf(folder_.at("asked")));
  int forecasts = 0;
  for (std::string line; std::getline(asked, line);) {
    EXPECT_THAT(line, ::testing::StartsWith("--no-conf "));
    if (!line.starts_with("--no-conf print") || !line.contains("--forecast")) continue;
    EXPECT_THAT(line, HasSubstr("--verbose-tags"));
    ++forecasts;
  }
  EXPECT_EQ(forecasts, 1);
}

TEST_F(OtherVersion, IsRefusedWhereItDrifts) {
  const auto refusal = [&](std::string_view file, std::string_view text) {
    const std::string before = testsupport::contentsOf(folder_.at(file));
    folder_.write(file, text);
    const auto journal = readJournal(request(), LedgerFolder::settings("commodity = \"$\""));
    folder_.write(file, before);
    return journal ? "accepted" : journal.error().line;
  };
  const std::string header =
      "date,txnidx,description,comment,account,commodity,amount,posting-comment\n";
  EXPECT_THAT(refusal("past.csv", "date,txnidx,description\n"),
              HasSubstr("has no column \"comment\""));
  EXPECT_THAT(refusal("past.csv", ""), HasSubstr("ends in the middle"));
  EXPECT_THAT(refusal("past.csv", header + "2026-03-01,1,x\n"), HasSubstr("a row of 3 cells"));
  EXPECT_THAT(refusal("past.csv", header + "03/01,1,x,,a,$,1,\n"), HasSubstr("a date that is not"));
  EXPECT_THAT(refusal("past.csv", header + "2026-03-01,1,x,,a,$,\"1,5\",\n"),
              HasSubstr("an amount"));
  EXPECT_THAT(refusal("past.csv", header + "2026-03-01,1,\xff,,a,$,1,\n"), HasSubstr("not UTF-8"));
  EXPECT_THAT(refusal("past.csv", header + "2026-03-01,1,\"x"), HasSubstr("ends in the middle"));
  EXPECT_THAT(refusal("today.csv", "account,balance\n"), HasSubstr("does not begin with"));
  EXPECT_THAT(refusal("today.csv", "account,commodity,a,b\n"), HasSubstr("not one column"));
  EXPECT_THAT(refusal("months.csv", "account,commodity,Jan\n"), HasSubstr("no month"));
}

TEST_F(OtherVersion, IsEndedWhereItHangs) {
  folder_.write("hledger", "#!/bin/sh\n[ $1 = --version ] && exec echo hledger 1.42\nsleep 1000\n");
  JournalRequest hanging = request();
  hanging.limits.time = std::chrono::milliseconds(300);
  const Settings settings;
  const auto journal = readJournal(hanging, settings);
  ASSERT_FALSE(journal);
  EXPECT_THAT(journal.error().line, HasSubstr("my.journal: hledger did not finish in time"));
}

TEST(HledgerVersion, IsReadFromItsOwnWords) {
  EXPECT_EQ(hledgerVersion("hledger 1.25, linux-x86_64\n"), 1025);
  EXPECT_EQ(hledgerVersion("hledger 1.32.3"), 1032);
  EXPECT_EQ(hledgerVersion("hledger 2.0-beta"), 2000);
  for (const char* text : {"", "hledger", "hledger x", "ledger 3.3", "hledger 1", "hledger -1.25"})
    EXPECT_FALSE(hledgerVersion(text)) << text;
}

}  // namespace
}  // namespace importer
