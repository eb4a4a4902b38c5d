#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Import/Settings.hpp"
#include "Import/SettingsTemplate.hpp"

namespace importer {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string refusal(std::string_view toml) {
  const auto settings = parseSettings(toml, "l.toml");
  return settings ? "accepted" : settings.error().line;
}

constexpr std::string_view kEveryKey = R"(
language = "de"
commodity = "€"
symbol = "EUR "
decimals = false
hidden = true
today = 2026-03-14
[accounts]
spending = ["expenses"]
exclude = ["expenses:rent", "tax"]
liquid = ["assets:bank"]
[budget]
total = 1800.50
start-day = 25
[[card]]
account = "liabilities:visa"
bank = "Northbank"
product = "Everyday"
last4 = "8478"
limit = 10000
due-day = 31
faces = ["#315792", "#20375D"]
[category."expenses:food"]
name = "Food"
icon = "fork.knife"
light = "#EDA100"
dark = "#C98500"
[open]
budget = "hledger balance"
add-expense = "hledger add"
)";

TEST(Settings, ReadEveryKey) {
  const auto settings = parseSettings(kEveryKey, "l.toml");
  ASSERT_TRUE(settings) << settings.error().line;
  EXPECT_EQ(settings->language, "de");
  EXPECT_EQ(settings->commodity, "€");
  EXPECT_EQ(settings->symbol, "EUR ");
  EXPECT_EQ(settings->decimals, false);
  EXPECT_TRUE(settings->hidden);
  EXPECT_EQ(text(*settings->today), "2026-03-14");
  EXPECT_THAT(settings->spending, ElementsAre("expenses"));
  EXPECT_THAT(settings->exclude, ElementsAre("expenses:rent", "tax"));
  EXPECT_THAT(settings->liquid, ElementsAre("assets:bank"));
  EXPECT_EQ(settings->budgetTotal, parseDecimal("1800.5"));
  EXPECT_EQ(settings->budgetStartDay, 25);
  EXPECT_EQ(settings->open.at("budget"), "hledger balance");
  EXPECT_EQ(settings->open.at("add-expense"), "hledger add");
}

TEST(Settings, ReadEveryKeyOfACard) {
  const auto settings = parseSettings(kEveryKey, "l.toml");
  ASSERT_TRUE(settings) << settings.error().line;
  ASSERT_EQ(settings->cards.size(), 1u);
  const CardSettings& card = settings->cards.front();
  EXPECT_EQ(card.account, "liabilities:visa");
  EXPECT_EQ(card.bank, "Northbank");
  EXPECT_EQ(card.product, "Everyday");
  EXPECT_EQ(card.last4, "8478");
  EXPECT_EQ(card.limit, Decimal::whole(10000));
  EXPECT_EQ(card.dueDay, 31);
  EXPECT_THAT(card.faces, ElementsAre("#315792", "#20375D"));
}

TEST(Settings, ReadEveryKeyOfACategory) {
  const auto settings = parseSettings(kEveryKey, "l.toml");
  ASSERT_TRUE(settings) << settings.error().line;
  const CategorySettings& category = settings->categories.at("expenses:food");
  EXPECT_EQ(category.name, "Food");
  EXPECT_EQ(category.icon, "fork.knife");
  EXPECT_EQ(category.light, "#EDA100");
  EXPECT_EQ(category.dark, "#C98500");
}

TEST(Settings, AreAllOptional) {
  const auto settings = parseSettings("", "l.toml");
  ASSERT_TRUE(settings);
  EXPECT_FALSE(settings->language || settings->commodity || settings->decimals || settings->hidden);
  EXPECT_EQ(settings->budgetStartDay, 1);
}

TEST(Settings, RefuseUnknownKeysWithTheirPlace) {
  EXPECT_THAT(refusal("hidden = true\nlanguge = \"de\"\n"),
              StartsWith("l.toml:2:1: unknown key \"languge\"; known here are accounts, budget"));
  EXPECT_THAT(refusal("[budget]\n  sum = 3\n"), StartsWith("l.toml:2:3: unknown key \"sum\""));
  EXPECT_THAT(refusal("[[card]]\naccount = \"a\"\nlimits = 1\n"), StartsWith("l.toml:3:1: "));
  EXPECT_THAT(refusal("[open]\nmap = \"x\"\n"), HasSubstr("add-expense"));
}

