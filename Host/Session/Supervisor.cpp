#include "Session/Supervisor.hpp"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <ctime>

#include "Foundation/Ascii.hpp"
#include "Foundation/FileDescriptor.hpp"

namespace session {

namespace {

// Descendants that start others faster than they die are given up after this time.
constexpr long kMaximumNanoseconds = 500'000'000;
constexpr timespec kPause{0, 2'000'000};

sigset_t signalSet(std::initializer_list<int> numbers) {
  sigset_t set;
  ::sigemptyset(&set);
  for (const int number : numbers) ::sigaddset(&set, number);
  return set;
}

// The kernel's list needs neither memory nor a walk through all processes.
void killChildren() {
  const foundation::FileDescriptor list(::open("/proc/thread-self/children", O_RDONLY | O_CLOEXEC));
  std::array<char, 4096> bytes;
  pid_t id = 0;
  ssize_t count = 0;
  while ((count = ::read(list.get(), bytes.data(), bytes.size())) > 0) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
      if (foundation::isAsciiDigit(bytes[i])) {
        id = id * 10 + (bytes[i] - '0');
      } else {
        if (id > 0) ::kill(id, SIGKILL);
        id = 0;
      }
    }
  }
}

// Reaps what has ended; false when no child is left.
bool reap(pid_t leader, int& leaderStatus) {
  while (true) {
    int status = 0;
    const pid_t id = ::waitpid(-1, &status, WNOHANG);
    if (id < 0 && errno == EINTR) continue;
    if (id < 0) return false;
    if (id == 0) return true;
    if (id == leader) leaderStatus = status;
  }
}

bool hasEnded(pid_t leader) {
  siginfo_t info{};
  return ::waitid(P_PID, static_cast<id_t>(leader), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
         info.si_pid == leader;
}

// What was adopted meanwhile is reaped on the way, so that it does not pile up.
void waitForEndOrOrder(pid_t leader) {
  const sigset_t awaited = signalSet({SIGCHLD, SIGTERM});
  while (!hasEnded(leader)) {
    if (::sigwaitinfo(&awaited, nullptr) == SIGTERM) return;
    siginfo_t info{};
    while (::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0 && info.si_pid != 0 &&
           info.si_pid != leader) {
      ::waitpid(info.si_pid, nullptr, WNOHANG);
      info = {};
    }
  }
}

long nanosecondsSince(const timespec& begin) {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return (now.tv_sec - begin.tv_sec) * 1'000'000'000 + (now.tv_nsec - begin.tv_nsec);
}

int endEverything(pid_t leader) {
  const sigset_t ends = signalSet({SIGCHLD});
  timespec begin{};
  ::clock_gettime(CLOCK_MONOTONIC, &begin);
  int status = SIGKILL;
  // The leader is not reaped yet: neither its number nor its group's can belong to anyone else.
  ::kill(-leader, SIGKILL);
  ::kill(leader, SIGKILL);
  while (reap(leader, status) && nanosecondsSince(begin) < kMaximumNanoseconds) {
    killChildren();
    ::sigtimedwait(&ends, nullptr, &kPause);
  }
  return status;
}

}  // namespace

bool becomeSupervisor(pid_t host) {
  // A stopped or interrupted supervisor would keep its host waiting.
  std::signal(SIGCHLD, SIG_DFL);
  sigset_t all;
  ::sigfillset(&all);
  ::sigprocmask(SIG_SETMASK, &all, nullptr);
  ::setpgid(0, 0);
  ::prctl(PR_SET_NAME, "extension-guard");
  const rlimit noCore{0, 0};
  ::setrlimit(RLIMIT_CORE, &noCore);
  return ::prctl(PR_SET_PDEATHSIG, SIGTERM) == 0 && ::getppid() == host &&
         ::prctl(PR_SET_CHILD_SUBREAPER, 1) == 0;
}

void supervise(pid_t leader) {
  // The host's pipes would stay open as long as this process.
  ::close_range(0, ~0U, 0);
  waitForEndOrOrder(leader);
  const int status = endEverything(leader);
  if (WIFSIGNALED(status)) {
    const int number = WTERMSIG(status);
    std::signal(number, SIG_DFL);
    const sigset_t deadly = signalSet({number});
    ::raise(number);
    ::sigprocmask(SIG_UNBLOCK, &deadly, nullptr);
  }
  ::_exit(WIFEXITED(status) ? WEXITSTATUS(status) : 1);
}

}  // namespace session
