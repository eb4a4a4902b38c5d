// Waits until a journal, a file that it includes or its settings change, or the local day does.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/Instant.hpp"
#include "Import/Result.hpp"

namespace importer {

enum class WatchEvent : std::uint8_t { filesChanged, timeCame, ended };

/// Folders are watched, not files: editors replace a file by another of its name. Blocks SIGINT and
/// SIGTERM in the process, which then end the waiting.
class FileWatch {
 public:
  [[nodiscard]] static Result<FileWatch> make();

  /// Watches the folders of these files, through symbolic links too; where one is missing, the
  /// nearest folder above it that is there. True when it watches what it did not watch before,
  /// which may have changed in the meantime.
  bool follow(const std::vector<std::string>& files);

  /// Waits for one of: a change (some 50 ms after its last write), the wall clock reaching `time`
  /// or being set, a signal to end.
  [[nodiscard]] WatchEvent wait(foundation::Instant time);

 private:
  FileWatch(foundation::FileDescriptor changes,
            foundation::FileDescriptor clock,
            foundation::FileDescriptor signals)
      : changes_(std::move(changes)), clock_(std::move(clock)), signals_(std::move(signals)) {}

  void watchFolder(const std::string& folder, const std::string& name);
  bool readChanges();
  void setClock(foundation::Instant time);

  struct Folder {
    std::string path;
    std::set<std::string, std::less<>> names;
    bool isStandIn = false;  ///< for a folder below it that is missing: any new name counts

    friend bool operator==(const Folder&, const Folder&) = default;
  };

  foundation::FileDescriptor changes_;
  foundation::FileDescriptor clock_;
  foundation::FileDescriptor signals_;
  std::map<int, Folder> folders_;  ///< by watch descriptor
};

/// A name that a journal's folder may hold as part of it: globs in includes bring in new files.
[[nodiscard]] bool isJournalName(std::string_view name);

}  // namespace importer
