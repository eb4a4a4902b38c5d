// Messages come back from their JSON form as they went in; names of families and modes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "FakeExtension.hpp"
#include "ViewKit/OutermostModifier.hpp"
#include "WidgetRuntime/JsonRpc.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace widgetruntime {
namespace {

template <class Message>
Message throughJson(const Message& message) {
  const std::string text = encode(message);
  auto json = foundation::parseJson(text);
  EXPECT_TRUE(json) << text;
  auto result = read<Message>(std::move(json).value_or(foundation::JsonDocument{}));
  EXPECT_TRUE(result) << text << "\n" << result.error();
  return result.value_or(Message{});
}

foundation::Device someDevice() {
  return {{1'741'944'600, 0}, {"America/St_Johns"}, {"ar@numbers=latn"}, {"ar", "en-CA"}};
}

TEST(Messages, InitializeParametersComeBack) {
  InitializeParameters parameters{.host = "host \"1\"\n",
                                  .containerRoot = "/r",
                                  .infoPlist = "",
                                  .preferredLanguages = {"nl", "de-AT"}};
  EXPECT_EQ(throughJson(parameters), parameters);
  parameters = {.container =
                    "/Gr\xC3\xBC\xC3\x9F"
                    "e"};
  EXPECT_EQ(throughJson(parameters), parameters);
}

TEST(Messages, EntriesParametersComeBack) {
  EntriesParameters parameters{.kind = "Clock",
                               .family = WidgetFamily::accessoryCircular,
                               .previewFamily = WidgetFamily::systemMedium,
                               .isPreview = true,
                               .configuration = {{"card", "7"}, {"style", ""}},
                               .device = someDevice()};
  for (const RenderingMode mode :
       {RenderingMode::fullColor, RenderingMode::accented, RenderingMode::vibrant}) {
    Environment environment;
    environment.widgetFamily = parameters.family;
    environment.previewFamily = parameters.previewFamily;
    environment.widgetRenderingMode = mode;
    environment.redactionReasons = {.privacy = mode == RenderingMode::accented,
                                    .placeholder = mode == RenderingMode::vibrant};
    environment.showsWidgetContainerBackground = mode == RenderingMode::fullColor;
    environment.systemMargins = {0.1, 16, 1e-3, 4.0 / 3};
    environment.layoutDirection = viewkit::LayoutDirection::rightToLeft;
    parameters.environments.push_back(environment);
  }
  const EntriesParameters back = throughJson(parameters);
  EXPECT_EQ(back.kind, parameters.kind);
  EXPECT_EQ(back.family, parameters.family);
  EXPECT_EQ(back.previewFamily, parameters.previewFamily);
  EXPECT_EQ(back.isPreview, parameters.isPreview);
  EXPECT_EQ(back.configuration, parameters.configuration);
  EXPECT_EQ(back.device, parameters.device);
  EXPECT_EQ(back.environments, parameters.environments);
}

TEST(Messages, FractionsOfASecondDoNotTravel) {
  EntriesParameters parameters{.kind = "Clock", .device = someDevice()};
  parameters.device.now.nanoseconds = 999'999'999;
  EXPECT_EQ(throughJson(parameters).device.now, (foundation::Instant{1'741'944'600, 0}));
}

TEST(Messages, EntriesAnswersComeBack) {
  const viewkit::View view =
      viewkit::VStack{{.spacing = 1.0 / 3}, viewkit::Text{"a"}, viewkit::Spacer{}}
          .containerBackground(viewkit::Rectangle().fill(viewkit::Color::black()))
          .widgetURL("fake://open/x y");
  EntriesAnswer answer;
  answer.entries = {{{0, 0},
                     true,
                     {{view, widgetURL(view), {"$5 \u2197", WidgetSummary::State::critical}},
                      {viewkit::Text{"b"}}},
                     foundation::Instant{-60, 0}},
                    {{-1, 0}}};
  for (const ReloadPolicy& policy : {ReloadPolicy{},
                                     ReloadPolicy::after({1'741'944'605, 0}),
                                     ReloadPolicy{.type = ReloadPolicy::Type::never}}) {
    answer.policy = policy;
    const EntriesAnswer back = throughJson(answer);
    EXPECT_EQ(back.entries, answer.entries);
    EXPECT_EQ(back.policy, answer.policy);
  }
  answer.policy.reset();
  EXPECT_EQ(throughJson(answer).policy, std::nullopt);
}

TEST(Messages, SummariesAreCutBetweenCharacters) {
  // 1,024 bytes: 341 characters of three bytes, and one that is not begun.
  std::string text;
  for (int i = 0; i < 400; ++i) text += "•";
  const EntriesAnswer answer{
      {{{0, 0}, true, {{viewkit::Text{"a"}, std::nullopt, {.text = text}}}, std::nullopt}}, {}};
  EXPECT_EQ(throughJson(answer).entries[0].trees[0].summary.text, text.substr(0, 1023));
}

TEST(Messages, ASummaryMayBeMissingButNotMalformed) {
  const auto entryWith = [](const std::string& summary) {
    return R"({"entries":[{"date":"2025-03-14T09:30:00Z","hasSnapshot":true,"trees":[{)" + summary +
           R"("tree":{"type":"Text","text":"a"}}]}]})";
  };
  const auto readFrom = [](const std::string& text) {
    return read<EntriesAnswer>(*foundation::parseJson(text));
  };
  const auto without = readFrom(entryWith(""));
  ASSERT_TRUE(without) << without.error();
  EXPECT_EQ(without->entries[0].trees[0].summary, WidgetSummary{});
  EXPECT_EQ(readFrom(entryWith(R"("summary":{"text":"a","state":"bad"},)")).error(),
            "/entries/0/trees/0/summary/state: expected none, good, warning, critical");
  EXPECT_EQ(readFrom(entryWith(R"("summary":{"state":"good"},)")).error(),
            "/entries/0/trees/0/summary/text: missing");
}

TEST(Messages, StatesOfSummariesAreReadBack) {
  using State = WidgetSummary::State;
  EXPECT_EQ(nameOf(State::none), "none");
  EXPECT_EQ(nameOf(State::critical), "critical");
  for (const State state : {State::none, State::good, State::warning, State::critical}) {
    EXPECT_EQ(named<State>(nameOf(state)), state);
  }
  EXPECT_EQ(named<State>("Good"), std::nullopt);
}

TEST(Messages, SmallMessagesComeBack) {
  EXPECT_EQ(throughJson(PerformParameters{"DoIntent"}), PerformParameters{"DoIntent"});
  EXPECT_EQ(throughJson(PerformAnswer{true}), PerformAnswer{true});
  const OptionsAnswer options{{{"a", "Card A"}, {"b", ""}}, "a"};
  EXPECT_EQ(throughJson(options), options);
  EXPECT_EQ(throughJson(OptionsAnswer{}), OptionsAnswer{});
  const OptionsAnswer cut{.options = {{"a", "Card A"}}, .more = true};
  EXPECT_EQ(throughJson(cut), cut);
  const OptionsParameters chosen{"Card", "card", OptionsQuery{{"x", "y"}}};
  EXPECT_EQ(throughJson(chosen).query, chosen.query);
  EXPECT_EQ(throughJson(OptionsParameters{"Card", "card", std::nullopt}).query, std::nullopt);
  const DiagnoseAnswer diagnosis{
      false, {{"/a/0", 3, 14, "a number", "true"}}, {{"Clock", "nothing"}}, 12};
  EXPECT_EQ(throughJson(diagnosis), diagnosis);
  const DiagnoseParameters document{.text = std::string(200'000, 'x'), .device = someDevice()};
  EXPECT_EQ(throughJson(document).text, document.text);
  EXPECT_EQ(throughJson(document).device, document.device);
}

TEST(Messages, BundlesComeBackWithoutTheirQueries) {
  const InitializeAnswer answer{.appGroup = "g",
                                .urlScheme = "s",
                                .container = "",
                                .bundle = describe(testsupport::fake::makeBundle({}))};
  EXPECT_EQ(encode(throughJson(answer)), encode(answer));
}

TEST(Messages, TheOutermostWidgetLinkCounts) {
  using viewkit::Text;
  using viewkit::VStack;
  EXPECT_EQ(widgetURL(Text{"a"}), std::nullopt);
  EXPECT_EQ(widgetURL(Text{"a"}.link("x")), std::nullopt);
  EXPECT_EQ(widgetURL(Text{"a"}.widgetURL("x").padding(1)), "x");
  EXPECT_EQ(widgetURL(Text{"a"}.widgetURL("inner").widgetURL("outer")), "outer");
  EXPECT_EQ(widgetURL(VStack{{}, Text{"a"}, Text{"b"}.widgetURL("child")}), "child");
  EXPECT_EQ(widgetURL(VStack{{}, Text{"b"}.widgetURL("child")}.widgetURL("outer")), "outer");
}

TEST(Environment, NamesAreReadBack) {
  for (const WidgetFamily family : kAllFamilies)
    EXPECT_EQ(named<WidgetFamily>(nameOf(family)), family);
  EXPECT_EQ(nameOf(WidgetFamily::accessoryRectangular), "accessoryRectangular");
  EXPECT_EQ(named<WidgetFamily>("SystemSmall"), std::nullopt);
  EXPECT_EQ(named<WidgetFamily>(""), std::nullopt);
  for (const RenderingMode mode :
       {RenderingMode::fullColor, RenderingMode::accented, RenderingMode::vibrant}) {
    EXPECT_EQ(named<RenderingMode>(nameOf(mode)), mode);
  }
  EXPECT_EQ(nameOf(RenderingMode::fullColor), "fullColor");
  EXPECT_EQ(named<RenderingMode>("full"), std::nullopt);
}

TEST(Environment, APreviewInAnotherFamilyHasStandardMargins) {
  Environment environment;
  environment.systemMargins = viewkit::Insets::all(0);
  EXPECT_EQ(environment.contentMargins(), viewkit::Insets::all(0));
  environment.previewFamily = environment.widgetFamily;
  EXPECT_EQ(environment.contentMargins(), viewkit::Insets::all(0));
  environment.previewFamily = WidgetFamily::systemLarge;
  EXPECT_EQ(environment.contentMargins(), viewkit::Insets::all(16));
  EXPECT_EQ(environment.familyInForce(), WidgetFamily::systemLarge);
}

TEST(JsonRpc, ReadsAnswers) {
  const auto fine = readAnswer(R"({"jsonrpc":"2.0","id":7,"result":[1]})");
  ASSERT_TRUE(fine);
  EXPECT_EQ(fine->id, RpcId{std::int64_t{7}});
  ASSERT_TRUE(fine->result);
  EXPECT_EQ(fine->result->array()->size(), 1U);

  const auto refused =
      readAnswer(writeError({std::string("x"), {RpcErrorCode::internalError, "e"}}));
  ASSERT_TRUE(refused);
  EXPECT_EQ(refused->id, RpcId{std::string("x")});
  EXPECT_EQ(refused->result.error(), (RpcError{RpcErrorCode::internalError, "e"}));
}

TEST(JsonRpc, RefusesWhatIsNoAnswer) {
  for (const char* text : {R"({"jsonrpc":"2.0","id":1})",
                           R"({"jsonrpc":"2.0","id":1,"result":1,"error":{}})",
                           R"({"jsonrpc":"2.0","result":1})",
                           R"({"jsonrpc":"2.0","id":{},"result":1})",
                           R"({"jsonrpc":"2.0","id":1e300,"result":1})",
                           R"({"jsonrpc":"2.0","id":1,"error":{"code":1e300,"message":"m"}})",
                           R"({"jsonrpc":"2.0","id":1,"error":{"code":1}})",
                           R"({"jsonrpc":"2.0","id":1,"error":"m"})",
                           R"({"id":1,"result":1})",
                           "[]",
                           "7",
                           ""}) {
    EXPECT_FALSE(readAnswer(text)) << text;
  }
}

}  // namespace
}  // namespace widgetruntime
