// The extension's process, spoken to byte by byte.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <string>
#include <vector>

#include "Session/Launch.hpp"
#include "WidgetRuntime/Framing.hpp"

namespace session {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using widgetruntime::encodeFrame;

constexpr int kPatience = 10'000;  // ms without any progress

// A running extension and what it has said so far.
class Conversation {
 public:
  explicit Conversation(std::vector<std::string> arguments = {}) {
    auto launched = launch({WELLBEHAVED_CHILD, std::move(arguments), {}, std::size_t{1} << 30});
    EXPECT_TRUE(launched);
    if (launched) process_ = std::move(*launched);
    std::signal(SIGPIPE, SIG_IGN);
  }
  ~Conversation() { end(process_); }

  // Writes without reading a single byte.
  void write(std::string_view text) {
    while (!text.empty()) {
      pollfd polled{process_.input.get(), POLLOUT, 0};
      ASSERT_GT(::poll(&polled, 1, kPatience), 0) << text.size() << " bytes were not taken";
      const ssize_t count = ::write(process_.input.get(), text.data(), text.size());
      ASSERT_GT(count, 0);
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  // Writes everything, counts the messages that come back and drops them.
  std::size_t countAnswers(std::string_view text, std::size_t expected) {
    std::size_t count = 0;
    while (count < expected) {
      pollfd polled[] = {{text.empty() ? -1 : process_.input.get(), POLLOUT, 0},
                         {process_.output.get(), POLLIN, 0}};
      if (::poll(polled, 2, kPatience) <= 0) break;
      if (polled[0].revents != 0) {
        const ssize_t written = ::write(process_.input.get(), text.data(), text.size());
        if (written <= 0) break;
        text.remove_prefix(static_cast<std::size_t>(written));
      }
      if (polled[1].revents == 0) continue;
      const std::string bytes = readSome(process_.output.get());
      if (bytes.empty()) break;
      decoder_.append(bytes);
      for (auto message = decoder_.next(); message && *message; message = decoder_.next()) ++count;
    }
    return count;
  }

  // The most memory that it has ever had in use; KiB.
  long peakMemory() const {
    std::ifstream status("/proc/" + std::to_string(process_.id) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("VmHWM:")) return std::stol(line.substr(6));
    }
    return -1;
  }

  void endInput() { process_.input.reset(); }
  void closeOutput() { process_.output.reset(); }

  std::string readMessage() {
    while (true) {
      const auto message = decoder_.next();
      if (!message) return "error: " + message.error().message;
      if (*message) return **message;
      const std::string bytes = readSome(process_.output.get());
      if (bytes.empty()) return "end";
      decoder_.append(bytes);
    }
  }

  std::string readErrors() { return readSome(process_.errors.get()); }

  int exitStatus() {
    const auto status = waitForEnd(process_, std::chrono::milliseconds{kPatience});
    if (!status) return -1;
    return WIFEXITED(*status) ? WEXITSTATUS(*status) : 128 + WTERMSIG(*status);
  }

 private:
  static std::string readSome(int descriptor) {
    pollfd polled{descriptor, POLLIN, 0};
    if (::poll(&polled, 1, kPatience) <= 0) return {};
    char bytes[65536];
    const ssize_t count = ::read(descriptor, bytes, sizeof bytes);
    return count > 0 ? std::string(bytes, static_cast<std::size_t>(count)) : std::string{};
  }

  LaunchedProcess process_;
  widgetruntime::FrameDecoder decoder_{std::size_t{1} << 20};
};

std::string request(int id, const std::string& method, const std::string& parameters) {
  return encodeFrame(R"({"jsonrpc":"2.0","id":)" + std::to_string(id) + R"(,"method":")" + method +
                     R"(","params":)" + parameters + "}");
}

std::string notification(const std::string& method, const std::string& parameters) {
  return encodeFrame(R"({"jsonrpc":"2.0","method":")" + method + R"(","params":)" + parameters +
                     "}");
}

const std::string kInitialize = request(0, "initialize", R"({"protocolVersion":1})");
const std::string kPerform = R"({"intent":"DoIntent"})";

std::string snapshot(int id, const std::string& kind) {
  return request(id,
                 "widget/snapshot",
                 R"({"kind":")" + kind +
                     R"(","family":"systemSmall","now":"2025-03-14T09:30:00Z","timeZone":"UTC",)"
                     R"("locale":"en","languages":[],"environments":[{}]})");
}

TEST(EntryLoop, AnswersInOrderAndEndsWithItsInput) {
  Conversation extension;
  extension.write(kInitialize + request(1, "intent/perform", kPerform) +
                  request(2, "unknown", "null"));
  extension.endInput();
  EXPECT_THAT(extension.readMessage(), HasSubstr(R"("id":0,"result":{"protocolVersion":1,)"));
  EXPECT_EQ(extension.readMessage(), R"({"jsonrpc":"2.0","id":1,"result":{"openApp":true}})");
  EXPECT_THAT(extension.readMessage(), HasSubstr(R"("id":2,"error":{"code":-32601)"));
  EXPECT_EQ(extension.readMessage(), "end");
  EXPECT_EQ(extension.exitStatus(), 0);
}

