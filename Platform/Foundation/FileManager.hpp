// Files and the folder that an application and its extension share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace foundation {

enum class FileError : std::uint8_t { missing, notPermitted, notRegular, tooLarge, unreadable };

/// A few words for a person: "no such file", "larger than the limit" ...
[[nodiscard]] std::string_view describe(FileError error);

inline constexpr std::size_t kMaximumFileSize = std::size_t{64} << 20;

/// A regular file's bytes. Never waits for a pipe or a device, and reads nothing of a file above
/// the limit.
[[nodiscard]] std::expected<std::string, FileError> readFile(const std::string& path,
                                                             std::size_t limit = kMaximumFileSize);
/// The same, where the reason does not matter.
[[nodiscard]] std::optional<std::string> contentsOfFile(const std::string& path,
                                                        std::size_t limit = kMaximumFileSize);

/// Joins with exactly one slash. An empty component leaves the path as it is.
[[nodiscard]] std::string appendingPathComponent(std::string_view path, std::string_view component);

[[nodiscard]] bool isDirectory(const std::string& path);

/// Knows where the groups' shared folders are.
class FileManager {
 public:
  /// Groups' folders stand below `containerRoot` and are named as the group.
  explicit FileManager(std::string containerRoot) : root_(std::move(containerRoot)) {}
  /// Every group's folder is `folder` itself.
  [[nodiscard]] static FileManager withContainer(std::string folder);

  /// Where the group's folder is, or would be; nothing without a root and for an identifier that is
  /// no plain folder name.
  [[nodiscard]] std::optional<std::string> containerPath(std::string_view identifier) const;

  /// The group's existing folder; nothing for an unknown group or for an identifier that is no
  /// plain folder name.
  [[nodiscard]] std::optional<std::string> containerURLForSecurityApplicationGroupIdentifier(
      std::string_view identifier) const;

  friend bool operator==(const FileManager&, const FileManager&) = default;

 private:
  std::string root_;
  bool isContainer_ = false;
};

}  // namespace foundation
