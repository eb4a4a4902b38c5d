#include "Cli/Opener.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <vector>

extern char** environ;  // POSIX leaves it to the user

namespace cli {
namespace {

std::vector<std::string> words(const std::string& text) {
  std::vector<std::string> result;
  std::size_t at = 0;
  while ((at = text.find_first_not_of(' ', at)) != std::string::npos) {
    const auto end = std::min(text.find(' ', at), text.size());
    result.push_back(text.substr(at, end - at));
    at = end;
  }
  return result;
}

struct Finished {
  int status = 0;  ///< exit status; 128 and more for a signal
  std::string output;
};

/// Runs a program found on the search path and waits. `captures`: what it prints is returned
/// instead of shown.
Result<Finished> runProgram(const std::vector<std::string>& command, bool captures) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  std::array<int, 2> pipe{-1, -1};
  if (captures && ::pipe2(pipe.data(), O_CLOEXEC) != 0) return refused(std::strerror(errno));
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (captures) posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
  pid_t child = 0;
  const int error =
      ::posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (captures) ::close(pipe[1]);
  Finished finished;
  if (error == 0 && captures) {
    std::array<char, 512> buffer{};
    for (ssize_t count = 0; (count = ::read(pipe[0], buffer.data(), buffer.size())) > 0;) {
      finished.output.append(buffer.data(), static_cast<std::size_t>(count));
    }
  }
  if (captures) ::close(pipe[0]);
  if (error != 0)
    return refused(fmt::format("cannot run {}: {}", command.front(), std::strerror(error)));
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  finished.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return finished;
}

/// Something answers to the scheme, or nobody can tell.
bool isRegistered(const std::string& scheme) {
  const auto asked =
      runProgram({"xdg-mime", "query", "default", "x-scheme-handler/" + scheme}, true);
  return !asked || asked->status != 0 ||
         asked->output.find_first_not_of(" \n") != std::string::npos;
}

bool isSchemeCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '+' ||
         c == '-' || c == '.';
}

}  // namespace

Result<std::string> applicationLink(const std::string& scheme) {
  for (const char c : scheme) {
    if (!isSchemeCharacter(c))
      return refused("the URL scheme in Info.plist holds characters that no scheme may have");
  }
  if (scheme.empty() || !((scheme[0] | 0x20) >= 'a' && (scheme[0] | 0x20) <= 'z')) {
    return refused("the URL scheme in Info.plist must begin with a letter");
  }
  return scheme + "://";
}

Result<void> openLink(const std::string& link, const std::string& program) {
  const std::string scheme = link.substr(0, link.find(':'));
  if (program.empty() && !isRegistered(scheme)) {
    return refused(
        fmt::format("no application is registered for {} links, so {} was not opened; install the "
                    "application, or name a program "
                    "with --open-with",
                    scheme,
                    link));
  }
  std::vector<std::string> command = words(program);
  if (command.empty()) command.emplace_back("xdg-open");
  command.push_back(link);
  const auto finished = runProgram(command, false);
  if (!finished) {
    const std::string advice = program.empty() ? " (Debian package xdg-utils)" : "";
    return refused(finished.error().line + advice + ", so " + link + " was not opened");
  }
  if (finished->status != 0) {
    return refused(
        fmt::format("{} could not open {} (status {})", command.front(), link, finished->status));
  }
  return {};
}

}  // namespace cli
