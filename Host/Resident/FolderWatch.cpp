#include "Resident/FolderWatch.hpp"

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

namespace resident {
namespace {

constexpr std::uint32_t kItself = IN_MOVE_SELF | IN_DELETE_SELF | IN_ONLYDIR;
constexpr std::uint32_t kNames =
    IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_ATTRIB | kItself;
constexpr std::uint32_t kOfTheFolder = IN_CLOSE_WRITE | kNames;
// A folder that somebody still stands in tells of its end only later; its parent tells at once.
constexpr std::uint32_t kOfTheParent = IN_DELETE | kItself;

/// A file that was just made is empty until its writer closes it; links and folders are whole.
bool isWholeAtOnce(const std::string& path) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) return true;
  return !S_ISREG(status.st_mode) || status.st_nlink > 1;
}

}  // namespace

FolderWatch::FolderWatch(Loop& loop,
                         std::string folder,
                         std::function<bool(std::string_view)> matters,
                         std::function<void()> onChange)
    : folder_(std::move(folder)),
      matters_(std::move(matters)),
      onChange_(std::move(onChange)),
      inotify_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)),
      mounts_(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)) {
  // Without inotify (its limits are per user) widgets still change with their dates and on request.
  if (!inotify_) return;
  watch_ = loop.onReadable(inotify_.get(), [this] { handle(); });
  // Of what is mounted over a folder inotify says nothing.
  if (mounts_)
    mountWatch_ = loop.onEvents(mounts_.get(), EPOLLPRI, [this](auto) { findMounted(); });
  rewatch();
}

void FolderWatch::rewatch() {
  std::map<int, std::string> before;
  before.swap(names_);
  const int id = add(folder_, kOfTheFolder, "");
  // While the folder is there, its ancestors tell only of their own going; otherwise the last one
  // that is there tells of the next name on the way.
  std::uint32_t mask = id >= 0 ? kOfTheParent : kNames;
  for (std::size_t end = folder_.rfind('/'); end != std::string::npos;) {
    const std::size_t next = folder_.find('/', end + 1);
    const std::string ancestor = end == 0 ? "/" : folder_.substr(0, end);
    if (add(ancestor, mask, folder_.substr(end + 1, next - end - 1)) >= 0) mask = kItself;
    end = end == 0 ? std::string::npos : folder_.rfind('/', end - 1);
  }
  for (const auto& [old, name] : before) {
    if (!names_.contains(old)) ::inotify_rm_watch(inotify_.get(), old);
  }
}

int FolderWatch::add(const std::string& path, std::uint32_t mask, const std::string& name) {
  const int id = ::inotify_add_watch(inotify_.get(), path.c_str(), mask);
  if (id >= 0) names_.insert_or_assign(id, name);
  return id;
}

void FolderWatch::findMounted() {
  const auto before = names_;
  rewatch();
  if (names_ != before) onChange_();
}

void FolderWatch::handle() {
  alignas(inotify_event) std::array<char, 16384> buffer;
  bool hasChanged = false;
  bool isWayChanged = false;
  for (ssize_t count = 0; (count = ::read(inotify_.get(), buffer.data(), buffer.size())) > 0;) {
    for (std::ptrdiff_t at = 0; at < count;) {
      inotify_event event{};
      std::memcpy(&event, buffer.data() + at, sizeof event);
      const char* name = buffer.data() + at + sizeof event;
      const std::string_view changed = event.len > 0 ? std::string_view{name} : std::string_view{};
      at += static_cast<std::ptrdiff_t>(sizeof event + event.len);
      if ((event.mask & IN_Q_OVERFLOW) != 0) {
        hasChanged = isWayChanged = true;
        continue;
      }
      const auto found = names_.find(event.wd);
      if (found == names_.end() || (event.mask & IN_IGNORED) != 0) continue;
      if (!found->second.empty()) {
        isWayChanged |= changed.empty() || changed == found->second;
      } else if (changed.empty()) {
        isWayChanged = true;
      } else if (matters_(changed)) {
        const bool isMade = (event.mask & IN_CREATE) != 0;
        hasChanged |= !isMade || isWholeAtOnce(folder_ + "/" + std::string(changed));
      }
    }
  }
  if (isWayChanged) rewatch();
  if (hasChanged || isWayChanged) onChange_();
}

}  // namespace resident
