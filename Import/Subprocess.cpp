// One poll loop for all children; each has a process group of its own, which is ended as a whole.
#include "Import/Subprocess.hpp"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

extern "C" {
#include <sys/pidfd.h>  // in C++ this header forgets that its functions are C
}

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/Spawn.hpp"

namespace importer {
namespace {

using Clock = std::chrono::steady_clock;
using foundation::FileDescriptor;

constexpr std::size_t kAtATime = 2;
constexpr std::size_t kPiece = std::size_t{64} << 10;

/// A started program and what is still open of it.
struct Child {
  Subprocess* run = nullptr;
  pid_t pid = 0;
  FileDescriptor output;
  FileDescriptor errors;
  std::size_t printed = 0;
  Clock::time_point deadline;

  [[nodiscard]] bool isReading() const { return output || errors; }
};

std::unique_ptr<Child> start(Subprocess& run,
                             const Environment& environment,
                             const SubprocessLimits& limits) {
  std::array<int, 2> output{-1, -1};
  std::array<int, 2> errors{-1, -1};
  if (::pipe2(output.data(), O_CLOEXEC) != 0) {
    run.outcome = {Ending::failed, errno, {}};
    return nullptr;
  }
  FileDescriptor outputEnd(output[0]);
  const FileDescriptor outputStart(output[1]);
  if (::pipe2(errors.data(), O_CLOEXEC) != 0) {
    run.outcome = {Ending::failed, errno, {}};
    return nullptr;
  }
  FileDescriptor errorsEnd(errors[0]);
  const FileDescriptor errorsStart(errors[1]);
  const FileDescriptor nothing(::open("/dev/null", O_RDONLY | O_CLOEXEC));
  const auto pid = foundation::spawn(run.command,
                                     {.input = nothing.get(),
                                      .output = outputStart.get(),
                                      .errors = errorsStart.get(),
                                      .leadsGroup = true,
                                      .environment = environment});
  if (!pid) {
    const int error = pid.error().value();
    run.outcome = {error == ENOENT ? Ending::missing : Ending::failed, error, {}};
    return nullptr;
  }
  return std::make_unique<Child>(Child{.run = &run,
                                       .pid = *pid,
                                       .output = std::move(outputEnd),
                                       .errors = std::move(errorsEnd),
                                       .deadline = Clock::now() + limits.time});
}

/// Reads once; the descriptor is closed at the end of what it holds.
std::string_view readPiece(FileDescriptor& descriptor, std::span<char> buffer) {
  const ssize_t count = ::read(descriptor.get(), buffer.data(), buffer.size());
  if (count < 0 && errno == EINTR) return {};
  if (count <= 0) {
    descriptor.reset();
    return {};
  }
  return {buffer.data(), static_cast<std::size_t>(count)};
}

void end(Child& child, Ending ending) {
  ::kill(-child.pid, SIGKILL);
  if (child.run->outcome.ending == Ending::notStarted) child.run->outcome.ending = ending;
  child.output.reset();
  child.errors.reset();
}

void takeOutput(Child& child, std::string_view piece, const SubprocessLimits& limits) {
  child.printed += piece.size();
  if (child.printed > limits.output) return end(child, Ending::tooMuch);
  if (!piece.empty() && child.run->output && !child.run->output(piece))
    end(child, Ending::declined);
}

void takeErrors(Child& child, std::string_view piece) {
  std::string& errors = child.run->outcome.errors;
  errors += piece.substr(0, kErrorLimit - std::min(kErrorLimit, errors.size()));
}

int millisecondsUntil(Clock::time_point deadline) {
  const auto left =
      std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(left + 1, 0, 60'000));
}

/// A program that has closed its outputs and lives on has until its deadline.
void waitFor(Child& child) {
  const FileDescriptor process(::pidfd_open(child.pid, 0));
  pollfd polled{process.get(), POLLIN, 0};
  while (process && Clock::now() < child.deadline &&
         ::poll(&polled, 1, millisecondsUntil(child.deadline)) <= 0) {
  }
  if (polled.revents == 0) end(child, Ending::tooSlow);
  // Before the child is reaped, while its number still names its group: what it left behind.
  ::kill(-child.pid, SIGKILL);
  int status = 0;
  while (::waitpid(child.pid, &status, 0) < 0 && errno == EINTR) {
  }
  Outcome& outcome = child.run->outcome;
  if (outcome.ending != Ending::notStarted) return;
  outcome.ending = Ending::exited;
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// Waits for something to read, or for the first deadline.
void readFrom(std::vector<std::unique_ptr<Child>>& children,
              std::span<char> buffer,
              const SubprocessLimits& limits) {
  std::vector<pollfd> polled;
  Clock::time_point first = Clock::time_point::max();
  for (const auto& child : children) {
    polled.push_back({child->output.get(), POLLIN, 0});
    polled.push_back({child->errors.get(), POLLIN, 0});
    first = std::min(first, child->deadline);
  }
  if (::poll(polled.data(), polled.size(), millisecondsUntil(first)) < 0) return;
  for (std::size_t i = 0; i < children.size(); ++i) {
    Child& child = *children[i];
    if (child.errors && polled[i * 2 + 1].revents != 0)
      takeErrors(child, readPiece(child.errors, buffer));
    if (child.output && polled[i * 2].revents != 0)
      takeOutput(child, readPiece(child.output, buffer), limits);
    if (Clock::now() >= child.deadline) end(child, Ending::tooSlow);
  }
}

}  // namespace

void runSubprocesses(std::span<Subprocess> runs,
                     const Environment& environment,
                     const SubprocessLimits& limits) {
  std::vector<char> buffer(kPiece);
  std::vector<std::unique_ptr<Child>> children;
  std::size_t next = 0;
  while (next < runs.size() || !children.empty()) {
    while (next < runs.size() && children.size() < kAtATime) {
      if (auto child = start(runs[next++], environment, limits))
        children.push_back(std::move(child));
    }
    if (!children.empty()) readFrom(children, buffer, limits);
    std::erase_if(children, [](const auto& child) {
      if (child->isReading()) return false;
      waitFor(*child);
      return true;
    });
  }
}

}  // namespace importer
