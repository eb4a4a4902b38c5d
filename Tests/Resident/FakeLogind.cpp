#include "FakeLogind.hpp"

#include <spawn.h>
#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

extern char** environ;

namespace resident {
namespace {

constexpr const char* kSessionPath = "/org/freedesktop/login1/session/_31";
constexpr const char* kSession = "org.freedesktop.login1.Session";
constexpr const char* kManagerPath = "/org/freedesktop/login1";

int onDisplay(sd_bus*,
              const char*,
              const char*,
              const char*,
              sd_bus_message* reply,
              void* data,
              sd_bus_error*) {
  const bool has = static_cast<FakeLogind*>(data)->hasSession;
  return sd_bus_message_append(reply, "(so)", has ? "1" : "", has ? kSessionPath : "/");
}

int onLockedHint(sd_bus*,
                 const char*,
                 const char*,
                 const char*,
                 sd_bus_message* reply,
                 void* data,
                 sd_bus_error*) {
  return sd_bus_message_append(reply, "b", static_cast<FakeLogind*>(data)->isLocked ? 1 : 0);
}

constexpr sd_bus_vtable kUserTable[] = {
    SD_BUS_VTABLE_START(0), SD_BUS_PROPERTY("Display", "(so)", onDisplay, 0, 0), SD_BUS_VTABLE_END};

constexpr sd_bus_vtable kSessionTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("LockedHint", "b", onLockedHint, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_VTABLE_END};

void check(int result, const char* what) {
  if (result < 0) throw std::runtime_error(what);
}

}  // namespace

PrivateBus::PrivateBus() {
  const std::string where = "--address=" + address();
  std::array<int, 2> ready{};
  if (::pipe(ready.data()) != 0) throw std::runtime_error("no pipe");
  const std::string told = "--print-address=" + std::to_string(ready[1]);
  std::array<const char*, 6> words{
      "dbus-daemon", "--session", "--nofork", where.c_str(), told.c_str(), nullptr};
  check(-::posix_spawnp(
            &process_, words[0], nullptr, nullptr, const_cast<char* const*>(words.data()), environ),
        "no dbus-daemon");
  ::close(ready[1]);
  char c = 0;
  const bool isReady = ::read(ready[0], &c, 1) == 1;
  ::close(ready[0]);
  if (!isReady) throw std::runtime_error("dbus-daemon does not start");
}

PrivateBus::~PrivateBus() {
  ::kill(process_, SIGTERM);
  ::waitpid(process_, nullptr, 0);
}

FakeLogind::FakeLogind(Loop& loop, const std::string& address)
    : user_(std::string(kManagerPath) + "/user/_" + std::to_string(::getuid())) {
  check(sd_bus_new(&bus_), "no bus");
  check(sd_bus_set_address(bus_, address.c_str()), "no address");
  check(sd_bus_set_bus_client(bus_, 1), "no client");
  check(sd_bus_start(bus_), "no connection");
  check(sd_bus_add_object_vtable(
            bus_, nullptr, user_.c_str(), "org.freedesktop.login1.User", kUserTable, this),
        "no user");
  check(sd_bus_add_object_vtable(bus_, nullptr, kSessionPath, kSession, kSessionTable, this),
        "no session");
  check(sd_bus_request_name(bus_, "org.freedesktop.login1", 0), "no name");
  check(sd_bus_attach_event(bus_, loop.handle(), 0), "no loop");
}

FakeLogind::~FakeLogind() {
  sd_bus_detach_event(bus_);
  sd_bus_flush_close_unref(bus_);
}

void FakeLogind::setLockedHint(bool locked) {
  isLocked = locked;
  sd_bus_emit_properties_changed(bus_, kSessionPath, kSession, "LockedHint", nullptr);
}

void FakeLogind::emit(const char* path, const char* interface, const char* member) {
  sd_bus_emit_signal(bus_, path, interface, member, nullptr);
}

void FakeLogind::sendLock() {
  emit(kSessionPath, kSession, "Lock");
}

void FakeLogind::sendUnlock() {
  emit(kSessionPath, kSession, "Unlock");
}

void FakeLogind::sendPrepareForSleep(bool begins) {
  sd_bus_emit_signal(
      bus_, kManagerPath, "org.freedesktop.login1.Manager", "PrepareForSleep", "b", begins ? 1 : 0);
}

void FakeLogind::sendScreenSaver(bool active) {
  sd_bus_emit_signal(bus_,
                     "/org/freedesktop/ScreenSaver",
                     "org.freedesktop.ScreenSaver",
                     "ActiveChanged",
                     "b",
                     active ? 1 : 0);
}

}  // namespace resident
