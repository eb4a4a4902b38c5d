#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>

#include "Foundation/Bundle.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/UserDefaults.hpp"
#include "QuorvelWidgets/AddExpenseIntent.hpp"

namespace quorvel {
namespace {

class AddExpenseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ =
        std::filesystem::path{::testing::TempDir()} / ("add-expense-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder_);
    center_.addObserver(std::string{kAddExpenseNotification},
                        nullptr,
                        [this](const foundation::Notification& notification) {
                          EXPECT_EQ(notification.object, nullptr);
                          ++posts_;
                        });
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] AddExpenseIntent intent(const std::filesystem::path& container) const {
    const auto files = foundation::FileManager::withContainer(container.string());
    return {SnapshotStore{foundation::Bundle{}, files}, files, center_};
  }
  [[nodiscard]] foundation::UserDefaults suite() const {
    return *foundation::UserDefaults::initWithSuiteName(
        "group.app.quorvel.widgets", foundation::FileManager::withContainer(folder_.string()));
  }

  std::filesystem::path folder_;
  foundation::NotificationCenter center_;
  int posts_ = 0;
};

TEST_F(AddExpenseTest, LeavesTheFlagOnDiskAndPosts) {
  intent(folder_).perform();
  EXPECT_TRUE(
      std::filesystem::exists(folder_ / "Library/Preferences" / "group.app.quorvel.widgets.plist"));
  EXPECT_TRUE(suite().boolForKey("widget.pendingAddExpense"));
  EXPECT_EQ(posts_, 1);
}

TEST_F(AddExpenseTest, KeepsOtherKeys) {
  ASSERT_TRUE(suite().setBool(true, "another.key"));
  intent(folder_).perform();
  EXPECT_TRUE(suite().boolForKey("another.key"));
  EXPECT_TRUE(suite().boolForKey("widget.pendingAddExpense"));
}

TEST_F(AddExpenseTest, TwiceLeavesItTrue) {
  intent(folder_).perform();
  intent(folder_).perform();
  EXPECT_TRUE(suite().boolForKey("widget.pendingAddExpense"));
  EXPECT_EQ(posts_, 2);
}

TEST_F(AddExpenseTest, WithoutAContainerItPostsAndSetsNothing) {
  const auto missing = folder_ / "missing";
  intent(missing).perform();
  EXPECT_EQ(posts_, 1);
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(AddExpenseTest, OpensTheApplicationAndIsNamedSo) {
  const widgetruntime::Action action = intent(folder_).action();
  EXPECT_EQ(action.name, "AddExpenseIntent");
  EXPECT_EQ(action.title, "Add Expense");
  EXPECT_TRUE(action.openAppWhenRun);
  const widgetruntime::Control control = AddExpenseControl::configuration();
  EXPECT_EQ(control.kind, "QuorvelAddExpenseControl");
  EXPECT_EQ(control.label, "Add Expense");
  EXPECT_EQ(control.symbol, "plus");
  EXPECT_EQ(control.intent, action.name);
}

}  // namespace
}  // namespace quorvel
