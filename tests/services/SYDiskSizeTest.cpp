#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "outside/services/SYDiskSize.h"

namespace {

constexpr std::uint64_t Kb = 1024;
constexpr std::uint64_t Mb = Kb * Kb;
constexpr std::uint64_t Gb = Mb * Kb;
constexpr std::uint64_t Largest = std::numeric_limits<std::uint64_t>::max();

TEST(SYDiskSize, PicksTheUnitAfterRoundingAndKeepsEveryDigitInBytes) {
    const struct {
        std::uint64_t bytes;
        const char* autoText;
        const char* bytesText;
    } cases[] = {
        {0, "0 bytes", "0 bytes"},
        {1, "1 byte", "1 byte"},
        {1023, "1,023 bytes", "1,023 bytes"},
        {Kb, "1 Kb", "1,024 bytes"},
        {Kb + 512, "2 Kb", "1,536 bytes"},
        {Mb - 513, "1,023 Kb", "1,048,063 bytes"},
        {Mb - 512, "1.0 Mb", "1,048,064 bytes"}, // would show as 1,024 Kb
        {1101004, "1.0 Mb", "1,101,004 bytes"},  // 1.05 Mb is 1,101,004.8 bytes
        {1101005, "1.1 Mb", "1,101,005 bytes"},
        {4 * Gb, "4.0 Gb", "4,294,967,296 bytes"},
        {5000000000, "4.7 Gb", "5,000,000,000 bytes"},
        {Largest, "17,179,869,184.0 Gb", "18,446,744,073,709,551,615 bytes"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        EXPECT_EQ(SYDiskSize::MakeAutoString(c.bytes), c.autoText);
        EXPECT_EQ(SYDiskSize::MakeBytesString(c.bytes), c.bytesText);
    }
}

} // namespace
