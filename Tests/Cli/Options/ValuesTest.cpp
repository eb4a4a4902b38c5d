// The text forms of option values.
#include <gtest/gtest.h>

#include "Cli/Options/Values.hpp"

namespace cli {
namespace {

TEST(Values, SizesAreTwoPositiveNumbers) {
  EXPECT_EQ(sizeFrom("170x382"), (rendering::Size{170, 382}));
  EXPECT_EQ(sizeFrom("0.5x2000"), (rendering::Size{0.5, 2000}));
  for (const char* text : {"",
                           "x",
                           "170",
                           "170x",
                           "x170",
                           "0x10",
                           "-1x10",
                           "1e3x10",
                           "170X170",
                           "2001x10",
                           "1x1x1",
                           "nanx1",
                           "infx1",
                           " 1x1",
                           "1x1 ",
                           "1..2x1"}) {
    EXPECT_FALSE(sizeFrom(text)) << text;
  }
}

TEST(Values, ColoursAreSixHexadecimalDigits) {
  EXPECT_EQ(colorFrom("#8A2Be2"), 0x8A2BE2u);
  for (const char* text :
       {"", "#", "8A2BE2", "#8A2BE", "#8A2BE22", "#8A2BEG", "#-A2BE2", "#0x1234"}) {
    EXPECT_FALSE(colorFrom(text)) << text;
  }
}

TEST(Values, RedactionIsAListOfReasons) {
  EXPECT_EQ(redactionFrom("privacy"),
            (viewkit::RedactionReasons{.privacy = true, .placeholder = false}));
  EXPECT_EQ(redactionFrom("placeholder,privacy"),
            (viewkit::RedactionReasons{.privacy = true, .placeholder = true}));
  for (const char* text : {"", ",", "privacy,", "Privacy", "privacy;placeholder"}) {
    EXPECT_FALSE(redactionFrom(text)) << text;
  }
}

TEST(Values, AChoiceIsANameAndAValue) {
  EXPECT_EQ(assignmentFrom("style=ring"), (std::pair<std::string, std::string>{"style", "ring"}));
  EXPECT_EQ(assignmentFrom("card=a=b"), (std::pair<std::string, std::string>{"card", "a=b"}));
  EXPECT_EQ(assignmentFrom("card="), (std::pair<std::string, std::string>{"card", ""}));
  EXPECT_FALSE(assignmentFrom("=ring"));
  EXPECT_FALSE(assignmentFrom("ring"));
}

TEST(Values, NamesAreExact) {
  using foundation::named;
  EXPECT_EQ(named<Format>("accessibility"), Format::accessibility);
  EXPECT_FALSE(named<Format>("PNG"));
  EXPECT_EQ(named<Preset>("stress"), Preset::stress);
  EXPECT_FALSE(named<Preset>(""));
  EXPECT_EQ(named<viewkit::Appearance>("dark"), viewkit::Appearance::dark);
  EXPECT_FALSE(named<viewkit::Appearance>("Dark"));
}

}  // namespace
}  // namespace cli
