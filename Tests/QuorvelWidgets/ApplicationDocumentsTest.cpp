// What the pages for an application's author name is what the program does.
#include <fmt/format.h>
#include <gmock/gmock.h>

#include "Foundation/FileManager.hpp"
#include "Foundation/JsonScanner.hpp"
#include "QuorvelWidgets/AddExpense/AddExpenseIntent.hpp"
#include "QuorvelWidgets/Due/DueContent.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/WidgetLink.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "ViewKit/TreeJson.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace quorvel {
namespace {

using ::testing::HasSubstr;

std::string page(const std::string& name) {
  return testsupport::contentsOf(std::string(QUORVEL_SOURCE_DIR "/docs/") + name);
}

// With a comma behind the thousands, as the pages write it.
std::string grouped(std::size_t number) {
  return number < 1000 ? fmt::format("{}", number)
                       : fmt::format("{},{:03}", number / 1000, number % 1000);
}

TEST(ApplicationPage, NamesKeyFileNotificationAndLinks) {
  const std::string text = page("application.md");
  for (const std::string& named :
       {std::string(kPendingAddExpenseKey),
        std::string(kAddExpenseNotification),
        std::string(kSnapshotFileName),
        cardImagePath("<card name>").substr(0, 13),
        brandImagePath("<brand name>").substr(0, 14),
        std::string("Library/Preferences/group.app.quorvel.widgets.plist"),
        std::string("x-scheme-handler/quorvel-widget")}) {
    EXPECT_THAT(text, HasSubstr(named));
  }
  for (const char* destination : {"dashboard", "budget", "spending", "bills", "cards"}) {
    EXPECT_THAT(text, HasSubstr("| `" + widgetLink("quorvel-widget", destination) + "` |"));
  }
  EXPECT_THAT(text, HasSubstr("| `" + cardLink("quorvel-widget", "<id>") + "` |"));
}

TEST(SnapshotPage, NamesTheBounds) {
  const std::string text = page("snapshot.md");
  const std::string rows[] = {
      fmt::format("| size of the document | {} MiB;", foundation::kMaximumFileSize >> 20),
      fmt::format("| payments that are shown | the first {} ", kMostDues),
      fmt::format("| a text that is drawn or spoken | its first {} bytes;",
                  grouped(viewkit::kMaximumWrittenText)),
      fmt::format("| name of a card where one is chosen | its first {} bytes |",
                  widgetruntime::kMaximumTitle),
      fmt::format("| identifier of a card | {} bytes where one is chosen,",
                  grouped(widgetruntime::kMaximumString)),
      fmt::format("| cards that are offered for choosing | the first {};",
                  grouped(widgetruntime::kMaximumItems)),
      fmt::format("their pointers' first {} bytes |", foundation::kMaximumPointer)};
  for (const std::string& row : rows) EXPECT_THAT(text, HasSubstr(row));
}

}  // namespace
}  // namespace quorvel
