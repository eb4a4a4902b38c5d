#include "HelpPages.hpp"

#include <regex>
#include <sstream>

#include "CommandRunner.hpp"

namespace cli {
namespace {

std::string argumentFrom(const std::smatch& match) {
  std::string text = match[1];
  if (match[2].matched) text += " ...";
  return match[3].matched ? text : "[" + text + "]";
}

/// "a, b, c" and "a or b".
std::set<std::string> listed(const std::string& text) {
  static const std::regex separator(", | or ");
  return {std::sregex_token_iterator(text.begin(), text.end(), separator, -1), {}};
}

}  // namespace

std::vector<std::string> commandNames() {
  static const std::regex line("  ([a-z]+) +[^ ].*");
  std::vector<std::string> names;
  std::istringstream help(runHost({"--help"}).out);
  std::smatch match;
  for (std::string text; std::getline(help, text);) {
    if (std::regex_match(text, match, line)) names.push_back(match[1]);
  }
  return names;
}

CommandHelp helpOf(const std::string& command) {
  static const std::regex argument("  ([A-Z]+) TEXT( \\.\\.\\.)?( REQUIRED)?(  .*)?");
  // What follows an option's names after one blank is the name of its value.
  static const std::regex option("  (-[-,a-z]+)(?: (?!Excludes:)([^ ]+))?(?: [^ ].*|  .*)?");
  CommandHelp help;
  std::istringstream page(runHost({command, "--help"}).out);
  std::smatch match;
  for (std::string line; std::getline(page, line);) {
    if (std::regex_match(line, match, argument)) help.arguments.push_back(argumentFrom(match));
    if (std::regex_match(line, match, option)) help.options[match[1]] = match[2];
  }
  return help;
}

std::vector<std::string> spellings(const std::string& names) {
  static const std::regex comma(",");
  return {std::sregex_token_iterator(names.begin(), names.end(), comma, -1), {}};
}

std::string longSpelling(const std::string& names) {
  return spellings(names).back();
}

std::map<std::string, std::set<std::string>> enumeratedValues() {
  static const std::regex several("\"no such word\" is not (?:a [a-z]+ \\()?([A-Za-z, ]+)\\)?");
  std::map<std::string, std::set<std::string>> values;
  for (const char* option :
       {"--family", "--preset", "--appearance", "--mode", "--format", "--png"}) {
    const Outcome refusal = runHost({"render", "KIND", option, "no such word"});
    std::smatch match;
    if (std::regex_search(refusal.errors, match, several))
      values[option] = listed(std::regex_replace(match[1].str(), std::regex(" $"), ""));
  }
  // Its words may be combined, so the refusal is a sentence; `Values` tests what is accepted.
  values["--redact"] = {"privacy", "placeholder"};
  return values;
}

}  // namespace cli
