// What the real extension offers, word by word, over the wire.
#include <gtest/gtest.h>

#include <deque>

#include "CommandRunner.hpp"
#include "Tests/Support/Transcript.hpp"
#include "WidgetRuntime/Framing.hpp"

namespace cli {
namespace {

using testsupport::joined;
using testsupport::replay;

const std::string kControl =
    R"({"kind":"QuorvelAddExpenseControl","name":"Add Expense",
    "description":"Open Quorvel to log an expense.","label":"Add Expense","symbol":"plus",
    "intent":"AddExpenseIntent","intentTitle":"Add Expense"})";

std::string requestsOf(const std::string& transcript) {
  std::string frames;
  replay(transcript, [&](std::string_view request) {
    frames += widgetruntime::encodeFrame(request);
    return std::string{};
  });
  return frames;
}

std::deque<std::string> messagesOf(std::string_view bytes) {
  widgetruntime::FrameDecoder decoder{1 << 20};
  decoder.append(bytes);
  std::deque<std::string> messages;
  while (true) {
    auto message = decoder.next();
    EXPECT_TRUE(message) << message.error().message;
    if (!message || !*message) break;
    messages.push_back(std::move(**message));
  }
  EXPECT_EQ(decoder.pending(), 0U);
  return messages;
}

/// Holds a fresh extension to a whole conversation; "CONTAINER" stands for a folder that has a
/// document.
void expectConversation(std::string transcript) {
  const TemporaryFolder folder;
  const std::string container = folder.at("container");
  folder.write("container/widget-snapshot.json", contentsOf(example("household.json")));
  const std::string_view placeholder = "CONTAINER";
  for (std::size_t at; (at = transcript.find(placeholder)) != std::string::npos;) {
    transcript.replace(at, placeholder.size(), container);
  }
  const Outcome outcome = runExtension(folder.write("requests", requestsOf(transcript)));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  std::deque<std::string> answers = messagesOf(outcome.out);
  const auto next = [&](std::string_view request) {
    if (request.find("\"id\"") == std::string_view::npos || answers.empty()) return std::string{};
    std::string answer = std::move(answers.front());
    answers.pop_front();
    return answer;
  };
  EXPECT_EQ(replay(transcript, next), joined(transcript));
  EXPECT_TRUE(answers.empty());
}

/// The first exchange: what a host says beside the version, and the controls that it is offered.
std::string opening(const std::string& parameter = "", const std::string& controls = kControl) {
  return R"(
> {"jsonrpc":"2.0","id":0,"method":"initialize","params":{"protocolVersion":1,)" +
         parameter + R"("container":"CONTAINER"}}
< {"jsonrpc":"2.0","id":0,"result":{"protocolVersion":1,"appGroup":"group.app.quorvel.widgets",
    "urlScheme":"quorvel-widget","container":"CONTAINER","bundle":{"widgets":[
    {"kind":"QuorvelCardLimitWidget","name":"Remaining Limit",
    "description":"How much limit is left on your cards.",
    "families":["systemSmall","systemMedium","systemLarge"],
    "configuration":{"intent":"SelectCardIntent","title":"Choose Card","parameters":[
    {"name":"card","title":"Card","type":"entity","typeName":"Card","default":null,"cases":[]}]}},
    {"kind":"QuorvelDueWidget","name":"Next Due",
    "description":"Card bills, bills and loans due next.",
    "families":["systemSmall","systemMedium"],"configuration":null},
    {"kind":"QuorvelNetWorthWidget","name":"Net Worth",
    "description":"Your net worth and how it's trending.",
    "families":["systemSmall","systemMedium","systemLarge"],"configuration":null},
    {"kind":"QuorvelSafeToSpendWidget","name":"Safe to Spend",
    "description":"How much you can spend per day to stay on budget.",
    "families":["systemSmall","systemMedium"],
    "configuration":{"intent":"SafeToSpendIntent","title":"Choose Style","parameters":[
    {"name":"style","title":"Style","type":"enumeration","typeName":"Style","default":"accent",
    "cases":[{"id":"accent","title":"Accent Tile"},{"id":"ring","title":"Budget Ring"}]}]}},
    {"kind":"QuorvelSpendingWidget","name":"Spending This Month",
    "description":"This month's spending vs last month.",
    "families":["systemSmall","systemMedium","systemLarge"],"configuration":null}],
    "controls":[)" +
         controls + "]}}}\n";
}

TEST(BundleTranscript, FiveWidgetsAndTheControl) {
  expectConversation(opening() + R"(
> {"jsonrpc":"2.0","id":1,"method":"intent/perform","params":{"intent":"AddExpenseIntent"}}
< {"jsonrpc":"2.0","id":1,"result":{"openApp":true}}
> {"jsonrpc":"2.0","id":2,"method":"shutdown"}
< {"jsonrpc":"2.0","id":2,"result":null}
> {"jsonrpc":"2.0","method":"exit"}
)");
}

TEST(BundleTranscript, AHostWithoutControlsGetsTheWidgetsAlone) {
  expectConversation(opening(R"("offersControls":false,)", "") + R"(
> {"jsonrpc":"2.0","id":1,"method":"intent/perform","params":{"intent":"AddExpenseIntent"}}
< {"jsonrpc":"2.0","id":1,"error":{"code":-32602,"message":"unknown intent \"AddExpenseIntent\""}}
)");
}

// Jakarta is seven hours ahead, so its next day begins at 17:00Z; the reload comes five seconds in.
TEST(BundleTranscript, EveryWidgetHasOneEntryAndReloadsWithTheDay) {
  std::string conversation = opening();
  for (const std::string kind : {"CardLimit", "Due", "NetWorth", "SafeToSpend", "Spending"}) {
    conversation +=
        R"(> {"jsonrpc":"2.0","id":1,"method":"widget/timeline","params":{"kind":"Quorvel)" + kind +
        R"(Widget",
    "family":"systemSmall","now":"2025-03-14T09:30:00Z","timeZone":"Asia/Jakarta","locale":"id_ID",
    "languages":["id"],"environments":[]}}
< {"jsonrpc":"2.0","id":1,"result":{"entries":[{"date":"2025-03-14T09:30:00Z",
    "hasSnapshot":true,"generatedAt":"2025-03-14T09:30:00Z","trees":[]}],
    "policy":{"type":"after","date":"2025-03-14T17:00:05Z"}}}
)";
  }
  expectConversation(conversation);
}

TEST(BundleTranscript, CardsAreOfferedFromTheDocument) {
  expectConversation(opening() + R"(
> {"jsonrpc":"2.0","id":1,"method":"configuration/options","params":{
    "kind":"QuorvelCardLimitWidget","parameter":"card"}}
< {"jsonrpc":"2.0","id":1,"result":{"options":[{"id":"a","title":"Northbank Everyday"},
    {"id":"b","title":"Harbour Credit Travel"},{"id":"c","title":"Kettle & Co"}],"default":"a"}}
)");
}

}  // namespace
}  // namespace cli
