// The real resident host with the real extension, or with one that misbehaves when it is told to.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "HostProcess.hpp"

namespace resident {

class HostTest : public ::testing::Test {
 protected:
  /// Asks for a reload without a pause until every widget is live.
  bool comesBack() {
    return HostProcess::until([&] {
      host.ask("reload");
      return host.haveAll("live");
    });
  }

  void startLive() {
    host.writeDocument(household());
    host.start();
    ASSERT_TRUE(HostProcess::until([&] { return host.areAll("live"); })) << host.log();
    ASSERT_TRUE(HostProcess::until([&] { return !host.picture("w5").empty(); }));
  }
  void startUnreliable() {
    host.extension = UNRELIABLE_CHILD;
    startLive();
  }
  void behave(const std::string& how) { std::ofstream(host.path("home/behaviour")) << how; }
  /// The picture of the net worth that is drawn of such a document.
  std::string pictureOf(int factor) {
    HostProcess other;
    other.writeDocument(household(factor));
    other.start();
    EXPECT_TRUE(HostProcess::until(
        [&] { return other.areAll("live") && hasKept(other, "w3") && !isHidden(other); }));
    return other.picture("w3");
  }
  static bool hasKept(const HostProcess& host, const std::string& id) {
    return !host.picture(id).empty();
  }
  static bool isHidden(HostProcess& host) {
    return *host.ask("status").member("hidden")->boolean();
  }

  HostProcess host;
};

}  // namespace resident
