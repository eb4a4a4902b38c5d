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

[[noreturn]] void leaveGrandchild() {
  readRequest();
  const pid_t grandchild = ::fork();
  if (grandchild == 0) sleepForever();
  put(STDERR_FILENO, std::to_string(grandchild) + "\n");
  ::_exit(0);
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
  int deathSignal = 0;
  ::getrlimit(RLIMIT_CORE, &core);
  ::getrlimit(RLIMIT_DATA, &data);
  ::prctl(PR_GET_PDEATHSIG, &deathSignal);
  std::string environment;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    environment += std::string(*variable) + ";";
  }
  char report[512];
  std::snprintf(report,
                sizeof report,
                "\"noNewPrivileges %d, core %ld, data %ld, deathSignal %d, leader %d, "
                "descriptors %d, ignored %d, environment %s\"",
                ::prctl(PR_GET_NO_NEW_PRIVS, 0, 0, 0, 0),
                static_cast<long>(core.rlim_cur),
                static_cast<long>(data.rlim_cur),
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
  void* memory = std::malloc(std::size_t{200} << 20);
  put(STDOUT_FILENO, answer(memory == nullptr ? "\"refused\"" : "\"given\""));
  std::free(memory);
  sleepForever();
}

[[noreturn]] void misbehave(std::string_view way) {
  if (way == "hang") sleepForever();
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

}  // namespace

int main(int argc, char** argv) {
  misbehave(argc > 1 ? argv[1] : "hang");
}
