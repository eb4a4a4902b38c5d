#include <gmock/gmock.h>

#include <filesystem>

#include "Foundation/Bundle.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/UserDefaults.hpp"
#include "QuorvelWidgets/AddExpense/AddExpenseIntent.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace quorvel {
namespace {

class AddExpenseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    center_.addObserver(std::string{kAddExpenseNotification},
                        nullptr,
                        [this](const foundation::Notification& notification) {
                          EXPECT_EQ(notification.object, nullptr);
                          ++posts_;
                        });
  }

  [[nodiscard]] AddExpenseIntent intent(const std::filesystem::path& container) const {
    const auto files = foundation::FileManager::withContainer(container.string());
    return {SnapshotStore{foundation::Bundle{}, files}, files, center_};
  }
  [[nodiscard]] foundation::UserDefaults suite() const {
    return *foundation::UserDefaults::initWithSuiteName(
        "group.app.quorvel.widgets",
        foundation::FileManager::withContainer(folder_.path().string()));
  }

  testsupport::TemporaryFolder folder_;
  foundation::NotificationCenter center_;
  int posts_ = 0;
};

TEST_F(AddExpenseTest, LeavesTheFlagOnDiskAndPosts) {
  intent(folder_.path()).perform();
  EXPECT_TRUE(std::filesystem::exists(folder_.path() / "Library/Preferences" /
                                      "group.app.quorvel.widgets.plist"));
  EXPECT_TRUE(suite().boolForKey("widget.pendingAddExpense"));
  EXPECT_EQ(posts_, 1);
}

TEST_F(AddExpenseTest, KeepsOtherKeys) {
  ASSERT_TRUE(suite().setBool(true, "another.key"));
  intent(folder_.path()).perform();
  EXPECT_TRUE(suite().boolForKey("another.key"));
  EXPECT_TRUE(suite().boolForKey("widget.pendingAddExpense"));
}

TEST_F(AddExpenseTest, TwiceLeavesItTrue) {
  intent(folder_.path()).perform();
  intent(folder_.path()).perform();
  EXPECT_TRUE(suite().boolForKey("widget.pendingAddExpense"));
  EXPECT_EQ(posts_, 2);
}

TEST_F(AddExpenseTest, WithoutAContainerItPostsAndSetsNothing) {
  const auto missing = folder_.path() / "missing";
  intent(missing).perform();
  EXPECT_EQ(posts_, 1);
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(AddExpenseTest, OpensTheApplicationAndIsNamedSo) {
  const widgetruntime::Action action = intent(folder_.path()).action("en");
  EXPECT_EQ(action.name, "AddExpenseIntent");
  EXPECT_EQ(action.title, "Add Expense");
  EXPECT_TRUE(action.openAppWhenRun);
  const widgetruntime::Control control = AddExpenseControl::configuration("en");
  EXPECT_EQ(control.kind, "QuorvelAddExpenseControl");
  EXPECT_EQ(control.label, "Add Expense");
  EXPECT_EQ(control.symbol, "plus");
  EXPECT_EQ(control.intent, action.name);
}

}  // namespace
}  // namespace quorvel
