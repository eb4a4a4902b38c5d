// Whether amounts are hidden: a person asked for it, the session is locked, or nobody can say yet.
//
// Unsure means hidden: from the start to the first word about the session, and from the moment when
// the machine goes to sleep to the first word after it. Without a session to ask, it counts as
// unlocked.
#pragma once

#include <string_view>
#include <vector>

namespace resident {

class Privacy {
 public:
  explicit Privacy(bool isAsked) : isAsked_(isAsked) {}

  [[nodiscard]] bool isHidden() const;
  /// "hide", "locked", "sleep", "screen saver", "unsure": all that hold now.
  [[nodiscard]] std::vector<std::string_view> reasons() const;
  [[nodiscard]] bool isAsked() const { return isAsked_; }

  void ask(bool hidden) { isAsked_ = hidden; }
  /// What the session says of itself.
  void setLocked(bool locked);
  /// There is no session to ask.
  void setWithoutSession();
  void setGoingToSleep() { lock_ = Lock::asleep; }
  void setScreenSaver(bool active) { screenSaver_ = active; }

 private:
  enum class Lock { unknown, unlocked, locked, asleep };

  bool isAsked_;
  bool screenSaver_ = false;
  Lock lock_ = Lock::unknown;
};

}  // namespace resident
