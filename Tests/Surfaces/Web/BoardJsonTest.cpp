// What page and host say to each other: every member, and every refusal in its words.
#include <gmock/gmock.h>

#include "Foundation/JsonValue.hpp"
#include "Surfaces/Web/BoardJson.hpp"

namespace surfaces {
namespace {

using foundation::Instant;
using foundation::JsonValue;
using testing::HasSubstr;

std::string problemOf(std::string_view body) {
  const auto read = readChange(body);
  return read ? "" : read.error();
}

std::string problemOf(const char* name, const char* value) {
  const auto read = readView({{name, value}});
  return read ? "" : read.error();
}

TEST(BoardJson, ReadsEverythingThatAPageMayAskFor) {
  const auto change = readChange(
      R"({"id":"w1","kind":"K","family":"systemLarge","configuration":{"card":"c"},"column":3,)"
      R"("row":0,"region":2,"hidden":true,"intent":"I","cells":[{"id":"w2","column":1,"row":999}]})");
  ASSERT_TRUE(change) << change.error();
  EXPECT_EQ(change->id, "w1");
  EXPECT_EQ(change->kind, "K");
  EXPECT_EQ(change->family, widgetruntime::WidgetFamily::systemLarge);
  EXPECT_EQ(change->configuration, (widgetruntime::IntentValues{{"card", "c"}}));
  EXPECT_EQ(change->column, 3);
  EXPECT_EQ(change->row, 0);
  EXPECT_EQ(change->region, 2U);
  EXPECT_EQ(change->hidden, true);
  EXPECT_EQ(change->intent, "I");
  EXPECT_EQ(change->cells, (std::vector<BoardMove>{{.id = "w2", .column = 1, .row = 999}}));
}

TEST(BoardJson, LeavesOutWhatIsAbsentOrNull) {
  for (const char* body : {"{}", R"({"id":null,"region":null,"cells":null})"}) {
    const auto change = readChange(body);
    ASSERT_TRUE(change) << body;
    EXPECT_FALSE(change->id || change->region || change->cells || change->hidden) << body;
  }
}

TEST(BoardJson, RefusesChangesOfAnotherForm) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "a request is a JSON object"},
      {"[]", "a request is a JSON object"},
      {"{", "a request is a JSON object"},
      {R"({"id":1})", "/id: expected a string"},
      {R"({"family":"systemHuge"})",
       "/family: expected systemSmall, systemMedium, systemLarge, accessoryCircular, "
       "accessoryRectangular, accessoryInline"},
      {R"({"configuration":[]})", "/configuration: expected an object"},
      {R"({"configuration":{"card":1}})", "/configuration/card: expected a string"},
      {R"({"column":-1})", "/column: expected a number in 0...999"},
      {R"({"column":1.5})", "/column: expected a whole number"},
      {R"({"row":1000})", "/row: expected a number in 0...999"},
      {R"({"row":"1"})", "/row: expected a number in 0...999"},
      {R"({"region":-1})", "/region: expected a number in 0...4096"},
      {R"({"hidden":1})", "/hidden: expected true or false"},
      {R"({"cells":{}})", "/cells: expected an array"},
      {R"({"cells":[{"id":"w1","column":0}]})", "/cells/0/row: missing"},
      {R"({"cells":[{"id":"w1","column":0,"row":1e9}]})",
       "/cells/0/row: expected a number in 0...999"},
      {R"({"cells":[{"id":"w1","column":0,"row":1,"line":1}]})",
       "/cells/0/line: unknown or repeated member"},
      {R"({"other":1})", "/other: unknown or repeated member"},
      {R"({"a":[[[[[1]]]]]})", "a request is a JSON object"},
  };
  for (const auto& [body, problem] : rows) EXPECT_EQ(problemOf(body), problem) << body;
  EXPECT_EQ(problemOf(R"({"id":")" + std::string(5000, 'x') + "\"}"), "a request is a JSON object");
}

TEST(BoardJson, ReadsHowAPageShowsWidgets) {
  const auto usual = readView({});
  ASSERT_TRUE(usual);
  EXPECT_EQ(usual->appearance, viewkit::Appearance::light);
  EXPECT_EQ(usual->mode, viewkit::RenderingMode::fullColor);
  EXPECT_TRUE(usual->showsBackground);
  EXPECT_FALSE(usual->hidesAmounts || usual->hidesEverything || usual->now || usual->tint);

  const auto view = readView({{"appearance", "dark"},
                              {"mode", "accented"},
                              {"tint", "#34C759"},
                              {"background", "0"},
                              {"privacy", "locked"},
                              {"preset", "stress"},
                              {"now", "2025-03-14T09:30:00Z"},
                              {"kind", "for somebody else"}});
  ASSERT_TRUE(view) << view.error();
  EXPECT_EQ(view->appearance, viewkit::Appearance::dark);
  EXPECT_EQ(view->mode, viewkit::RenderingMode::accented);
  EXPECT_EQ(view->tint, viewkit::Rgb{0x34C759});
  EXPECT_FALSE(view->showsBackground);
  EXPECT_TRUE(view->hidesAmounts);
  EXPECT_TRUE(view->hidesEverything);
  EXPECT_EQ(view->preset, Preset::stress);
  EXPECT_EQ(view->now, Instant{.seconds = 1741944600});
  EXPECT_FALSE(readView({{"privacy", "hidden"}})->hidesEverything);
}

