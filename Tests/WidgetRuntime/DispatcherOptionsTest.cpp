// What a dispatcher offers for choosing.
#include <string>

#include "Conversation.hpp"

namespace widgetruntime {
namespace {

using testing::HasSubstr;

TEST(Dispatcher, ListsOptions) {
  expectTranscript(R"(
> {"jsonrpc":"2.0","id":1,"method":"configuration/options","params":{"kind":"Card",
    "parameter":"card"}}
< {"jsonrpc":"2.0","id":1,"result":{"options":[{"id":"a","title":"Card A"},
    {"id":"b","title":"Card B"}],"default":"a"}}
---
> {"jsonrpc":"2.0","id":2,"method":"configuration/options","params":{"kind":"Card",
    "parameter":"card","query":{"identifiers":["x","b"]}}}
< {"jsonrpc":"2.0","id":2,"result":{"options":[{"id":"b","title":"Card B"}],"default":"a"}}
---
> {"jsonrpc":"2.0","id":3,"method":"configuration/options","params":{"kind":"Card",
    "parameter":"style"}}
< {"jsonrpc":"2.0","id":3,"result":{"options":[{"id":"plain","title":"Plain"},
    {"id":"ring","title":"Ring"}],"default":"plain"}}
---
> {"jsonrpc":"2.0","id":4,"method":"configuration/options","params":{"kind":"Card",
    "parameter":"style","query":{"identifiers":["ring"]}}}
< {"jsonrpc":"2.0","id":4,"result":{"options":[{"id":"ring","title":"Ring"}],
    "default":"plain"}}
---
> {"jsonrpc":"2.0","id":5,"method":"configuration/options","params":{"kind":"Clock",
    "parameter":"style"}}
< {"jsonrpc":"2.0","id":5,"error":{"code":-32602,"message":"unknown parameter \"style\""}}
)");
}

// A bundle of one widget whose parameter offers these.
Read<OptionsAnswer> offered(std::vector<IntentOption> options, const std::string& query = "") {
  Dispatcher dispatcher({[&](const InitializeParameters& parameters) {
                           WidgetBundle bundle = testsupport::fake::makeBundle(parameters);
                           EntityQuery& cards =
                               bundle.widgets[1].configuration->parameters[0].query;
                           cards.suggestedEntities = [&] { return options; };
                           cards.defaultResult = [&]() -> std::optional<IntentOption> {
                             if (options.empty()) return std::nullopt;
                             return options.front();
                           };
                           cards.entitiesForIdentifiers = [&](const std::vector<std::string>& ids) {
                             std::vector<IntentOption> found = options;
                             std::erase_if(found, [&](const IntentOption& option) {
                               return std::ranges::find(ids, option.id) == ids.end();
                             });
                             return found;
                           };
                           return bundle;
                         },
                         testsupport::fake::diagnose});
  EXPECT_THAT(dispatcher.handle(kInitialize), HasSubstr("\"result\""));
  const std::string text = dispatcher.handle(
      R"({"jsonrpc":"2.0","id":1,"method":"configuration/options","params":{"kind":"Card",)"
      R"("parameter":"card")" +
      query + "}}");
  EXPECT_LE(text.size(), kMaximumMessage);
  const auto answer = readAnswer(text);
  if (!answer) return std::unexpected(answer.error());
  if (!answer->result) return std::unexpected(answer->result.error().message);
  return read<OptionsAnswer>(*answer->result);
}

std::vector<IntentOption> cards(int count) {
  std::vector<IntentOption> result;
  for (int i = 0; i < count; ++i) result.push_back({std::to_string(i), "Card"});
  return result;
}

TEST(Dispatcher, OffersWhatAListHoldsAndSaysThatThereIsMore) {
  const auto all = offered(cards(1024));
  ASSERT_TRUE(all) << all.error();
  EXPECT_EQ(all->options.size(), 1024U);
  EXPECT_FALSE(all->more);

  const auto some = offered(cards(5000));
  ASSERT_TRUE(some) << some.error();
  EXPECT_EQ(some->options.size(), 1024U);
  EXPECT_TRUE(some->more);
  EXPECT_EQ(some->defaultOption, "0");

  const auto asked = offered(cards(5000), R"(,"query":{"identifiers":["4999"]})");
  ASSERT_TRUE(asked) << asked.error();
  EXPECT_EQ(asked->options, (std::vector<IntentOption>{{"4999", "Card"}}));
  EXPECT_FALSE(asked->more);
}

TEST(Dispatcher, OffersNoIdThatNoHostReadsAndADefaultThatItOffers) {
  std::vector<IntentOption> options = cards(2);
  options.insert(options.begin(), {std::string(16385, 'i'), "Endless"});
  const auto answer = offered(options);
  ASSERT_TRUE(answer) << answer.error();
  EXPECT_EQ(answer->options, cards(2));
  EXPECT_EQ(answer->defaultOption, "0");
  EXPECT_TRUE(answer->more);

  const auto none = offered({options.front()});
  ASSERT_TRUE(none) << none.error();
  EXPECT_TRUE(none->options.empty());
  EXPECT_EQ(none->defaultOption, std::nullopt);
}

TEST(Dispatcher, OffersWhatAMessageHolds) {
  // The form of a control character takes six bytes, so forty such ids fill a message thrice.
  std::vector<IntentOption> options;
  for (int i = 0; i < 40; ++i) {
    options.push_back({std::string(16000, '\1') + std::to_string(i), std::string(20000, '\2')});
  }
  const auto answer = offered(options);
  ASSERT_TRUE(answer) << answer.error();
  EXPECT_GT(answer->options.size(), 5U);
  EXPECT_LT(answer->options.size(), 11U);
  EXPECT_TRUE(answer->more);
  EXPECT_EQ(answer->defaultOption, options.front().id);
  // 256 bytes at most, the last three an ellipsis.
  EXPECT_EQ(answer->options.front().title, std::string(253, '\2') + "\u2026");
}

}  // namespace
}  // namespace widgetruntime
