// Actions, and the links that they open.

#include "Commands/CommandsFixture.hpp"

namespace cli {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST_P(Commands, PerformLeavesTheRequestAndPrintsTheLink) {
  const TemporaryFolder folder;
  const Outcome outcome =
      run({"perform", "AddExpenseIntent", "--no-open", "--container", folder.path()});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out, "quorvel-widget://\n");
  std::string preferences;
  for (const auto& entry :
       std::filesystem::directory_iterator(folder.path() / "Library/Preferences")) {
    preferences += contentsOf(entry.path());
  }
  EXPECT_THAT(preferences, HasSubstr("widget.pendingAddExpense"));
}

TEST_P(Commands, PerformSaysThatThereIsNoContainer) {
  const TemporaryFolder home;
  const Outcome outcome =
      runHost({"perform", "AddExpenseIntent", "--no-open"}, {{"HOME", home.path().string()}});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.errors, HasSubstr("there is no container"));
}

TEST_P(Commands, AnIntentThatConfiguresHasNothingToDo) {
  for (const char* intent : {"SelectCardIntent", "SafeToSpendIntent"}) {
    const TemporaryFolder folder;
    const Outcome outcome = run({"perform", intent, "--no-open", "--container", folder.path()});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_THAT(outcome.out + outcome.errors, IsEmpty());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
  }
}

TEST(Perform, HandsTheLinkToAProgram) {
  const TemporaryFolder folder;
  const Outcome outcome = runHost(
      {"perform", "AddExpenseIntent", "--open-with", "echo open", "--container", folder.path()});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.out, "open quorvel-widget://\n");
}

TEST(Perform, TellsAPersonWhenTheApplicationCannotBeOpened) {
  const TemporaryFolder folder;
  const Outcome failing = runHost(
      {"perform", "AddExpenseIntent", "--open-with", "false", "--container", folder.path()});
  EXPECT_EQ(failing.status, 1);
  EXPECT_THAT(failing.errors, HasSubstr("false could not open quorvel-widget:// (status 1)"));
  // A desktop on which nothing answers to the scheme: xdg-mime prints nothing.
  const std::string tool = folder.write("xdg-mime", "#!/bin/sh\nexit 0\n");
  std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
  const Outcome unregistered =
      runHost({"perform", "AddExpenseIntent", "--container", folder.path()},
              {{"PATH", folder.path().string() + ":/usr/bin:/bin"}});
  EXPECT_EQ(unregistered.status, 1);
  EXPECT_THAT(unregistered.errors,
              HasSubstr("no application is registered for quorvel-widget links"));
  EXPECT_THAT(unregistered.errors, HasSubstr("quorvel-widget://"));
}

}  // namespace
}  // namespace cli
