#include "CommandRunner.hpp"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace cli {
namespace {

namespace fs = std::filesystem;

struct Pipe {
  std::array<int, 2> ends{};
  Pipe() {
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
};

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

// Both streams at once, so that neither can fill up while the other is read.
void readBoth(int out, int errors, Outcome& outcome) {
  std::array<pollfd, 2> polled{pollfd{out, POLLIN, 0}, pollfd{errors, POLLIN, 0}};
  const std::array<std::string*, 2> texts{&outcome.out, &outcome.errors};
  int open = 2;
  while (open > 0 && ::poll(polled.data(), polled.size(), -1) > 0) {
    for (std::size_t i = 0; i < polled.size(); ++i) {
      if (polled[i].fd < 0 || polled[i].revents == 0) continue;
      std::array<char, 65536> buffer;
      const ssize_t count = ::read(polled[i].fd, buffer.data(), buffer.size());
      if (count > 0) {
        texts[i]->append(buffer.data(), static_cast<std::size_t>(count));
      } else {
        polled[i].fd = -1;
        --open;
      }
    }
  }
}

Outcome run(const std::string& program,
            const Words& words,
            const std::map<std::string, std::string>& environment,
            const fs::path& input) {
  std::vector<std::string> arguments{program};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::map<std::string, std::string> variables{{"PATH", "/usr/bin:/bin"}, {"HOME", "/nonexistent"}};
  for (const auto& [name, value] : environment) variables[name] = value;
  std::vector<std::string> entries;
  for (const auto& [name, value] : variables) entries.push_back(name + "=" + value);

  Pipe out;
  Pipe errors;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, out.ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errors.ends[1], STDERR_FILENO);
  pid_t child = 0;
  const int error = ::posix_spawn(&child,
                                  program.c_str(),
                                  &actions,
                                  nullptr,
                                  pointers(arguments).data(),
                                  pointers(entries).data());
  posix_spawn_file_actions_destroy(&actions);
  ::close(out.ends[1]);
  ::close(errors.ends[1]);
  Outcome outcome;
  if (error == 0) {
    readBoth(out.ends[0], errors.ends[0], outcome);
    int status = 0;
    ::waitpid(child, &status, 0);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }
  ::close(out.ends[0]);
  ::close(errors.ends[0]);
  return outcome;
}

}  // namespace

fs::path builtProgram(const std::string& name) {
  return fs::path(QUORVEL_BINARY_DIR) / "bin" / name;
}

fs::path example(const std::string& name) {
  return fs::path(QUORVEL_SOURCE_DIR) / "Examples" / name;
}

Outcome runProgram(const std::string& program,
                   const Words& words,
                   const std::map<std::string, std::string>& environment) {
  return run(program, words, environment, "/dev/null");
}

Outcome runHost(const Words& words, const std::map<std::string, std::string>& environment) {
  return run(builtProgram("quorvel-host"), words, environment, "/dev/null");
}

Outcome runExtension(const fs::path& input) {
  return run(builtProgram("quorvel-widgets"), {}, {}, input);
}

nlohmann::json offeredWidgets() {
  return nlohmann::json::parse(runHost({"list", "--json"}).out, nullptr, false)["widgets"];
}

std::vector<std::string> offeredKinds() {
  std::vector<std::string> kinds;
  for (const auto& widget : offeredWidgets()) kinds.push_back(widget["kind"]);
  return kinds;
}

}  // namespace cli
