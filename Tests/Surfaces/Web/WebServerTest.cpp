// The board's server against clients that speak to its socket: one thread drives both.
#include <gmock/gmock.h>

#include <algorithm>

#include "WebServerFixture.hpp"

namespace surfaces {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

TEST_F(WebServerTest, GivesThePageToEverybodyAndTheRestToTheBearer) {
  start();
  const std::string page = answer("GET / HTTP/1.1\r\nHost: " + host + "\r\n\r\n");
  EXPECT_THAT(page, StartsWith("HTTP/1.1 200"));
  EXPECT_THAT(page, testing::EndsWith("\r\n\r\n<!doctype html>"));
  EXPECT_THAT(answer(head("GET /state?a=b%20c")), testing::EndsWith(R"({"path":"/state"})"));
  EXPECT_EQ(handler.requests.at(0).value("a"), "b c");
}

TEST_F(WebServerTest, SaysInEveryAnswerWhatABrowserMayDoWithIt) {
  start();
  for (const std::string& text : {head("GET /"), head("GET /state"), head("PUT /state")}) {
    const std::string whole = answer(text);
    for (const char* line : {"Content-Security-Policy: default-src 'none'; script-src 'self'; "
                             "style-src 'self'; img-src 'self' data:; connect-src 'self'; "
                             "base-uri 'none'; form-action 'none'; frame-ancestors 'none'\r\n",
                             "Cross-Origin-Resource-Policy: same-origin\r\n",
                             "X-Content-Type-Options: nosniff\r\n",
                             "Cache-Control: no-store\r\n",
                             "Referrer-Policy: no-referrer\r\n"})
      EXPECT_THAT(whole, HasSubstr(line)) << text;
    EXPECT_THAT(whole, Not(HasSubstr("Set-Cookie")));
    EXPECT_THAT(whole, Not(HasSubstr("Access-Control-Allow")));
  }
}

/// The table of attacks in docs/board.md, each as it comes over the wire.
TEST_F(WebServerTest, RefusesWhatNoPageOfItsOwnAsks) {
  start();
  const std::string bearer = "Authorization: Bearer " + token + "\r\n";
  const std::string own = "Host: " + host + "\r\n";
  const std::string body = "Content-Type: application/json\r\nContent-Length: 2\r\n";
  const auto get = [](const std::string& target, const std::string& lines) {
    return "GET " + target + " HTTP/1.1\r\n" + lines + "\r\n";
  };
  const std::string port = std::to_string(server->port());
  const std::pair<std::string, int> attacks[] = {
      {get("/state", "Host: localhost:" + port + "\r\n" + bearer), 421},
      {get("/state", "Host: 127.0.0.1:" + port + "\r\n" + bearer), 421},
      {get("/", "Host: evil.example:" + port + "\r\n"), 421},
      {get("/state", own + own + bearer), 400},
      {get("/state", own + "Host: evil.example\r\n" + bearer), 400},
      {get("/state", bearer), 400},
      {get("http://" + host + "/state", own + bearer), 400},
      {get("http://evil.example/state", own + bearer), 400},
      {get("/state", own), 401},
      {get("/events", own), 401},
      {get("/state", own + "Authorization: Bearer " + std::string(32, '0') + "\r\n"), 401},
      {get("/state?token=" + token, own), 401},
      {get("/state", own + "Cookie: token=" + token + "\r\n"), 401},
      {get("/state", own + bearer + "Sec-Fetch-Site: cross-site\r\n"), 403},
      {get("/", own + "Sec-Fetch-Site: same-site\r\n"), 403},
      {get("/state", own + bearer + "Origin: http://evil.example\r\n"), 403},
      {get("/state", own + bearer + "Origin: null\r\n"), 403},
      {"POST /hide HTTP/1.1\r\n" + own + body + "\r\n{}", 401},
      {"POST /hide HTTP/1.1\r\n" + own + bearer + "Content-Length: 2\r\n\r\n{}", 415},
      {"POST /hide HTTP/1.1\r\n" + own + bearer +
           "Content-Type: text/plain\r\nContent-Length: 2\r\n\r\n{}",
       415},
      {"POST /hide HTTP/1.1\r\n" + own + bearer +
           "Content-Type: application/json\r\nContent-Length: 1048577\r\n\r\n",
       413},
      {"POST /hide HTTP/1.1\r\n" + own + bearer +
           "Content-Type: application/json\r\nTransfer-Encoding: "
           "chunked\r\n\r\n2\r\n{}\r\n0\r\n\r\n",
       411},
      {"PUT /hide HTTP/1.1\r\n" + own + bearer + body + "\r\n{}", 405},
      {"OPTIONS /hide HTTP/1.1\r\n" + own + bearer + "\r\n", 405},
      {get("/../etc/passwd", own + bearer), 404},
      {get("/%2e%2e/etc/passwd", own + bearer), 404},
      {get("/widget/..%2f..%2fetc", own + bearer), 404},
      {get("/widget/w1%00.png", own + bearer), 404},
      {get("//evil.example/", own + bearer), 400},
  };
  for (const auto& [text, expected] : attacks) EXPECT_EQ(status(text), expected) << text;
  EXPECT_THAT(handler.requests, IsEmpty());
}

TEST_F(WebServerTest, RefusesAHeadThatFitsIntoNoConnection) {
  start();
  EXPECT_THAT(status(head("GET /state", "X: " + std::string(100'000, 'x') + "\r\n")),
              testing::AnyOf(0, 413, 431));
  EXPECT_THAT(status(head("GET /" + std::string(100'000, 'x'))), testing::AnyOf(0, 413, 414, 431));
  EXPECT_EQ(status(head("GET /state")), 200);
}

TEST_F(WebServerTest, RefusesWhatIsNoRequest) {
  start({.head = 50ms});
  for (const std::string& text : {std::string("\r\n\r\n\r\n"),
                                  std::string("\x16\x03\x01\x02\x00\x01\x00\x01\xfc\x03\x03", 11),
                                  std::string("GET\r\n\r\n"),
                                  std::string("GET / HTTP/9.9\r\n\r\n")}) {
    Client client = connect();
    send(client, text);
    ::shutdown(client.socket.get(), SHUT_WR);
    EXPECT_TRUE(until([&] {
      client.read();
      return client.isOver;
    }));
    EXPECT_THAT(client.received, Not(HasSubstr(" 200 ")));
  }
  EXPECT_EQ(status(head("GET /state")), 200);
  EXPECT_EQ(handler.requests.size(), 1U);
}

TEST_F(WebServerTest, AnswersWhatTheHandlerAnswersLater) {
  start();
  handler.answersAtOnce = false;
  std::vector<Client> clients;
  for (int i = 0; i < 10; ++i) {
    clients.push_back(connect());
    send(clients.back(), head("GET /widget/w" + std::to_string(i)));
  }
  ASSERT_TRUE(until([&] { return handler.waiting.size() == 10; }));
  // Nothing else happens on any connection: the answers alone wake the server.
  for (const Respond& respond : handler.waiting) respond({.body = "later"});
  for (Client& client : clients) {
    EXPECT_TRUE(until([&] { return hasAnswer(client); }));
    EXPECT_THAT(client.received, testing::EndsWith("later"));
  }
}

TEST_F(WebServerTest, AnswersOnceAndOnlyToWhoIsStillThere) {
  start();
  handler.answersAtOnce = false;
  {
    Client impatient = connect();
    send(impatient, head("GET /widget/w1"));
    ASSERT_TRUE(until([&] { return handler.waiting.size() == 1; }));
  }
  handler.waiting[0]({.body = "first"});
  handler.waiting[0]({.body = "second"});
  handler.answersAtOnce = true;
  EXPECT_EQ(status(head("GET /state")), 200);
  server.reset();
  handler.waiting[0]({.body = "third"});
}

TEST_F(WebServerTest, TakesTheBodyThatTheHeadAnnounces) {
  start();
  EXPECT_EQ(status(post("/hide", R"({"hidden":true})")), 200);
  EXPECT_EQ(handler.requests.at(0).method, "POST");
  EXPECT_EQ(handler.requests.at(0).body, R"({"hidden":true})");
  EXPECT_EQ(status(post("/add", std::string(1 << 20, ' '))), 200);
  EXPECT_EQ(handler.requests.at(1).body.size(), std::size_t{1} << 20);
}

TEST_F(WebServerTest, ClosesConnectionsWhoseHeadIsSlow) {
  start({.head = 50ms});
  Client silent = connect();
  Client slow = connect();
  send(slow, "GET / HTTP/1.1\r\nHost: ");
  EXPECT_TRUE(until([&] {
    silent.read();
    slow.read();
    return silent.isOver && slow.isOver;
  }));
  EXPECT_EQ(silent.received + slow.received, "");
}

TEST_F(WebServerTest, ServesWhoComesAmongSixtyHalfOpenConnections) {
  start();
  std::vector<Client> idle;
  for (int i = 0; i < 60; ++i) {
    idle.push_back(connect());
    send(idle.back(), "GET / HT");
  }
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(status(head("GET /state")), 200);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, WebServer::Limits{}.head);
  const auto open = std::ranges::count_if(idle, [](Client& client) {
    client.read();
    return !client.isOver;
  });
  EXPECT_LE(open, 16);
}

TEST_F(WebServerTest, TellsEveryOpenStream) {
  start();
  Client first = openStream();
  Client second = openStream();
  EXPECT_EQ(server->streams(), 2U);
  server->send("state", R"({"a":1})");
  const std::string event = "event: state\ndata: {\"a\":1}\n\n";
  for (Client* client : {&first, &second}) {
    EXPECT_TRUE(until([&] {
      client->read();
      return client->received.find(event) != std::string::npos;
    }));
  }
  EXPECT_EQ(handler.watches, std::vector<bool>{true});
}

TEST_F(WebServerTest, NoticesThatAPageHasGone) {
  start();
  { const Client page = openStream(); }
  EXPECT_TRUE(until([&] { return server->streams() == 0; }));
  EXPECT_EQ(handler.watches, (std::vector<bool>{true, false}));
}

TEST_F(WebServerTest, KeepsNothingOfTwoHundredPagesThatCameAndWent) {
  start();
  { const Client page = openStream(); }
  ASSERT_TRUE(until([&] { return server->streams() == 0; }));
  const std::size_t before = descriptors();
  for (int i = 0; i < 200; ++i) {
    { const Client page = openStream(); }
    ASSERT_TRUE(until([&] { return server->streams() == 0; }));
  }
  EXPECT_TRUE(until([&] { return descriptors() == before; })) << descriptors() << " " << before;
}

TEST_F(WebServerTest, LosesAPageThatDoesNotRead) {
  start();
  Client page = openStream();
  const std::string much(60'000, 'x');
  // The kernel's buffers take some megabytes before anything waits here.
  EXPECT_TRUE(until([&] {
    for (int i = 0; i < 50; ++i) server->send("widget", much);
    return server->streams() == 0;
  }));
  EXPECT_EQ(status(head("GET /state")), 200);
}

TEST_F(WebServerTest, EndsWithPagesOpenAndQuestionsUnanswered) {
  start();
  handler.answersAtOnce = false;
  Client page = openStream();
  Client asking = connect();
  send(asking, head("GET /widget/w1"));
  Client half = connect();
  send(half, "POST /add HTTP/1.1\r\nHo");
  ASSERT_TRUE(until([&] { return handler.waiting.size() == 1; }));
  server.reset();
  for (Client* client : {&page, &asking, &half}) {
    client->read();
    EXPECT_TRUE(client->isOver);
  }
  EXPECT_THAT(asking.received, StartsWith("HTTP/1.1 503"));
  handler.waiting[0]({.body = "late"});
}

TEST_F(WebServerTest, HasANameAndATokenOfItsOwnEachTime) {
  start();
  const std::string oldHost = host;
  const std::string oldToken = token;
  start();
  EXPECT_NE(host, oldHost);
  EXPECT_NE(token, oldToken);
  EXPECT_EQ(host.substr(12), ".localhost:" + std::to_string(server->port()));
  token = oldToken;
  EXPECT_EQ(status(head("GET /state")), 401);
}

}  // namespace
}  // namespace surfaces
