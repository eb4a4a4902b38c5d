// What is drawn again and what is not, and what outlives the host.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "Resident/RendererPictureMaker.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "ViewKit/ViewKit.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using surfaces::Picture;

class RendererPictureMakerTest : public ::testing::Test {
 protected:
  RendererPictureMakerTest() { fs::create_directory(folder.at("container")); }

  [[nodiscard]] DrawRequest request(const viewkit::View& view) const {
    DrawRequest request{.slot = {"w1", "desk"}, .view = view, .demand = {}};
    request.demand.options.size = {40, 20};
    request.demand.options.container = folder.at("container");
    return request;
  }
  [[nodiscard]] DrawRequest text(const std::string& words = "a") const {
    return request(viewkit::Text{words});
  }
  /// Null: nothing has changed.
  std::shared_ptr<const Picture> draw(const DrawRequest& request) {
    std::optional<Drawn> result;
    pictureMaker.draw(Urgency::reload, request, [&](Drawn drawn) { result = std::move(drawn); });
    while (!result) loop.step(1s);
    return result->picture;
  }
  std::shared_ptr<const Picture> recall(const DrawRequest& request) {
    std::optional<std::shared_ptr<const Picture>> result;
    pictureMaker.recall(request.slot, request.demand, [&](auto picture) { result = picture; });
    while (!result) loop.step(1s);
    return *result;
  }
  /// One image that was replaced has another inode.
  void writeImage(const std::string& bytes) {
    folder.write("container/new", bytes);
    fs::rename(folder.at("container/new"), folder.at("container/face.png"));
  }

  testsupport::TemporaryFolder folder;
  Loop loop;
  RendererPictureMaker pictureMaker{loop, folder.at("pictures")};
};

TEST_F(RendererPictureMakerTest, DrawsAnEqualTreeOnce) {
  EXPECT_NE(draw(text()), nullptr);
  EXPECT_EQ(draw(text()), nullptr);
  EXPECT_NE(draw(text("b")), nullptr);
  EXPECT_NE(draw(text("a")), nullptr);
}

TEST_F(RendererPictureMakerTest, DrawsAnEqualTreeOfAnotherWidget) {
  draw(text());
  DrawRequest other = text();
  other.slot.id = "w2";
  EXPECT_NE(draw(other), nullptr);
}

TEST_F(RendererPictureMakerTest, DrawsAnEqualTreeInAnotherLook) {
  const std::vector<std::function<void(DrawRequest&)>> changes{
      [](DrawRequest& one) {
        one.demand.options.size = {50, 20};
      },
      [](DrawRequest& one) { one.demand.options.scale = 3; },
      [](DrawRequest& one) { one.demand.options.appearance = viewkit::Appearance::dark; },
      [](DrawRequest& one) { one.demand.options.redaction.privacy = true; },
      [](DrawRequest& one) { one.demand.options.mode = viewkit::RenderingMode::vibrant; },
      [](DrawRequest& one) { one.demand.medium = surfaces::Medium::plainText; },
      [](DrawRequest& one) { one.opacity = 0.5; },
      [](DrawRequest& one) { one.isForced = true; },
      [](DrawRequest& one) { one.isPassing = true; }};
  for (std::size_t i = 0; i < changes.size(); ++i) {
    draw(text());
    DrawRequest changed = text();
    changes[i](changed);
    EXPECT_NE(draw(changed), nullptr) << i;
  }
}

TEST_F(RendererPictureMakerTest, DrawsAnEqualTreeWhoseImageWasReplaced) {
  const DrawRequest image = request(viewkit::Image{{.path = "face.png"}, viewkit::Text{"-"}});
  EXPECT_NE(draw(image), nullptr);
  EXPECT_EQ(draw(image), nullptr);
  writeImage("no picture");
  EXPECT_NE(draw(image), nullptr);
  EXPECT_EQ(draw(image), nullptr);
  writeImage("no picture");
  EXPECT_NE(draw(image), nullptr);
  fs::remove(folder.at("container/face.png"));
  EXPECT_NE(draw(image), nullptr);
}

TEST_F(RendererPictureMakerTest, FadesWhatIsStale) {
  const auto full = draw(request(viewkit::Rectangle().fill(viewkit::Color::primary())));
  DrawRequest faded = request(viewkit::Rectangle().fill(viewkit::Color::primary()));
  faded.opacity = 0.5;
  const auto half = draw(faded);
  ASSERT_FALSE(full->bitmap.pixels.empty());
  const std::uint32_t before = full->bitmap.pixels.at(full->bitmap.pixels.size() / 2) >> 24;
  const std::uint32_t after = half->bitmap.pixels.at(half->bitmap.pixels.size() / 2) >> 24;
  EXPECT_NEAR(after, before / 2.0, 1);
}

TEST_F(RendererPictureMakerTest, LeavesBlankWhatTheLimitsRefuse) {
  DrawRequest huge = text();
  huge.demand.options.size = {1e6, 20};
  const auto picture = draw(huge);
  ASSERT_NE(picture, nullptr);
  EXPECT_THAT(picture->bitmap.pixels, ::testing::Each(0U));
}

TEST_F(RendererPictureMakerTest, KeepsAPictureForTheNextStart) {
  const DrawRequest one = text();
  const auto drawn = draw(one);
  EXPECT_EQ(recall(one), nullptr);
  pictureMaker.keep(one);
  // The queue is served in order.
  DrawRequest after = text("after");
  pictureMaker.draw(Urgency::preview, after, [](Drawn) {});
  std::shared_ptr<const Picture> kept;
  while (!kept) kept = recall(one);
  EXPECT_EQ(kept->bitmap.pixels, drawn->bitmap.pixels);
  DrawRequest larger = one;
  larger.demand.options.scale = 3;
  EXPECT_EQ(recall(larger), nullptr);
}

TEST_F(RendererPictureMakerTest, ForgetsWhatIsGone) {
  const DrawRequest one = text();
  draw(one);
  pictureMaker.keep(one);
  while (!recall(one)) {
  }
  pictureMaker.forget("w1");
  while (recall(one)) {
  }
  EXPECT_TRUE(fs::is_empty(folder.at("pictures")));
  EXPECT_NE(draw(one), nullptr);
}

}  // namespace
}  // namespace resident
