// Where the store looks, and what it makes of what it finds.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

#include "Foundation/Bundle.hpp"
#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "SnapshotFixtures.hpp"

namespace quorvel {
namespace {

using foundation::Bundle;
using foundation::FileManager;
using foundation::PropertyList;
using testsupport::minimalDocument;

SnapshotStore storeWith(PropertyList::Dictionary information) {
  return {Bundle(std::move(information)), FileManager("/nowhere")};
}

TEST(SnapshotStoreSettings, WithoutAppGroupKeyTheFallbackHolds) {
  EXPECT_EQ(storeWith({}).appGroup(), "group.app.quorvel.widgets");
}

TEST(SnapshotStoreSettings, EmptyAppGroupGivesTheFallback) {
  EXPECT_EQ(storeWith({{"QuorvelAppGroup", ""}}).appGroup(), "group.app.quorvel.widgets");
}

TEST(SnapshotStoreSettings, AppGroupOfAnotherTypeGivesTheFallback) {
  EXPECT_EQ(storeWith({{"QuorvelAppGroup", std::int64_t{7}}}).appGroup(),
            "group.app.quorvel.widgets");
  EXPECT_EQ(storeWith({{"QuorvelAppGroup", true}}).appGroup(), "group.app.quorvel.widgets");
}

TEST(SnapshotStoreSettings, AppGroupKeyIsTaken) {
  EXPECT_EQ(storeWith({{"QuorvelAppGroup", "group.example"}}).appGroup(), "group.example");
  EXPECT_EQ(storeWith({{"QuorvelAppGroup", " "}}).appGroup(), " ");
}

TEST(SnapshotStoreSettings, WithoutUrlSchemeKeyTheSchemeIsQuorvelWidget) {
  EXPECT_EQ(storeWith({}).urlScheme(), "quorvel-widget");
  EXPECT_EQ(storeWith({{"QuorvelURLScheme", ""}}).urlScheme(), "quorvel-widget");
}

TEST(SnapshotStoreSettings, UrlSchemeKeyIsTaken) {
  EXPECT_EQ(storeWith({{"QuorvelURLScheme", "quorvel-beta"}}).urlScheme(), "quorvel-beta");
}

TEST(SnapshotStoreSettings, ManyCallersGetOneValue) {
  const SnapshotStore store = storeWith({{"QuorvelAppGroup", "group.example"}});
  std::vector<const std::string*> seen(8);
  {
    std::vector<std::jthread> callers;
    for (auto& slot : seen) {
      callers.emplace_back([&slot, copy = store] { slot = &copy.appGroup(); });
    }
  }
  for (const std::string* value : seen) {
    EXPECT_EQ(value, seen.front());
    EXPECT_EQ(*value, "group.example");
  }
}

/// A container root with the fallback group's folder.
class SnapshotStoreFiles : public testing::Test {
 protected:
  testsupport::TemporaryFolder root;
  const std::string group = "group.app.quorvel.widgets";
  const std::string container = (root.path() / group).string();
  const SnapshotStore store{Bundle(), FileManager(root.path().string())};

