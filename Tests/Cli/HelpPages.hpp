// What the program itself says about its commands and options: what everything written about it is
// held to.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace cli {

struct CommandHelp {
  std::vector<std::string> arguments;          ///< "KIND", "FILE ...", "[KIND ...]"
  std::map<std::string, std::string> options;  ///< "-o,--out" to "FILE"; a flag to nothing

  bool operator==(const CommandHelp&) const = default;
};

/// In the order of `quorvel-host --help`.
[[nodiscard]] std::vector<std::string> commandNames();
[[nodiscard]] CommandHelp helpOf(const std::string& command);

/// "-o,--out" as "-o" and "--out".
[[nodiscard]] std::vector<std::string> spellings(const std::string& names);
/// "--out".
[[nodiscard]] std::string longSpelling(const std::string& names);

/// Options that take one of a few words, and these words, as the refusal of another word lists
/// them.
[[nodiscard]] std::map<std::string, std::set<std::string>> enumeratedValues();

}  // namespace cli
