// Conversations with a dispatcher, over a small extension of the tests' own.
#include <new>
#include <stdexcept>
#include <string>

#include "Conversation.hpp"

namespace widgetruntime {
namespace {

using testsupport::joined;
using testsupport::replay;

using testing::HasSubstr;

TEST(Dispatcher, DescribesItsBundle) {
  Dispatcher dispatcher({[](const InitializeParameters& parameters) {
                           WidgetBundle bundle = testsupport::fake::makeBundle(parameters);
                           bundle.widgets.resize(2);
                           return bundle;
                         },
                         testsupport::fake::diagnose});
  const std::string_view transcript = R"(
> {"jsonrpc":"2.0","id":"first","method":"initialize","params":{"protocolVersion":1,
    "host":"test 1","container":"/data/group.fake"}}
< {"jsonrpc":"2.0","id":"first","result":{"protocolVersion":1,"appGroup":"group.fake",
    "urlScheme":"fake","container":"/data/group.fake","bundle":{"widgets":[
    {"kind":"Clock","name":"Fake","description":"A fake widget.","families":["systemSmall"],
    "configuration":null},
    {"kind":"Card","name":"Fake","description":"A fake widget.","families":["systemSmall"],
    "configuration":{"intent":"FakeCardIntent","title":"Choose Card","parameters":[
    {"name":"card","title":"Card","type":"entity","typeName":"Card","default":null,"cases":[]},
    {"name":"style","title":"Style","type":"enumeration","typeName":"Style","default":"plain",
    "cases":[{"id":"plain","title":"Plain"},{"id":"ring","title":"Ring"}]}]}}],
    "controls":[{"kind":"FakeControl","name":"Do","description":"Does it.","label":"Do it",
    "symbol":"plus","intent":"DoIntent","intentTitle":"Do"}]}}}
)";
  EXPECT_EQ(replay(transcript, [&](std::string_view r) { return dispatcher.handle(r); }),
            joined(transcript));
}

TEST(Dispatcher, AnswersOnceInitializedAndUntilShutDown) {
  expectTranscript(R"(
> {"jsonrpc":"2.0","id":1,"method":"intent/perform","params":{"intent":"DoIntent"}}
< {"jsonrpc":"2.0","id":1,"error":{"code":-32002,"message":"initialize comes first"}}
---
> {"jsonrpc":"2.0","id":2,"method":"initialize","params":{"protocolVersion":2}}
< {"jsonrpc":"2.0","id":2,"error":{"code":-32602,
    "message":"/protocolVersion: expected 1, found 2"}}
---
> {"jsonrpc":"2.0","id":3,"method":"initialize","params":{}}
< {"jsonrpc":"2.0","id":3,"error":{"code":-32602,"message":"/protocolVersion: missing"}}
)",
                   false);
  expectTranscript(R"(
> {"jsonrpc":"2.0","id":1,"method":"initialize","params":{"protocolVersion":1}}
< {"jsonrpc":"2.0","id":1,"error":{"code":-32600,"message":"initialized already"}}
---
> {"jsonrpc":"2.0","id":2,"method":"shutdown"}
< {"jsonrpc":"2.0","id":2,"result":null}
---
> {"jsonrpc":"2.0","id":3,"method":"intent/perform","params":{"intent":"DoIntent"}}
< {"jsonrpc":"2.0","id":3,"error":{"code":-32600,"message":"the extension is shut down"}}
---
> {"jsonrpc":"2.0","method":"exit"}
)");
}

