// Read, change, replace: the new file is complete on disk before it takes the old one's name.
#include "Foundation/UserDefaults.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/FileWriting.hpp"
#include "Foundation/PropertyList.hpp"

namespace foundation {
namespace {

constexpr mode_t kFolderMode = 0700;
constexpr std::chrono::milliseconds kLongestWait{100};
constexpr std::chrono::milliseconds kPause{2};

bool makeFolder(const std::string& path) {
  return ::mkdir(path.c_str(), kFolderMode) == 0 || (errno == EEXIST && isDirectory(path));
}

/// Waits for the other writers; false when one of them holds the lock for longer than that.
bool lock(int folder) {
  const auto deadline = std::chrono::steady_clock::now() + kLongestWait;
  while (::flock(folder, LOCK_EX | LOCK_NB) != 0) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

/// As the platform reads text for a Boolean.
bool isAffirmative(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\r\n+-0");
  if (start == std::string_view::npos) return false;
  const char c = text[start];
  return c == 'y' || c == 'Y' || c == 't' || c == 'T' || (c >= '1' && c <= '9');
}

}  // namespace

std::optional<UserDefaults> UserDefaults::initWithSuiteName(std::string_view suiteName,
                                                            const FileManager& files) {
  const auto container = files.containerURLForSecurityApplicationGroupIdentifier(suiteName);
  if (!container) return std::nullopt;
  std::string folder = appendingPathComponent(*container, "Library/Preferences");
  std::string path = appendingPathComponent(folder, std::string(suiteName) + ".plist");
  return UserDefaults(std::move(folder), std::move(path));
}

std::expected<void, DefaultsError> UserDefaults::setBool(bool value, const std::string& key) const {
  const std::string library = folder_.substr(0, folder_.rfind('/'));
  if (!makeFolder(library) || !makeFolder(folder_)) {
    return std::unexpected(DefaultsError::unwritable);
  }
  const FileDescriptor folder(::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder) return std::unexpected(DefaultsError::unwritable);
  // Without its turn this writer may undo another's change, but its file is whole all the same.
  static_cast<void>(lock(folder.get()));

  const auto existing = readFile(path_, kMaximumPropertyList);
  if (!existing && existing.error() == FileError::unreadable) {
    return std::unexpected(DefaultsError::unreadable);
  }
  auto changed = existing ? propertyListBySetting(*existing, key, value) : std::nullopt;
  const bool isUsable = changed && changed->size() <= kMaximumPropertyList;
  if (!isUsable) {
    const bool isMissing = !existing && existing.error() == FileError::missing;
    if (!isMissing && std::rename(path_.c_str(), (path_ + ".corrupt").c_str()) != 0) {
      return std::unexpected(DefaultsError::unwritable);
    }
    changed = xmlPropertyList(PropertyList::Dictionary{{key, value}});
  }
  if (replaceFile(path_, *changed, {.keepsMode = true})) {
    return std::unexpected(DefaultsError::unwritable);
  }
  return {};
}

bool UserDefaults::boolForKey(std::string_view key) const {
  const auto bytes = contentsOfFile(path_, kMaximumPropertyList);
  const auto list = bytes ? parsePropertyList(*bytes) : std::nullopt;
  const auto* values = list ? list->dictionary() : nullptr;
  if (values == nullptr) return false;
  const auto found = values->find(key);
  if (found == values->end()) return false;
  const PropertyList& value = found->second;
  if (const bool* flag = value.boolean()) return *flag;
  if (const std::int64_t* whole = value.integer()) return *whole != 0;
  if (const double* real = value.real()) return *real != 0;
  if (const std::string* text = value.string()) return isAffirmative(*text);
  return false;
}

}  // namespace foundation
