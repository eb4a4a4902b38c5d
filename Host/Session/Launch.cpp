#include "Session/Launch.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <utility>

#include "Foundation/ArgumentVector.hpp"
#include "Foundation/NonBlocking.hpp"
#include "Session/Supervisor.hpp"

namespace session {

using foundation::FileDescriptor;
using Clock = std::chrono::steady_clock;

namespace {

// A sanitizer's shadow memory counts as data, and its search for leaks takes a process: under one
// the limits would stop the child before its first line.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kLimitsMemoryAndProcesses = false;
#else
constexpr bool kLimitsMemoryAndProcesses = true;
#endif

constexpr int kLowestFreeDescriptor = 3;

constexpr std::chrono::seconds kTimeToStart{2};
// The supervisor gives up after half a second by itself.
constexpr std::chrono::milliseconds kTimeToEnd{700};
constexpr std::chrono::milliseconds kTimeToDie{300};

struct Pipe {
  FileDescriptor read;
  FileDescriptor write;
};

// Out of the way of 0, 1 and 2, which the host itself may have closed.
std::optional<FileDescriptor> aboveStandard(FileDescriptor descriptor) {
  if (descriptor.get() >= kLowestFreeDescriptor) return descriptor;
  FileDescriptor moved(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, kLowestFreeDescriptor));
  if (!moved) return std::nullopt;
  return moved;
}

std::optional<Pipe> makePipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  auto read = aboveStandard(FileDescriptor(ends[0]));
  auto write = aboveStandard(FileDescriptor(ends[1]));
  if (!read || !write) return std::nullopt;
  return Pipe{std::move(*read), std::move(*write)};
}

// All that the child needs between fork and exec, made before the fork.
struct Preparation {
  pid_t parent = 0;
  const char* program = nullptr;
  char** arguments = nullptr;
  char** environment = nullptr;
  rlim_t maximumData = 0;
  int input = -1;
  int output = -1;
  int errors = -1;
  int report = -1;
};

bool confine(const Preparation& preparation) {
  if (::setpgid(0, 0) != 0) return false;
  if (::prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) return false;
  // The parent may have died before the line above.
  if (::getppid() != preparation.parent) return false;
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return false;
  const rlimit noCore{0, 0};
  if (::setrlimit(RLIMIT_CORE, &noCore) != 0) return false;
  if (!kLimitsMemoryAndProcesses) return true;
  // An extension has one thread and starts nothing. The system holds nobody to this who may do
  // everything: there the supervisor ends what was started.
  const rlimit noProcess{0, 0};
  const rlimit data{preparation.maximumData, preparation.maximumData};
  return ::setrlimit(RLIMIT_NPROC, &noProcess) == 0 && ::setrlimit(RLIMIT_DATA, &data) == 0;
}

// Handlers do not outlive exec, but ignored and blocked signals do.
void resetSignals() {
  for (int number = 1; number < NSIG; ++number) std::signal(number, SIG_DFL);
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

// What comes back through the report pipe: once from the supervisor, and from the program's process
// when it could not become the program. The pipe closes by itself when exec succeeds.
struct Report {
  pid_t id = 0;
  int reason = 0;
};

void send(const Report& report, int pipe) {
  [[maybe_unused]] const ssize_t written = ::write(pipe, &report, sizeof report);
}

[[noreturn]] void becomeProgram(const Preparation& preparation) {
  resetSignals();
  const bool isReady = confine(preparation) && ::dup2(preparation.input, STDIN_FILENO) >= 0 &&
                       ::dup2(preparation.output, STDOUT_FILENO) >= 0 &&
                       ::dup2(preparation.errors, STDERR_FILENO) >= 0 &&
                       ::close_range(kLowestFreeDescriptor, ~0U, CLOSE_RANGE_CLOEXEC) == 0;
  if (isReady) ::execve(preparation.program, preparation.arguments, preparation.environment);
  send({0, errno}, preparation.report);
  ::_exit(127);
}

[[noreturn]] void superviseProgram(Preparation preparation) {
  if (becomeSupervisor(preparation.parent)) {
    preparation.parent = ::getpid();
    // Not fork: its handlers are for programs that have a heap to put in order.
    const pid_t id = ::_Fork();
    if (id == 0) becomeProgram(preparation);
    if (id > 0) {
      send({id, 0}, preparation.report);
      supervise(id);
    }
  }
  send({0, errno}, preparation.report);
  ::_exit(127);
}

Report readReport(const FileDescriptor& pipe) {
  const auto until = Clock::now() + kTimeToStart;
  Report whole;
  while (true) {
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
    Report part;
    if (!isReadableWithin(pipe, rest)) return {whole.id, ETIMEDOUT};
    const ssize_t count = ::read(pipe.get(), &part, sizeof part);
    if (count < 0 && errno == EINTR) continue;
    if (count != sizeof part) break;
    whole.id = std::max(whole.id, part.id);
    whole.reason = std::max(whole.reason, part.reason);
  }
  if (whole.id == 0 && whole.reason == 0) whole.reason = ECHILD;
  return whole;
}

// The library's own declaration has no C linkage.
int openProcess(pid_t id) {
  return static_cast<int>(::syscall(SYS_pidfd_open, id, 0));
}

// The supervisor is the host's own child, not yet reaped: its number is nobody else's.
void signalSupervisor(const LaunchedProcess& process, int number) {
  if (process.supervisor > 0) ::kill(process.supervisor, number);
}

std::unexpected<SessionError> notStarted(const std::string& program, int reason) {
  return std::unexpected(SessionError{SessionError::Kind::notStarted,
                                      fmt::format("{}: {}", program, std::strerror(reason))});
}

}  // namespace