TEST(Dispatcher, GivesOneTreeForEachEnvironment) {
  expectTranscript(R"(
> {"jsonrpc":"2.0","id":1,"method":"widget/snapshot","params":{"kind":"Clock",
    "family":"systemSmall","now":"2025-03-14T09:30:00Z","timeZone":"Asia/Jakarta",
    "locale":"id_ID","languages":["id"],"environments":[{},{"privacy":true}]}}
< {"jsonrpc":"2.0","id":1,"result":{"entries":[{"date":"2025-03-14T09:30:00Z",
    "hasSnapshot":false,"trees":[
    {"link":"fake://open/systemSmall","summary":{"text":"Asia/Jakarta","state":"none"},
    "tree":{"type":"Text","text":"Asia/Jakarta",
    "modifiers":[{"widgetURL":"fake://open/systemSmall"}]}},
    {"link":"fake://open/systemSmall","summary":{"text":"hidden","state":"none"},
    "tree":{"type":"Text","text":"hidden",
    "modifiers":[{"widgetURL":"fake://open/systemSmall"}]}}]}]}}
---
> {"jsonrpc":"2.0","id":2,"method":"widget/snapshot","params":{"kind":"Clock",
    "family":"systemSmall","previewFamily":"accessoryInline","isPreview":true,
    "now":"2025-03-14T09:30:00Z","timeZone":"UTC","locale":"en","languages":[],
    "environments":[{}]}}
< {"jsonrpc":"2.0","id":2,"result":{"entries":[{"date":"2025-03-14T09:30:00Z",
    "hasSnapshot":true,"generatedAt":"2025-03-14T09:29:00Z","trees":[
    {"link":"fake://open/accessoryInline","summary":{"text":"UTC","state":"good"},
    "tree":{"type":"Text","text":"UTC",
    "modifiers":[{"widgetURL":"fake://open/accessoryInline"}]}}]}]}}
---
> {"jsonrpc":"2.0","id":3,"method":"widget/placeholder","params":{"kind":"Card",
    "family":"systemLarge","configuration":{"card":"b"},"now":"2025-03-14T09:30:00Z",
    "timeZone":"UTC","locale":"en","languages":[],"environments":[]}}
< {"jsonrpc":"2.0","id":3,"result":{"entries":[{"date":"2025-03-14T09:30:00Z",
    "hasSnapshot":true,"generatedAt":"2025-03-14T09:29:00Z","trees":[]}]}}
)");
}

TEST(Dispatcher, GivesTimelinesWithTheirPolicy) {
  expectTranscript(R"(
> {"jsonrpc":"2.0","id":1,"method":"widget/timeline","params":{"kind":"Clock",
    "family":"systemSmall","now":"2025-03-14T23:30:00Z","timeZone":"UTC","locale":"en",
    "languages":[],"environments":[]}}
< {"jsonrpc":"2.0","id":1,"result":{"entries":[
    {"date":"2025-03-14T23:30:00Z","hasSnapshot":false,"trees":[]},
    {"date":"2025-03-15T00:30:00Z","hasSnapshot":false,"trees":[]}],
    "policy":{"type":"after","date":"2025-03-15T00:30:00Z"}}}
---
> {"jsonrpc":"2.0","id":2,"method":"widget/timeline","params":{"kind":"Card",
    "family":"systemSmall","configuration":{"card":"b","style":null},
    "now":"2025-03-14T23:30:00Z","timeZone":"UTC","locale":"en","languages":[],
    "environments":[{}]}}
< {"jsonrpc":"2.0","id":2,"result":{"entries":[{"date":"2025-03-14T23:30:00Z",
    "hasSnapshot":true,"generatedAt":"2025-03-14T23:29:00Z","trees":[
    {"link":"fake://open/systemSmall","summary":{"text":"b","state":"good"},
    "tree":{"type":"Text","text":"b","modifiers":[{"widgetURL":"fake://open/systemSmall"}]}}]}],
    "policy":{"type":"atEnd"}}}
---
> {"jsonrpc":"2.0","id":3,"method":"widget/timeline","params":{"kind":"Empty",
    "family":"systemSmall","now":"2025-03-14T23:30:00Z","timeZone":"UTC","locale":"en",
    "languages":[],"environments":[{}]}}
< {"jsonrpc":"2.0","id":3,"result":{"entries":[],
    "policy":{"type":"after","date":"2025-03-15T00:30:00Z"}}}
)");
}

std::string timelineRequest(std::string_view kind) {
  return R"({"jsonrpc":"2.0","id":1,"method":"widget/timeline","params":{"kind":")" +
         std::string(kind) +
         R"(","family":"systemSmall","now":"2025-03-14T00:00:00Z","timeZone":"UTC","locale":"en",)"
         R"("languages":[],"environments":[{},{}]}})";
}

Read<EntriesAnswer> timelineOf(std::string_view kind) {
  Dispatcher dispatcher(testsupport::fake::definition());
  EXPECT_THAT(dispatcher.handle(kInitialize), HasSubstr("\"result\""));
  const std::string text = dispatcher.handle(timelineRequest(kind));
  EXPECT_LE(text.size(), kMaximumMessage);
  const auto answer = readAnswer(text);
  if (!answer) return std::unexpected(answer.error());
  if (!answer->result) return std::unexpected(answer->result.error().message);
  return read<EntriesAnswer>(*answer->result);
}