TEST(BoardJson, RefusesViewsThatDoNotExist) {
  EXPECT_EQ(problemOf("appearance", "system"), "appearance: expected light or dark");
  EXPECT_EQ(problemOf("mode", ""), "mode: expected fullColor, accented or vibrant");
  EXPECT_EQ(problemOf("background", "true"), "background: expected 0 or 1");
  EXPECT_EQ(problemOf("privacy", "on"), "privacy: expected off, hidden or locked");
  EXPECT_EQ(problemOf("preset", "170"), "preset: expected standard, compact or stress");
  EXPECT_EQ(problemOf("now", "now"), "now: expected a date-time such as 2025-03-14T09:30:00Z");
  for (const char* tint : {"", "#", "34C7", "#34C75", "34C75g", "##34C759", "-4C759"})
    EXPECT_EQ(problemOf("tint", tint), "tint: expected #RRGGBB") << tint;
}

TEST(BoardJson, TellsTheStateWhole) {
  BoardState state{.container = "/tmp/c", .timeZone = "UTC", .isHidden = true, .isLocked = false};
  state.clockChanges = {{.seconds = 1743296400}};
  state.took = std::chrono::microseconds(41'400);
  state.control.emplace();
  state.control->intent = "AddExpense";
  state.control->displayName = "Add";
  state.control->description = "Opens it";
  state.cards.push_back({.subject = {.id = "w1",
                                     .kind = "K",
                                     .family = widgetruntime::WidgetFamily::systemSmall,
                                     .configuration = {{"card", "</script>"}}},
                         .column = 2,
                         .row = 1});
  EXPECT_EQ(stateJson(state),
            R"({"container":"/tmp/c","zone":"UTC","clockChanges":["2025-03-30T01:00:00Z"],)"
            R"("hidden":true,"locked":false,"milliseconds":41,)"
            R"("control":{"name":"Add","description":"Opens it","intent":"AddExpense"},)"
            R"("gallery":[],"placements":[{"id":"w1","kind":"K","family":"systemSmall",)"
            R"("configuration":{"card":"</script>"},"column":2,"row":1}]})");
}

TEST(BoardJson, ListsTheOptionsAndWhetherThereAreMore) {
  EXPECT_EQ(optionsJson({.options = {{.id = "a", .title = "A \"b\""}}, .more = true}),
            R"({"options":[{"id":"a","title":"A \"b\""}],"more":true})");
  EXPECT_EQ(optionsJson({.options = {}, .defaultOption = "a"}),
            R"({"options":[],"default":"a","more":false})");
}

TEST(BoardJson, GivesEachLinkOfAPictureItsPlaceAndNumber) {
  auto picture = std::make_shared<Picture>();
  picture->text = "<svg/>";
  picture->elements.push_back({.label = "Net worth", .value = "$1"});
  picture->elements.push_back(
      {.label = "Add", .frame = {.x = 1, .y = 2, .width = 3, .height = 4}, .link = "app://add"});
  BoardPicture shown{.version = 7, .size = {170, 170}};
  shown.shown.state = State::stale;
  shown.shown.reason = "no answer";
  shown.shown.link = "app://open";
  shown.shown.picture = picture;
  shown.since = Instant{.seconds = 0};
  const auto json = foundation::parseJson(pictureJson("w1", shown));
  ASSERT_TRUE(json);
  EXPECT_EQ(*json->member("state")->string(), "stale");
  EXPECT_EQ(*json->member("since")->string(), "1970-01-01T00:00:00Z");
  EXPECT_EQ(*json->member("link")->string(), "app://open");
  EXPECT_EQ(json->member("elements")->array()->size(), 2U);
  const auto& regions = *json->member("regions")->array();
  ASSERT_EQ(regions.size(), 1U);
  EXPECT_EQ(*regions[0].member("id")->number(), 1);
  EXPECT_EQ(*regions[0].member("height")->number(), 4);
}

TEST(BoardJson, WritesErrorsSoThatTheyStayOnOneLine) {
  EXPECT_EQ(errorJson("a \"b\"\nc"), R"({"error":"a \"b\"\nc"})");
}

}  // namespace
}  // namespace surfaces
