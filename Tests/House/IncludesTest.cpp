// The arrows between the modules, read from the sources.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Includes.hpp"
#include "SourceFiles.hpp"

namespace house {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<SourceFile> sources() {
  return filesBelow({"Platform", "QuorvelWidgets", "Host", "Import"}, {".cpp", ".hpp"});
}

TEST(Includes, EverySourceStandsInAModule) {
  const auto all = sources();
  ASSERT_GT(all.size(), 20u);
  for (const SourceFile& file : all) EXPECT_NE(moduleOf(file.path), nullptr) << file.path;
}

TEST(Includes, EveryRoomIncludesOnlyWhatItSees) {
  for (const SourceFile& file : sources()) {
    EXPECT_THAT(forbiddenIncludes(file.path, file.text), IsEmpty());
  }
}

TEST(Includes, AnArrowBackwardsIsFound) {
  EXPECT_THAT(forbiddenIncludes("Platform/ViewKit/View.cpp",
                                "#include <vector>\n#include \"Rendering/Renderer.hpp\"\n"),
              ElementsAre("Platform/ViewKit/View.cpp:2: Rendering/Renderer.hpp"));
  EXPECT_THAT(
      forbiddenIncludes("QuorvelWidgets/WidgetSupport/Texts/Money.cpp",
                        "#include \"QuorvelWidgets/Due/DueWidget.hpp\""),
      ElementsAre(
          "QuorvelWidgets/WidgetSupport/Texts/Money.cpp:1: QuorvelWidgets/Due/DueWidget.hpp"));
  EXPECT_THAT(
      forbiddenIncludes("QuorvelWidgets/Spending/DailyBars.cpp",
                        "#include \"QuorvelWidgets/Due/DueTile.hpp\""),
      ElementsAre("QuorvelWidgets/Spending/DailyBars.cpp:1: QuorvelWidgets/Due/DueTile.hpp"));
}

TEST(Includes, FoldersOfARoomHaveArrowsToo) {
  const std::string text = "#include \"Rendering/Layout/LayoutTree.hpp\"\n";
  EXPECT_THAT(forbiddenIncludes("Host/Rendering/Recording/Recorder.hpp", text), IsEmpty());
  EXPECT_THAT(forbiddenIncludes("Host/Rendering/Text/Font.hpp", text),
              ElementsAre("Host/Rendering/Text/Font.hpp:1: Rendering/Layout/LayoutTree.hpp"));
  EXPECT_THAT(forbiddenIncludes("Host/Rendering/Painting/Painter.hpp",
                                "#include \"Rendering/Renderer.hpp\"\n"),
              ElementsAre("Host/Rendering/Painting/Painter.hpp:1: Rendering/Renderer.hpp"));
  EXPECT_THAT(
      forbiddenIncludes("QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.cpp",
                        "#include \"QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp\"\n"),
      ElementsAre("QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.cpp:1: "
                  "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"));
}

TEST(Includes, OnlyTheProgramComposesExtensionAndHost) {
  const std::string text = "#include \"QuorvelWidgets/Due/DueWidget.hpp\"\n";
  EXPECT_THAT(forbiddenIncludes("Host/Cli/main.cpp", text), IsEmpty());
  EXPECT_THAT(forbiddenIncludes("Host/Cli/Options/Options.cpp", text),
              ElementsAre("Host/Cli/Options/Options.cpp:1: QuorvelWidgets/Due/DueWidget.hpp"));
}

TEST(Includes, TheImporterSeesTheDocumentAndNoWidget) {
  EXPECT_THAT(
      forbiddenIncludes("Import/SnapshotMaker.cpp",
                        "#include \"QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp\"\n"),
      IsEmpty());
  EXPECT_THAT(
      forbiddenIncludes("Import/SnapshotMaker.cpp",
                        "#include \"QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp\"\n"
                        "#include \"Session/Launch.hpp\"\n"),
      ElementsAre(
          "Import/SnapshotMaker.cpp:1: QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp",
          "Import/SnapshotMaker.cpp:2: Session/Launch.hpp"));
}

TEST(Includes, LibrariesStayInTheSourcesOfTheirModule) {
  const std::string text = "  #  include <unicode/ucal.h>\n";
  EXPECT_THAT(forbiddenIncludes("Platform/Foundation/Calendar.cpp", text), IsEmpty());
  EXPECT_THAT(forbiddenIncludes("Platform/Foundation/Calendar.hpp", text),
              ElementsAre("Platform/Foundation/Calendar.hpp:1: unicode/ucal.h"));
  EXPECT_THAT(forbiddenIncludes("Host/Session/Extension.cpp", text),
              ElementsAre("Host/Session/Extension.cpp:1: unicode/ucal.h"));
  EXPECT_THAT(forbiddenIncludes("QuorvelWidgets/DueWidget.cpp", "#include <unistd.h>"),
              ElementsAre("QuorvelWidgets/DueWidget.cpp:1: unistd.h"));
}

TEST(Includes, NothingThatSlowsEveryStart) {
  EXPECT_THAT(
      forbiddenIncludes("Host/Cli/Options/Options.cpp", "#include <iostream>\n#include <string>\n"),
      ElementsAre("Host/Cli/Options/Options.cpp:1: iostream"));
}

}  // namespace
}  // namespace house
