// Programs that misbehave in every way that one can.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Import/Subprocess.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace importer {
namespace {

using namespace std::chrono_literals;

Subprocess shell(const std::string& script, std::string& text) {
  return {.command = {"/bin/sh", "-c", script}, .output = appendTo(text)};
}

Outcome runShell(const std::string& script,
                 std::string& text,
                 const SubprocessLimits& limits = {}) {
  std::vector<Subprocess> runs{shell(script, text)};
  runSubprocesses(runs, {{"PATH", "/usr/bin:/bin"}, {"WORD", "given"}}, limits);
  return runs.front().outcome;
}

TEST(Subprocess, KeepsOutputErrorsAndStatusApart) {
  std::string text;
  const Outcome outcome = runShell("echo out $WORD; echo wrong >&2; exit 3", text);
  EXPECT_EQ(outcome.ending, Ending::exited);
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "wrong\n");
  EXPECT_EQ(text, "out given\n");
}

TEST(Subprocess, HasNoInput) {
  std::string text;
  EXPECT_TRUE(runShell("cat; echo end", text).isSuccess());
  EXPECT_EQ(text, "end\n");
}

TEST(Subprocess, TellsSignalsAndMissingPrograms) {
  std::string text;
  EXPECT_EQ(runShell("kill -9 $$", text).status, 128 + 9);
  std::vector<Subprocess> runs{{.command = {"no-such-program-anywhere"}}};
  runSubprocesses(runs, {}, {});
  EXPECT_EQ(runs[0].outcome.ending, Ending::missing);
}

TEST(Subprocess, EndsWhatHangsWithEverythingItStarted) {
  std::string text;
  const auto start = std::chrono::steady_clock::now();
  // The grandchild holds the pipe open.
  const Outcome outcome = runShell("sleep 100 & sleep 100", text, {.time = 50ms});
  EXPECT_EQ(outcome.ending, Ending::tooSlow);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
}

TEST(Subprocess, EndsWhatHangsWithItsOutputsClosed) {
  std::string text;
  EXPECT_EQ(runShell("exec >&- 2>&-; exec sleep 100", text, {.time = 50ms}).ending,
            Ending::tooSlow);
}

TEST(Subprocess, EndsWhatFloods) {
  std::string text;
  EXPECT_EQ(runShell("exec yes", text, {.output = 1 << 20}).ending, Ending::tooMuch);
  EXPECT_LE(text.size(), std::size_t{1} << 20);
  const Outcome errors = runShell("head -c 1000000 /dev/zero >&2; echo done", text);
  EXPECT_TRUE(errors.isSuccess());
  EXPECT_EQ(errors.errors.size(), kErrorLimit);
}

TEST(Subprocess, EndsWhatNobodyReadsOn) {
  std::vector<Subprocess> runs{
      {.command = {"/usr/bin/yes"}, .output = [](std::string_view) { return false; }}};
  runSubprocesses(runs, {}, {});
  EXPECT_EQ(runs[0].outcome.ending, Ending::declined);
}

// Each waits for a file of the other's: together they end, one after the other they would not.
TEST(Subprocess, RunsTwoAtATimeAndNoMore) {
  const testsupport::TemporaryFolder folder;
  std::string text;
  const std::string meet = "cd " + folder.path().string() + "; ";
  std::vector<Subprocess> runs{
      shell(meet + "mkfifo a 2>/dev/null; echo x > a", text),
      shell(meet + "until [ -p a ]; do :; done; test ! -e third && cat a > /dev/null", text),
      shell(meet + "touch third", text)};
  runSubprocesses(runs, {{"PATH", "/usr/bin:/bin"}}, {.time = 20s});
  for (const Subprocess& run : runs) EXPECT_TRUE(run.outcome.isSuccess()) << run.outcome.errors;
}

}  // namespace
}  // namespace importer
