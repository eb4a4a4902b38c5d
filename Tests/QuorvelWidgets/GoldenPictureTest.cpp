// A few pictures of a whole widget, held against those that a person approved: painter and text
// together.
#include <gtest/gtest.h>
#include <png.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "QuorvelWidgets/Spending/SpendingWidget.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"
#include "Tests/Support/SafeToSpendCases.hpp"
#include "Tests/Support/WidgetLayouts.hpp"

namespace quorvel {
namespace {

using rendering::RenderOptions;
using testsupport::WidgetLayout;
using viewkit::Appearance;
using viewkit::RenderingMode;
using widgetruntime::Environment;
using widgetruntime::WidgetFamily;

constexpr int kMostDifference = 8;     // of 255, in any channel
constexpr double kMostPixels = 0.005;  // that may differ by more

struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgba;
};

Pixels decoded(const std::string& png) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  Pixels pixels;
  if (png_image_begin_read_from_memory(&image, png.data(), png.size()) == 0) return pixels;
  image.format = PNG_FORMAT_RGBA;
  pixels.rgba.resize(PNG_IMAGE_SIZE(image));
  if (png_image_finish_read(&image, nullptr, pixels.rgba.data(), 0, nullptr) == 0) return {};
  pixels.width = static_cast<int>(image.width);
  pixels.height = static_cast<int>(image.height);
  return pixels;
}

double differingShare(const Pixels& a, const Pixels& b) {
  if (a.width != b.width || a.height != b.height || a.rgba.empty()) return 1;
  std::size_t differing = 0;
  for (std::size_t pixel = 0; pixel < a.rgba.size(); pixel += 4) {
    for (std::size_t channel = 0; channel < 4; ++channel) {
      if (std::abs(a.rgba[pixel + channel] - b.rgba[pixel + channel]) > kMostDifference) {
        ++differing;
        break;
      }
    }
  }
  return static_cast<double>(differing) / (static_cast<double>(a.rgba.size()) / 4);
}

struct Scene {
  const char* name;
  WidgetFamily family = WidgetFamily::systemSmall;
  SafeToSpendStyle style = SafeToSpendStyle::accent;
  double spent = 1834;
  const char* lang = "en";
  Appearance appearance = Appearance::light;
  RenderingMode mode = RenderingMode::fullColor;
  bool isHidden = false;
};
void PrintTo(const Scene& scene, std::ostream* out) {
  *out << scene.name;
}

const Scene kScenes[] = {
    {.name = "accent-light"},
    {.name = "accent-dark", .appearance = Appearance::dark},
    {.name = "accent-exceeded", .spent = 3210},
    {.name = "ring-light", .style = SafeToSpendStyle::ring},
    {.name = "ring-ja", .style = SafeToSpendStyle::ring, .lang = "ja"},
    {.name = "medium-light", .family = WidgetFamily::systemMedium},
    {.name = "medium-dark", .family = WidgetFamily::systemMedium, .appearance = Appearance::dark},
    {.name = "medium-ar", .family = WidgetFamily::systemMedium, .lang = "ar"},
    {.name = "medium-hi-hidden",
     .family = WidgetFamily::systemMedium,
     .lang = "hi",
     .isHidden = true},
    {.name = "medium-accented",
     .family = WidgetFamily::systemMedium,
     .mode = RenderingMode::accented},
};

std::string drawn(const Scene& scene) {
  auto snapshot = testsupport::snapshotWith(
      testsupport::budgetOf(3000, scene.spent, "2025-03-25", "2025-03-01"), scene.lang);
  snapshot.isHidden = scene.isHidden;
  const bool isFullColor = scene.mode == RenderingMode::fullColor;
  Environment environment;
  environment.widgetFamily = scene.family;
  environment.widgetRenderingMode = scene.mode;
  environment.showsWidgetContainerBackground = isFullColor;
  const auto entry = testsupport::entryWith(snapshot, scene.style);
  const viewkit::View view = testsupport::safeToSpendView(entry, environment);
  RenderOptions options;
  options.size = {scene.family == WidgetFamily::systemMedium ? 364.0 : 170.0, 170};
  options.appearance = scene.appearance;
  options.mode = scene.mode;
  options.showsBackground = isFullColor;
  rendering::Renderer renderer;
  return rendering::encodePng(renderer.bitmap(view, options).value());
}

void expectApproved(const std::string& name, const std::string& picture) {
  const std::filesystem::path file =
      std::filesystem::path{QUORVEL_SOURCE_DIR} / "Tests" / "Golden" / (name + ".png");
  const char* rebaseline = std::getenv("QUORVEL_REBASELINE");
  if (rebaseline != nullptr && std::strcmp(rebaseline, "1") == 0) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream{file, std::ios::binary} << picture;
  }
  std::ifstream in{file, std::ios::binary};
  const std::string approved{std::istreambuf_iterator<char>{in}, {}};
  ASSERT_FALSE(approved.empty()) << file << " is missing; draw it with tools/rebaseline and look";
  EXPECT_LE(differingShare(decoded(approved), decoded(picture)), kMostPixels);
}

class GoldenPicture : public ::testing::TestWithParam<Scene> {};

TEST_P(GoldenPicture, LooksAsApproved) {
  expectApproved(GetParam().name, drawn(GetParam()));
}

/// Each widget's sample of a day in the family that all of them are declared for, and the heat map.
std::vector<WidgetLayout> widgetScenes() {
  std::vector<WidgetLayout> scenes;
  for (const auto& widget : testsupport::bundle().widgets) {
    scenes.push_back(testsupport::layoutOf(widget.description.kind, WidgetFamily::systemMedium));
  }
  scenes.push_back(testsupport::layoutOf(SpendingWidget::kKind, WidgetFamily::systemLarge));
  return scenes;
}

class WidgetGoldenPicture : public ::testing::TestWithParam<WidgetLayout> {};

TEST_P(WidgetGoldenPicture, LooksAsApproved) {
  const auto now = testsupport::morningOf("2025-03-14");
  const testsupport::WidgetState state{"full", now, testsupport::richSnapshot("en", now), {}};
  const bool isLarge = GetParam().family == WidgetFamily::systemLarge;
  rendering::Renderer renderer;
  const auto bitmap = renderer.bitmap(testsupport::viewOf(GetParam(), state),
                                      {.size = {364, isLarge ? 382.0 : 170.0}});
  expectApproved(GetParam().name, rendering::encodePng(bitmap.value()));
}

INSTANTIATE_TEST_SUITE_P(Widgets,
                         WidgetGoldenPicture,
                         ::testing::ValuesIn(widgetScenes()),
                         [](const auto& scene) {
                           return testsupport::inUpperCamel(scene.param.name);
                         });

INSTANTIATE_TEST_SUITE_P(SafeToSpend,
                         GoldenPicture,
                         ::testing::ValuesIn(kScenes),
                         [](const auto& scene) {
                           return testsupport::inUpperCamel(scene.param.name);
                         });

TEST(GoldenPictureComparison, NoticesAPictureThatIsNotTheSame) {
  const Pixels light = decoded(drawn({.name = ""}));
  ASSERT_EQ(light.width, 340);
  EXPECT_EQ(differingShare(light, light), 0);
  EXPECT_GT(differingShare(light, decoded(drawn({.name = "", .spent = 1700}))), kMostPixels);
  EXPECT_EQ(differingShare(light, decoded("not a picture")), 1);
}

}  // namespace
}  // namespace quorvel
