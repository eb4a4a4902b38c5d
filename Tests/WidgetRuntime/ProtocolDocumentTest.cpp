// The examples of docs/protocol.md are a conversation that takes place.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

#include "FakeExtension.hpp"
#include "Foundation/Overloaded.hpp"
#include "Tests/Support/Transcript.hpp"
#include "WidgetRuntime/MessageMembers.hpp"

namespace widgetruntime {
namespace {

using testsupport::joined;
using testsupport::replay;

std::string fencedBlocks(const std::string& path) {
  std::ifstream file(path);
  std::string result;
  std::string line;
  bool isInside = false;
  while (std::getline(file, line)) {
    if (line.starts_with("```")) {
      isInside = !isInside;
    } else if (isInside) {
      result += line + "\n";
    }
  }
  return result;
}

// The document shows the first two widgets.
WidgetBundle documentedBundle(const InitializeParameters& parameters) {
  WidgetBundle bundle = testsupport::fake::makeBundle(parameters);
  bundle.widgets.resize(2);
  return bundle;
}

template <class... Records>
std::set<std::string> keysOf() {
  std::set<std::string> keys;
  const foundation::Overloaded add{[](auto /*part*/) {},
                                   [&](std::string_view key, auto...) { keys.emplace(key); }};
  (MembersOf<Records>::list(add), ...);
  return keys;
}

TEST(ProtocolDocument, NamesEveryMember) {
  std::ifstream file(QUORVEL_SOURCE_DIR "/docs/protocol.md");
  const std::string document{std::istreambuf_iterator<char>(file), {}};
  const auto keys = keysOf<InitializeParameters,
                           InitializeAnswer,
                           BundleDescription,
                           WidgetListing,
                           WidgetDescription,
                           IntentDescription,
                           IntentParameter,
                           IntentOption,
                           ControlListing,
                           EntriesParameters,
                           foundation::Device,
                           Environment,
                           RedactionReasons,
                           viewkit::Insets,
                           EntriesAnswer,
                           RenderedEntry,
                           RenderedTree,
                           WidgetSummary,
                           ReloadPolicy,
                           OptionsParameters,
                           OptionsQuery,
                           OptionsAnswer,
                           PerformParameters,
                           PerformAnswer,
                           DiagnoseParameters,
                           DiagnoseAnswer,
                           foundation::JsonProblem,
                           WidgetOutlook>();
  ASSERT_GT(keys.size(), 50U);
  for (const std::string& key : keys) {
    const bool isNamed = document.contains("`" + key + "`") || document.contains("\"" + key + "\"");
    EXPECT_TRUE(isNamed) << key;
  }
}

TEST(ProtocolDocument, ExamplesAreReplayed) {
  const std::string conversation = fencedBlocks(QUORVEL_SOURCE_DIR "/docs/protocol.md");
  for (const std::string_view method : {method::kInitialize,
                                        method::kPlaceholder,
                                        method::kSnapshot,
                                        method::kTimeline,
                                        method::kOptions,
                                        method::kPerform,
                                        method::kDiagnose,
                                        method::kShutdown,
                                        method::kExit,
                                        method::kCancelRequest}) {
    EXPECT_NE(conversation.find("\"" + std::string(method) + "\""), std::string::npos) << method;
  }
  Dispatcher dispatcher({documentedBundle, testsupport::fake::diagnose});
  const auto handle = [&](std::string_view request) { return dispatcher.handle(request); };
  EXPECT_EQ(replay(conversation, handle), joined(conversation));
  EXPECT_TRUE(dispatcher.hasExited());
}

}  // namespace
}  // namespace widgetruntime
