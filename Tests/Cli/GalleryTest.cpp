// `gallery` as a whole program: the page, its pictures and the contact sheets.
#include <gmock/gmock.h>

#include <memory>
#include <regex>
#include <set>
#include <sstream>

#include "CommandRunner.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace cli {
namespace {

using ::testing::HasSubstr;

std::set<std::string> picturesOf(const std::string& page) {
  std::set<std::string> names;
  const std::regex source{"src=\"([^\"]*)\""};
  for (std::sregex_iterator found{page.begin(), page.end(), source}, end; found != end; ++found) {
    names.insert((*found)[1]);
  }
  return names;
}

Outcome runGallery(const std::string& folder, const Words& more = {}) {
  Words words{"gallery", folder, "--now", "2025-03-14T09:30:00Z", "--time-zone", "UTC"};
  words.insert(words.end(), {"--scale", "0.5"});
  words.insert(words.end(), more.begin(), more.end());
  return runHost(words);
}

/// Hundreds of pictures, drawn once.
class Gallery : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TemporaryFolder>();
    outcome_ = runGallery(folder_->path(), {"--beside", example("household.json").string()});
    page_ = contentsOf(folder_->path() / "index.html");
  }
  static void TearDownTestSuite() { folder_.reset(); }

  static inline std::unique_ptr<TemporaryFolder> folder_;
  static inline Outcome outcome_;
  static inline std::string page_;
};

TEST_F(Gallery, WritesEveryPictureThatItsPageShowsAndNoOther) {
  ASSERT_EQ(outcome_.status, 0) << outcome_.errors;
  const auto pictures = picturesOf(page_);
  EXPECT_GT(pictures.size(), 1000u);
  for (const std::string& name : pictures) {
    EXPECT_TRUE(contentsOf(folder_->path() / name).ends_with("</svg>\n")) << name;
  }
  std::set<std::string> files;
  for (const auto& file : std::filesystem::directory_iterator(folder_->path() / "pictures")) {
    files.insert("pictures/" + file.path().filename().string());
  }
  EXPECT_EQ(files, pictures);
}

TEST_F(Gallery, HasASectionForEachThingToLookAt) {
  std::vector<std::string> missing;
  const auto look = [&](const std::string& text) {
    if (page_.find(text) == std::string::npos) missing.push_back(text);
  };
  for (const std::string id :
       {"widgets", "states", "languages", "modes", "presets", "extremes", "components"}) {
    look("<h2 id=\"" + id + "\">");
    look("href=\"#" + id + "\"");
  }
  for (const char* caption : {"amounts hidden by the application",
                              "hidden by the host",
                              "placeholder",
                              "no document",
                              "without background",
                              "accented with a tint",
                              "vibrant",
                              "compact",
                              "stress",
                              "zh-Hant",
                              "names with emoji",
                              "nine cards",
                              "sixty months",
                              "a month of 28 days"}) {
    look(std::string(" <span>") + caption + "</span>");
  }
  look("Safe to Spend, Small, ");
  EXPECT_THAT(missing, ::testing::IsEmpty());
}

std::size_t countOf(const std::string& text, const std::string& what) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
    ++count;
  return count;
}

TEST_F(Gallery, EverythingStandsInALandmark) {
  EXPECT_EQ(countOf(page_, "<main>"), 1u);
  const std::size_t main = page_.find("<main>");
  const std::size_t end = page_.find("</main>");
  EXPECT_LT(page_.find("</header>"), main);
  EXPECT_EQ(page_.substr(end), "</main>\n</html>\n");
  for (const char* part : {"<nav", "<section", "role=\"radiogroup\""})
    EXPECT_GT(page_.find(part), main) << part;
}

// What is skipped while it is out of sight has a guessed height: links would land beside it.
TEST_F(Gallery, LaysOutWhatIsOutOfSight) {
  EXPECT_EQ(page_.find("content-visibility"), std::string::npos);
  EXPECT_EQ(page_.find("scroll-behavior"), std::string::npos);
}

TEST_F(Gallery, EachPictureHasAVisibleCaption) {
  EXPECT_EQ(countOf(page_, "<figcaption>"), countOf(page_, "<img "));
  EXPECT_GT(countOf(page_, "<figcaption>Small</figcaption>"), 10u);
}

TEST_F(Gallery, PicturesWithoutAGroundStandOnAWallpaper) {
  const auto classOf = [&](const std::string& caption) {
    const std::size_t at = page_.find(caption);
    const std::size_t from = page_.find("<div class=\"ground ", at);
    return page_.substr(from, page_.find('>', from) - from);
  };
  for (const char* caption : {"vibrant</span>", "accented</span>", "accessories</span>"})
    EXPECT_THAT(classOf(caption), HasSubstr("light wallpaper")) << caption;
  EXPECT_THAT(classOf("<h3>Net Worth</h3>"), ::testing::Not(HasSubstr("wallpaper")));
}

TEST_F(Gallery, SaysWhereThingsAreAndTheyAreThere) {
  std::istringstream lines{outcome_.out};
  std::size_t count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    const std::string file = line.substr(line.rfind(' ') + 1);
    EXPECT_TRUE(std::filesystem::exists(file)) << line;
  }
  EXPECT_EQ(count, 8u);  // a sheet for each of seven sections, and the page
}

TEST_F(Gallery, ShowsADocumentThatIsNamed) {
  const TemporaryFolder folder;
  const std::string document = folder.write("d.json", "{}");
  const Outcome outcome = runGallery(folder.at("g"), {"--snapshot", document});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, HasSubstr("d.json"));
  EXPECT_NE(page_.find("sample document"), std::string::npos);
  EXPECT_EQ(contentsOf(folder.path() / "g" / "index.html").find("sample document"),
            std::string::npos);
}

TEST_F(Gallery, DrawsASecondDocumentBesideTheFirst) {
  const auto first = page_.find("<section aria-labelledby=\"widgets\"");
  const auto second = page_.find("<section aria-labelledby=\"states\"");
  const auto beside = page_.find("Net Worth, Examples, ");
  ASSERT_NE(beside, std::string::npos);
  EXPECT_GT(beside, first);
  EXPECT_LT(beside, second);
  EXPECT_EQ(page_.find("Net Worth, Examples, ", second), std::string::npos);
}

TEST_F(Gallery, IsRefusedWhereNoFolderCanBe) {
  const std::string file = folder_->write("f", "");
  const Outcome outcome = runHost({"gallery", file + "/below"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("cannot make"));
}

}  // namespace
}  // namespace cli
