// Dates to and from the calendar, and patterns.
#include <gtest/gtest.h>

#include <cmath>

#include "support/automation/date.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

TEST(Dates, KnownDays) {
  // Serial numbers as spreadsheets show them.
  EXPECT_EQ(dateFromCivil({.year = 1900, .month = 3, .day = 1}).days, 61);
  EXPECT_EQ(dateFromCivil({.year = 2000, .month = 1, .day = 1, .hour = 18}).days, 36526.75);
  EXPECT_EQ(dateFromCivil({.year = 1899, .month = 12, .day = 29, .hour = 6}).days, -1.25);
  EXPECT_EQ(dateText({-1.25}), "12/29/1899 06:00:00");
  EXPECT_EQ(dateText({2958465}), "12/31/9999");
  EXPECT_EQ(dateText({-657434}), "01/01/0100");
}

TEST(Dates, EverySecondOfADayComesBack) {
  for (int second = 0; second < 86400; second += 7) {
    const CivilTime in{2024, 2, 29, second / 3600, second / 60 % 60, second % 60};
    const CivilTime out = civilTime(dateFromCivil(in));
    ASSERT_EQ(out.hour * 3600 + out.minute * 60 + out.second, second);
    ASSERT_EQ(out.day, 29);
  }
}

TEST(Dates, AFractionThatRoundsToMidnightIsTheNextDay) {
  EXPECT_EQ(DatePattern("MM/dd/yyyy HH:mm:ss").format({45000.999999}), "03/16/2023 00:00:00");
}

TEST(Dates, Patterns) {
  const Date afternoon = dateFromCivil({2026, 11, 5, 15, 4, 9});
  const Date midnight = dateFromCivil({2026, 11, 5, 0, 4, 9});
  EXPECT_EQ(DatePattern("MM/dd/yyyy hh:mm:ss").format(afternoon), "11/05/2026 15:04:09");
  EXPECT_EQ(DatePattern("MM/dd/yyyy HH:mm:ss").format(afternoon), "11/05/2026 15:04:09");
  EXPECT_EQ(DatePattern("d.M.yy h:n:s AM/PM").format(afternoon), "5.11.26 3:4:9 PM");
  EXPECT_EQ(DatePattern("hh AM/PM").format(midnight), "12 AM");
}

TEST(Dates, OutsideTheCalendarIsAnError) {
  for (const double days : {-657435.5, 2958466.0, 1e300, std::nan("")}) {
    EXPECT_THROW(dateText({days}), Error) << days;
  }
}

}  // namespace
}  // namespace vmgv
