// Children that break the protocol in every way cost their request, within bounded time, and
// nothing else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <sstream>
#include <string>

#include "Session/ChildProcess.hpp"
#include "Tests/Support/Waiting.hpp"

namespace session {
namespace {

using namespace std::chrono_literals;
using Kind = SessionError::Kind;
using Clock = std::chrono::steady_clock;
using testing::HasSubstr;

ChildProcessOptions misbehaving(const std::string& way) {
  return {.program = MISBEHAVING_CHILD, .arguments = {way, std::to_string(::getpgrp())}};
}

// KiB
long peakMemory() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// The processes are gone soon after they were killed, but when is the system's affair.
bool isGoneSoon(pid_t id) {
  return testsupport::endsWithin(id, 10s);
}

struct Outcome {
  Result<foundation::JsonDocument> result;
  std::chrono::milliseconds time{};
};

Outcome callOnce(ChildProcess& child, std::chrono::milliseconds deadline, std::string text = {}) {
  EXPECT_TRUE(child.start());
  const auto begin = Clock::now();
  auto result = child.call("widget/timeline", "{\"text\":\"" + text + "\"}", deadline);
  return {std::move(result),
          std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin)};
}

struct Row {
  std::string way;
  Kind kind;
  std::string message;
};

void PrintTo(const Row& row, std::ostream* out) {
  *out << row.way;
}

class Misbehaviour : public testing::TestWithParam<Row> {};

TEST_P(Misbehaviour, CostsItsRequestOnly) {
  constexpr auto kDeadline = 400ms;
  ChildProcess child(misbehaving(GetParam().way));
  [[maybe_unused]] const long memoryBefore = peakMemory();
  for (int round = 0; round < 2; ++round) {
    const Outcome outcome = callOnce(child, kDeadline);
    ASSERT_FALSE(outcome.result);
    EXPECT_EQ(foundation::nameOf(outcome.result.error().kind), foundation::nameOf(GetParam().kind));
    EXPECT_THAT(outcome.result.error().message,
                testing::AllOf(testing::StartsWith("MisbehavingChild: widget/timeline: "),
                               HasSubstr(GetParam().message),
                               testing::Not(HasSubstr("\n"))));
    EXPECT_LT(outcome.time, kDeadline + 100ms + 1s);
    EXPECT_FALSE(child.isRunning());
    EXPECT_EQ(child.processId(), 0);
  }
#if !defined(__SANITIZE_ADDRESS__)
  EXPECT_LT(peakMemory() - memoryBefore, 16 << 10);
#endif
  // No zombie is left behind.
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

INSTANTIATE_TEST_SUITE_P(
    Ways,
    Misbehaviour,
    testing::Values(Row{"hang", Kind::deadline, "no answer in 400 ms"},
                    Row{"leaveGroup", Kind::deadline, "no answer in 400 ms"},
                    Row{"daemon", Kind::deadline, "no answer in 400 ms"},
                    Row{"manyDaemons", Kind::deadline, "no answer in 400 ms"},
                    Row{"stopParent", Kind::deadline, "no answer in 400 ms"},
                    Row{"killParent", Kind::died, "signal 9"},
                    Row{"ignoreTerm", Kind::deadline, "no answer in 400 ms"},
                    Row{"slow", Kind::deadline, "no answer in 400 ms"},
                    Row{"lastWords", Kind::died, "signal 9; its last words: no room left"},
                    Row{"midFrame", Kind::died, "exited with status 0"},
                    Row{"closeInput", Kind::died, "closed its input"},
                    Row{"closeOutput", Kind::died, "closed its output"},
                    Row{"grandchild", Kind::died, "exited with status 0; its last words: "},
                    Row{"floodErrors", Kind::flood, "bytes of error output"},
                    Row{"emptyFrames", Kind::malformed, "answer"},
                    Row{"halfFrames", Kind::malformed, "broken frame: "},
                    Row{"floodOutput", Kind::malformed, "no end of header in 1024 bytes"},
                    Row{"largeFrame", Kind::malformed, "1048577 bytes, 1048576 are allowed"},
                    Row{"wrongId", Kind::malformed, "the answer is to another request"},
                    Row{"textId", Kind::malformed, "the answer is to another request"},
                    Row{"garbage", Kind::malformed, "a header line is not"},
                    Row{"badJson", Kind::malformed, "no answer: 1:12: "},
                    Row{"deepJson", Kind::malformed, "no answer: "},
                    Row{"noAnswer", Kind::malformed, "no readable id"},
                    Row{"twice", Kind::malformed, "more than one answer"}),
    [](const auto& row) { return row.param.way; });

TEST(ChildProcess, NoticesAnEndBeforeTheRequest) {
  ChildProcess child(misbehaving("exit"));
  ASSERT_TRUE(child.start());
  EXPECT_TRUE(testsupport::eventually([&] { return !child.isRunning(); }));
  const auto result = child.call("shutdown", "null", 400ms);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().kind, Kind::notStarted);
  EXPECT_TRUE(child.start());
}

TEST(ChildProcess, NoticesOutputThatNobodyAskedFor) {
  ChildProcess child(misbehaving("chatty"));
  EXPECT_TRUE(callOnce(child, 1s).result);
  EXPECT_TRUE(testsupport::eventually([&] { return !child.isRunning(); }));

  ChildProcess flooding(misbehaving("floodFrames"));
  EXPECT_LT(callOnce(flooding, 1s).time, 2s);
  EXPECT_TRUE(testsupport::eventually([&] { return !flooding.isRunning(); }));
}

class Descendants : public testing::TestWithParam<std::string> {};

TEST_P(Descendants, AreKilledWithTheChild) {
  ChildProcess child(misbehaving(GetParam()));
  EXPECT_FALSE(callOnce(child, 300ms).result);
  std::istringstream told(child.diagnostics());
  int count = 0;
  for (std::string word; told >> word; ++count) {
    // The limit of processes holds everybody but the one who may do everything.
    if (word == "refused") {
      EXPECT_NE(::geteuid(), 0U);
      continue;
    }
    const pid_t descendant = std::stoi(word);
    ASSERT_GT(descendant, 1);
    EXPECT_TRUE(isGoneSoon(descendant)) << descendant;
  }
  EXPECT_GT(count, 0);
}

INSTANTIATE_TEST_SUITE_P(Ways,
                         Descendants,
                         testing::Values("grandchild", "daemon", "manyDaemons"),
                         [](const auto& row) { return row.param; });

class Fugitives : public testing::TestWithParam<std::string> {};

TEST_P(Fugitives, AreKilledByThemselves) {
  ChildProcess child(misbehaving(GetParam()));
  ASSERT_TRUE(child.start());
  const pid_t id = child.processId();
  EXPECT_FALSE(child.call("widget/timeline", "{}", 300ms));
  EXPECT_TRUE(isGoneSoon(id));
}

INSTANTIATE_TEST_SUITE_P(Ways,
                         Fugitives,
                         testing::Values("leaveGroup", "stopParent", "killParent"),
                         [](const auto& row) { return row.param; });

TEST(ChildProcess, FullPipesDoNotBlockEachOther) {
  ChildProcess child(misbehaving("fillPipes"));
  const std::string text(900'000, 'r');
  const Outcome outcome = callOnce(child, 20s, text);
  ASSERT_TRUE(outcome.result) << outcome.result.error().message;
  ASSERT_NE(outcome.result->string(), nullptr);
  EXPECT_GT(outcome.result->string()->size(), text.size());
}

TEST(ChildProcess, DoesNotSendWhatIsTooLarge) {
  ChildProcess child(misbehaving("hang"));
  const Outcome outcome = callOnce(child, 20s, std::string(std::size_t{1} << 20, 'r'));
  ASSERT_FALSE(outcome.result);
  EXPECT_EQ(outcome.result.error().kind, Kind::refused);
  EXPECT_TRUE(child.isRunning());
}

TEST(ChildProcess, ConfinesTheChild) {
  ChildProcessOptions options = misbehaving("confinement");
  options.environment = {"HOME=/home/someone"};
  options.maximumData = std::size_t{48} << 20;
  ChildProcess child(std::move(options));
  const Outcome outcome = callOnce(child, 5s);
  ASSERT_TRUE(outcome.result) << outcome.result.error().message;
#if defined(__SANITIZE_ADDRESS__)
  // The sanitizer needs both, so the child keeps what this process has.
  rlimit processes{};
  ASSERT_EQ(::getrlimit(RLIMIT_NPROC, &processes), 0);
  const std::string limits =
      "data -1, processes " + std::to_string(static_cast<long>(processes.rlim_cur)) + ", ";
#else
  const std::string limits = "data 50331648, processes 0, ";
#endif
  ASSERT_NE(outcome.result->string(), nullptr);
  EXPECT_EQ(*outcome.result->string(),
            "noNewPrivileges 1, core 0, " + limits +
                "deathSignal 9, leader 1, descriptors 3, ignored 0, "
                "environment HOME=/home/someone;");
}

#if !defined(__SANITIZE_ADDRESS__)
TEST(ChildProcess, BoundsItsMemory) {
  ChildProcess child(misbehaving("allocate"));
  const Outcome outcome = callOnce(child, 5s);
  ASSERT_TRUE(outcome.result) << outcome.result.error().message;
  EXPECT_EQ(*outcome.result, foundation::JsonValue{std::string_view("refused")});
}
#endif

TEST(ChildProcess, DiesWithItsHost) {
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  const pid_t host = ::fork();
  if (host == 0) {
    ChildProcess child(misbehaving("hang"));
    const pid_t id = child.start() ? child.processId() : 0;
    [[maybe_unused]] const ssize_t written = ::write(pipe[1], &id, sizeof id);
    ::raise(SIGKILL);
  }
  pid_t child = 0;
  ASSERT_EQ(::read(pipe[0], &child, sizeof child), static_cast<ssize_t>(sizeof child));
  ::waitpid(host, nullptr, 0);
  ::close(pipe[0]);
  ::close(pipe[1]);
  ASSERT_GT(child, 1);
  EXPECT_TRUE(isGoneSoon(child));
}

TEST(ChildProcess, SaysWhyAProgramDoesNotRun) {
  const std::string missing = QUORVEL_BINARY_DIR "/bin/nothing-here";
  ChildProcess child({.program = missing});
  const auto started = child.start();
  ASSERT_FALSE(started);
  EXPECT_EQ(started.error(),
            (SessionError{Kind::notStarted, missing + ": No such file or directory"}));

  ChildProcess directory({.program = QUORVEL_BINARY_DIR});
  ASSERT_FALSE(directory.start());
}

TEST(ChildProcess, LeavesTheHostsSignalsAlone) {
  struct sigaction before {};
  struct sigaction after {};
  ::sigaction(SIGPIPE, nullptr, &before);
  ChildProcess child(misbehaving("closeInput"));
  EXPECT_FALSE(callOnce(child, 300ms).result);
  ::sigaction(SIGPIPE, nullptr, &after);
  EXPECT_EQ(before.sa_handler, after.sa_handler);
  sigset_t blocked;
  ::pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
  EXPECT_EQ(::sigismember(&blocked, SIGPIPE), 0);
}

TEST(ChildProcess, GivesAnExtensionFewVariables) {
  EXPECT_EQ(
      childEnvironment(
          {{"HOME", "/h"}, {"LD_PRELOAD", "x.so"}, {"PATH", "/bin"}, {"XDG_DATA_HOME", "/d"}}),
      (std::vector<std::string>{"HOME=/h", "XDG_DATA_HOME=/d"}));
  EXPECT_TRUE(childEnvironment({}).empty());
}

}  // namespace
}  // namespace session