  void SetUp() override { std::filesystem::create_directory(container); }
  void writeDocument(std::string_view text) const {
    root.write(group + "/widget-snapshot.json", text);
  }
};

TEST_F(SnapshotStoreFiles, LoadsTheDocumentInTheContainer) {
  writeDocument(minimalDocument().dump());
  const auto snapshot = store.load();
  ASSERT_TRUE(snapshot);
  EXPECT_EQ(snapshot->totalRemaining, 25730);
  EXPECT_EQ(store.documentPath(), container + "/widget-snapshot.json");
}

TEST_F(SnapshotStoreFiles, WithoutContainerThereIsNothing) {
  std::filesystem::remove_all(container);
  EXPECT_FALSE(store.container());
  EXPECT_FALSE(store.documentPath());
  EXPECT_FALSE(store.load());
  EXPECT_FALSE(store.cardImageURL("a"));
  EXPECT_FALSE(store.brandImageURL("netflix"));
}

TEST_F(SnapshotStoreFiles, AnotherGroupsDocumentIsNotRead) {
  writeDocument(minimalDocument().dump());
  const SnapshotStore other(Bundle(PropertyList::Dictionary{{"QuorvelAppGroup", "group.other"}}),
                            FileManager(root.path().string()));
  EXPECT_FALSE(other.load());
}

TEST_F(SnapshotStoreFiles, MissingFileLoadsNothing) {
  EXPECT_FALSE(store.load());
}

TEST_F(SnapshotStoreFiles, DocumentWithoutCardsLoadsNothing) {
  auto document = minimalDocument();
  document.erase("cards");
  writeDocument(document.dump());
  EXPECT_FALSE(store.load());
}

TEST_F(SnapshotStoreFiles, BadJsonLoadsNothing) {
  writeDocument(minimalDocument().dump() + "x");
  EXPECT_FALSE(store.load());
  writeDocument("");
  EXPECT_FALSE(store.load());
}

TEST_F(SnapshotStoreFiles, DirectoryOrPipeInPlaceOfTheDocumentLoadsNothing) {
  const std::string path = container + "/widget-snapshot.json";
  std::filesystem::create_directory(path);
  EXPECT_FALSE(store.load());
  std::filesystem::remove(path);
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_FALSE(store.load());  // and returns: nobody ever writes into the pipe
}

TEST_F(SnapshotStoreFiles, OversizedDocumentLoadsNothing) {
  writeDocument(minimalDocument().dump());
  ASSERT_TRUE(store.load());
  // White space after the root would be fine; the size alone is refused.
  std::filesystem::resize_file(container + "/widget-snapshot.json", (std::size_t{64} << 20) + 1);
  EXPECT_FALSE(store.load());
}

TEST_F(SnapshotStoreFiles, EveryLoadReadsTheFileAnew) {
  auto document = minimalDocument();
  writeDocument(document.dump());
  EXPECT_EQ(store.load()->totalLimit, 30000);
  document["totalLimit"] = 31000;
  writeDocument(document.dump());
  EXPECT_EQ(store.load()->totalLimit, 31000);
  std::filesystem::remove(container + "/widget-snapshot.json");
  EXPECT_FALSE(store.load());
}

TEST_F(SnapshotStoreFiles, ConcurrentLoadsAgree) {
  writeDocument(testsupport::fullDocument().dump());
  const auto expected = store.load();
  ASSERT_TRUE(expected);
  std::vector<std::jthread> callers;
  for (int i = 0; i < 8; ++i) {
    callers.emplace_back([&] { EXPECT_EQ(store.load(), expected); });
  }
}

TEST_F(SnapshotStoreFiles, NamedFileIsReadInPlaceOfTheContainersDocument) {
  writeDocument(minimalDocument().dump());
  auto document = minimalDocument();
  document["lang"] = "ja";
  root.write("other.json", document.dump());
  const SnapshotStore named(
      Bundle(), FileManager(root.path().string()), (root.path() / "other.json").string());
  ASSERT_TRUE(named.load());
  EXPECT_EQ(named.load()->lang, "ja");
}

TEST_F(SnapshotStoreFiles, ImagesLieBesideTheDocument) {
  EXPECT_EQ(store.cardImageURL("AB 12/x.y"), container + "/widget-cards/AB_12_x_y.jpg");
  EXPECT_EQ(store.cardImageURL("card-7"), container + "/widget-cards/card-7.jpg");
  EXPECT_EQ(store.brandImageURL("netflix"), container + "/widget-brands/netflix.png");
}

TEST(SnapshotImageNames, CardIdWithSpacesDotsAndSlashes) {
  EXPECT_EQ(cardImagePath("AB 12/x.y"), "widget-cards/AB_12_x_y.jpg");
}

TEST(SnapshotImageNames, HyphenIsKept) {
  EXPECT_EQ(cardImagePath("card-7"), "widget-cards/card-7.jpg");
}

TEST(SnapshotImageNames, EmptyIdentifierGivesAnEmptyName) {
  EXPECT_EQ(imageFileName(""), "");
  EXPECT_EQ(brandImagePath(""), "widget-brands/.png");
}

TEST(SnapshotImageNames, CharacterByCharacter) {
  struct Row {
    const char* identifier;
    const char* name;
  };
  for (const Row& row : std::initializer_list<Row>{
           {"caf\u00E9", "caf\u00E9"},
           {"cafe\u0301", "cafe\u0301"},  // the mark goes with its letter
           {"東京", "東京"},
           {"عربي", "عربي"},
           {"हिन्दी", "हिन्दी"},
           {"한국", "한국"},
           {"Ⅷ①㊈½²₂٣𝟠〇ª", "Ⅷ①㊈½²₂٣𝟠〇ª"},
           {"a_b", "a_b"},
           {"_", "_"},
           {"a\tb\nc", "a_b_c"},
           {"a\r\nb", "a_b"},  // one character
           {"1\uFE0F\u20E3", "1\uFE0F\u20E3"},
           {"#\uFE0F\u20E3", "_"},
           {"🇩🇪", "_"},
           {"👨‍👩‍👧", "_"},
           {"\u0301", "_"},
           {"-", "-"},
           {"-\u0301", "_"},
           {"../../etc/passwd", "______etc_passwd"},
           {"$€", "__"},
       }) {
    EXPECT_EQ(imageFileName(row.identifier), row.name) << row.identifier;
  }
  EXPECT_EQ(imageFileName(std::string_view("a\0b", 3)), "a_b");
}

TEST(SnapshotStoreSample, IsBuiltOnceAndKept) {
  const SnapshotStore store = storeWith({});
  const WidgetSnapshot& first = store.sample(testsupport::device(1741944600, "UTC", {"de-DE"}));
  EXPECT_EQ(first.lang, "de");
  EXPECT_EQ(&store.sample(testsupport::device(0)), &first);
  const SnapshotStore copy = store;
  EXPECT_EQ(&copy.sample(testsupport::device(0)), &first);
}

}  // namespace
}  // namespace quorvel
