#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "outside/services/SYLocaleInfo.h"

namespace {

TEST(SYLocaleInfo, GroupsDigitsOfEveryIntegerType) {
    EXPECT_EQ(SYLocaleInfo::FormatNumber(0), "0");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(1234567), "1,234,567");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(-999), "-999");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(-1000), "-1,000");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::numeric_limits<std::int32_t>::min()),
              "-2,147,483,648");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::uint64_t{1} << 32), "4,294,967,296");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::numeric_limits<std::int64_t>::min()),
              "-9,223,372,036,854,775,808");
    EXPECT_EQ(SYLocaleInfo::FormatNumber(std::numeric_limits<std::uint64_t>::max()),
              "18,446,744,073,709,551,615");
}

// Tests run with TZ=UTC.
TEST(SYLocaleInfo, FormatsDatesAndTwelveHourTimes) {
    const struct {
        CTime time;
        const char* date;
        const char* clock;
    } cases[] = {
        {CTime(2024, 1, 2, 0, 5, 7), "1/2/2024", "12:05:07 AM"},
        {CTime(2024, 1, 2, 12, 0, 0), "1/2/2024", "12:00:00 PM"},
        {CTime(2024, 12, 31, 13, 0, 0), "12/31/2024", "1:00:00 PM"},
        {CTime(1), "1/1/1970", "12:00:01 AM"},
        {CTime(-1), "12/31/1969", "11:59:59 PM"},
        {CTime(std::numeric_limits<std::int32_t>::min()), "12/13/1901", "8:45:52 PM"},
        {CTime(0), "", ""}, // time 0 is no time
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.time.GetTime());
        EXPECT_EQ(SYLocaleInfo::FormatDate(c.time), c.date);
        EXPECT_EQ(SYLocaleInfo::FormatTime(c.time), c.clock);
        EXPECT_EQ(SYLocaleInfo::FormatDateAndTime(c.time, 0, 0),
                  *c.date == '\0' ? "" : std::string(c.date) + " " + c.clock);
    }
}

} // namespace
