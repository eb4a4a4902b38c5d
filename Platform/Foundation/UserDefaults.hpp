// Preferences that an application and its extension share, kept as a property list in the group's
// container.
#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/FileManager.hpp"

namespace foundation {

enum class DefaultsError : std::uint8_t {
  unreadable,  ///< the machine could not read the file at the moment; it is left as it is
  unwritable,
};

/// One suite: `Library/Preferences/<suite>.plist`. Every call reads and writes the file itself, so
/// other processes see a change at once. Writers take turns by a lock on the folder, which is
/// waited for 100 ms at most: who holds it longer hangs, and must not hang this process too.
class UserDefaults {
 public:
  /// Nothing without a container for the suite's group.
  [[nodiscard]] static std::optional<UserDefaults> initWithSuiteName(std::string_view suiteName,
                                                                     const FileManager& files);

  /// Replaces the file in one step and keeps all other keys, the form and the mode; on failure the
  /// old file stands. A file that is no dictionary, too large or out of reach is kept aside as
  /// `<suite>.plist.corrupt`, in place of an earlier one.
  std::expected<void, DefaultsError> setBool(bool value, const std::string& key) const;

  /// False also for a missing key or file. Reads a number (not 0) and the strings "YES", "true" (in
  /// any case) and those that start with a number other than 0 as true.
  [[nodiscard]] bool boolForKey(std::string_view key) const;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  UserDefaults(std::string folder, std::string path)
      : folder_(std::move(folder)), path_(std::move(path)) {}

  std::string folder_;
  std::string path_;
};

}  // namespace foundation
