// The manual page says about commands and options what the program says, no less and no more.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include "CommandRunner.hpp"
#include "HelpPages.hpp"

namespace cli {
namespace {

using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

const std::string kManual = QUORVEL_SOURCE_DIR "/Install/quorvel-host.1";

/// An option where the page describes it.
struct Described {
  std::string place;  ///< a command, or the title of a group
  std::string names;
  std::string value;
};

/// The first lines of a command: ".Op Ar data-options" stands for all options of that group.
struct Synopsis {
  std::string command;
  std::vector<std::string> arguments;
  std::vector<std::string> groups;
  std::map<std::string, std::string> options;  ///< long names alone
};

struct Manual {
  std::vector<Synopsis> commands;
  std::vector<Described> described;
};

std::string withDashes(const std::string& flags) {
  static const std::regex separator(" , ");
  return "-" + std::regex_replace(flags, separator, ",-");
}

void readSynopsis(const std::string& line, Synopsis& synopsis) {
  static const std::regex command("\\.Cm ([a-z]+)");
  static const std::regex group("\\.Op Ar ([a-z]+)-options");
  static const std::regex argument("\\.(Op )?Ar ([A-Z]+(?: \\.\\.\\.)?)");
  static const std::regex option("\\.Op Fl ([-a-z]+)(?: Ar (.+))?");
  std::smatch match;
  if (std::regex_match(line, match, command)) {
    synopsis.command = match[1];
  } else if (std::regex_match(line, match, group)) {
    synopsis.groups.push_back(match[1]);
  } else if (std::regex_match(line, match, argument)) {
    synopsis.arguments.push_back(match[1].matched ? "[" + match[2].str() + "]" : match[2].str());
  } else if (std::regex_match(line, match, option)) {
    synopsis.options["-" + match[1].str()] = match[2];
  } else if (line != ".Xc") {
    ADD_FAILURE() << "a synopsis holds " << line;
  }
}

Manual readManual() {
  static const std::regex group("\\.Ss ([A-Z])([a-z]+) options");
  static const std::regex item("\\.It Fl ([-a-z]+(?: , [-a-z]+)*)(?: Ar (.+))?");
  Manual manual;
  std::string place;
  std::ifstream page(kManual);
  std::smatch match;
  bool inSynopsis = false;
  for (std::string line; std::getline(page, line);) {
    if (inSynopsis) {
      readSynopsis(line, manual.commands.back());
      place = manual.commands.back().command;
      inSynopsis = line != ".Xc";
    } else if (line == ".It Xo") {
      manual.commands.emplace_back();
      inSynopsis = true;
    } else if (line.starts_with(".Sh ")) {
      place = "everywhere";
    } else if (std::regex_match(line, match, group)) {
      place = std::string(1, static_cast<char>(std::tolower(match[1].str()[0]))) + match[2].str();
    } else if (std::regex_match(line, match, item)) {
      manual.described.push_back({place, withDashes(match[1]), match[2]});
    }
  }
  return manual;
}

/// The description that holds for an option of a command: the command's own, else a group's.
const Described* description(const Manual& manual,
                             const Synopsis& synopsis,
                             const std::string& name) {
  const auto isAt = [&](const Described& one, bool own) {
    return longSpelling(one.names) == name && (one.place == synopsis.command) == own;
  };
  for (const bool own : {true, false}) {
    for (const Described& one : manual.described) {
      const bool elsewhere = std::ranges::any_of(
          manual.commands, [&](const Synopsis& other) { return other.command == one.place; });
      if (isAt(one, own) && (own || !elsewhere)) return &one;
    }
  }
  return nullptr;
}

CommandHelp helpFrom(const Manual& manual, const Synopsis& synopsis) {
  CommandHelp help{.arguments = synopsis.arguments, .options = {}};
  for (const auto& [name, value] : synopsis.options) {
    const Described* found = description(manual, synopsis, name);
    EXPECT_TRUE(found) << synopsis.command << ": " << name << " is nowhere described";
    if (!found) continue;
    EXPECT_EQ(value, found->value) << synopsis.command << ": " << name;
    help.options[found->names] = value;
  }
  for (const Described& one : manual.described) {
    const bool isInGroup = std::ranges::find(synopsis.groups, one.place) != synopsis.groups.end();
    if (isInGroup || one.place == "everywhere") help.options[one.names] = one.value;
  }
  return help;
}

TEST(ManualPage, HasEveryCommandWithItsArgumentsAndOptions) {
  const Manual manual = readManual();
  std::vector<std::string> names;
  for (const Synopsis& synopsis : manual.commands) {
    names.push_back(synopsis.command);
    const CommandHelp expected = helpOf(synopsis.command);
    const CommandHelp written = helpFrom(manual, synopsis);
    EXPECT_EQ(written.arguments, expected.arguments) << synopsis.command;
    EXPECT_EQ(written.options, expected.options) << synopsis.command;
  }
  ASSERT_THAT(commandNames(), ::testing::Not(IsEmpty()));
  EXPECT_THAT(names, ElementsAreArray(commandNames()));
}

TEST(ManualPage, DescribesNothingThatNoCommandHas) {
  std::set<std::string> existing;
  for (const std::string& command : commandNames()) {
    for (const auto& [names, value] : helpOf(command).options) existing.insert(names);
  }
  const Manual manual = readManual();
  ASSERT_THAT(manual.described, ::testing::Not(IsEmpty()));
  for (const Described& one : manual.described) {
    EXPECT_TRUE(existing.contains(one.names)) << one.place << ": " << one.names;
  }
}

TEST(ManualPage, NamesEveryWordThatAnOptionTakes) {
  const std::string page = contentsOf(kManual);
  const auto values = enumeratedValues();
  ASSERT_THAT(values, SizeIs(7));
  for (const auto& [option, words] : values) {
    const auto begin = page.find(".It Fl " + option.substr(1) + " Ar");
    ASSERT_NE(begin, std::string::npos) << option;
    std::istringstream text(page.substr(begin, page.find("\n.It", begin + 1) - begin));
    std::set<std::string> named;
    for (std::string line; std::getline(text, line);) {
      if (line.starts_with(".Cm ")) named.insert(line.substr(4, line.find(' ', 4) - 4));
    }
    EXPECT_THAT(named, IsSupersetOf(words)) << option;
  }
}

TEST(ManualPage, IsWellFormed) {
  const Outcome outcome = runProgram("/usr/bin/mandoc", {"-Tlint", "-Wwarning", kManual});
  EXPECT_EQ(outcome.status, 0) << "(Debian package mandoc)";
  EXPECT_THAT(outcome.out + outcome.errors, IsEmpty());
}

}  // namespace
}  // namespace cli
