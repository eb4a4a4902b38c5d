// A document's states and languages, and the amounts that change with every measured image.
#include <gtest/gtest.h>

#include "Cli/Sheet/DocumentVariants.hpp"

namespace cli {
namespace {

constexpr std::string_view kDocument =
    R"({"isHidden":false,"lang":"en","money":{"symbol":"$","conversionRate":2},"dues":[{"amount":15}],)"
    R"("budget":{"total":100,"spent":0},"cards":[{"limit":7}]})";

foundation::JsonValue parsed(std::string_view text) {
  return foundation::parseJson(text).value();
}

TEST(DocumentVariants, asWrittenIsTheSameDocument) {
  EXPECT_EQ(parsed(documentText(parsed(kDocument), DocumentState::asWritten, "")),
            parsed(kDocument));
}

TEST(DocumentVariants, hiddenSetsThePrivacyFlagAndLanguageTheCode) {
  const auto changed = parsed(documentText(parsed(kDocument), DocumentState::hidden, "ar"));
  EXPECT_EQ(*changed.member("isHidden")->boolean(), true);
  EXPECT_EQ(*changed.member("lang")->string(), "ar");
  EXPECT_EQ(*changed.member("budget"), *parsed(kDocument).member("budget"));
}

TEST(DocumentVariants, noDataKeepsOnlyWhatADocumentMustHave) {
  const auto changed = parsed(documentText(parsed(kDocument), DocumentState::noData, ""));
  EXPECT_EQ(changed.member("budget"), nullptr);
  EXPECT_TRUE(changed.member("dues")->array()->empty());
  EXPECT_TRUE(changed.member("cards")->array()->empty());
  EXPECT_EQ(*changed.member("money"), *parsed(kDocument).member("money"));
}

TEST(DocumentVariants, noDocumentIsEmpty) {
  EXPECT_EQ(documentText(parsed(kDocument), DocumentState::noDocument, "de"), "");
}

TEST(DocumentVariants, amountsChangeWithEveryStepAndNothingElseDoes) {
  const auto first = parsed(documentWithOtherAmounts(parsed(kDocument), 1));
  const auto second = parsed(documentWithOtherAmounts(parsed(kDocument), 2));
  EXPECT_NE(*first.member("dues"), *second.member("dues"));
  EXPECT_NE(*first.member("cards"), *second.member("cards"));
  EXPECT_EQ(*first.member("money"), *parsed(kDocument).member("money"));
  EXPECT_EQ(*first.member("lang"), *parsed(kDocument).member("lang"));
  EXPECT_EQ(*first.member("budget")->member("spent")->number(), 0);
  EXPECT_NE(*first.member("budget")->member("total")->number(),
            *second.member("budget")->member("total")->number());
}

TEST(DocumentVariants, neighbouringAmountsChangeDifferently) {
  const auto before = parsed(R"({"total": 100, "left": 100, "daily": [5, 5]})");
  const auto after = parsed(documentWithOtherAmounts(before, 3));
  EXPECT_NE(*after.member("total")->number(), *after.member("left")->number());
  EXPECT_NE(*after.member("daily")->array()->at(0).number(),
            *after.member("daily")->array()->at(1).number());
}

TEST(DocumentVariants, percentagesStay) {
  const auto after = parsed(documentWithOtherAmounts(parsed(R"({"changePercent": 5.5})"), 3));
  EXPECT_EQ(*after.member("changePercent")->number(), 5.5);
}

}  // namespace
}  // namespace cli
