// The control socket against clients that are good, clumsy and hostile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <optional>
#include <vector>

#include "Resident/ControlServer.hpp"
#include "Resident/Listening.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace resident {
namespace {

using namespace std::chrono_literals;
using foundation::FileDescriptor;
using foundation::JsonValue;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr auto kLongest = 10s;

class ControlServerTest : public ::testing::Test {
 protected:
  ControlServerTest() { start(::getuid()); }

  void start(std::uint32_t owner) {
    auto listening = listenAt({.runtime = folder.at("run"), .config = {}, .state = {}});
    if (!listening) throw std::runtime_error(listening.error());
    lock = std::move(listening->lock);
    server.emplace(loop,
                   std::move(listening->listener),
                   owner,
                   [this](auto client, const auto& method, const auto&, auto reply) {
                     asked.push_back(method);
                     latest = client;
                     if (method == "later") {
                       held = std::move(reply);
                     } else if (method == "large") {
                       reply("\"" + std::string(400'000, 'x') + "\"");
                     } else {
                       reply("\"" + method + "\"");
                     }
                   });
    server->onGone = [this](auto) { ++gone; };
  }

  FileDescriptor connect() {
    FileDescriptor socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    folder.at("run/control").copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(::connect(socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    return socket;
  }

  static void send(const FileDescriptor& socket, std::string_view text) {
    EXPECT_EQ(::send(socket.get(), text.data(), text.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(text.size()));
  }

  /// The next line; nothing at the end of the conversation.
  std::optional<std::string> receive(const FileDescriptor& socket) {
    std::string line;
    const auto until = std::chrono::steady_clock::now() + kLongest;
    while (std::chrono::steady_clock::now() < until) {
      char c = 0;
      const ssize_t count = ::recv(socket.get(), &c, 1, MSG_DONTWAIT);
      if (count == 0) return std::nullopt;
      if (count < 0 && errno == ECONNRESET) return std::nullopt;
      if (count < 0) {
        loop.step(100ms);
      } else if (c == '\n') {
        return line;
      } else {
        line += c;
      }
    }
    ADD_FAILURE() << "nothing came";
    return std::nullopt;
  }

  static std::string request(const std::string& method) {
    return R"({"jsonrpc":"2.0","id":1,"method":")" + method + "\"}\n";
  }

  testsupport::TemporaryFolder folder;
  Loop loop;
  FileDescriptor lock{-1};
  std::vector<std::string> asked;
  ControlServer::Client latest = 0;
  ControlServer::Reply held;
  int gone = 0;
  std::optional<ControlServer> server;
};

TEST_F(ControlServerTest, AnswersEachLine) {
  const auto client = connect();
  send(client, request("one") + request("two"));
  EXPECT_EQ(receive(client), R"({"jsonrpc":"2.0","id":1,"result":"one"})");
  EXPECT_EQ(receive(client), R"({"jsonrpc":"2.0","id":1,"result":"two"})");
}

TEST_F(ControlServerTest, AnswersLaterWhatTakesTime) {
  const auto client = connect();
  send(client, request("later") + request("now"));
  EXPECT_THAT(*receive(client), HasSubstr("\"now\""));
  held("true");
  EXPECT_THAT(*receive(client), HasSubstr("true"));
}

TEST_F(ControlServerTest, AnswersNobodyWhoHasGone) {
  {
    const auto client = connect();
    send(client, request("later"));
    while (asked.empty()) loop.step(kLongest);
  }
  while (gone == 0) loop.step(kLongest);
  held("true");
  EXPECT_EQ(server->clients(), 0U);
}

TEST_F(ControlServerTest, AnswersNobodyAfterItsOwnEnd) {
  const auto client = connect();
  send(client, request("later"));
  while (asked.empty()) loop.step(kLongest);
  server.reset();
  held("true");
  EXPECT_EQ(receive(client), std::nullopt);
}

TEST_F(ControlServerTest, TellsTheClientThatListens) {
  const auto client = connect();
  send(client, request("one"));
  receive(client);
  server->notify(latest, "summary", R"({"text":"x"})");
  EXPECT_EQ(receive(client), R"({"jsonrpc":"2.0","method":"summary","params":{"text":"x"}})");
}

TEST_F(ControlServerTest, SaysWhatIsNoRequestAndGoesOn) {
  const auto client = connect();
  send(client, "garbage\n{}\n\xff\xfe\n[1]\n" + request("one"));
  for (int i = 0; i < 4; ++i) EXPECT_THAT(*receive(client), HasSubstr("\"error\""));
  EXPECT_THAT(*receive(client), HasSubstr("\"one\""));
  EXPECT_THAT(asked, SizeIs(1));
}

TEST_F(ControlServerTest, LetsGoWhoSendsALineTooLong) {
  const auto client = connect();
  const std::string flood(control::kMaximumLine + 1, 'x');
  send(client, flood);
  EXPECT_THAT(*receive(client), HasSubstr("65536"));
  EXPECT_EQ(receive(client), std::nullopt);
  EXPECT_THAT(asked, IsEmpty());
}

TEST_F(ControlServerTest, TakesALineOfTheGreatestLength) {
  const auto client = connect();
  std::string line = R"({"jsonrpc":"2.0","id":1,"method":"one","params":{"x":"")";
  line.pop_back();
  line += std::string(control::kMaximumLine - line.size() - 3, 'x') + "\"}}";
  ASSERT_EQ(line.size(), control::kMaximumLine);
  send(client, line + "\n");
  EXPECT_THAT(*receive(client), HasSubstr("\"one\""));
}

TEST_F(ControlServerTest, LetsGoWhoSendsHalfALine) {
  const auto client = connect();
  send(client, R"({"jsonrpc":)");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(receive(client), std::nullopt);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, 900ms);
}

TEST_F(ControlServerTest, TakesALineInPieces) {
  const auto client = connect();
  const std::string line = request("one");
  for (const char c : line) {
    send(client, {&c, 1});
    loop.step(0ms);
  }
  EXPECT_THAT(*receive(client), HasSubstr("\"one\""));
}

TEST_F(ControlServerTest, ServesSixtyFourOfTwoHundred) {
  std::vector<FileDescriptor> clients;
  for (int i = 0; i < 200; ++i) {
    clients.push_back(connect());
    loop.step(0ms);
  }
  while (loop.step(0ms)) {
  }
  EXPECT_EQ(server->clients(), ControlServer::kMaximumClients);
  send(clients.front(), request("one"));
  EXPECT_THAT(*receive(clients.front()), HasSubstr("\"one\""));
  EXPECT_EQ(receive(clients.back()), std::nullopt);
  clients.clear();
  while (server->clients() > 0) loop.step(kLongest);
  const auto next = connect();
  send(next, request("two"));
  EXPECT_THAT(*receive(next), HasSubstr("\"two\""));
}

TEST_F(ControlServerTest, LetsGoWhoDoesNotRead) {
  const auto client = connect();
  for (int i = 0; i < 3 && gone == 0; ++i) {
    send(client, request("large"));
    loop.step(kLongest);
  }
  while (gone == 0) loop.step(kLongest);
  EXPECT_EQ(server->clients(), 0U);
}

TEST_F(ControlServerTest, AnswersInPiecesWhoReadsSlowly) {
  const auto client = connect();
  server->onGone = {};
  send(client, request("one"));
  receive(client);
  const std::string half(100'000, 'y');
  server->notify(latest, "a", "\"" + half + "\"");
  server->notify(latest, "b", "\"" + half + "\"");
  EXPECT_THAT(*receive(client), SizeIs(::testing::Gt(half.size())));
  EXPECT_THAT(*receive(client), SizeIs(::testing::Gt(half.size())));
}

TEST_F(ControlServerTest, RefusesAnotherUser) {
  server.reset();
  lock.reset();
  start(::getuid() + 1);
  const auto client = connect();
  EXPECT_EQ(receive(client), std::nullopt);
  EXPECT_EQ(server->clients(), 0U);
}

TEST_F(ControlServerTest, RefusesAForeignUserWhoReachesTheSocket) {
  if (::getuid() != 0) GTEST_SKIP() << "only root may become another user";
  for (const char* way : {"", "run", "run/control"}) ::chmod(folder.at(way).c_str(), 0777);
  const pid_t stranger = ::fork();
  if (stranger == 0) {
    char byte = 0;
    const bool isStranger = ::setuid(65'534) == 0;
    const FileDescriptor socket = connect();
    ::_exit(isStranger && ::send(socket.get(), "{}\n", 3, MSG_NOSIGNAL) != 0 &&
                    ::recv(socket.get(), &byte, 1, 0) <= 0
                ? 0
                : 1);
  }
  int status = -1;
  while (::waitpid(stranger, &status, WNOHANG) == 0) loop.step(10ms);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(server->clients(), 0U);
}

TEST(Listening, AllowsOneHost) {
  const testsupport::TemporaryFolder folder;
  const control::Paths paths{.runtime = folder.at("run"), .config = {}, .state = {}};
  const auto first = listenAt(paths);
  ASSERT_TRUE(first);
  const auto second = listenAt(paths);
  ASSERT_FALSE(second);
  EXPECT_THAT(second.error(), HasSubstr("runs already"));
}

TEST(Listening, TakesThePlaceOfAHostThatWasKilled) {
  const testsupport::TemporaryFolder folder;
  const control::Paths paths{.runtime = folder.at("run"), .config = {}, .state = {}};
  ASSERT_TRUE(listenAt(paths));
  EXPECT_TRUE(listenAt(paths));
}

TEST(Listening, LeavesTheSocketOfAnother) {
  const testsupport::TemporaryFolder folder;
  const control::Paths paths{.runtime = folder.at("run"), .config = {}, .state = {}};
  auto other = listenAt(paths);
  ASSERT_TRUE(other);
  other->lock.reset();
  const auto refused = listenAt(paths);
  ASSERT_FALSE(refused);
  EXPECT_THAT(refused.error(), HasSubstr("systemctl --user start quorvel-hostd"));
}

TEST(Listening, SaysThatASocketsNameIsTooLong) {
  const testsupport::TemporaryFolder folder;
  const auto refused =
      listenAt({.runtime = folder.at(std::string(120, 'x')), .config = {}, .state = {}});
  ASSERT_FALSE(refused);
  EXPECT_THAT(refused.error(), HasSubstr("longer than"));
}

}  // namespace
}  // namespace resident
