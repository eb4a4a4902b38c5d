// Messages as hledger 1.25 prints them, and as later versions do.
#include <gtest/gtest.h>

#include "Import/HledgerErrors.hpp"

namespace importer {
namespace {

TEST(HledgerErrors, NameTheirPlace) {
  EXPECT_EQ(errorPlace("hledger: \"/home/me/a b.journal\" (lines 12-14)\ncould not balance"),
            "/home/me/a b.journal:12");
  EXPECT_EQ(errorPlace("hledger: balance assertion: \"/j\" (line 2, column 9)\n"), "/j:2:9");
  EXPECT_EQ(errorPlace("hledger: /j:4:1:\n  |\n4 | 2026-13-01"), "/j:4:1");
  EXPECT_EQ(errorPlace("hledger: Error: /j:4-6:\n4 | x\nThis transaction is unbalanced."),
            "/j:4-6");
  EXPECT_EQ(errorPlace("hledger: /j: hGetContents: invalid argument"), "/j");
  EXPECT_EQ(errorPlace("hledger: Unknown flag: --x"), "");
  EXPECT_EQ(errorPlace(""), "");
}

TEST(HledgerErrors, HaveReasonsInOurOwnWords) {
  EXPECT_EQ(errorReason("could not balance this transaction:\n  $5"), "an entry does not balance");
  EXPECT_EQ(errorReason("This transaction is unbalanced."), "an entry does not balance");
  EXPECT_EQ(errorReason("Balance assertion failed in a"), "a balance assertion fails");
  EXPECT_EQ(errorReason("something new"), "hledger refuses it");
}

}  // namespace
}  // namespace importer
