#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "outside/services/SYLocaleInfo.h"

namespace {

TEST(SYLocaleInfo, GroupsDigitsOfEveryIntegerType) {
    EXPECT_EQ(SYLocaleInfo::FormatNumber(0), "0");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(999), "999");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(1000), "1,000");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(123456), "123,456");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(1234567), "1,234,567");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(-1), "-1");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(-999), "-999");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(-1000), "-1,000");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::numeric_limits<std::int32_t>::min()),
              "-2,147,483,648");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::numeric_limits<std::uint32_t>::max()),
              "4,294,967,295");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::uint64_t{1} << 32), "4,294,967,296");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::numeric_limits<std::int64_t>::min()),
              "-9,223,372,036,854,775,808");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::numeric_limits<std::uint64_t>::max()),
              "18,446,744,073,709,551,615");
}

struct TimeCase {
    CTime time;
    const char* date;
    const char* clock;
};

// Tests run with TZ=UTC.
TEST(SYLocaleInfo, FormatsDatesAndTwelveHourTimes) {
    const TimeCase cases[] = {
        {CTime(2024, 1, 2, 0, 5, 7), "1/2/2024", "12:05:07 AM"},
        {CTime(2024, 1, 2, 11, 59, 59), "1/2/2024", "11:59:59 AM"},
        {CTime(2024, 1, 2, 12, 0, 0), "1/2/2024", "12:00:00 PM"},
        {CTime(2024, 12, 31, 13, 0, 0), "12/31/2024", "1:00:00 PM"},
        {CTime(2024, 12, 31, 23, 59, 59), "12/31/2024", "11:59:59 PM"},
        {CTime(1), "1/1/1970", "12:00:01 AM"},
        {CTime(-1), "12/31/1969", "11:59:59 PM"},
        {CTime(std::numeric_limits<std::int32_t>::min()), "12/13/1901", "8:45:52 PM"},
        {CTime(std::numeric_limits<std::int32_t>::max()), "1/19/2038", "3:14:07 AM"},
    };
    for (const TimeCase& c : cases) {
        EXPECT_EQ(SYLocaleInfo::FormatDate(c.time), c.date) << c.time.GetTime();
        EXPECT_EQ(SYLocaleInfo::FormatTime(c.time), c.clock) << c.time.GetTime();
        EXPECT_EQ(SYLocaleInfo::FormatDateAndTime(c.time, 0, 0),
                  std::string(c.date) + " " + c.clock);
    }
}

TEST(SYLocaleInfo, TimeZeroIsNoTime) {
    EXPECT_EQ(SYLocaleInfo::FormatDate(CTime(0)), "");
    EXPECT_EQ(SYLocaleInfo::FormatTime(CTime(0)), "");
    EXPECT_EQ(SYLocaleInfo::FormatDateAndTime(CTime(0), 0, 0), "");
}

} // namespace
