#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/Spawn.hpp"
#include "Foundation/ThisProcess.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace foundation {
namespace {

using testsupport::contentsOf;

class SpawnTest : public ::testing::Test {
 protected:
  /// What a shell's script prints, and its status.
  std::string run(const std::string& script, SpawnOptions options = {}) {
    const FileDescriptor nothing{::open("/dev/null", O_RDONLY | O_CLOEXEC)};
    const FileDescriptor output{
        ::open(folder.at("output").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)};
    options.input = nothing.get();
    options.output = output.get();
    const auto child = spawn({"sh", "-c", script}, options);
    EXPECT_TRUE(child);
    EXPECT_EQ(::waitpid(*child, &status, 0), *child);
    return contentsOf(folder.at("output"));
  }

  testsupport::TemporaryFolder folder;
  int status = 0;
};

TEST_F(SpawnTest, StartsAProgramOfThePathWithItsArguments) {
  EXPECT_EQ(run("echo \"$0\" a b; exit 7"), "sh a b\n");
  EXPECT_EQ(WEXITSTATUS(status), 7);
}

TEST_F(SpawnTest, HandsOnItsOwnEnvironmentOrAnother) {
  ::setenv("SPAWN_TEST", "own", 1);
  EXPECT_EQ(run("echo $SPAWN_TEST"), "own\n");
  EXPECT_EQ(processEnvironment().at("SPAWN_TEST"), "own");
  ::unsetenv("SPAWN_TEST");
  EXPECT_EQ(run("echo $SPAWN_TEST", {.environment = {{{"SPAWN_TEST", "other"}}}}), "other\n");
  EXPECT_EQ(run("echo $SPAWN_TEST$HOME", {.environment = ProcessEnvironment{}}), "\n");
}

TEST_F(SpawnTest, UndoesWhatThisProcessDoesAboutSignals) {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  std::signal(SIGPIPE, SIG_IGN);
  pthread_sigmask(SIG_BLOCK, &all, &before);
  const std::string own = run("grep -E 'SigBlk|SigIgn' /proc/self/status");
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  std::signal(SIGPIPE, SIG_DFL);
  // The C library ignores two signals of its own, 32 and 33.
  EXPECT_THAT(
      own, ::testing::MatchesRegex("SigBlk:\t0000000000000000\nSigIgn:\t0000000[01][08]0000000\n"));
}

TEST_F(SpawnTest, LetsAProgramLeadAGroup) {
  const std::string group = "ps -o pgid= -p $$ | tr -d ' '";
  EXPECT_EQ(run(group), std::to_string(::getpgrp()) + "\n");
  run("[ \"$(" + group + ")\" = $$ ]", {.leadsGroup = true});
  EXPECT_EQ(status, 0);
}

TEST_F(SpawnTest, SaysThatThereIsNoSuchProgram) {
  EXPECT_EQ(spawn({"/none"}),
            std::unexpected(std::make_error_code(std::errc::no_such_file_or_directory)));
}

TEST(ThisProcess, KnowsItsFolder) {
  EXPECT_EQ(programFolder(), std::filesystem::path{QUORVEL_BINARY_DIR} / "bin");
}

}  // namespace
}  // namespace foundation