TEST(Dispatcher, EndsALongTimelineEarlyAndIsAskedAgainThen) {
  const auto timeline = timelineOf("Long");
  ASSERT_TRUE(timeline) << timeline.error();
  ASSERT_EQ(timeline->entries.size(), kMaximumEntries);
  EXPECT_EQ(timeline->entries[31].date, foundation::parseInternetDateTime("2025-03-15T07:00:00Z"));
  EXPECT_EQ(timeline->policy, ReloadPolicy{});
}

TEST(Dispatcher, EndsATimelineOfLargeEntriesWhereTheMessageIsFull) {
  Dispatcher dispatcher(testsupport::fake::definition());
  EXPECT_THAT(dispatcher.handle(kInitialize), HasSubstr("\"result\""));
  const std::string text = dispatcher.handle(timelineRequest("Wide"));
  // Two trees of a little over 100,000 bytes per entry: five entries fit into 1,048,576.
  EXPECT_THAT(text.size(), testing::AllOf(testing::Gt(1'000'000U), testing::Le(kMaximumMessage)));
  EXPECT_THAT(text, testing::EndsWith(R"("policy":{"type":"atEnd"}}})"));
  EXPECT_THAT(text, HasSubstr("2025-03-14T04:00:00Z"));
  EXPECT_THAT(text, testing::Not(HasSubstr("2025-03-14T05:00:00Z")));
}

TEST(Dispatcher, RefusesWhatCannotBeSent) {
  const auto timeline = timelineOf("Huge");
  ASSERT_FALSE(timeline);
  EXPECT_THAT(timeline.error(), testing::StartsWith("an entry of Huge takes 2"));
}

TEST(Dispatcher, SaysNothingOfWhatABundleThrew) {
  const auto timeline = timelineOf("Throwing");
  ASSERT_FALSE(timeline);
  EXPECT_EQ(timeline.error(), "the extension failed");
}

/// Its document fills the memory, wherever that is noticed: while entries are made, while one is
/// shown, while cards are listed.
WidgetBundle exhaustingBundle(const InitializeParameters& parameters) {
  WidgetBundle bundle = testsupport::fake::makeBundle(parameters);
  if (parameters.snapshotFile == "") return bundle;
  const auto exhaust = []<class... Given>(const Given&...) { throw std::bad_alloc{}; };
  Widget& making = bundle.widgets[0];
  making.snapshot = [=](const ProviderContext& c, const IntentValues& v) -> AnyEntry {
    exhaust(c, v);
    return {};
  };
  Widget& showing = bundle.widgets[1];
  showing.snapshot = [=](const ProviderContext& context, const IntentValues&) {
    return AnyEntry{context.device.now, true, {}, [=](const Environment& e) -> WidgetContent {
                      exhaust(e);
                      return {};
                    }};
  };
  EntityQuery& query = showing.configuration->parameters[0].query;
  query.suggestedEntities = []() -> std::vector<IntentOption> { throw std::length_error{"cards"}; };
  return bundle;
}

TEST(Dispatcher, AnswersWithoutADocumentThatMemoryCannotHold) {
  Dispatcher dispatcher({exhaustingBundle, testsupport::fake::diagnose});
  EXPECT_THAT(dispatcher.handle(kInitialize), HasSubstr("\"result\""));
  const auto snapshot = [&](const std::string& kind) {
    return dispatcher.handle(
        R"({"jsonrpc":"2.0","id":1,"method":"widget/snapshot","params":{"kind":")" + kind +
        R"(","family":"systemSmall","now":"2025-03-14T09:30:00Z","timeZone":"UTC","locale":"en",)"
        R"("languages":[],"environments":[{}]}})");
  };
  EXPECT_THAT(snapshot("Clock"), HasSubstr(R"("hasSnapshot":false,"trees":[{)"));
  // The fake's second widget always has a document; it is asked again all the same.
  EXPECT_THAT(snapshot("Card"), HasSubstr(R"("text":"any card")"));
  EXPECT_THAT(dispatcher.handle(R"({"jsonrpc":"2.0","id":1,"method":"configuration/options",)"
                                R"("params":{"kind":"Card","parameter":"card"}})"),
              HasSubstr(R"("result":{"options":[{"id":"a")"));
}

