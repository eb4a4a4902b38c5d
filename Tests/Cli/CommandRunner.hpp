// Runs the built programs as a shell would, with a small environment of their own, and keeps what
// they say.
#pragma once

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "Tests/Support/TemporaryFolder.hpp"

namespace cli {

struct Outcome {
  int status = -1;  ///< exit status; 128 and more for a signal
  std::string out;
  std::string errors;
};

using Words = std::vector<std::string>;

[[nodiscard]] std::filesystem::path builtProgram(const std::string& name);
[[nodiscard]] std::filesystem::path example(const std::string& name);

/// `environment` is all that the program sees, besides a PATH; HOME is a folder that does not exist
/// unless given.
[[nodiscard]] Outcome runProgram(const std::string& program,
                                 const Words& words,
                                 const std::map<std::string, std::string>& environment = {});
[[nodiscard]] Outcome runHost(const Words& words,
                              const std::map<std::string, std::string>& environment = {});

/// The extension, fed from a file until its end.
[[nodiscard]] Outcome runExtension(const std::filesystem::path& input);

/// The widgets that the built host offers, as `list --json` describes them.
[[nodiscard]] nlohmann::json offeredWidgets();
/// Their kinds.
[[nodiscard]] std::vector<std::string> offeredKinds();

using testsupport::contentsOf;
using testsupport::TemporaryFolder;

}  // namespace cli
