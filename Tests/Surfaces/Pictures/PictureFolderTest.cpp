#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "Surfaces/Pictures/PictureFolder.hpp"
#include "Tests/Support/FileSizeLimit.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace surfaces {
namespace {

namespace fs = std::filesystem;
using testsupport::contentsOf;
using widgetruntime::WidgetFamily;

class PictureFolderTest : public ::testing::Test {
 protected:
  static Shown shown(std::uint32_t color, bool isHidden) {
    auto picture = std::make_shared<Picture>();
    picture->bitmap = {2, 1, 2, {color, color}};
    picture->isRedacted = isHidden;
    return {.state = State::live, .isHidden = isHidden, .picture = std::move(picture)};
  }

  testsupport::TemporaryFolder folder;
  PictureFolder pictures{folder.path().string(), {.scale = 3}};
  Subject subject{.id = "w1", .kind = "Kind", .family = WidgetFamily::systemMedium};
  std::string file = folder.at("w1.png");
};

TEST_F(PictureFolderTest, WantsWhatIsPlacedInItsLook) {
  const auto demand = pictures.place(subject);
  ASSERT_TRUE(demand);
  EXPECT_EQ(demand->options.scale, 3);
  EXPECT_TRUE(demand->options.showsBackground);
  subject.isPlaced = false;
  EXPECT_FALSE(pictures.place(subject));
}

TEST_F(PictureFolderTest, ReplacesThePictureAndRemovesIt) {
  pictures.show(subject, shown(0xFF112233, false));
  const std::string first = contentsOf(file);
  EXPECT_THAT(first, ::testing::StartsWith("\x89PNG"));
  pictures.show(subject, shown(0xFF445566, false));
  EXPECT_NE(contentsOf(file), first);
  pictures.remove("w1");
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(PictureFolderTest, KeepsThePictureWhenTheStateAloneChanges) {
  pictures.show(subject, shown(0xFF112233, false));
  const std::string first = contentsOf(file);
  pictures.show(subject, {.state = State::stale});
  EXPECT_EQ(contentsOf(file), first);
}

TEST_F(PictureFolderTest, KeepsTheOldPictureOnAFullDisk) {
  pictures.show(subject, shown(0xFF112233, false));
  const std::string first = contentsOf(file);
  const testsupport::FileSizeLimit full{10};
  pictures.show(subject, shown(0xFF445566, false));
  EXPECT_EQ(contentsOf(file), first);
}

TEST_F(PictureFolderTest, LeavesNoOpenPictureWhenTheRedactedOneDoesNotFit) {
  pictures.show(subject, shown(0xFF112233, false));
  const testsupport::FileSizeLimit full{10};
  pictures.show(subject, shown(0xFF445566, true));
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

}  // namespace
}  // namespace surfaces
