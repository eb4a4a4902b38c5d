#include "Session/Launch.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <utility>

namespace session {

namespace {

// A sanitizer's shadow memory counts as data: under one the limit would stop the child before its
// first line.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kLimitsData = false;
#else
constexpr bool kLimitsData = true;
#endif

constexpr int kLowestFreeDescriptor = 3;

struct Pipe {
  Descriptor read;
  Descriptor write;
};

// Out of the way of 0, 1 and 2, which the host itself may have closed.
std::optional<Descriptor> aboveStandard(Descriptor descriptor) {
  if (descriptor.get() >= kLowestFreeDescriptor) return descriptor;
  Descriptor moved(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, kLowestFreeDescriptor));
  if (!moved) return std::nullopt;
  return moved;
}

std::optional<Pipe> makePipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  auto read = aboveStandard(Descriptor(ends[0]));
  auto write = aboveStandard(Descriptor(ends[1]));
  if (!read || !write) return std::nullopt;
  return Pipe{std::move(*read), std::move(*write)};
}

void stopBlocking(const Descriptor& descriptor) {
  ::fcntl(descriptor.get(), F_SETFL, ::fcntl(descriptor.get(), F_GETFL) | O_NONBLOCK);
}

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
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
  const rlimit data{preparation.maximumData, preparation.maximumData};
  return !kLimitsData || ::setrlimit(RLIMIT_DATA, &data) == 0;
}

// Handlers do not outlive exec, but ignored and blocked signals do.
void resetSignals() {
  for (int number = 1; number < NSIG; ++number) std::signal(number, SIG_DFL);
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

[[noreturn]] void becomeProgram(const Preparation& preparation) {
  resetSignals();
  const bool isReady = confine(preparation) && ::dup2(preparation.input, STDIN_FILENO) >= 0 &&
                       ::dup2(preparation.output, STDOUT_FILENO) >= 0 &&
                       ::dup2(preparation.errors, STDERR_FILENO) >= 0 &&
                       ::close_range(kLowestFreeDescriptor, ~0U, CLOSE_RANGE_CLOEXEC) == 0;
  if (isReady) ::execve(preparation.program, preparation.arguments, preparation.environment);
  const int reason = errno;
  [[maybe_unused]] const ssize_t written = ::write(preparation.report, &reason, sizeof reason);
  ::_exit(127);
}

// The report pipe closes by itself when exec succeeds.
int readReport(const Descriptor& report) {
  int reason = 0;
  ssize_t count = 0;
  do {
    count = ::read(report.get(), &reason, sizeof reason);
  } while (count < 0 && errno == EINTR);
  return count == sizeof reason ? reason : 0;
}

// The library's own declaration has no C linkage.
int openProcess(pid_t id) {
  return static_cast<int>(::syscall(SYS_pidfd_open, id, 0));
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
  std::vector<char*> arguments = pointers(words);
  std::vector<char*> environment = pointers(options.environment);
  const Preparation preparation{::getpid(),
                                options.program.c_str(),
                                arguments.data(),
                                environment.data(),
                                options.maximumData,
                                input->read.get(),
                                output->write.get(),
                                errors->write.get(),
                                report->write.get()};
  const pid_t id = ::fork();
  if (id < 0) return notStarted(options.program, errno);
  if (id == 0) becomeProgram(preparation);

  report->write.close();
  if (const int reason = readReport(report->read); reason != 0) {
    ::waitpid(id, nullptr, 0);
    return notStarted(options.program, reason);
  }
  LaunchedProcess process{id,
                          Descriptor(openProcess(id)),
                          std::move(input->write),
                          std::move(output->read),
                          std::move(errors->read)};
  stopBlocking(process.input);
  stopBlocking(process.output);
  stopBlocking(process.errors);
  return process;
}

}  // namespace session