TEST(Settings, RefuseWrongTypesAndValuesWithTheirPlace) {
  EXPECT_THAT(refusal("hidden = 1"), StartsWith("l.toml:1:10: hidden must be true or false"));
  EXPECT_THAT(refusal("language = 1"), HasSubstr("language must be a text"));
  EXPECT_THAT(refusal("language = \"pt\""), HasSubstr("language must be one of en, id, es, pt-BR"));
  EXPECT_THAT(refusal("today = \"2026-03-14\""), HasSubstr("without quotes"));
  EXPECT_THAT(refusal("[budget]\ntotal = \"1800\""),
              StartsWith("l.toml:2:9: total must be an amount"));
  EXPECT_THAT(refusal("[budget]\ntotal = 0"), HasSubstr("above 0"));
  EXPECT_THAT(refusal("[budget]\ntotal = inf"), HasSubstr("above 0"));
  EXPECT_THAT(refusal("[budget]\nstart-day = 29"), HasSubstr("from 1 to 28"));
  EXPECT_THAT(refusal("accounts = \"x\""), HasSubstr("a table"));
  EXPECT_THAT(refusal("[accounts]\nspending = \"expenses\""), HasSubstr("a list of texts"));
  EXPECT_THAT(refusal("[accounts]\nspending = [1]"), HasSubstr("texts in quotes only"));
  EXPECT_THAT(refusal("[accounts]\nspending = [\"--evil\"]"), HasSubstr("queries such as"));
  EXPECT_THAT(refusal("[card]\naccount = \"a\""), HasSubstr("[[card]]"));
  EXPECT_THAT(refusal("[[card]]\nlimit = 3"), HasSubstr("needs its account"));
  EXPECT_THAT(refusal("[[card]]\naccount = \"a\"\ndue-day = 32"), HasSubstr("from 1 to 31"));
  EXPECT_THAT(refusal("[[card]]\naccount = \"a\"\nfaces = [\"red\"]"), HasSubstr("#315792"));
  EXPECT_THAT(refusal("[[card]]\naccount = \"a\"\n[[card]]\naccount = \"a\""), HasSubstr("second"));
  EXPECT_THAT(refusal("[category]\nfood = 3"), HasSubstr("must hold tables"));
  EXPECT_THAT(refusal("[category.a]\nlight = \"#12345\""), HasSubstr("light must be a colour"));
}

TEST(Settings, RefuseBrokenTomlWithItsPlace) {
  EXPECT_THAT(refusal("hidden = true\nlanguage = \n"), StartsWith("l.toml:2:12: "));
  EXPECT_THAT(refusal("hidden = true\nhidden = true\n"), StartsWith("l.toml:2:"));
  EXPECT_THAT(refusal("\xff"), StartsWith("l.toml:1:"));
}

TEST(Settings, RefuseTablesWithoutANameWithTheirLine) {
  for (const char* table : {"[[[", "[=", "[[=", "[.a]", "[#", "[[#", "[[[a]]]", "[$x]"})
    EXPECT_THAT(refusal("hidden = true\n" + std::string(table)), StartsWith("l.toml:2")) << table;
  for (const char* text : {"[]", "[ ]", "[", "[[", "[[]", "[a.]", "[a", "a.=1", ".a=1", "=1", "}"})
    EXPECT_THAT(refusal(text), StartsWith("l.toml:1:")) << text;
  EXPECT_THAT(refusal(std::string(100'000, '[')), StartsWith("l.toml:1:"));
  EXPECT_THAT(refusal("a = " + std::string(100'000, '[')), StartsWith("l.toml:1:"));
}

TEST(SettingsTemplate, IsAcceptedAsItIsAndWithEveryLineSet) {
  const AccountTypes accounts{{"assets:bank", 'C'},
                              {"liabilities:say \"visa\" \\ card", 'L'},
                              {"expenses:food:fruit", 'X'},
                              {"expenses", 'X'}};
  std::string text = settingsTemplate(accounts);
  EXPECT_EQ(refusal(text), "accepted");
  // Every comment that sets something or opens a table.
  std::string all;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at) + 1;
    std::string line = text.substr(at, end - at);
    if (line.starts_with("# ") && (line.find(" = ") != std::string::npos || line[2] == '['))
      line.erase(0, 2);
    all += line;
    at = end;
  }
  const auto settings = parseSettings(all, "l.toml");
  ASSERT_TRUE(settings) << settings.error().line << "\n" << all;
  EXPECT_EQ(settings->cards.at(0).account, "liabilities:say \"visa\" \\ card");
  EXPECT_TRUE(settings->categories.contains("expenses:food"));
  EXPECT_THAT(settings->liquid, ElementsAre("assets:bank"));
}

}  // namespace
}  // namespace importer