TEST(EntryLoop, EndsWhenItIsTold) {
  Conversation polite;
  polite.write(kInitialize + request(1, "shutdown", "null") + notification("exit", "null"));
  EXPECT_THAT(polite.readMessage(), HasSubstr("\"result\""));
  EXPECT_EQ(polite.readMessage(), R"({"jsonrpc":"2.0","id":1,"result":null})");
  EXPECT_EQ(polite.exitStatus(), 0);

  Conversation hasty;
  hasty.write(notification("exit", "null"));
  EXPECT_EQ(hasty.exitStatus(), 1);
}

TEST(EntryLoop, EndsWhenNobodyReads) {
  Conversation extension;
  extension.closeOutput();
  extension.write(kInitialize);
  EXPECT_EQ(extension.exitStatus(), 0);
}

TEST(EntryLoop, EndsAfterABrokenFrame) {
  Conversation extension;
  extension.write("Content-Length: -1\r\n\r\n");
  EXPECT_EQ(extension.exitStatus(), 1);
  EXPECT_EQ(extension.readErrors(), "broken frame: Content-Length is no number of bytes\n");
  EXPECT_EQ(extension.readMessage(), "end");
}

TEST(EntryLoop, GoesOnAfterATextThatIsNoJson) {
  Conversation extension;
  extension.write(encodeFrame("{") + kInitialize);
  EXPECT_THAT(extension.readMessage(), HasSubstr(R"("id":null,"error":{"code":-32700)"));
  EXPECT_THAT(extension.readMessage(), HasSubstr(R"("id":0,"result")"));
}

TEST(EntryLoop, AnswersAConversationCutIntoBytes) {
  Conversation extension;
  for (const char c : kInitialize) extension.write({&c, 1});
  EXPECT_THAT(extension.readMessage(), HasSubstr(R"("id":0,"result")"));
}

TEST(EntryLoop, TakesBackARequestThatWaits) {
  Conversation extension;
  // All of it is in the pipe while the first snapshot takes its time.
  extension.write(kInitialize + snapshot(1, "Late") + request(2, "intent/perform", kPerform) +
                  request(3, "intent/perform", kPerform) +
                  notification("$/cancelRequest", R"({"id":2})") +
                  notification("$/cancelRequest", R"({"id":99})"));
  EXPECT_THAT(extension.readMessage(), HasSubstr(R"("id":0,"result")"));
  EXPECT_THAT(extension.readMessage(), HasSubstr(R"("id":1,"result")"));
  EXPECT_EQ(extension.readMessage(),
            R"({"jsonrpc":"2.0","id":2,"error":{"code":-32800,)"
            R"("message":"cancelled before its turn"}})");
  EXPECT_EQ(extension.readMessage(), R"({"jsonrpc":"2.0","id":3,"result":{"openApp":true}})");
}

TEST(EntryLoop, ReadsOnWhileItsAnswersWait) {
  Conversation extension;
  // Ten answers of a megabyte cannot be written while nobody reads, and one and a half megabytes of
  // requests follow them.
  std::string conversation = kInitialize;
  for (int id = 1; id <= 10; ++id) {
    conversation += request(id,
                            "widget/timeline",
                            R"({"kind":"Wide","family":"systemSmall","now":"2025-03-14T09:30:00Z",)"
                            R"("timeZone":"UTC","locale":"en","languages":[],"environments":[{}],)"
                            R"("padding":")" +
                                std::string(150'000, 'p') + "\"}");
  }
  extension.write(conversation);
  EXPECT_THAT(extension.readMessage(), HasSubstr(R"("id":0,"result")"));
  for (int id = 1; id <= 10; ++id) {
    const std::string message = extension.readMessage();
    EXPECT_THAT(message.substr(0, 60), HasSubstr("\"id\":" + std::to_string(id) + ",\"result\""));
    EXPECT_GT(message.size(), 900'000U);
  }
}

#if !defined(__SANITIZE_ADDRESS__)
TEST(EntryLoop, EmptyFramesDoNotFillItsMemory) {
  constexpr std::size_t kFrames = 400'000;
  Conversation extension;
  std::string frames;
  for (std::size_t i = 0; i < kFrames; ++i) frames += "Content-Length: 0\r\n\r\n";
  EXPECT_EQ(extension.countAnswers(frames, kFrames), kFrames);
  EXPECT_GT(extension.peakMemory(), 0);
  EXPECT_LT(extension.peakMemory(), 24 << 10);
}
#endif

TEST(EntryLoop, DoesNotStartWithoutAHost) {
  Conversation withArguments({"--help"});
  EXPECT_THAT(withArguments.readErrors(), testing::StartsWith("usage: "));
  EXPECT_EQ(withArguments.exitStatus(), 2);

  // A terminal as its input.
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_GE(terminal, 0);
  ASSERT_EQ(::grantpt(terminal), 0);
  ASSERT_EQ(::unlockpt(terminal), 0);
  const pid_t id = ::fork();
  if (id == 0) {
    const int input = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY);
    const int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(input, STDIN_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    ::execl(WELLBEHAVED_CHILD, WELLBEHAVED_CHILD, static_cast<char*>(nullptr));
    ::_exit(127);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(id, &status, 0), id);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 2);
  ::close(terminal);
}

}  // namespace
}  // namespace session
