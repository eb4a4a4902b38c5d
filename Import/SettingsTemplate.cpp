#include "Import/SettingsTemplate.hpp"

#include <fmt/format.h>

#include <set>
#include <vector>

namespace importer {
namespace {

std::vector<std::string> accountsOf(const AccountTypes& accounts, std::string_view types) {
  std::vector<std::string> names;
  for (const auto& [name, type] : accounts) {
    if (types.contains(type)) names.push_back(name);
  }
  return names;
}

std::string tomlList(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + tomlText(name);
  return "[" + text + "]";
}

std::string cards(const AccountTypes& accounts) {
  std::vector<std::string> names = accountsOf(accounts, "L");
  if (names.empty()) names.emplace_back("liabilities:visa");
  std::string text;
  for (const std::string& name : names) {
    text += fmt::format(
        "# [[card]]                  # a credit card; loans stay out\n# account = {}\n"
        "# limit = 10000\n# last4 = \"8478\"\n# due-day = 17\n# faces = [\"#315792\", "
        "\"#20375D\"]\n\n",
        tomlText(name));
  }
  return text;
}

std::string categories(const AccountTypes& accounts) {
  std::set<std::string> names;
  for (const std::string& name : accountsOf(accounts, "X")) {
    if (const auto category = firstTwoComponents(name); !category.empty()) names.emplace(category);
  }
  std::string text;
  for (const std::string& name : names) {
    text += fmt::format("# [category.{}]\n# name = {}\n# icon = \"cart.fill\"\n\n",
                        tomlText(name),
                        tomlText(lastComponent(name)));
  }
  return text;
}

}  // namespace

std::string tomlText(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
      result += fmt::format("\\u{:04X}", c);
    } else {
      result += c;
    }
  }
  return result + "\"";
}

std::string settingsTemplate(const AccountTypes& accounts) {
  return fmt::format(
      R"(# Settings of quorvel-import. All of it is optional: take away the "#" of what you want to set.
# `quorvel-import check` says what comes of it.

# language = "en"
# commodity = "$"           # else the one with the most postings
# symbol = "$"              # else the commodity as written
# decimals = false          # else as this month and the last one need them
# hidden = false            # true masks every amount

[accounts]                  # queries as hledger takes them; else by account type
# spending = ["expenses"]
# exclude = ["expenses:rent"]
# liquid = {}

[budget]
# total = 1800              # else the sum of the journal's rules that begin with ~ monthly
# start-day = 25            # of the period, 1 to 28

{}{}[open]                      # what the widgets' links run; else the journal in the editor
# budget = "x-terminal-emulator -e hledger balance --budget -M expenses"
# add-expense = "x-terminal-emulator -e hledger add"
)",
      tomlList(accountsOf(accounts, "C")),
      cards(accounts),
      categories(accounts));
}

}  // namespace importer
