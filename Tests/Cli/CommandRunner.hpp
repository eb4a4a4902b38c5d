// Runs the built programs as a shell would, with a small environment of their own, and keeps what
// they say.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

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
[[nodiscard]] Outcome runHost(const Words& words,
                              const std::map<std::string, std::string>& environment = {});

/// A folder of its own, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  /// Writes a file and returns its path.
  std::string write(const std::string& name, const std::string& text) const;

 private:
  std::filesystem::path path_;
};

[[nodiscard]] std::string contentsOf(const std::filesystem::path& file);

}  // namespace cli
