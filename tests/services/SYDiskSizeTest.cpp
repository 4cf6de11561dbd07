#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "outside/services/SYDiskSize.h"

namespace {

constexpr std::uint64_t Kb = 1024;
constexpr std::uint64_t Mb = Kb * Kb;
constexpr std::uint64_t Gb = Mb * Kb;
constexpr std::uint64_t Largest = std::numeric_limits<std::uint64_t>::max();

struct SizeCase {
    std::uint64_t bytes;
    const char* text;
};

TEST(SYDiskSize, AutoStringPicksTheUnitAfterRounding) {
    const SizeCase cases[] = {
        {0, "0 bytes"},
        {1, "1 byte"},
        {1023, "1,023 bytes"},
        {Kb, "1 Kb"},
        {Kb + 511, "1 Kb"},
        {Kb + 512, "2 Kb"},
        {888 * Kb, "888 Kb"},
        {Mb - 513, "1,023 Kb"},
        {Mb - 512, "1.0 Mb"}, // would show as 1,024 Kb
        {Mb, "1.0 Mb"},
        {Mb + Mb / 2, "1.5 Mb"},
        {1101004, "1.0 Mb"}, // 1.05 Mb is 1,101,004.8 bytes
        {1101005, "1.1 Mb"},
        {Gb - 1, "1.0 Gb"},
        {4 * Gb, "4.0 Gb"},
        {5000000000, "4.7 Gb"},
        {2048 * Gb, "2,048.0 Gb"},
        {Largest, "17,179,869,184.0 Gb"},
    };
    for (const SizeCase& c : cases)
        EXPECT_EQ(SYDiskSize::MakeAutoString(c.bytes), c.text) << c.bytes;
}

TEST(SYDiskSize, BytesStringKeepsEverySixtyFourBitDigit) {
    const SizeCase cases[] = {
        {0, "0 bytes"},
        {1, "1 byte"},
        {999, "999 bytes"},
        {1000, "1,000 bytes"},
        {0xFFFFFFFFu, "4,294,967,295 bytes"},
        {4 * Gb, "4,294,967,296 bytes"},
        {Largest, "18,446,744,073,709,551,615 bytes"},
    };
    for (const SizeCase& c : cases)
        EXPECT_EQ(SYDiskSize::MakeBytesString(c.bytes), c.text) << c.bytes;
}

} // namespace
