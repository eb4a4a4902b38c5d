// What the session says of itself on the bus: locked, going to sleep (logind), screen saver.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Resident/Loop.hpp"

namespace resident {

struct SessionEvents {
  std::function<void(bool locked)> onLocked;
  std::function<void()> onGoingToSleep;
  std::function<void(bool active)> onScreenSaver;
  /// There is no session to ask, and why.
  std::function<void(const std::string& why)> onWithoutSession;
};

class Logind {
 public:
  Logind(Loop& loop, SessionEvents events);
  ~Logind();
  Logind(const Logind&) = delete;
  Logind& operator=(const Logind&) = delete;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace resident