Result<LaunchedProcess> launch(const LaunchOptions& options) {
  auto input = makePipe();
  auto output = makePipe();
  auto errors = makePipe();
  auto report = makePipe();
  if (!input || !output || !errors || !report) return notStarted(options.program, errno);

  std::vector<std::string> words{options.program};
  words.insert(words.end(), options.arguments.begin(), options.arguments.end());
  std::vector<char*> arguments = foundation::argumentVector(words);
  std::vector<char*> environment = foundation::argumentVector(options.environment);
  const Preparation preparation{::getpid(),
                                options.program.c_str(),
                                arguments.data(),
                                environment.data(),
                                options.maximumData,
                                input->read.get(),
                                output->write.get(),
                                errors->write.get(),
                                report->write.get()};
  const pid_t supervisor = ::fork();
  if (supervisor < 0) return notStarted(options.program, errno);
  if (supervisor == 0) superviseProgram(preparation);

  LaunchedProcess process;
  process.supervisor = supervisor;
  process.supervisorFile = FileDescriptor(openProcess(supervisor));
  report->write.reset();
  const auto [id, reason] = readReport(report->read);
  process.id = id;
  // The supervisor reaps the program just before its own end, so the number is still the program's.
  if (id > 0) process.processFile = FileDescriptor(openProcess(id));
  const bool isKnown = process.supervisorFile && (process.processFile || errno == ESRCH);
  if (reason != 0 || !isKnown) {
    const int error = reason != 0 ? reason : errno;
    end(process);
    return notStarted(options.program, error);
  }
  process.input = std::move(input->write);
  process.output = std::move(output->read);
  process.errors = std::move(errors->read);
  foundation::stopBlocking(process.input.get());
  foundation::stopBlocking(process.output.get());
  foundation::stopBlocking(process.errors.get());
  return process;
}

// A descriptor that there is not (of -1) is waited for in vain.
bool isReadableWithin(const FileDescriptor& file, std::chrono::milliseconds timeout) {
  const auto until = Clock::now() + timeout;
  pollfd polled{file.get(), POLLIN, 0};
  while (true) {
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
    const int count =
        ::poll(&polled, 1, static_cast<int>(std::clamp<long>(rest.count(), 0, 60'000)));
    if (count > 0) return true;
    if (count == 0 || errno != EINTR) return false;
  }
}

std::optional<int> waitForEnd(LaunchedProcess& process, std::chrono::milliseconds timeout) {
  if (process.supervisor == 0) return std::nullopt;
  isReadableWithin(process.supervisorFile, timeout);
  int status = 0;
  if (::waitpid(process.supervisor, &status, WNOHANG) != process.supervisor) return std::nullopt;
  process.supervisor = 0;
  return status;
}

std::optional<int> end(LaunchedProcess& process) {
  // By its own file as well: a child can stop or kill the supervisor, and leave every group.
  if (process.processFile) {
    ::syscall(SYS_pidfd_send_signal, process.processFile.get(), SIGKILL, nullptr, 0);
  }
  signalSupervisor(process, SIGTERM);
  auto status = waitForEnd(process, kTimeToEnd);
  if (!status) {
    signalSupervisor(process, SIGKILL);
    status = waitForEnd(process, kTimeToDie);
  }
  process = {};
  return status;
}

}  // namespace session
