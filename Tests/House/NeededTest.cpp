// What the built programs load when they start: the link lines' answer to the arrows between the
// modules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <set>
#include <string>

namespace house {
namespace {

using Names = std::set<std::string>;

// The names between brackets of readelf's "(NEEDED) Shared library: [libc.so.6]", without the
// version.
Names neededBy(const std::string& program) {
  const std::string command = "LC_ALL=C readelf -d " QUORVEL_BINARY_DIR "/bin/" + program;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  Names names;
  std::array<char, 512> line{};
  while (pipe && std::fgets(line.data(), line.size(), pipe.get())) {
    const std::string text = line.data();
    if (text.find("(NEEDED)") == std::string::npos) continue;
    const auto open = text.find('[');
    names.insert(text.substr(open + 1, text.find(".so", open) - open - 1));
  }
  return names;
}

Names without(Names names, const Names& allowed) {
  for (const std::string& name : allowed) names.erase(name);
  return names;
}

const Names& languageRuntime() {
  static const Names names{
      "libstdc++",
      "libm",
      "libgcc_s",
      "libc",
      "ld-linux-x86-64",
      "ld-linux-aarch64",
#ifdef __SANITIZE_ADDRESS__
      "libasan",
      "libubsan",
      // Linked in any case: for sanitized programs the compiler does not tell the linker to drop
      // what nothing refers to.
      "libicudata",
      "libicui18n",
      "libicuuc",
      "libplist-2.0",
#endif
  };
  return names;
}

const Names& foundation() {
  static const Names names{"libicui18n", "libicuuc", "libplist-2.0", "libfmt"};
  return names;
}

TEST(Needed, TheExtensionKnowsNoPixels) {
  const Names needed = neededBy("quorvel-widgets");
  ASSERT_THAT(needed, ::testing::Contains("libc"));
  EXPECT_THAT(without(without(needed, languageRuntime()), foundation()), ::testing::IsEmpty());
}

TEST(Needed, TheImporterLoadsNeitherPixelsNorAnEventLoop) {
  const Names needed = neededBy("quorvel-import");
  ASSERT_THAT(needed, ::testing::Contains("libc"));
  EXPECT_THAT(without(without(needed, languageRuntime()), foundation()), ::testing::IsEmpty());
}

TEST(Needed, TheCommandLineLoadsNoEventLoopAndNoWebServer) {
  const Names needed = neededBy("quorvel-host");
  ASSERT_THAT(needed, ::testing::Contains("libc"));
  const Names drawing{"libfreetype", "libharfbuzz", "libpng16", "libjpeg", "libdeflate"};
  EXPECT_THAT(without(without(without(needed, languageRuntime()), foundation()), drawing),
              ::testing::IsEmpty());
}

TEST(Needed, TheWatchOfABarLoadsNothingThatDraws) {
  const Names needed = neededBy("quorvel-watch");
  ASSERT_THAT(needed, ::testing::Contains("libc"));
  EXPECT_THAT(without(without(needed, languageRuntime()), {"libfmt"}), ::testing::IsEmpty());
}

TEST(Needed, TheResidentHostLoadsOneEventLoopAndNoDesktop) {
  const Names needed = neededBy("quorvel-hostd");
  ASSERT_THAT(needed, ::testing::Contains("libsystemd"));
  const Names allowed{"libfreetype",
                      "libharfbuzz",
                      "libpng16",
                      "libjpeg",
                      "libdeflate",
                      "libsystemd",
                      "libmicrohttpd"};
  EXPECT_THAT(without(without(without(needed, languageRuntime()), foundation()), allowed),
              ::testing::IsEmpty());
}

}  // namespace
}  // namespace house
