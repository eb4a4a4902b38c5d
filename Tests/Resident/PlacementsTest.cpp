// The form of placements.json, and what is no such form.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "Resident/Placements.hpp"

namespace resident {
namespace {

using ::testing::HasSubstr;
using widgetruntime::WidgetFamily;

constexpr const char* kEverything =
    R"({"version":1,"hidden":true,"desktop":true,"look":"glass","nextId":9,"placements":[)"
    R"({"id":"w3","kind":"QuorvelDueWidget","family":"systemMedium","configuration":{"card":"c\"1"},)"
    R"("desktop":{"output":"DP-1","column":2,"row":0},"board":{"column":0,"row":1}}]})";

std::string with(const std::string& from, const std::string& to) {
  std::string text = kEverything;
  return text.replace(text.find(from), from.size(), to);
}

std::string problemOf(const std::string& text) {
  const auto placements = decodePlacements(text);
  return placements ? "" : placements.error().line;
}

TEST(Placements, ReadsWhatItSays) {
  const auto read = decodePlacements(kEverything);
  ASSERT_TRUE(read) << read.error().line;
  EXPECT_TRUE(read->hidden);
  EXPECT_TRUE(read->desktop);
  EXPECT_EQ(read->look, Look::glass);
  EXPECT_EQ(read->nextId, 9U);
  ASSERT_EQ(read->placements.size(), 1U);
  const Placement& placement = read->placements[0];
  EXPECT_EQ(placement.id, "w3");
  EXPECT_EQ(placement.kind, "QuorvelDueWidget");
  EXPECT_EQ(placement.family, WidgetFamily::systemMedium);
  EXPECT_EQ(placement.configuration.at("card"), "c\"1");
  EXPECT_EQ(placement.desktop, (DesktopPlace{"DP-1", 2, 0}));
  EXPECT_EQ(placement.board, (BoardPlace{0, 1}));
}

TEST(Placements, WritesWhatItReads) {
  EXPECT_EQ(encodePlacements(*decodePlacements(kEverything)), std::string(kEverything) + "\n");
}

TEST(Placements, UsesNoIdAgain) {
  Placements placements;
  EXPECT_EQ(placements.add("A", WidgetFamily::systemSmall, {})->id, "w1");
  EXPECT_EQ(placements.add("A", WidgetFamily::systemSmall, {})->id, "w2");
  EXPECT_TRUE(placements.remove("w2"));
  const auto reread = decodePlacements(encodePlacements(placements));
  ASSERT_TRUE(reread);
  Placements later = *reread;
  EXPECT_EQ(later.add("A", WidgetFamily::systemSmall, {})->id, "w3");
}

TEST(Placements, GivesNoIdThatAFileOfAnotherHandUses) {
  auto placements = decodePlacements(with("\"nextId\":9", "\"nextId\":1"));
  ASSERT_TRUE(placements);
  EXPECT_EQ(placements->add("A", WidgetFamily::systemSmall, {})->id, "w4");
}

TEST(Placements, HoldsSixtyFourAtMost) {
  Placements placements;
  for (std::size_t i = 0; i < Placements::kMaximum; ++i) {
    ASSERT_NE(placements.add("A", WidgetFamily::systemSmall, {}), nullptr);
  }
  EXPECT_EQ(placements.add("A", WidgetFamily::systemSmall, {}), nullptr);
}

struct Broken {
  const char* name;
  std::string text;
  const char* says;
};
void PrintTo(const Broken& broken, std::ostream* out) {
  *out << broken.name;
}

class BrokenPlacements : public ::testing::TestWithParam<Broken> {};

TEST_P(BrokenPlacements, SayWhatIsWrongWhere) {
  EXPECT_THAT(problemOf(GetParam().text), HasSubstr(GetParam().says));
}

INSTANTIATE_TEST_SUITE_P(
    ,
    BrokenPlacements,
    ::testing::Values(
        Broken{"Empty", "", "1:1"},
        Broken{"Truncated", std::string(kEverything).substr(0, 90), "expected"},
        Broken{"AnArray", "[]", "/version: missing"},
        Broken{"WithoutVersion", "{}", "/version: missing"},
        Broken{"VersionZero", with("\"version\":1", "\"version\":0"), "version"},
        Broken{"UnknownMember", with("\"hidden\":true", "\"hidden\":true,\"x\":1"), "/x: unknown"},
        Broken{"UnknownMemberOfAPlacement",
               with("\"id\"", "\"no\":1,\"id\""),
               "/placements/0/no: unknown"},
        Broken{"UnknownMemberOfAPlace",
               with("\"output\"", "\"no\":1,\"output\""),
               "/placements/0/desktop/no: unknown"},
        Broken{"HiddenIsText",
               with("\"hidden\":true", "\"hidden\":\"yes\""),
               "/hidden: expected true or false"},
        Broken{"UnknownLook", with("glass", "brass"), "/look: expected paper, glass, tinted"},
        Broken{"UnknownFamily",
               with("systemMedium", "systemHuge"),
               "/placements/0/family: expected systemSmall, "},
        Broken{"EmptyKind", with("QuorvelDueWidget", ""), "/placements/0/kind: expected a kind"},
        Broken{"IdOfAnotherForm", with("\"w3\"", "\"w03\""), "/placements/0/id: expected an id"},
        Broken{"IdWithAPath", with("\"w3\"", "\"w3/../x\""), "/placements/0/id: expected an id"},
        Broken{"HalfACell",
               with("\"column\":2", "\"column\":2.5"),
               "/placements/0/desktop/column: expected a "},
        Broken{"NegativeCell",
               with("\"column\":2", "\"column\":-1"),
               "/placements/0/desktop/column: expected a "},
        Broken{"FarCell",
               with("\"row\":1", "\"row\":1000"),
               "/placements/0/board/row: expected a number in 0...999"},
        Broken{"NumberAsConfiguration",
               with("\"c\\\"1\"", "1"),
               "/placements/0/configuration/card: expected a string"},
        Broken{"NoList",
               with("\"placements\":[", "\"placements\":7,\"x\":["),
               "/placements: expected an array"}),
    [](const auto& test) { return test.param.name; });

TEST(Placements, RefusesAnIdThatStandsTwice) {
  Placements placements;
  placements.placements = {{.id = "w1", .kind = "A"}, {.id = "w1", .kind = "B"}};
  EXPECT_THAT(problemOf(encodePlacements(placements)), HasSubstr("/placements/1/id: used twice"));
}

TEST(Placements, KnowsALaterVersion) {
  const auto later = decodePlacements(R"({"version":2,"anything":[]})");
  ASSERT_FALSE(later);
  EXPECT_TRUE(later.error().isLater);
}

}  // namespace
}  // namespace resident
