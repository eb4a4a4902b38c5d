#include "HostProcess.hpp"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "Foundation/JsonWriter.hpp"

namespace resident {

namespace fs = std::filesystem;
using foundation::FileDescriptor;
using foundation::JsonDocument;
using foundation::JsonValue;
using foundation::JsonWriter;
using testsupport::contentsOf;

namespace {

constexpr auto kLongest = std::chrono::seconds{30};

FileDescriptor noticeSocket(const std::string& path) {
  FileDescriptor socket{::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)};
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  ::unlink(path.c_str());
  if (::bind(socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
    throw std::runtime_error("no socket for notices");
  }
  return socket;
}

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

int statusFrom(int status) {
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::vector<pid_t> childrenOf(pid_t process) {
  std::vector<pid_t> children;
  std::error_code gone;  // the process may end at any moment, and reading its folder then fails
  fs::directory_iterator task("/proc/" + std::to_string(process) + "/task", gone);
  for (; !gone && task != fs::directory_iterator(); task.increment(gone)) {
    std::ifstream list(task->path() / "children");
    for (pid_t child = 0; list >> child;) children.push_back(child);
  }
  return children;
}

/// The numbers of an object and of those in it, times the factor.
void writeMultiplied(const JsonValue& json, int factor, JsonWriter& writer) {
  if (const double* number = json.number()) {
    writer.value(*number * factor);
    return;
  }
  if (json.object() == nullptr) {
    json.write(writer);
    return;
  }
  writer.beginObject();
  for (const auto& [key, value] : *json.object()) writeMultiplied(value, factor, writer.key(key));
  writer.endObject();
}

JsonDocument failed(std::string_view line) {
  JsonWriter writer;
  writer.beginObject().member("error", line).endObject();
  return *foundation::parseJson(writer.text());
}

}  // namespace

HostProcess::HostProcess() {
  for (const char* name : {"run", "config", "state", "data", "home", "container", "pictures"}) {
    fs::create_directory(folder_.at(name));
  }
  words = {"--container", path("container"), "--pictures", path("pictures")};
}

HostProcess::~HostProcess() {
  if (process_ > 0) stop();
}

std::vector<std::string> HostProcess::environment() const {
  std::map<std::string, std::string> all{{"PATH", "/usr/bin:/bin"},
                                         {"HOME", path("home")},
                                         {"XDG_RUNTIME_DIR", path("run")},
                                         {"XDG_CONFIG_HOME", path("config")},
                                         {"XDG_STATE_HOME", path("state")},
                                         {"XDG_DATA_HOME", path("data")},
                                         {"DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent"},
                                         {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent"},
                                         {"LANG", "en_US.UTF-8"},
                                         {"TZ", "UTC"},
                                         {"NOTIFY_SOCKET", path("notices")}};
  for (const auto& [name, value] : variables) all[name] = value;
  std::vector<std::string> entries;
  for (const auto& [name, value] : all) entries.push_back(name + "=" + value);
  return entries;
}

void HostProcess::start() {
  const std::vector<std::string> entries = environment();
  std::vector<std::string> arguments{QUORVEL_BINARY_DIR "/bin/quorvel-hostd"};
  arguments.insert(arguments.end(), words.begin(), words.end());
  arguments.insert(arguments.begin(), launcher.begin(), launcher.end());
  if (!activator.empty()) {
    arguments.insert(arguments.begin(), {activator, "-l", path("run/quorvel-host/control")});
    for (const std::string& entry : entries) {
      arguments.insert(arguments.begin() + 3, {"-E", entry});
    }
  }
  // One that is instrumented does not fit into the memory that a child may have.
  const char* other = std::getenv("QUORVEL_TEST_EXTENSION");
  if (extension.empty() && other != nullptr) extension = other;
  if (!extension.empty()) arguments.insert(arguments.end(), {"--extension", extension});

  const FileDescriptor notices = noticeSocket(path("notices"));
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(
      &actions, STDERR_FILENO, path("log").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  const int error = ::posix_spawn(&process_,
                                  arguments[0].c_str(),
                                  &actions,
                                  nullptr,
                                  pointers(arguments).data(),
                                  pointers(entries).data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error("quorvel-hostd does not start");
  // An activator is silent until somebody connects.
  if (activator.empty()) waitUntilReady(notices);
}

void HostProcess::waitUntilReady(const FileDescriptor& notices) const {
  const FileDescriptor end{static_cast<int>(::syscall(434 /* pidfd_open */, process_, 0))};
  pollfd polled[2]{{notices.get(), POLLIN, 0}, {end.get(), POLLIN, 0}};
  if (::poll(polled, 2, 30'000) <= 0) throw std::runtime_error("quorvel-hostd is never ready");
}

int HostProcess::wait() {
  int status = 0;
  ::waitpid(process_, &status, 0);
  process_ = 0;
  client_.reset();
  return statusFrom(status);
}

int HostProcess::stop() {
  ::kill(process_, SIGTERM);
  return wait();
}

JsonDocument HostProcess::ask(const std::string& method, const std::string& parameters) {
  if (!client_) {
    auto client = control::Client::connect(path("run/quorvel-host/control"));
    if (!client) return failed(client.error().line);
    client_ = *std::move(client);
  }
  auto result = client_->call(method, parameters);
  if (result) return *std::move(result);
  return failed(result.error().line);
}

JsonDocument HostProcess::placement(const std::string& id) {
  JsonDocument status = ask("status");
  const JsonValue* placements = status.member("placements");
  if (placements == nullptr) return {};
  for (const JsonValue& placement : *placements->array()) {
    if (placement.textOf("id") == id) return {std::move(status), placement};
  }
  return {};
}

std::string HostProcess::textOf(const std::string& id, const std::string& member) {
  return placement(id).textOf(member);
}

bool HostProcess::haveAll(const std::string& state) {
  return isOfEach(
      [&](const JsonValue& placement) { return *placement.member("state")->string() == state; });
}

bool HostProcess::areAll(const std::string& state) {
  return isOfEach([&](const JsonValue& placement) {
    return *placement.member("state")->string() == state &&
           !*placement.member("isAsked")->boolean();
  });
}

bool HostProcess::isAsking() {
  return !isOfEach(
      [](const JsonValue& placement) { return !*placement.member("isAsked")->boolean(); });
}

bool HostProcess::isOfEach(const std::function<bool(const JsonValue&)>& condition) {
  const JsonDocument status = ask("status");
  const JsonValue* placements = status.member("placements");
  return placements != nullptr && !placements->array()->empty() &&
         std::ranges::all_of(*placements->array(), condition);
}

bool HostProcess::until(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kLongest;
  while (std::chrono::steady_clock::now() < end) {
    if (condition()) return true;
  }
  return false;
}

pid_t HostProcess::extensionId() const {
  // Between the two stands the supervisor.
  for (const pid_t supervisor : childrenOf(process_)) {
    for (const pid_t child : childrenOf(supervisor)) return child;
  }
  return 0;
}

void HostProcess::writeDocument(const std::string& text) {
  const std::string written = path("container/.document.new");
  std::ofstream(written, std::ios::binary) << text;
  std::rename(written.c_str(), path("container/widget-snapshot.json").c_str());
}

std::string HostProcess::picture(const std::string& id) const {
  return contentsOf(path("pictures/" + id + ".png"));
}

std::string HostProcess::log() const {
  return contentsOf(path("log"));
}

std::string household(int factor) {
  const auto document =
      foundation::parseJson(contentsOf(QUORVEL_SOURCE_DIR "/Examples/household.json"));
  JsonWriter writer;
  writer.beginObject();
  for (const auto& [key, value] : *document->object()) {
    writeMultiplied(value, key == "netWorth" ? factor : 1, writer.key(key));
  }
  writer.endObject();
  return writer.take();
}

}  // namespace resident
