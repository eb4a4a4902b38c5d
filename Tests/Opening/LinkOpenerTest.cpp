// Handing links over, with programs of the test's own on the search path.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>

#include <cstdlib>

#include "Opening/LinkOpener.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace opening {
namespace {

using ::testing::HasSubstr;
using testsupport::contentsOf;

class LinkOpenerTest : public ::testing::Test {
 protected:
  LinkOpenerTest() : before(::getenv("PATH")) {
    ::setenv("PATH", (folder.path().string() + ":/usr/bin:/bin").c_str(), 1);
  }
  ~LinkOpenerTest() override { ::setenv("PATH", before.c_str(), 1); }

  void program(const std::string& name, const std::string& script) {
    ::chmod(folder.write(name, "#!/bin/sh\n" + script + "\n").c_str(), 0755);
  }
  static Opened finish(LinkOpener& opener) {
    for (;;) {
      if (auto opened = opener.proceed()) return *opened;
      pollfd polled{opener.descriptor(), POLLIN, 0};
      if (::poll(&polled, 1, 20'000) <= 0) return std::unexpected("it never ends");
    }
  }
  static Opened open(const std::string& link, const std::string& program = {}) {
    LinkOpener opener{link, program};
    return finish(opener);
  }

  testsupport::TemporaryFolder folder;
  std::string before;
};

TEST_F(LinkOpenerTest, HandsTheLinkToTheDesktop) {
  program("xdg-mime", "echo app.desktop");
  program("xdg-open", "echo \"$1\" >" + folder.at("opened"));
  EXPECT_TRUE(open("quorvel-widget://open/bills"));
  EXPECT_EQ(contentsOf(folder.at("opened")), "quorvel-widget://open/bills\n");
}

TEST_F(LinkOpenerTest, SaysThatNothingIsRegistered) {
  program("xdg-mime", "true");
  program("xdg-open", "touch " + folder.at("opened"));
  const auto opened = open("quorvel-widget://open/bills");
  ASSERT_FALSE(opened);
  EXPECT_THAT(opened.error(), HasSubstr("no application is registered for quorvel-widget links"));
  EXPECT_EQ(contentsOf(folder.at("opened")), "");
  EXPECT_FALSE(std::filesystem::exists(folder.at("opened")));
}

TEST_F(LinkOpenerTest, TriesWhereNobodyCanTell) {
  program("xdg-mime", "exit 4");
  program("xdg-open", "exit 0");
  EXPECT_TRUE(open("x://y"));
}

TEST_F(LinkOpenerTest, SaysHowItFailed) {
  const auto opened = open("x://y", "false");
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error(), "false could not open x://y (status 1)");
}

TEST_F(LinkOpenerTest, SaysWhatIsMissing) {
  const auto opened = open("x://y", "no-such-program");
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error(),
            "cannot run no-such-program: No such file or directory, so x://y was not opened");
}

TEST_F(LinkOpenerTest, PutsWordsBeforeTheLink) {
  program("show", "echo \"$@\" >" + folder.at("opened"));
  EXPECT_TRUE(open("x://y", "show  --now"));
  EXPECT_EQ(contentsOf(folder.at("opened")), "--now x://y\n");
}

TEST_F(LinkOpenerTest, DoesNotWaitForTheProgram) {
  program("stay", "exec sleep 2");
  LinkOpener opener{"x://y", "stay"};
  EXPECT_EQ(opener.proceed(), std::nullopt);
  EXPECT_TRUE(opener.isHandedOver());
}

TEST_F(LinkOpenerTest, DoesNotWaitForAnAnswerToItsQuestion) {
  program("xdg-mime", "exec sleep 1000");
  LinkOpener opener{"x://y", {}};
  EXPECT_EQ(opener.proceed(), std::nullopt);
  EXPECT_FALSE(opener.isHandedOver());
}

TEST(ApplicationLink, TakesOnlySchemes) {
  EXPECT_EQ(applicationLink("quorvel-widget"), "quorvel-widget://");
  EXPECT_FALSE(applicationLink(""));
  EXPECT_FALSE(applicationLink("1st"));
  EXPECT_FALSE(applicationLink("a b"));
  EXPECT_FALSE(applicationLink("a\nb"));
}

}  // namespace
}  // namespace opening
