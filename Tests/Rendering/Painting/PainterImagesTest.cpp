// Pictures within pictures.
#include <filesystem>

#include "Painting/Painting.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace rendering {
namespace {

using namespace viewkit;

class PaintingImages : public Painting {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(directory / "container" / "sub");
    options = plain(8, 4);
    options.container = directory / "container";
  }
  /// Left half red, right half blue.
  static std::string halves(int width, int height) {
    Bitmap b{width, height, width, {}};
    for (int i = 0; i < width * height; ++i)
      b.pixels.push_back(i % width < width / 2 ? 0xFFFF0000 : 0xFF0000FF);
    return encodePng(b);
  }
  View image(std::string path,
             ImageElement::ContentMode mode = ImageElement::ContentMode::stretch) {
    return Image{{.path = std::move(path), .mode = mode}, box(Color::same(0x00FF00), 8, 4)};
  }
  bool showsStandIn(const View& view) { return at(draw(view, options), 4, 2) == 0xFF00FF00; }

  testsupport::TemporaryFolder folder;
  const std::filesystem::path directory = folder.path();
  RenderOptions options;
};

TEST_F(PaintingImages, AreScaledIntoTheirFrame) {
  folder.write("container/sub/h.png", halves(80, 40));
  const Bitmap b = draw(image("sub/h.png"), options);
  EXPECT_EQ(at(b, 0, 0), 0xFFFF0000);
  EXPECT_EQ(at(b, 2, 3), 0xFFFF0000);
  EXPECT_EQ(at(b, 5, 0), 0xFF0000FF);
  EXPECT_EQ(at(b, 7, 3), 0xFF0000FF);
}

TEST_F(PaintingImages, FillCoversAndFitLeavesRoom) {
  folder.write("container/s.png", halves(40, 40));
  const Bitmap fill = draw(image("s.png", ImageElement::ContentMode::fill), options);
  EXPECT_EQ(at(fill, 0, 0), 0xFFFF0000);
  EXPECT_EQ(at(fill, 7, 3), 0xFF0000FF);
  const Bitmap fit = draw(image("s.png", ImageElement::ContentMode::fit), options);
  EXPECT_EQ(at(fit, 0, 0), 0u);
  EXPECT_EQ(at(fit, 2, 0), 0xFFFF0000);
  EXPECT_EQ(at(fit, 5, 3), 0xFF0000FF);
}

TEST_F(PaintingImages, StandInsReplaceWhatCannotBeRead) {
  folder.write("container/good.png", halves(8, 4));
  folder.write("container/text.png", "no picture");
  folder.write("container/cut.png", halves(80, 40).substr(0, 60));
  folder.write("outside.png", halves(8, 4));
  std::filesystem::create_symlink(directory / "outside.png", directory / "container" / "link.png");
  std::filesystem::create_directory_symlink(directory, directory / "container" / "up");
  EXPECT_FALSE(showsStandIn(image("good.png")));
  for (const char* path : {"missing.png",
                           "text.png",
                           "cut.png",
                           "../outside.png",
                           "link.png",
                           "up/outside.png",
                           "sub",
                           "sub/../good.png",
                           "",
                           "/etc/passwd",
                           "./good.png"}) {
    EXPECT_TRUE(showsStandIn(image(path))) << path;
  }
  EXPECT_TRUE(showsStandIn(image(directory / "outside.png"))) << "absolute";
  options.container.clear();
  EXPECT_TRUE(showsStandIn(image("good.png"))) << "no container";
}

TEST_F(PaintingImages, HugePicturesAreRefusedByTheirHeader) {
  std::string huge = halves(8, 4);
  // Width and height stand at bytes 16 and 20; the reader checks the size before it checks the sum.
  for (int i : {16, 20}) {
    huge[static_cast<std::size_t>(i) + 2] = static_cast<char>(30000 >> 8);
    huge[static_cast<std::size_t>(i) + 3] = static_cast<char>(30000 & 255);
  }
  folder.write("container/huge.png", huge);
  EXPECT_TRUE(showsStandIn(image("huge.png")));
  folder.write("container/long.png", halves(8, 4));
  std::filesystem::resize_file(directory / "container" / "long.png", std::uintmax_t{1} << 30);
  EXPECT_TRUE(showsStandIn(image("long.png")));
}

TEST_F(PaintingImages, AChangedFileIsReadAgain) {
  folder.write("container/a.png", halves(8, 4));
  EXPECT_EQ(at(draw(image("a.png"), options), 0, 0), 0xFFFF0000);
  Bitmap blue{8, 4, 8, std::vector<std::uint32_t>(32, 0xFF0000FF)};
  folder.write("container/a.png", encodePng(blue));
  EXPECT_EQ(at(draw(image("a.png"), options), 0, 0), 0xFF0000FF);
}

}  // namespace
}  // namespace rendering
