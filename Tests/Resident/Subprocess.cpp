#include "Subprocess.hpp"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

namespace resident {
namespace {

using foundation::FileDescriptor;

struct Pipe {
  FileDescriptor reading{-1};
  FileDescriptor writing{-1};
  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    reading = FileDescriptor{ends[0]};
    writing = FileDescriptor{ends[1]};
  }
};

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

}  // namespace

Subprocess::Subprocess(const std::vector<std::string>& command,
                       const std::vector<std::string>& environment) {
  Pipe in;
  Pipe out;
  Pipe errors;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in.reading.get(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out.writing.get(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errors.writing.get(), STDERR_FILENO);
  const int error = ::posix_spawnp(&process_,
                                   command[0].c_str(),
                                   &actions,
                                   nullptr,
                                   pointers(command).data(),
                                   pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::runtime_error(command[0] + " does not start");
  input_ = std::move(in.writing);
  output_ = std::move(out.reading);
  errors_ = std::move(errors.reading);
}

Subprocess::~Subprocess() {
  if (process_ == 0) return;
  ::kill(process_, SIGKILL);
  wait();
}

std::optional<std::string> Subprocess::line() {
  for (;;) {
    const auto end = buffer_.find('\n');
    if (end != std::string::npos) {
      std::string text = buffer_.substr(0, end);
      buffer_.erase(0, end + 1);
      return text;
    }
    pollfd polled{output_.get(), POLLIN, 0};
    if (::poll(&polled, 1, 30'000) <= 0) return std::nullopt;
    std::array<char, 4096> bytes;
    const ssize_t count = ::read(output_.get(), bytes.data(), bytes.size());
    if (count <= 0) return std::nullopt;
    buffer_.append(bytes.data(), static_cast<std::size_t>(count));
  }
}

std::optional<std::string> Subprocess::lineWith(const std::string& text) {
  while (auto next = line()) {
    if (next->find(text) != std::string::npos) return next;
  }
  return std::nullopt;
}

void Subprocess::write(const std::string& text) const {
  if (::write(input_.get(), text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
    throw std::runtime_error("not written");
  }
}

int Subprocess::wait() {
  int status = 0;
  ::waitpid(process_, &status, 0);
  process_ = 0;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::string Subprocess::errors() const {
  std::string text;
  std::array<char, 4096> bytes;
  for (ssize_t count = 0; (count = ::read(errors_.get(), bytes.data(), bytes.size())) > 0;) {
    text.append(bytes.data(), static_cast<std::size_t>(count));
  }
  return text;
}

}  // namespace resident
