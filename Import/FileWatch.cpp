#include "Import/FileWatch.hpp"

#include <fmt/format.h>
#include <poll.h>
#include <signal.h>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace importer {
namespace {

namespace fs = std::filesystem;
using foundation::FileDescriptor;

constexpr std::uint32_t kChanges = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE |
                                   IN_CREATE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
/// An editor writes, renames and sets times in a row; a program that never stops writing must not
/// keep the document from being made.
constexpr int kQuietMilliseconds = 50;
constexpr int kMostQuietWaits = 8;

constexpr std::string_view kJournalEndings[] = {
    ".journal", ".hledger", ".ledger", ".j", ".dat", ".timeclock", ".timedot", ".csv", ".rules"};

}  // namespace

bool isJournalName(std::string_view name) {
  return std::ranges::any_of(kJournalEndings,
                             [&](std::string_view ending) { return name.ends_with(ending); });
}

Result<FileWatch> FileWatch::make() {
  sigset_t ends;
  sigemptyset(&ends);
  sigaddset(&ends, SIGINT);
  sigaddset(&ends, SIGTERM);
  sigprocmask(SIG_BLOCK, &ends, nullptr);
  FileDescriptor changes(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
  FileDescriptor clock(::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK));
  FileDescriptor signals(::signalfd(-1, &ends, SFD_CLOEXEC | SFD_NONBLOCK));
  if (!changes || !clock || !signals)
    return refused(fmt::format("cannot watch files: {}", std::strerror(errno)));
  return FileWatch(std::move(changes), std::move(clock), std::move(signals));
}

bool FileWatch::follow(const std::vector<std::string>& files) {
  const std::map<int, Folder> before = std::exchange(folders_, {});
  for (const std::string& file : files) {
    const fs::path path(file);
    watchFolder(path.parent_path(), path.filename());
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    if (!error && target != path) watchFolder(target.parent_path(), target.filename());
  }
  for (const auto& [watch, folder] : before) {
    if (!folders_.contains(watch)) ::inotify_rm_watch(changes_.get(), watch);
  }
  return folders_ != before;
}

void FileWatch::watchFolder(const std::string& folder, const std::string& name) {
  fs::path path = folder.empty() ? "." : folder;
  bool isStandIn = false;
  int watch = ::inotify_add_watch(changes_.get(), path.c_str(), kChanges);
  while (watch < 0 && path.has_relative_path()) {
    isStandIn = true;
    path = path.parent_path();
    watch = ::inotify_add_watch(changes_.get(), path.empty() ? "." : path.c_str(), kChanges);
  }
  if (watch < 0) return;
  Folder& entry = folders_[watch];
  entry.path = path;
  entry.names.insert(name);
  entry.isStandIn |= isStandIn;
}

bool FileWatch::readChanges() {
  alignas(inotify_event) std::array<char, 16384> buffer;
  bool isChanged = false;
  ssize_t size = 0;
  while ((size = ::read(changes_.get(), buffer.data(), buffer.size())) > 0) {
    for (ssize_t at = 0; at < size;) {
      const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
      at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
      if ((event->mask & IN_Q_OVERFLOW) != 0) isChanged = true;
      const auto folder = folders_.find(event->wd);
      if (folder == folders_.end()) continue;
      const std::string_view name = event->len > 0 ? event->name : "";
      const bool isFolderGone = (event->mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED)) != 0;
      // A file that is only now being written says so again when it is closed.
      const bool isUnwritten = (event->mask & IN_CREATE) != 0 && (event->mask & IN_ISDIR) == 0 &&
                               !folder->second.isStandIn;
      const bool isFollowed = folder->second.names.contains(name) || isJournalName(name);
      if (isFolderGone || folder->second.isStandIn || (isFollowed && !isUnwritten))
        isChanged = true;
    }
  }
  return isChanged;
}

void FileWatch::setClock(foundation::Instant time) {
  itimerspec wake{};
  wake.it_value.tv_sec = time.seconds;
  wake.it_value.tv_nsec = std::max(time.nanoseconds, 1);  // nothing at all would mean never
  ::timerfd_settime(clock_.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &wake, nullptr);
}

WatchEvent FileWatch::wait(foundation::Instant time) {
  setClock(time);
  std::array<pollfd, 3> polled{pollfd{changes_.get(), POLLIN, 0},
                               pollfd{clock_.get(), POLLIN, 0},
                               pollfd{signals_.get(), POLLIN, 0}};
  bool isChanged = false;
  for (int quietWaits = 0; quietWaits < kMostQuietWaits;) {
    const int ready = ::poll(polled.data(), polled.size(), isChanged ? kQuietMilliseconds : -1);
    if (ready < 0 && errno != EINTR) return WatchEvent::ended;
    if (ready == 0) break;
    if (ready < 0) continue;
    if (polled[2].revents != 0) return WatchEvent::ended;
    if (polled[1].revents != 0) return WatchEvent::timeCame;
    isChanged |= readChanges();
    if (isChanged) ++quietWaits;
  }
  return WatchEvent::filesChanged;
}

}  // namespace importer
