// Commas between the items of a list, by language.
#include <gtest/gtest.h>

#include "Foundation/ListSeparator.hpp"

namespace foundation {
namespace {

TEST(ListSeparator, IsTheCommaOfTheScript) {
  EXPECT_EQ(listSeparator("en"), ", ");
  EXPECT_EQ(listSeparator("ar"), "\u060C ");
  EXPECT_EQ(listSeparator("ja"), "\u3001");
  EXPECT_EQ(listSeparator("zh-Hans"), "\uFF0C");
  EXPECT_EQ(listSeparator("zh-Hant"), "\uFF0C");
}

TEST(ListSeparator, OtherLanguagesAndNoneShareOne) {
  for (const char* language : {"de", "ru", "hi", "ko", ""}) {
    EXPECT_EQ(listSeparator(language), ", ") << language;
  }
}

}  // namespace
}  // namespace foundation
