// The board's server as part of the real host: what a page is told while things go wrong around it.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <csignal>
#include <filesystem>

#include "HostFixture.hpp"

namespace resident {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

class BoardPageTest : public HostTest {
 protected:
  void openBoard() {
    startLive();
    const auto result = host.ask("board");
    ASSERT_NE(result.member("url"), nullptr);
    const std::string url = result.textOf("url");
    const auto end = url.find("/#");
    name_ = url.substr(7, end - 7);
    token_ = url.substr(end + 2);
  }

  [[nodiscard]] foundation::FileDescriptor request(const std::string& line,
                                                   const std::string& body = {}) const {
    foundation::FileDescriptor socket{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port =
        htons(static_cast<std::uint16_t>(std::stoi(name_.substr(name_.find(':') + 1))));
    EXPECT_EQ(::connect(socket.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    std::string text = line + " HTTP/1.1\r\nHost: " + name_ + "\r\nAuthorization: Bearer " +
                       token_ + "\r\nConnection: close\r\n";
    if (!body.empty()) {
      text += "Content-Type: application/json\r\nContent-Length: " + std::to_string(body.size()) +
              "\r\n";
    }
    text += "\r\n" + body;
    EXPECT_EQ(::send(socket.get(), text.data(), text.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(text.size()));
    timeval longest{.tv_sec = 30};
    ::setsockopt(socket.get(), SOL_SOCKET, SO_RCVTIMEO, &longest, sizeof longest);
    return socket;
  }

  /// Until it has that text, or to its end.
  static std::string read(const foundation::FileDescriptor& socket, std::string_view until = {}) {
    std::string all;
    char bytes[16384];
    for (ssize_t count = 1; count > 0;) {
      if (!until.empty() && all.find(until) != std::string::npos) break;
      count = ::recv(socket.get(), bytes, sizeof bytes, 0);
      if (count > 0) all.append(bytes, static_cast<std::size_t>(count));
    }
    return all;
  }

  [[nodiscard]] std::string get(const std::string& path) const {
    return read(request("GET " + path));
  }
  [[nodiscard]] std::string post(const std::string& path, const std::string& body) const {
    return read(request("POST " + path, body));
  }

  [[nodiscard]] bool showsNoAmount() const {
    return HostProcess::until([&] { return get("/widget/w3").find(kAmount) == std::string::npos; });
  }

  static constexpr const char* kAmount = "97,260";  ///< the household's net worth

 private:
  std::string name_;
  std::string token_;
};

TEST_F(BoardPageTest, ShowsWhatIsPlacedAndTellsOfChanges) {
  openBoard();
  EXPECT_THAT(get("/state"), HasSubstr(R"("id":"w5")"));
  EXPECT_THAT(get("/widget/w3"), HasSubstr(kAmount));
  const auto events = request("GET /events");
  EXPECT_THAT(read(events, ":\n\n"), HasSubstr("200 OK"));
  host.writeDocument(household(2));
  EXPECT_THAT(read(events, R"("id":"w3")"), HasSubstr("event: widget\ndata: {\"id\":\"w"));
  EXPECT_TRUE(showsNoAmount());
}

TEST_F(BoardPageTest, TellsOfAMoveOnce) {
  openBoard();
  const auto events = request("GET /events");
  read(events, ":\n\n");
  EXPECT_THAT(
      post("/move", R"({"cells":[{"id":"w1","column":7,"row":1},{"id":"w2","column":8,"row":2}]})"),
      HasSubstr("200 OK"));
  EXPECT_THAT(post("/hide", R"({"hidden":true})"), HasSubstr("200 OK"));
  const std::string told = read(events, R"("hidden":true)");
  const auto first = told.find("event: state");
  ASSERT_NE(first, std::string::npos);
  const std::string state = told.substr(first, told.find("\n\n", first) - first);
  EXPECT_THAT(state, HasSubstr(R"("column":7,"row":1)"));
  EXPECT_THAT(state, HasSubstr(R"("column":8,"row":2)"));
}

TEST_F(BoardPageTest, SendsNoAmountThatIsHidden) {
  openBoard();
  EXPECT_THAT(post("/hide", R"({"hidden":true})"), HasSubstr("200 OK"));
  for (const char* path : {"/widget/w3",
                           "/widget/w3?privacy=off",
                           "/widget/w3?privacy=off&mode=vibrant",
                           "/widget/w3?privacy=off&now=2025-03-14T09:30:00Z",
                           "/widget/w3.svg",
                           "/preview?kind=QuorvelNetWorthWidget&family=systemLarge"}) {
    const std::string answer = get(path);
    EXPECT_THAT(answer, HasSubstr("200 OK")) << path;
    EXPECT_THAT(answer, Not(HasSubstr(kAmount))) << path;
  }
  EXPECT_THAT(post("/hide", R"({"hidden":false})"), HasSubstr("200 OK"));
  EXPECT_THAT(get("/widget/w3"), HasSubstr(kAmount));
}

TEST_F(BoardPageTest, StaysOpenWhileTheExtensionDies) {
  openBoard();
  const auto events = request("GET /events");
  read(events, ":\n\n");
  ::kill(host.extensionId(), SIGKILL);
  host.writeDocument(household(2));
  EXPECT_THAT(read(events, R"("id":"w3")"), HasSubstr("event: widget"));
  ASSERT_TRUE(HostProcess::until([&] { return host.areAll("live"); }));
  EXPECT_THAT(get("/widget/w3"), HasSubstr(R"("state":"live")"));
}

TEST_F(BoardPageTest, StaysOpenWhileTheContainerVanishes) {
  openBoard();
  const auto events = request("GET /events");
  read(events, ":\n\n");
  fs::remove_all(host.path("container"));
  EXPECT_TRUE(showsNoAmount());
  fs::create_directory(host.path("container"));
  host.writeDocument(household());
  EXPECT_TRUE(
      HostProcess::until([&] { return get("/widget/w3").find(kAmount) != std::string::npos; }));
}

TEST_F(BoardPageTest, EndsAtOnceWithPagesOpen) {
  openBoard();
  const auto events = request("GET /events");
  read(events, ":\n\n");
  const auto asking = request("GET /widget/w3?mode=vibrant");
  EXPECT_EQ(host.stop(), 0);
  EXPECT_THAT(read(asking), Not(HasSubstr(kAmount)));  // answered or not
  read(events);                                        // to its end
}

TEST_F(BoardPageTest, FollowsOnlyLinksThatItShows) {
  openBoard();
  EXPECT_THAT(post("/open", R"({"id":"w3"})"), HasSubstr("The widget shows no such link."));
  EXPECT_THAT(get("/widget/w3"), HasSubstr(R"("link":"quorvel-widget://)"));
  EXPECT_THAT(post("/open", R"({"id":"w3","region":4000})"), HasSubstr("shows no such link"));
  EXPECT_THAT(post("/open", R"({"id":"w99"})"), HasSubstr("shows no such link"));
}

TEST_F(BoardPageTest, SaysWhatDoesNotExist) {
  openBoard();
  EXPECT_THAT(get("/widget/w99"), HasSubstr("There is no such widget any more."));
  EXPECT_THAT(post("/remove", R"({"id":"w99"})"), HasSubstr("nothing is placed as"));
  EXPECT_THAT(post("/add", R"({"kind":"other","family":"systemSmall"})"),
              HasSubstr("there is no widget"));
  EXPECT_THAT(get("/preview?kind=other&family=systemSmall"), HasSubstr(R"("state":"failed")"));
}

}  // namespace
}  // namespace resident
