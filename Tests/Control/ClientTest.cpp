// The client against a host whose every line is written here.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Control/Client.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace control {
namespace {

using foundation::FileDescriptor;

class ControlClient : public ::testing::Test {
 protected:
  ControlClient() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder_.at("control");
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const auto* name = reinterpret_cast<const sockaddr*>(&address);
    const FileDescriptor listener{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    if (::bind(listener.get(), name, sizeof address) != 0 || ::listen(listener.get(), 1) != 0) {
      throw std::runtime_error("no socket at " + path);
    }
    auto connected = Client::connect(path);
    if (!connected) throw std::runtime_error(connected.error().line);
    client = *std::move(connected);
    host_ = FileDescriptor{::accept4(listener.get(), nullptr, nullptr, SOCK_CLOEXEC)};
  }

  /// They wait in the socket until the client reads; its first request has the number 1.
  void say(std::initializer_list<std::string_view> lines) const {
    std::string bytes;
    for (const std::string_view line : lines) bytes.append(line) += '\n';
    EXPECT_EQ(::send(host_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(bytes.size()));
  }

  std::optional<Client> client;

 private:
  testsupport::TemporaryFolder folder_;
  FileDescriptor host_;
};

TEST_F(ControlClient, TakesTheFirstAnswerToItsOwnRequest) {
  say({R"({"jsonrpc":"2.0","method":"summary","params":{"a":"notified"}})",
       R"({"jsonrpc":"2.0","id":7,"result":{"a":"another's"}})",
       R"({"jsonrpc":"2.0","id":"1","result":{"a":"a text's"}})",
       R"({"jsonrpc":"2.0","id":1,"result":{"a":"mine"}})",
       R"({"jsonrpc":"2.0","id":1,"result":{"a":"mine again"}})",
       R"({"jsonrpc":"2.0","id":2,"result":{"a":"next"}})"});
  for (const char* expected : {"mine", "next"}) {
    const auto result = client->call("status", "{}");
    ASSERT_TRUE(result) << result.error().line;
    EXPECT_EQ(result->textOf("a"), expected);
  }
}

TEST_F(ControlClient, MessageOutlivesWhatCameAfterIt) {
  say({R"({"jsonrpc":"2.0","method":"summary","params":{"kind":"first of all"}})",
       R"({"jsonrpc":"2.0","id":9,"result":["second of all"]})"});
  const auto first = client->next();
  const auto second = client->next();
  client.reset();
  ASSERT_TRUE(first && *first && second && *second);
  EXPECT_EQ((*first)->method, "summary");
  EXPECT_EQ((*first)->content.textOf("kind"), "first of all");
  EXPECT_EQ((*second)->id, 9);
  EXPECT_EQ(*(*second)->content.array()->front().string(), "second of all");
}

TEST_F(ControlClient, ErrorThatDoesNotSayWhyIsAnError) {
  say({R"({"jsonrpc":"2.0","id":1,"error":{"code":1,"message":""}})"});
  const auto result = client->call("hide", "{}");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().line, "the resident host refuses and does not say why");
}

TEST_F(ControlClient, RefusesAHostThatSpeaksOtherwise) {
  say({"hello"});
  const auto result = client->call("status", "{}");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().line, "it is no resident host that answers");
}

}  // namespace
}  // namespace control