TEST(Dispatcher, PerformsIntentsAndDiagnosesDocuments) {
  expectTranscript(R"(
> {"jsonrpc":"2.0","id":1,"method":"intent/perform","params":{"intent":"DoIntent"}}
< {"jsonrpc":"2.0","id":1,"result":{"openApp":true}}
---
> {"jsonrpc":"2.0","id":2,"method":"intent/perform","params":{"intent":"StayIntent"}}
< {"jsonrpc":"2.0","id":2,"result":{"openApp":false}}
---
> {"jsonrpc":"2.0","id":7,"method":"intent/perform","params":{"intent":"FakeCardIntent"}}
< {"jsonrpc":"2.0","id":7,"result":{"openApp":false}}
---
> {"jsonrpc":"2.0","id":3,"method":"intent/perform","params":{"intent":"Other"}}
< {"jsonrpc":"2.0","id":3,"error":{"code":-32602,"message":"unknown intent \"Other\""}}
---
> {"jsonrpc":"2.0","id":4,"method":"document/diagnose","params":{"text":"{}",
    "now":"2025-03-14T23:30:00Z","timeZone":"UTC","locale":"en","languages":[]}}
< {"jsonrpc":"2.0","id":4,"result":{"accepted":true,"problems":[],
    "widgets":[{"kind":"Clock","shows":"the time"}]}}
---
> {"jsonrpc":"2.0","id":5,"method":"document/diagnose","params":{"path":"/x",
    "now":"2025-03-14T23:30:00Z","timeZone":"UTC","locale":"en","languages":[]}}
< {"jsonrpc":"2.0","id":5,"result":{"accepted":false,"problems":[{"pointer":"/money","line":2,
    "column":7,"expected":"an object","found":"a string"}],
    "widgets":[{"kind":"Clock","shows":"nothing"}]}}
---
> {"jsonrpc":"2.0","id":6,"method":"document/diagnose","params":{"path":"/x","text":"{}",
    "now":"2025-03-14T23:30:00Z","timeZone":"UTC","locale":"en","languages":[]}}
< {"jsonrpc":"2.0","id":6,"error":{"code":-32602,"message":"/text: not beside a path"}}
)");
}

TEST(Dispatcher, DiagnosesTheDocumentOfItsBundleWhenNoneIsNamed) {
  std::vector<DiagnoseParameters> asked;
  Dispatcher dispatcher({testsupport::fake::makeBundle,
                         [&](const DiagnoseParameters& parameters) {
                           asked.push_back(parameters);
                           DiagnoseAnswer answer;
                           answer.leftOut = 7;
                           return answer;
                         },
                         [](const InitializeParameters&) { return "/data/group.fake/document"; }});
  EXPECT_THAT(dispatcher.handle(kInitialize), HasSubstr("\"result\""));
  const std::string device =
      R"("now":"2025-03-14T23:30:00Z","timeZone":"UTC","locale":"en","languages":[]}})";
  for (const char* named : {"", R"("path":"/x",)", R"("text":"{}",)"}) {
    EXPECT_THAT(
        dispatcher.handle(R"({"jsonrpc":"2.0","id":1,"method":"document/diagnose","params":{)" +
                          (named + device)),
        HasSubstr(R"("leftOut":7)"));
  }
  ASSERT_EQ(asked.size(), 3U);
  EXPECT_EQ(asked[0].path, "/data/group.fake/document");
  EXPECT_EQ(asked[1].path, "/x");
  EXPECT_EQ(asked[2].path, std::nullopt);
}

TEST(Dispatcher, NobodyWaitsForADateThatCannotBeWritten) {
  Dispatcher dispatcher(testsupport::fake::definition());
  EXPECT_THAT(dispatcher.handle(kInitialize), HasSubstr("\"result\""));
  const auto timeline = [&](const std::string& now) {
    return dispatcher.handle(
        R"({"jsonrpc":"2.0","id":1,"method":"widget/timeline","params":{"kind":"Clock",)"
        R"("family":"systemSmall","now":")" +
        now + R"(","timeZone":"UTC","locale":"en","languages":[],"environments":[]}})");
  };
  // The clock is to be asked again after an hour.
  EXPECT_THAT(timeline("9999-12-31T22:59:59Z"),
              HasSubstr(R"("policy":{"type":"after","date":"9999-12-31T23:59:59Z"})"));
  EXPECT_THAT(timeline("9999-12-31T23:00:00Z"), HasSubstr(R"("policy":{"type":"never"})"));
}

TEST(Dispatcher, KeepsNothingBetweenRequests) {
  Dispatcher dispatcher(testsupport::fake::definition());
  ASSERT_THAT(dispatcher.handle(kInitialize), HasSubstr("\"result\""));
  const std::string first = dispatcher.handle(timelineRequest("Clock"));
  for (const char* other : {"Card", "Throwing", "Huge", "Long"}) {
    EXPECT_FALSE(dispatcher.handle(timelineRequest(other)).empty());
    EXPECT_EQ(dispatcher.handle(timelineRequest("Clock")), first);
  }
}

}  // namespace
}  // namespace widgetruntime
