// What the real extension offers, word by word, over the wire.
#include <gtest/gtest.h>

#include <deque>
#include <nlohmann/json.hpp>

#include "CommandRunner.hpp"
#include "Tests/Support/Approval.hpp"
#include "Tests/Support/Transcript.hpp"
#include "WidgetRuntime/Framing.hpp"

namespace cli {
namespace {

using testsupport::joined;
using testsupport::replay;

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

constexpr std::string_view kPlaceholder = "CONTAINER";

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

/// What a fresh extension answers to the requests of a transcript, in which "CONTAINER" stands for
/// a folder that has a document.
std::deque<std::string> answersTo(const std::string& transcript) {
  const TemporaryFolder folder;
  const std::string container = folder.at("container");
  folder.write("container/widget-snapshot.json", contentsOf(example("household.json")));
  const Outcome outcome = runExtension(
      folder.write("requests", requestsOf(replaced(transcript, kPlaceholder, container))));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  std::deque<std::string> answers = messagesOf(outcome.out);
  for (std::string& answer : answers) answer = replaced(answer, container, kPlaceholder);
  return answers;
}

/// The first request: what a host says beside the version.
std::string opening(const std::string& parameter) {
  return R"(> {"jsonrpc":"2.0","id":0,"method":"initialize","params":{"protocolVersion":1,)" +
         parameter + R"("container":"CONTAINER"}})" + "\n";
}

/// What the extension offers to a host that says this beside the version.
nlohmann::ordered_json offered(const std::string& parameter = "") {
  const auto answers = answersTo(opening(parameter));
  if (answers.size() != 1) return {};
  return nlohmann::ordered_json::parse(answers.front())["result"];
}

/// Holds an extension that was opened to a conversation.
void expectConversation(const std::string& transcript, const std::string& parameter = "") {
  std::deque<std::string> answers = answersTo(opening(parameter) + transcript);
  ASSERT_FALSE(answers.empty());
  answers.pop_front();
  const auto next = [&](std::string_view request) {
    if (request.find("\"id\"") == std::string_view::npos || answers.empty()) return std::string{};
    std::string answer = std::move(answers.front());
    answers.pop_front();
    return answer;
  };
  EXPECT_EQ(replay(transcript, next), joined(transcript));
  EXPECT_TRUE(answers.empty());
}

TEST(BundleApproval, WhatIsOfferedIsAsApproved) {
  EXPECT_TRUE(testsupport::matchesExpected("Transcripts/initialize", offered().dump(2) + "\n"));
}

TEST(BundleTranscript, PerformsTheControlsIntentAndEnds) {
  expectConversation(R"(
> {"jsonrpc":"2.0","id":1,"method":"intent/perform","params":{"intent":"AddExpenseIntent"}}
< {"jsonrpc":"2.0","id":1,"result":{"openApp":true}}
> {"jsonrpc":"2.0","id":2,"method":"shutdown"}
< {"jsonrpc":"2.0","id":2,"result":null}
> {"jsonrpc":"2.0","method":"exit"}
)");
}

TEST(BundleTranscript, AHostWithoutControlsGetsTheWidgetsAlone) {
  const std::string without = R"("offersControls":false,)";
  auto expected = offered();
  EXPECT_EQ(expected["bundle"]["controls"].size(), 1U);
  expected["bundle"]["controls"] = nlohmann::ordered_json::array();
  EXPECT_EQ(offered(without), expected);
  expectConversation(R"(
> {"jsonrpc":"2.0","id":1,"method":"intent/perform","params":{"intent":"AddExpenseIntent"}}
< {"jsonrpc":"2.0","id":1,"error":{"code":-32602,"message":"unknown intent \"AddExpenseIntent\""}}
)",
                     without);
}

// Jakarta is seven hours ahead, so its next day begins at 17:00Z; the reload comes five seconds in.
TEST(BundleTranscript, EveryWidgetHasOneEntryAndReloadsWithTheDay) {
  std::string conversation;
  for (const std::string& kind : offeredKinds()) {
    conversation += R"(> {"jsonrpc":"2.0","id":1,"method":"widget/timeline","params":{"kind":")" +
                    kind +
                    R"(",
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
  expectConversation(R"(
> {"jsonrpc":"2.0","id":1,"method":"configuration/options","params":{
    "kind":"QuorvelCardLimitWidget","parameter":"card"}}
< {"jsonrpc":"2.0","id":1,"result":{"options":[{"id":"a","title":"Northbank Everyday"},
    {"id":"b","title":"Harbour Credit Travel"},{"id":"c","title":"Kettle & Co"}],"default":"a"}}
)");
}

}  // namespace
}  // namespace cli
