#include <gtest/gtest.h>

#include "Foundation/Markup.hpp"

namespace foundation {
namespace {

TEST(Markup, WritesTheFiveSpecialCharactersAsEntities) {
  EXPECT_EQ(escapedMarkup("<a href=\"x\">Tom's & co</a>"),
            "&lt;a href=&quot;x&quot;&gt;Tom&#39;s &amp; co&lt;/a&gt;");
}

TEST(Markup, LeavesEverythingElse) {
  EXPECT_EQ(escapedMarkup(""), "");
  EXPECT_EQ(escapedMarkup("a\n\u2066\u20ac5\u2069"), "a\n\u2066\u20ac5\u2069");
}

}  // namespace
}  // namespace foundation
