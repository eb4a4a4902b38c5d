// The typed client over a caller's own dispatcher, over recorded bytes and over a real child.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "FakeExtension.hpp"
#include "Session/ChildProcess.hpp"
#include "Session/ExtensionClient.hpp"
#include "Session/InProcess.hpp"

namespace session {
namespace {

using namespace std::chrono_literals;
using Kind = SessionError::Kind;
using widgetruntime::EntriesParameters;
using widgetruntime::Environment;

InProcess::Handler connectFake() {
  auto dispatcher = std::make_shared<widgetruntime::Dispatcher>(testsupport::fake::definition());
  return [dispatcher](std::string_view request) { return dispatcher->handle(request); };
}

ExtensionClient inProcess(std::function<InProcess::Handler()> connect = connectFake) {
  return {std::make_unique<InProcess>(std::move(connect)), {.host = "test", .container = "/c"}};
}

ExtensionClient inChild(Deadlines deadlines = {}) {
  return {std::make_unique<ChildProcess>(ChildProcessOptions{.program = WELLBEHAVED_CHILD}),
          {.host = "test", .container = "/c"},
          deadlines};
}

EntriesParameters entriesOf(std::string kind) {
  EntriesParameters parameters{.kind = std::move(kind)};
  parameters.device.now = {1'741'944'600, 0};  // 2025-03-14T09:30:00Z
  parameters.device.timeZone.identifier = "Asia/Jakarta";
  parameters.device.preferredLanguages = {"id", "en"};
  parameters.environments.resize(2);
  parameters.environments[1].redactionReasons.privacy = true;
  parameters.environments[1].systemMargins = {1, 2.5, 3, 1.0 / 3};
  parameters.environments[1].layoutDirection = viewkit::LayoutDirection::rightToLeft;
  return parameters;
}

// The same calls, whatever carries them.
void expectService(ExtensionClient& extension) {
  const auto initialized = extension.initialize();
  ASSERT_TRUE(initialized) << initialized.error().message;
  EXPECT_EQ(initialized->appGroup, "group.fake");
  EXPECT_EQ(initialized->urlScheme, "fake");
  EXPECT_EQ(initialized->container, "/c");
  ASSERT_GE(initialized->bundle.widgets.size(), 2U);
  const auto& card = initialized->bundle.widgets[1];
  EXPECT_EQ(card.description.kind, "Card");
  ASSERT_TRUE(card.configuration);
  EXPECT_EQ(card.configuration->parameters[0].type, widgetruntime::IntentParameter::Type::entity);
  EXPECT_EQ(card.configuration->parameters[1].cases.size(), 2U);
  EXPECT_EQ(card.configuration->parameters[1].defaultValue, "plain");
  EXPECT_EQ(initialized->bundle.controls[0].intent, "DoIntent");

  const auto timeline = extension.timeline(entriesOf("Clock"));
  ASSERT_TRUE(timeline) << timeline.error().message;
  ASSERT_EQ(timeline->entries.size(), 2U);
  EXPECT_EQ(timeline->entries[1].date.seconds, 1'741'944'600 + 3600);
  EXPECT_FALSE(timeline->entries[1].hasSnapshot);
  const viewkit::View open = viewkit::Text{"Asia/Jakarta"}.widgetURL("fake://open/systemSmall");
  EXPECT_EQ(timeline->entries[0].trees[0].view, open);
  EXPECT_EQ(timeline->entries[0].trees[0].link, "fake://open/systemSmall");
  EXPECT_EQ(timeline->entries[0].trees[0].summary.text, "Asia/Jakarta");
  EXPECT_EQ(timeline->entries[0].generatedAt, std::nullopt);
  EXPECT_EQ(timeline->policy, widgetruntime::ReloadPolicy::after({1'741'944'600 + 3600, 0}));

  EntriesParameters chosen = entriesOf("Card");
  chosen.configuration = {{"card", "b"}};
  const auto snapshot = extension.snapshot(chosen);
  ASSERT_TRUE(snapshot) << snapshot.error().message;
  EXPECT_EQ(snapshot->trees[0].view,
            viewkit::View(viewkit::Text{"b"}.widgetURL("fake://open/systemSmall")));
  EXPECT_EQ(snapshot->generatedAt, (foundation::Instant{1'741'944'600 - 60, 0}));
  ASSERT_TRUE(extension.placeholder(chosen));

  const auto options = extension.options({"Card", "card", std::nullopt});
  ASSERT_TRUE(options) << options.error().message;
  EXPECT_EQ(options->options.size(), 2U);
  EXPECT_EQ(options->defaultOption, "a");
  EXPECT_TRUE(extension.perform({"DoIntent"}).value().openApp);
  EXPECT_TRUE(extension.diagnose({.text = "{}"}).value().accepted);
  const auto diagnosis = extension.diagnose({.text = std::string(100'000, ' ')});
  ASSERT_TRUE(diagnosis) << diagnosis.error().message;
  EXPECT_EQ(diagnosis->problems[0].column, 7U);
}

TEST(ExtensionClient, ServesACallerInItsOwnProcess) {
  ExtensionClient extension = inProcess();
  expectService(extension);
}

TEST(ExtensionClient, ServesACallerAsAChild) {
  ExtensionClient extension = inChild();
  expectService(extension);
}

TEST(ExtensionClient, SaysWhichRequestWasRefused) {
  ExtensionClient extension = inProcess();
  const auto result = extension.timeline(entriesOf("Nothing"));
  ASSERT_FALSE(result);
  EXPECT_EQ(
      result.error(),
      (SessionError{Kind::refused, "widget/timeline: unknown widget kind \"Nothing\" (-32602)"}));
}

TEST(ExtensionClient, GoesOnAfterACrash) {
  ExtensionClient extension = inChild();
  auto& child = static_cast<ChildProcess&>(extension.transport());
  ASSERT_TRUE(extension.timeline(entriesOf("Clock")));
  const pid_t first = child.processId();
  ASSERT_TRUE(extension.timeline(entriesOf("Clock")));
  EXPECT_EQ(child.processId(), first);

  const auto crashed = extension.timeline(entriesOf("Crashing"));
  ASSERT_FALSE(crashed);
  EXPECT_EQ(
      crashed.error(),
      (SessionError{Kind::died, "WellBehavedChild: widget/timeline: was killed by signal 9"}));
  EXPECT_EQ(child.processId(), 0);
  ASSERT_TRUE(extension.timeline(entriesOf("Clock")));
  EXPECT_NE(child.processId(), 0);
}

TEST(ExtensionClient, GoesOnAfterAHang) {
  ExtensionClient extension = inChild({.request = 200ms, .timeline = 200ms});
  const auto begin = std::chrono::steady_clock::now();
  const auto hung = extension.timeline(entriesOf("Hanging"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
  ASSERT_FALSE(hung);
  EXPECT_EQ(hung.error().kind, Kind::deadline);
  EXPECT_TRUE(extension.snapshot(entriesOf("Clock")));
}

TEST(ExtensionClient, KeepsAChildThatAnswersInTheGrace) {
  ChildProcessOptions options{.program = WELLBEHAVED_CHILD};
  options.grace = 5s;
  ExtensionClient extension(
      std::make_unique<ChildProcess>(std::move(options)), {}, {.request = 60ms});
  auto& child = static_cast<ChildProcess&>(extension.transport());
  ASSERT_TRUE(extension.initialize());
  const pid_t first = child.processId();
  const auto late = extension.snapshot(entriesOf("Late"));
  ASSERT_FALSE(late);
  EXPECT_EQ(late.error().kind, Kind::deadline);
  EXPECT_EQ(child.processId(), first);
  EXPECT_TRUE(extension.timeline(entriesOf("Clock")));
  EXPECT_EQ(child.processId(), first);
}

TEST(ExtensionClient, StrayPrintsBreakNoFrame) {
  ExtensionClient extension = inChild();
  auto& child = static_cast<ChildProcess&>(extension.transport());
  EXPECT_TRUE(extension.timeline(entriesOf("Printing")));
  const pid_t first = child.processId();
  EXPECT_TRUE(extension.timeline(entriesOf("Printing")));
  EXPECT_EQ(child.processId(), first);
  EXPECT_EQ(child.diagnostics(), "");
}

TEST(ExtensionClient, FailsEachCallOfAProgramThatCannotStart) {
  ExtensionClient extension(
      std::make_unique<ChildProcess>(ChildProcessOptions{.program = "/nothing"}), {});
  EXPECT_EQ(extension.timeline(entriesOf("Clock")).error().kind, Kind::notStarted);
  ExtensionClient silent(std::make_unique<ChildProcess>(ChildProcessOptions{
                             .program = MISBEHAVING_CHILD, .arguments = {"exit"}}),
                         {});
  EXPECT_EQ(silent.timeline(entriesOf("Clock")).error().kind, Kind::died);
  EXPECT_EQ(silent.timeline(entriesOf("Clock")).error().kind, Kind::died);
}

// A transport that answers every request with what a test has written.
ExtensionClient answering(std::string result) {
  return inProcess([result]() -> InProcess::Handler {
    auto real = connectFake();
    return [real, result](std::string_view request) {
      const std::string answer = real(request);
      const bool isFirst = request.find("\"initialize\"") != std::string_view::npos;
      return isFirst ? answer : R"({"jsonrpc":"2.0","id":2,"result":)" + result + "}";
    };
  });
}

TEST(ExtensionClient, RefusesAnswersOfAnotherForm) {
  struct Row {
    std::string result;
    std::string message;
  };
  const std::string tree = R"({"tree":{"type":"Text","text":"a"}})";
  const auto entry = [](const std::string& trees) {
    return R"({"date":"2025-03-14T09:30:00Z","hasSnapshot":true,"trees":[)" + trees + "]}";
  };
  const std::string policy = R"("policy":{"type":"never"})";
  std::string deep = R"({"type":"Text","text":"a"})";
  for (int i = 0; i < 64; ++i) deep = R"({"type":"VStack","children":[)" + deep + "]}";
  std::string many;
  for (int i = 0; i < 4000; ++i) many += R"({"type":"Spacer"},)";
  const std::vector<Row> rows{
      {"null", "/: expected an object"},
      {"{}", "/entries: missing"},
      {R"({"entries":[]})", "/policy: missing"},
      {R"({"entries":[)" + entry(tree) + "]," + policy + "}",
       "/entries: expected one tree per environment"},
      {R"({"entries":[)" + entry(tree + "," + tree) + R"(],"policy":{"type":"sometimes"}})",
       "/policy/type: expected atEnd, after, never"},
      {R"({"entries":[)" + entry(tree + ",{}") + "]," + policy + "}",
       "/entries/0/trees/1/tree: missing"},
      {R"({"entries":[)" + entry(tree + R"(,{"tree":{"type":"Sphere"}})") + "]," + policy + "}",
       "/entries/0/trees/1/tree/type: unknown element"},
      {R"({"entries":[)" + entry(tree + R"(,{"tree":)" + deep + "}") + "]," + policy + "}",
       "/children/0/children/0: the tree is too deep"},
      {R"({"entries":[)" +
           entry(tree + R"(,{"tree":{"type":"VStack","children":[)" + many +
                 R"({"type":"Spacer"}]}})") +
           "]," + policy + "}",
       "/entries/0/trees/1/tree/children: 4001 elements, 4000 are allowed"},
  };
  for (const Row& row : rows) {
    ExtensionClient extension = answering(row.result);
    const auto timeline = extension.timeline(entriesOf("Clock"));
    ASSERT_FALSE(timeline) << row.message;
    EXPECT_EQ(timeline.error().kind, Kind::unreadable) << row.message;
    EXPECT_THAT(timeline.error().message, testing::StartsWith("widget/timeline: answer: "));
    EXPECT_THAT(timeline.error().message, testing::HasSubstr(row.message));
  }
  ExtensionClient fine =
      answering(R"({"entries":[)" + entry(tree + "," + tree) + "]," + policy + "}");
  EXPECT_TRUE(fine.timeline(entriesOf("Clock")));
}

// One bit changed anywhere in a session, in either direction, is an error or another answer that
// can be read.
TEST(ExtensionClient, SurvivesEveryChangedBit) {
  std::vector<std::string> requests;
  std::vector<std::string> answers;
  ExtensionClient recorder = inProcess([&]() -> InProcess::Handler {
    auto real = connectFake();
    return [real, &requests, &answers](std::string_view request) {
      requests.emplace_back(request);
      return answers.emplace_back(real(request));
    };
  });
  ASSERT_TRUE(recorder.timeline(entriesOf("Clock")));
  ASSERT_EQ(answers.size(), 2U);

  int unreadable = 0;
  int readable = 0;
  for (std::size_t i = 0; i < answers[1].size() * 8; ++i) {
    std::string changed = answers[1];
    changed[i / 8] = static_cast<char>(changed[i / 8] ^ (1 << i % 8));
    ExtensionClient extension = inProcess([&]() -> InProcess::Handler {
      return [&](std::string_view request) {
        return request.find("\"initialize\"") != std::string_view::npos ? answers[0] : changed;
      };
    });
    const auto timeline = extension.timeline(entriesOf("Clock"));
    ++(timeline ? readable : unreadable);
    if (!timeline) {
      EXPECT_FALSE(timeline.error().message.empty());
    }
  }
  // Most of an answer is structure and names; the rest is text, digits and links.
  EXPECT_GT(unreadable, 1000);
  EXPECT_GT(readable, 100);

  for (std::size_t i = 0; i < requests[1].size() * 8; ++i) {
    std::string changed = requests[1];
    changed[i / 8] = static_cast<char>(changed[i / 8] ^ (1 << i % 8));
    const auto handler = connectFake();
    ASSERT_FALSE(handler(requests[0]).empty());
    const std::string answer = handler(changed);
    // Only a changed "id" key makes a notification, which has no answer.
    if (answer.empty()) continue;
    EXPECT_TRUE(widgetruntime::readAnswer(answer)) << changed;
  }
}

}  // namespace
}  // namespace session
