#include <gmock/gmock.h>

#include <set>

#include "Surfaces/Web/WebGate.hpp"

namespace surfaces {
namespace {

constexpr std::string_view kHost = "0123456789ab.localhost:4711";

GateRules rules() {
  return {.host = std::string(kHost), .token = "secret", .publicPaths = {"/", "/board.js"}};
}

/// A question that the page itself would ask.
RequestHead question(std::string target = "/state") {
  return {.method = "GET",
          .target = std::move(target),
          .hosts = {std::string(kHost)},
          .fetchSites = {"same-origin"},
          .authorizations = {"Bearer secret"}};
}

RequestHead change(std::string target = "/move") {
  RequestHead head = question(std::move(target));
  head.method = "POST";
  head.origins = {"http://" + std::string(kHost)};
  head.contentTypes = {"application/json"};
  head.contentLengths = {"2"};
  return head;
}

int statusOf(const RequestHead& head) {
  const auto refusal = refuse(head, rules());
  return refusal ? refusal->status : 200;
}

TEST(WebGate, LetsThePageAskAndChange) {
  EXPECT_EQ(refuse(question(), rules()), std::nullopt);
  EXPECT_EQ(refuse(question("/widget/w1?appearance=dark&now=2025-03-14T09:30:00Z"), rules()),
            std::nullopt);
  EXPECT_EQ(refuse(change(), rules()), std::nullopt);
}

TEST(WebGate, GivesThePageItselfToWhoHasNoToken) {
  RequestHead head = question("/");
  head.authorizations.clear();
  head.fetchSites = {"none"};
  EXPECT_EQ(statusOf(head), 200);
  head.target = "/board.js?x";
  EXPECT_EQ(statusOf(head), 200);
}

TEST(WebGate, RefusesQuestionsWithoutTheToken) {
  RequestHead head = question();
  for (const auto& values :
       std::vector<std::vector<std::string>>{{},
                                             {""},
                                             {"secret"},
                                             {"Bearer "},
                                             {"Bearer secre"},
                                             {"Bearer secrets"},
                                             {"Bearer Secret"},
                                             {"Basic secret"},
                                             {"Bearer secret", "Bearer secret"}}) {
    head.authorizations = values;
    EXPECT_EQ(statusOf(head), 401) << testing::PrintToString(values);
  }
}

TEST(WebGate, RefusesEverythingWhileThereIsNoToken) {
  GateRules empty = rules();
  empty.token.clear();
  RequestHead head = question();
  head.authorizations = {"Bearer "};
  EXPECT_EQ(refuse(head, empty)->status, 401);
}

TEST(WebGate, RefusesOtherNamesOfTheHost) {
  RequestHead head = question("/");
  for (const char* host : {"localhost:4711",
                           "127.0.0.1:4711",
                           "evil.example:4711",
                           "0123456789ab.localhost",
                           "0123456789ab.localhost:4712",
                           "x.0123456789ab.localhost:4711",
                           ""}) {
    head.hosts = {host};
    EXPECT_EQ(statusOf(head), 421) << host;
  }
  head.hosts = {"0123456789AB.LOCALHOST:4711"};  // names of hosts know no case
  EXPECT_EQ(statusOf(head), 200);
}

TEST(WebGate, RefusesNoHostAndTwo) {
  RequestHead head = question("/");
  head.hosts.clear();
  EXPECT_EQ(statusOf(head), 400);
  head.hosts = {std::string(kHost), std::string(kHost)};
  EXPECT_EQ(statusOf(head), 400);
}

TEST(WebGate, RefusesAbsoluteTargets) {
  for (const char* target :
       {"http://0123456789ab.localhost:4711/state", "//evil.example/", "*", "state", ""})
    EXPECT_EQ(statusOf(question(target)), 400) << target;
}

TEST(WebGate, RefusesPathsThatAreNoPlainNames) {
  for (const char* target : {"/../etc/passwd",
                             "/widget/..",
                             "/%2e%2e/etc/passwd",
                             "/widget/w1%00.png",
                             "/a\\b",
                             "/a b",
                             "/a;b"})
    EXPECT_EQ(statusOf(question(target)), 404) << target;
}

TEST(WebGate, RefusesOtherSitesPages) {
  RequestHead head = question("/");
  for (const char* site : {"cross-site", "same-site", "", "something"}) {
    head.fetchSites = {site};
    EXPECT_EQ(statusOf(head), 403) << site;
  }
  head.fetchSites = {"same-origin", "cross-site"};
  EXPECT_EQ(statusOf(head), 403);
  head.fetchSites = {"none"};
  EXPECT_EQ(statusOf(head), 200);
  head.fetchSites.clear();  // programs that are no browsers do not say it
  EXPECT_EQ(statusOf(head), 200);
}

TEST(WebGate, RefusesOtherOrigins) {
  RequestHead head = change();
  for (const char* origin : {"null",
                             "http://evil.example",
                             "http://0123456789ab.localhost:4712",
                             "https://0123456789ab.localhost:4711"}) {
    head.origins = {origin};
    EXPECT_EQ(statusOf(head), 403) << origin;
  }
}

TEST(WebGate, UnderstandsThreeMethods) {
  RequestHead head = question();
  for (const char* method : {"PUT", "DELETE", "OPTIONS", "TRACE", "CONNECT", "get"}) {
    head.method = method;
    EXPECT_EQ(statusOf(head), 405) << method;
  }
  head.method = "HEAD";
  EXPECT_EQ(statusOf(head), 200);
}

TEST(WebGate, RefusesBodiesThatAreNoBoundedJson) {
  RequestHead head = change();
  head.contentTypes = {"application/JSON; charset=utf-8"};
  EXPECT_EQ(statusOf(head), 200);
  for (const char* type : {"text/plain", "application/x-www-form-urlencoded", ""}) {
    head.contentTypes = {type};
    EXPECT_EQ(statusOf(head), 415) << type;
  }
  head = change();
  head.contentTypes.clear();
  EXPECT_EQ(statusOf(head), 415);
}

TEST(WebGate, BoundsTheLength) {
  RequestHead head = change();
  head.contentLengths = {"1048576"};
  EXPECT_EQ(statusOf(head), 200);
  head.contentLengths = {"1048577"};
  EXPECT_EQ(statusOf(head), 413);
  for (const char* length : {"-1", "1e3", "", "99999999999999999999999"}) {
    head.contentLengths = {length};
    EXPECT_EQ(statusOf(head), 400) << length;
  }
  head.contentLengths = {"2", "2"};
  EXPECT_EQ(statusOf(head), 411);
  head.contentLengths.clear();
  EXPECT_EQ(statusOf(head), 411);
  head = change();
  head.isChunked = true;
  EXPECT_EQ(statusOf(head), 411);
}

TEST(WebGate, RefusesQuestionsWithABody) {
  RequestHead head = question();
  head.contentLengths = {"1"};
  EXPECT_EQ(statusOf(head), 400);
  head.contentLengths = {"0"};
  EXPECT_EQ(statusOf(head), 200);
  head.isChunked = true;
  EXPECT_EQ(statusOf(head), 400);
}

TEST(RandomName, HasThirtyTwoDigitsAndDoesNotRepeat) {
  std::set<std::string> names;
  for (int i = 0; i < 100; ++i) {
    const auto name = randomName();
    ASSERT_TRUE(name);
    EXPECT_EQ(name->find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_EQ(name->size(), 32U);
    names.insert(*name);
  }
  EXPECT_EQ(names.size(), 100U);
}

}  // namespace
}  // namespace surfaces
