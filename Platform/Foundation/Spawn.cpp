#include "Foundation/Spawn.hpp"

#include <spawn.h>
#include <unistd.h>

#include <csignal>

#include "Foundation/ArgumentVector.hpp"

extern char** environ;  // POSIX leaves it to the user

namespace foundation {
namespace {

class FileActions {
 public:
  explicit FileActions(const SpawnOptions& options) {
    posix_spawn_file_actions_init(&actions_);
    become(STDIN_FILENO, options.input);
    become(STDOUT_FILENO, options.output);
    become(STDERR_FILENO, options.errors);
  }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;
  [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  void become(int standard, int descriptor) {
    if (descriptor >= 0) posix_spawn_file_actions_adddup2(&actions_, descriptor, standard);
  }

  posix_spawn_file_actions_t actions_{};
};

class Attributes {
 public:
  explicit Attributes(const SpawnOptions& options) {
    posix_spawnattr_init(&attributes_);
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setpgroup(&attributes_, 0);
    const int group = options.leadsGroup ? POSIX_SPAWN_SETPGROUP : 0;
    const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | group;
    posix_spawnattr_setflags(&attributes_, static_cast<short>(flags));
  }
  ~Attributes() { posix_spawnattr_destroy(&attributes_); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  [[nodiscard]] const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

}  // namespace

std::expected<pid_t, std::error_code> spawn(const std::vector<std::string>& command,
                                            const SpawnOptions& options) {
  std::vector<std::string> variables;
  if (options.environment) {
    for (const auto& [name, value] : *options.environment) variables.push_back(name + "=" + value);
  }
  const FileActions actions(options);
  const Attributes attributes(options);
  pid_t child = 0;
  const int error =
      ::posix_spawnp(&child,
                     command.at(0).c_str(),
                     actions.get(),
                     attributes.get(),
                     argumentVector(command).data(),
                     options.environment ? argumentVector(variables).data() : environ);
  if (error != 0) return std::unexpected(std::error_code(error, std::generic_category()));
  return child;
}

}  // namespace foundation
