// What a process lets others see of itself.
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Foundation/ProcessPrivacy.hpp"

namespace foundation {
namespace {

TEST(ProcessPrivacy, AProcessThatKeepsItsMemoryPrivateIsNotDumpable) {
  const pid_t child = ::fork();
  if (child == 0) {
    const int before = ::prctl(PR_GET_DUMPABLE);
    keepMemoryPrivate();
    ::_exit(before != 0 && ::prctl(PR_GET_DUMPABLE) == 0 ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

}  // namespace
}  // namespace foundation
