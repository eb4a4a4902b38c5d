#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "QuorvelWidgets/Gallery/ComponentSheet.hpp"
#include "Tests/Support/Approval.hpp"
#include "Tests/Support/ViewInspection.hpp"
#include "ViewKit/Dump.hpp"

namespace quorvel {
namespace {

/// The components that the headers of a folder declare.
std::set<std::string> componentsIn(const std::string& folder) {
  constexpr std::string_view kDeclaration = "  static constexpr std::string_view kName = \"";
  std::set<std::string> names;
  for (const auto& entry :
       std::filesystem::directory_iterator(QUORVEL_SOURCE_DIR "/QuorvelWidgets/" + folder)) {
    std::ifstream header{entry.path()};
    for (std::string line; std::getline(header, line);) {
      if (!line.starts_with(kDeclaration)) continue;
      const std::string_view rest = std::string_view{line}.substr(kDeclaration.size());
      names.emplace(rest.substr(0, rest.find('"')));
    }
  }
  return names;
}

TEST(ComponentSheet, ShowsEveryComponent) {
  std::set<std::string> declared = componentsIn("WidgetSupport/Components");
  EXPECT_EQ(declared.erase("WidgetChrome"), 1U);  // it is around every widget, not in one
  declared.insert("SpentGauge");                  // a widget's own that is worth a look
  std::set<std::string> shown;
  for (const ComponentSample& sample : componentSamples()) shown.emplace(sample.component);
  EXPECT_EQ(shown, declared);
}

TEST(ComponentSheet, NamesEverySampleOnTheSheet) {
  const viewkit::View sheet = componentSheet();
  const auto texts = testsupport::texts(sheet);
  for (const ComponentSample& sample : componentSamples()) {
    EXPECT_THAT(texts, ::testing::Contains(std::string{sample.variant}));
  }
}

// A host that tints knows strengths of one colour. Faces and backdrops have colours of their own.
TEST(ComponentSheet, TintedSamplesHoldNoColourOfThePalette) {
  using widgetruntime::RenderingMode;
  for (const RenderingMode mode : {RenderingMode::accented, RenderingMode::vibrant}) {
    widgetruntime::Environment environment;
    environment.widgetRenderingMode = mode;
    for (const ComponentSample& sample : componentSamples(environment)) {
      if (sample.component == "CardArtTile" || sample.component == "AccessoryBackdrop") continue;
      EXPECT_THAT(viewkit::dump(sample.view), ::testing::Not(::testing::HasSubstr("#")))
          << sample.component << ", " << sample.variant;
    }
  }
}

/// A file per component, with its variants one below the other.
std::vector<testsupport::ApprovalCase> cases() {
  std::map<std::string, std::string> dumps;
  for (const ComponentSample& sample : componentSamples()) {
    dumps["Components/" + std::string{sample.component}] +=
        "== " + std::string{sample.variant} + "\n" + viewkit::dump(sample.view);
  }
  std::vector<testsupport::ApprovalCase> cases;
  for (const auto& [name, text] : dumps) cases.push_back({name, [=] { return text; }});
  return cases;
}

class ComponentApproval : public ::testing::TestWithParam<testsupport::ApprovalCase> {};

TEST_P(ComponentApproval, IsAsApproved) {
  EXPECT_TRUE(matchesExpected(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Trees,
                         ComponentApproval,
                         ::testing::ValuesIn(cases()),
                         testsupport::testName);

TEST(ComponentApprovals, EveryFileHasItsCase) {
  EXPECT_EQ(testsupport::expectedNames("Components"), testsupport::namesOf(cases()));
}

}  // namespace
}  // namespace quorvel
