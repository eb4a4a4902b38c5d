#include "Resident/Logind.hpp"

#include <fmt/format.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <cstring>
#include <utility>

namespace resident {
namespace {

constexpr const char* kService = "org.freedesktop.login1";
constexpr const char* kManagerPath = "/org/freedesktop/login1";
constexpr const char* kManager = "org.freedesktop.login1.Manager";
constexpr const char* kUser = "org.freedesktop.login1.User";
constexpr const char* kSession = "org.freedesktop.login1.Session";
constexpr const char* kProperties = "org.freedesktop.DBus.Properties";
constexpr const char* kScreenSaver = "org.freedesktop.ScreenSaver";

std::string errorOf(sd_bus_message* message) {
  const sd_bus_error* error = sd_bus_message_get_error(message);
  return error != nullptr && error->message != nullptr ? error->message : "no answer";
}

}  // namespace

struct Logind::State {
  SessionEvents events;
  sd_bus* system = nullptr;
  sd_bus* user = nullptr;
  std::string session;  // object path; empty: none is known

  ~State() {
    for (sd_bus* bus : {system, user}) {
      if (bus == nullptr) continue;
      sd_bus_detach_event(bus);
      sd_bus_close(bus);
      sd_bus_unref(bus);
    }
  }

  void start(sd_event* event);
  void askForSession();
  void askForLock();
  void without(const std::string& why) { events.onWithoutSession(why); }

  static State& of(void* state) { return *static_cast<State*>(state); }
  static int onDisplay(sd_bus_message* message, void* state, sd_bus_error*);
  static int onLockedHint(sd_bus_message* message, void* state, sd_bus_error*);
  static int onPropertiesChanged(sd_bus_message* message, void* state, sd_bus_error*);
  static int onLock(sd_bus_message* message, void* state, sd_bus_error*);
  static int onUnlock(sd_bus_message* message, void* state, sd_bus_error*);
  static int onPrepareForSleep(sd_bus_message* message, void* state, sd_bus_error*);
  static int onSessions(sd_bus_message* message, void* state, sd_bus_error*);
  static int onActiveChanged(sd_bus_message* message, void* state, sd_bus_error*);
};

void Logind::State::start(sd_event* event) {
  if (sd_bus_open_user(&user) >= 0 &&
      sd_bus_attach_event(user, event, SD_EVENT_PRIORITY_NORMAL) >= 0) {
    sd_bus_match_signal_async(user,
                              nullptr,
                              nullptr,
                              nullptr,
                              kScreenSaver,
                              "ActiveChanged",
                              onActiveChanged,
                              nullptr,
                              this);
  }
  const int opened = sd_bus_open_system(&system);
  if (opened < 0 || sd_bus_attach_event(system, event, SD_EVENT_PRIORITY_NORMAL) < 0) {
    return without(fmt::format("no system bus: {}", std::strerror(-opened)));
  }
  const auto match = [this](
                         const char* interface, const char* member, sd_bus_message_handler_t then) {
    sd_bus_match_signal_async(
        system, nullptr, kService, nullptr, interface, member, then, nullptr, this);
  };
  match(kManager, "PrepareForSleep", onPrepareForSleep);
  match(kManager, "SessionNew", onSessions);
  match(kManager, "SessionRemoved", onSessions);
  match(kSession, "Lock", onLock);
  match(kSession, "Unlock", onUnlock);
  match(kProperties, "PropertiesChanged", onPropertiesChanged);
  askForSession();
}

void Logind::State::askForSession() {
  const std::string path = fmt::format("{}/user/_{}", kManagerPath, ::getuid());
  const int sent = sd_bus_call_method_async(system,
                                            nullptr,
                                            kService,
                                            path.c_str(),
                                            kProperties,
                                            "Get",
                                            onDisplay,
                                            this,
                                            "ss",
                                            kUser,
                                            "Display");
  if (sent < 0) without(fmt::format("logind: {}", std::strerror(-sent)));
}

int Logind::State::onDisplay(sd_bus_message* message, void* data, sd_bus_error*) {
  State& state = of(data);
  const char* id = nullptr;
  const char* path = nullptr;
  if (sd_bus_message_is_method_error(message, nullptr) > 0) {
    state.without("logind: " + errorOf(message));
  } else if (sd_bus_message_read(message, "v", "(so)", &id, &path) < 0 || *id == '\0') {
    state.without("logind: no graphical session");
  } else {
    state.session = path;
    state.askForLock();
  }
  return 0;
}

void Logind::State::askForLock() {
  if (session.empty()) return;
  sd_bus_call_method_async(system,
                           nullptr,
                           kService,
                           session.c_str(),
                           kProperties,
                           "Get",
                           onLockedHint,
                           this,
                           "ss",
                           kSession,
                           "LockedHint");
}

int Logind::State::onLockedHint(sd_bus_message* message, void* data, sd_bus_error*) {
  State& state = of(data);
  int locked = 0;
  if (sd_bus_message_is_method_error(message, nullptr) > 0 ||
      sd_bus_message_read(message, "v", "b", &locked) < 0) {
    state.without("logind: " + errorOf(message));
  } else {
    state.events.onLocked(locked != 0);
  }
  return 0;
}

int Logind::State::onPropertiesChanged(sd_bus_message* message, void* data, sd_bus_error*) {
  State& state = of(data);
  const char* path = sd_bus_message_get_path(message);
  const char* interface = nullptr;
  if (path == nullptr || state.session != path ||
      sd_bus_message_read(message, "s", &interface) < 0 || std::strcmp(interface, kSession) != 0 ||
      sd_bus_message_enter_container(message, 'a', "{sv}") < 0) {
    return 0;
  }
  while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
    const char* name = nullptr;
    int locked = 0;
    if (sd_bus_message_read(message, "s", &name) < 0) return 0;
    if (std::strcmp(name, "LockedHint") == 0) {
      if (sd_bus_message_read(message, "v", "b", &locked) >= 0) state.events.onLocked(locked != 0);
    } else {
      sd_bus_message_skip(message, "v");
    }
    sd_bus_message_exit_container(message);
  }
  return 0;
}

int Logind::State::onLock(sd_bus_message* message, void* data, sd_bus_error*) {
  State& state = of(data);
  if (state.session == sd_bus_message_get_path(message)) state.events.onLocked(true);
  return 0;
}

int Logind::State::onUnlock(sd_bus_message* message, void* data, sd_bus_error*) {
  State& state = of(data);
  if (state.session == sd_bus_message_get_path(message)) state.events.onLocked(false);
  return 0;
}

int Logind::State::onPrepareForSleep(sd_bus_message* message, void* data, sd_bus_error*) {
  State& state = of(data);
  int begins = 0;
  if (sd_bus_message_read(message, "b", &begins) < 0) return 0;
  if (begins != 0) {
    state.events.onGoingToSleep();
  } else if (state.session.empty()) {
    state.without("logind: no graphical session");
  } else {
    state.askForLock();
  }
  return 0;
}

int Logind::State::onSessions(sd_bus_message*, void* data, sd_bus_error*) {
  of(data).askForSession();
  return 0;
}

int Logind::State::onActiveChanged(sd_bus_message* message, void* data, sd_bus_error*) {
  int active = 0;
  if (sd_bus_message_read(message, "b", &active) >= 0) of(data).events.onScreenSaver(active != 0);
  return 0;
}

Logind::Logind(Loop& loop, SessionEvents events) : state_(std::make_unique<State>()) {
  state_->events = std::move(events);
  state_->start(loop.handle());
}

Logind::~Logind() = default;

}  // namespace resident
