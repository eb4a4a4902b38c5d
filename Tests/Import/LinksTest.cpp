// The widgets' links, and the request that the add-expense control leaves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Foundation/UserDefaults.hpp"
#include "Import/Links.hpp"
#include "Importing.hpp"
#include "QuorvelWidgets/AddExpense/AddExpenseIntent.hpp"

namespace importer {
namespace {

using ::testing::HasSubstr;

constexpr const char* kGroup = "group.app.quorvel.widgets";

TEST(Links, AreWhatTheWidgetsLinkTo) {
  const auto destination = [](std::string_view url) {
    const auto found = destinationOf(url, "quorvel-widget");
    return found ? *found : "refused: " + found.error().line;
  };
  EXPECT_EQ(destination("quorvel-widget://open/budget"), "budget");
  EXPECT_EQ(destination("quorvel-widget://open/spending"), "spending");
  EXPECT_EQ(destination("quorvel-widget://open/dashboard"), "dashboard");
  EXPECT_EQ(destination("quorvel-widget://open/cards"), "cards");
  EXPECT_EQ(destination("quorvel-widget://open/card/card-liabilities:visa"), "cards");
  EXPECT_EQ(destination("quorvel-widget://open/bills"), "bills");
  EXPECT_EQ(destination("quorvel-widget://open/add-expense"), "add-expense");
  EXPECT_EQ(destination("quorvel-widget://"), "");
  EXPECT_EQ(destination("quorvel-widget://open/"), "");
  EXPECT_THAT(destination("quorvel-widget://open/$(reboot)"), HasSubstr("leads nowhere"));
  EXPECT_THAT(destination("https://example.org/open/budget"),
              HasSubstr("no quorvel-widget:// link"));
  EXPECT_THAT(destination(""), HasSubstr("refused"));
}

TEST(Links, ShareTheNameOfTheRequest) {
  EXPECT_EQ(kPendingAddExpenseKey, quorvel::kPendingAddExpenseKey);
}

/// Each destination leaves its name, and the link, in a file.
class OpenCommand : public ::testing::Test {
 protected:
  OpenCommand() {
    std::string table = "[open]\n";
    for (const std::string_view destination : kDestinations) {
      table += std::string(destination) + " = 'echo " + std::string(destination) + " \"$1\" > " +
               home_.at("ran") + "'\n";
    }
    home_.settings(table);
  }
  std::string opened(const std::string& url) {
    const auto outcome = home_.run({"open", url});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return testsupport::contentsOf(home_.at("ran"));
  }
  [[nodiscard]] foundation::UserDefaults preferences() const {
    return *foundation::UserDefaults::initWithSuiteName(
        kGroup, foundation::FileManager::withContainer(home_.container()));
  }
  [[nodiscard]] bool isPending() const { return preferences().boolForKey(kPendingAddExpenseKey); }

  Home home_;
};

TEST_F(OpenCommand, RunsWhatIsSetForALink) {
  EXPECT_EQ(opened("quorvel-widget://open/budget"), "budget quorvel-widget://open/budget\n");
  EXPECT_EQ(opened("quorvel-widget://open/card/x y;z"), "cards quorvel-widget://open/card/x y;z\n");
  EXPECT_EQ(opened("quorvel-widget://"), "dashboard quorvel-widget://\n");
}

TEST_F(OpenCommand, TakesTheRequestOfTheControlOnce) {
  ASSERT_TRUE(preferences().setBool(true, std::string(kPendingAddExpenseKey)));
  ASSERT_TRUE(preferences().setBool(true, "kept"));
  EXPECT_EQ(opened("quorvel-widget://open/bills"), "bills quorvel-widget://open/bills\n");
  EXPECT_TRUE(isPending());
  EXPECT_EQ(opened("quorvel-widget://"), "add-expense quorvel-widget://\n");
  EXPECT_FALSE(isPending());
  EXPECT_TRUE(preferences().boolForKey("kept"));
  EXPECT_EQ(opened("quorvel-widget://"), "dashboard quorvel-widget://\n");
}

TEST_F(OpenCommand, TakesTheRequestThatThePerformedIntentLeft) {
  const auto performed =
      cli::runHost({"perform", "AddExpenseIntent", "--no-open", "--container", home_.container()});
  ASSERT_EQ(performed.status, 0) << performed.errors;
  EXPECT_TRUE(isPending());
  EXPECT_EQ(opened("quorvel-widget://"), "add-expense quorvel-widget://\n");
  EXPECT_FALSE(isPending());
}

TEST_F(OpenCommand, OpensTheJournalWhereNothingIsSet) {
  home_.settings("hidden = true\n");
  home_.journal(kSmallJournal);
  const std::string opener =
      home_.write("bin/xdg-open", "#!/bin/sh\necho \"$1\" > " + home_.at("ran") + "\n");
  std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
  const auto outcome =
      home_.run({"open", "quorvel-widget://open/budget", "-f", home_.at("my.journal")});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(testsupport::contentsOf(home_.at("ran")), home_.at("my.journal") + "\n");
}

TEST_F(OpenCommand, SaysWhatFailed) {
  home_.settings("[open]\nbudget = \"exit 3\"\n");
  const auto failed = home_.run({"open", "quorvel-widget://open/budget"});
  EXPECT_EQ(failed.status, 1);
  EXPECT_THAT(failed.errors, HasSubstr("`exit 3` failed (status 3)"));
  EXPECT_EQ(home_.run({"open", "https://example.org"}).status, 1);
}

}  // namespace
}  // namespace importer
