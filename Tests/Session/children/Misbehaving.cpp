// A program that breaks the protocol in the way that its argument names. It takes requests for
// answered with id 1.
#include <dirent.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "WidgetRuntime/Framing.hpp"

namespace {

[[noreturn]] void sleepForever() {
  while (true) ::pause();
}

void put(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(descriptor, text.data(), text.size());
    if (count <= 0) ::_exit(9);
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

[[noreturn]] void repeat(int descriptor, const std::string& text) {
  while (true) put(descriptor, text);
}

std::string readRequest() {
  widgetruntime::FrameDecoder decoder(std::size_t{1} << 20);
  char bytes[4096];
  while (true) {
    const auto message = decoder.next();
    if (message && *message) return **message;
    const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0 || !message) ::_exit(8);
    decoder.append({bytes, static_cast<std::size_t>(count)});
  }
}

std::string answer(const std::string& result, const std::string& id = "1") {
  return widgetruntime::encodeFrame(R"({"jsonrpc":"2.0","id":)" + id + R"(,"result":)" + result +
                                    "}");
}

[[noreturn]] void answerSlowly() {
  readRequest();
  for (const char c : answer("{}")) {
    put(STDOUT_FILENO, {&c, 1});
    ::usleep(30'000);
  }
  sleepForever();
}

// Into the group of the host's own that the second argument names: the group which the host knows
// is empty then.
[[noreturn]] void leaveGroup(const char* group) {
  if (::setpgid(0, std::atoi(group)) != 0) ::_exit(7);
  sleepForever();
}

// Tells its number, or that there may be none.
pid_t forkAndTell() {
  const pid_t id = ::fork();
  if (id != 0) put(STDERR_FILENO, id < 0 ? "refused\n" : std::to_string(id) + "\n");
  return id;
}

[[noreturn]] void leaveGrandchild() {
  readRequest();
  if (forkAndTell() == 0) sleepForever();
  ::_exit(0);
}

// As services do it: another session, no parent, no pipes, and its own death no longer tied to
// another's.
[[noreturn]] void daemonize(int count) {
  readRequest();
  for (int i = 0; i < count; ++i) {
    if (::fork() != 0) continue;
    ::setsid();
    ::prctl(PR_SET_PDEATHSIG, 0);
    if (forkAndTell() != 0) ::_exit(0);
    ::prctl(PR_SET_PDEATHSIG, 0);
    std::signal(SIGTERM, SIG_IGN);
    ::close_range(0, ~0U, 0);
    sleepForever();
  }
  sleepForever();
}

// Turns against the process that watches over it.
[[noreturn]] void signalParent(int number) {
  ::prctl(PR_SET_PDEATHSIG, 0);
  readRequest();
  ::kill(::getppid(), number);
  sleepForever();
}

// Fills its error pipe before it reads, and answers more than a pipe holds.
[[noreturn]] void fillPipes() {
  put(STDERR_FILENO, std::string(500'000, 'e'));
  const std::string request = readRequest();
  put(STDOUT_FILENO, answer("\"" + std::string(request.size(), 'a') + "\""));
  sleepForever();
}

int countDescriptors() {
  DIR* directory = ::opendir("/proc/self/fd");
  if (directory == nullptr) return -1;
  int count = -3;  // ".", ".." and the directory's own
  while (::readdir(directory) != nullptr) ++count;
  ::closedir(directory);
  return count;
}

int countIgnoredSignals() {
  int count = 0;
  for (int number = 1; number < NSIG; ++number) {
    struct sigaction action {};
    if (::sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) ++count;
  }
  return count;
}

// What the host has left it.
[[noreturn]] void reportConfinement() {
  readRequest();
  rlimit core{};
  rlimit data{};
  rlimit processes{};
  int deathSignal = 0;
  ::getrlimit(RLIMIT_CORE, &core);
  ::getrlimit(RLIMIT_DATA, &data);
  ::getrlimit(RLIMIT_NPROC, &processes);
  ::prctl(PR_GET_PDEATHSIG, &deathSignal);
  std::string environment;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    environment += std::string(*variable) + ";";
  }
  char report[512];
  std::snprintf(
      report,
      sizeof report,
      "\"noNewPrivileges %d, core %ld, data %ld, processes %ld, deathSignal %d, leader %d, "
      "descriptors %d, ignored %d, environment %s\"",
      ::prctl(PR_GET_NO_NEW_PRIVS, 0, 0, 0, 0),
      static_cast<long>(core.rlim_cur),
      static_cast<long>(data.rlim_cur),
      static_cast<long>(processes.rlim_cur),
      deathSignal,
      ::getpgrp() == ::getpid() ? 1 : 0,
      countDescriptors(),
      countIgnoredSignals(),
      environment.c_str());
  put(STDOUT_FILENO, answer(report));
  sleepForever();
}

[[noreturn]] void allocateTooMuch() {
  readRequest();
  void* memory = std::malloc(std::size_t{600} << 20);
  put(STDOUT_FILENO, answer(memory == nullptr ? "\"refused\"" : "\"given\""));
  std::free(memory);
  sleepForever();
}

// Reads the request as it should.
[[noreturn]] void answerBadly(std::string_view way) {
  readRequest();
  if (way == "midFrame") {
    put(STDOUT_FILENO, answer("{}").substr(0, 30));
    ::_exit(0);
  }
  if (way == "wrongId") put(STDOUT_FILENO, answer("{}", "999"));
  if (way == "textId") put(STDOUT_FILENO, answer("{}", "\"1\""));
  if (way == "garbage") put(STDOUT_FILENO, "\x01\x02\xFF garbage\r\n\r\n");
  if (way == "badJson") put(STDOUT_FILENO, widgetruntime::encodeFrame("{\"jsonrpc\":"));
  if (way == "deepJson") put(STDOUT_FILENO, answer(std::string(300, '[') + std::string(300, ']')));
  if (way == "noAnswer") put(STDOUT_FILENO, widgetruntime::encodeFrame("{\"jsonrpc\":\"2.0\"}"));
  if (way == "twice") put(STDOUT_FILENO, answer("{}") + answer("{}"));
  if (way == "chatty") {
    put(STDOUT_FILENO, answer("{}"));
    ::usleep(20'000);
    put(STDOUT_FILENO, "more");
  }
  sleepForever();
}

[[noreturn]] void misbehave(std::string_view way, const char* argument) {
  if (way == "hang") sleepForever();
  if (way == "leaveGroup") leaveGroup(argument);
  if (way == "daemon") daemonize(1);
  if (way == "manyDaemons") daemonize(200);
  if (way == "stopParent") signalParent(SIGSTOP);
  if (way == "killParent") signalParent(SIGKILL);
  if (way == "exit") ::_exit(3);
  if (way == "lastWords") {
    readRequest();
    put(STDERR_FILENO, "first\nno room left\n");
    ::raise(SIGKILL);
  }
  if (way == "ignoreTerm") {
    std::signal(SIGTERM, SIG_IGN);
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);
    sleepForever();
  }
  if (way == "closeInput") {
    ::close(STDIN_FILENO);
    sleepForever();
  }
  if (way == "closeOutput") {
    ::close(STDOUT_FILENO);
    sleepForever();
  }
  if (way == "floodOutput") repeat(STDOUT_FILENO, std::string(10'000, 'x'));
  if (way == "floodFrames") repeat(STDOUT_FILENO, answer("{}"));
  if (way == "emptyFrames") repeat(STDOUT_FILENO, "Content-Length: 0\r\n\r\n");
  if (way == "halfFrames") repeat(STDOUT_FILENO, "Content-Length: 9\r\n");
  if (way == "floodErrors") repeat(STDERR_FILENO, std::string(10'000, 'e'));
  if (way == "largeFrame") {
    put(STDOUT_FILENO, "Content-Length: 1048577\r\n\r\n");
    repeat(STDOUT_FILENO, std::string(10'000, 'x'));
  }
  if (way == "slow") answerSlowly();
  if (way == "grandchild") leaveGrandchild();
  if (way == "fillPipes") fillPipes();
  if (way == "confinement") reportConfinement();
  if (way == "allocate") allocateTooMuch();

  answerBadly(way);
}

}  // namespace

int main(int argc, char** argv) {
  misbehave(argc > 1 ? argv[1] : "hang", argc > 2 ? argv[2] : "");
}
