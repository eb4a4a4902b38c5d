// A private bus with a logind on it that says what a test wants.
#pragma once

#include <sys/types.h>

#include <string>

#include "Resident/Loop.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

struct sd_bus;
struct sd_bus_message;

namespace resident {

/// dbus-daemon in a folder of its own.
class PrivateBus {
 public:
  PrivateBus();
  ~PrivateBus();
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;

  [[nodiscard]] std::string address() const { return "unix:path=" + folder_.at("bus"); }

 private:
  testsupport::TemporaryFolder folder_;
  pid_t process_ = 0;
};

/// Of this user, with one graphical session.
class FakeLogind {
 public:
  FakeLogind(Loop& loop, const std::string& address);
  ~FakeLogind();
  FakeLogind(const FakeLogind&) = delete;
  FakeLogind& operator=(const FakeLogind&) = delete;

  void setLockedHint(bool locked);
  void sendLock();
  void sendUnlock();
  void sendPrepareForSleep(bool begins);
  void sendScreenSaver(bool active);

  bool isLocked = false;
  bool hasSession = true;

 private:
  void emit(const char* path, const char* interface, const char* member);

  sd_bus* bus_ = nullptr;
  std::string user_;
};

}  // namespace resident
