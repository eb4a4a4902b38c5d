#include <gtest/gtest.h>

#include "Import/Day.hpp"
#include "Import/Dues.hpp"
#include "Import/Journal.hpp"
#include "Import/PostingDate.hpp"

namespace importer {
namespace {

Day day(const char* text) {
  return parseDay(text).value();
}

TEST(Day, ReadsAndWritesDays) {
  EXPECT_EQ(day("1970-01-01").number, 0);
  EXPECT_EQ(day("2026-03-14").number, 20526);
  EXPECT_EQ(text(day("2024-02-29")), "2024-02-29");
  for (const char* wrong : {"2025-02-29", "2025-13-01", "2025-00-10", "2025-1-1", "20250101", ""})
    EXPECT_FALSE(parseDay(wrong)) << wrong;
}

TEST(Day, CountsMonthsAcrossYears) {
  const Month january = monthOf(day("2026-01-31"));
  EXPECT_EQ(text(january - 1), "2025-12");
  EXPECT_EQ(text(january - 13), "2024-12");
  EXPECT_EQ(daysIn(january + 1), 28);
  EXPECT_EQ(text(lastDay(january + 1)), "2026-02-28");
  EXPECT_EQ(text(parseMonth("2026-03-31").value()), "2026-03");
  EXPECT_FALSE(parseMonth("Mar 2026"));
}

TEST(BudgetPeriod, BeginsOnItsDayOrTheOneBefore) {
  const auto period = [](const char* today, int start) {
    const auto [first, last] = budgetPeriod(day(today), start);
    return text(first) + " " + text(last);
  };
  EXPECT_EQ(period("2026-03-14", 1), "2026-03-01 2026-03-31");
  EXPECT_EQ(period("2026-03-24", 25), "2026-02-25 2026-03-24");
  EXPECT_EQ(period("2026-03-25", 25), "2026-03-25 2026-04-24");
  EXPECT_EQ(period("2026-01-03", 28), "2025-12-28 2026-01-27");
}

TEST(NextDueDay, IsTodayOrTheLastDayOfAShortMonth) {
  EXPECT_EQ(text(nextDueDay(day("2026-03-17"), 17)), "2026-03-17");
  EXPECT_EQ(text(nextDueDay(day("2026-03-18"), 17)), "2026-04-17");
  EXPECT_EQ(text(nextDueDay(day("2026-02-10"), 31)), "2026-02-28");
  EXPECT_EQ(text(nextDueDay(day("2026-02-28"), 31)), "2026-02-28");
  EXPECT_EQ(text(nextDueDay(day("2026-12-31"), 30)), "2027-01-30");
}

TEST(PostingDate, ReadsTagsAndBrackets) {
  const Day transaction = day("2026-11-05");
  const auto read = [&](const char* comment) {
    const auto found = postingDate(comment, transaction);
    return found ? text(*found) : "none";
  };
  EXPECT_EQ(read("date:2026-11-06, foo:bar"), "2026-11-06");
  EXPECT_EQ(read("first\ndate: 2026/12/01"), "2026-12-01");
  EXPECT_EQ(read("date:2/7, other:x"), "2026-02-07");
  EXPECT_EQ(read("[2026-11-07]"), "2026-11-07");
  EXPECT_EQ(read("[11/8=11/9]"), "2026-11-08");
  EXPECT_EQ(read(""), "none");
  EXPECT_EQ(read("update:2026-11-06"), "none");
  EXPECT_EQ(read("[see note] date:soon"), "none");
  EXPECT_EQ(read("date:2026-02-30"), "none");
}

}  // namespace
}  // namespace importer
