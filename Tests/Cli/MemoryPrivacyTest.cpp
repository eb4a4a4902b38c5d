// No program leaves its memory, where amounts are, in a core.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>
#include <vector>

#include "CommandRunner.hpp"

namespace cli {
namespace {

/// Starts a program, waits for a first byte of its output (or of `pipe`, a named one), ends it with
/// the signal that asks for a core, and says whether there was one.
bool leavesACore(const std::string& program,
                 const Words& words,
                 const std::string& input,
                 const std::string& pipe = {}) {
  std::array<int, 2> in{};
  std::array<int, 2> out{};
  EXPECT_EQ(::pipe2(in.data(), O_CLOEXEC) + ::pipe2(out.data(), O_CLOEXEC), 0);
  const TemporaryFolder folder;
  const pid_t child = ::fork();
  if (child == 0) {
    const rlimit unlimited{RLIM_INFINITY, RLIM_INFINITY};
    ::setrlimit(RLIMIT_CORE, &unlimited);
    ::dup2(in[0], STDIN_FILENO);
    ::dup2(out[1], STDOUT_FILENO);
    std::vector<char*> arguments{const_cast<char*>(program.c_str())};
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    if (::chdir(folder.path().c_str()) == 0) ::execv(program.c_str(), arguments.data());
    ::_exit(127);
  }
  ::close(in[0]);
  ::close(out[1]);
  EXPECT_EQ(::write(in[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
  char byte = 0;
  const int ready = pipe.empty() ? out[0] : ::open(pipe.c_str(), O_RDONLY | O_CLOEXEC);
  EXPECT_EQ(::read(ready, &byte, 1), 1) << program;
  ::kill(child, SIGABRT);
  int status = 0;
  ::waitpid(child, &status, 0);
  ::close(in[1]);
  ::close(out[0]);
  if (!pipe.empty()) ::close(ready);
  EXPECT_TRUE(WIFSIGNALED(status)) << program;
  return WIFSIGNALED(status) && WCOREDUMP(status);
}

class MemoryPrivacy : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!leavesACore("/bin/sh", {"-c", "echo ready; read line"}, "")) {
      GTEST_SKIP() << "this machine keeps no cores";
    }
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  }

  /// A program that says only that it was started, so that whoever started it waits.
  [[nodiscard]] std::string silentProgram(const std::string& name) const {
    const std::string path =
        folder.write(name, "#!/bin/sh\necho ready > " + pipe + "\nexec sleep 5\n");
    EXPECT_EQ(::chmod(path.c_str(), 0700), 0);
    return path;
  }

  TemporaryFolder folder;
  std::string pipe = folder.at("ready");
};

TEST_F(MemoryPrivacy, TheExtensionLeavesNoCore) {
  const std::string request = R"({"jsonrpc":"2.0","id":1,"method":"nothing"})";
  EXPECT_FALSE(
      leavesACore(builtProgram("quorvel-widgets").string(),
                  {},
                  "Content-Length: " + std::to_string(request.size()) + "\r\n\r\n" + request));
}

TEST_F(MemoryPrivacy, TheCommandLineLeavesNoCore) {
  EXPECT_FALSE(leavesACore(builtProgram("quorvel-host").string(),
                           {"list", "--isolated", "--extension", silentProgram("silent")},
                           "",
                           pipe));
}

TEST_F(MemoryPrivacy, TheResidentHostLeavesNoCore) {
  EXPECT_FALSE(leavesACore("/usr/bin/env",
                           {"XDG_RUNTIME_DIR=" + folder.path().string(),
                            "XDG_CONFIG_HOME=" + folder.path().string(),
                            "XDG_STATE_HOME=" + folder.path().string(),
                            builtProgram("quorvel-hostd").string(),
                            "--container",
                            folder.path().string(),
                            "--extension",
                            silentProgram("silent")},
                           "",
                           pipe));
}

TEST_F(MemoryPrivacy, TheImporterLeavesNoCore) {
  static_cast<void>(silentProgram("hledger"));
  const std::string journal = folder.write("year.journal", "");
  EXPECT_FALSE(leavesACore("/usr/bin/env",
                           {"PATH=" + folder.path().string() + ":/usr/bin:/bin",
                            builtProgram("quorvel-import").string(),
                            "hledger",
                            "-f",
                            journal,
                            "--container",
                            folder.path().string()},
                           "",
                           pipe));
}

}  // namespace
}  // namespace cli
