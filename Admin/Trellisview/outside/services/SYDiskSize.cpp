#include "outside/services/SYDiskSize.h"

#include <iterator>

#include "outside/services/SYLocaleInfo.h"

namespace {

struct Unit {
    int shift; // the unit is 2^shift bytes
    bool decimal;
    const char* name;
};

constexpr Unit units[] = {{10, false, "Kb"}, {20, true, "Mb"}, {30, true, "Gb"}};

// The size in the steps the unit shows: whole units, or tenths for a unit with a decimal.
// Rounds half up, without overflowing for any 64-bit size.
std::uint64_t stepsOf(std::uint64_t bytes, const Unit& unit) {
    const std::uint64_t scale = unit.decimal ? 10 : 1;
    const std::uint64_t whole = bytes >> unit.shift;
    const std::uint64_t rest = bytes & ((std::uint64_t{1} << unit.shift) - 1);
    const std::uint64_t half = std::uint64_t{1} << (unit.shift - 1);
    return whole * scale + ((rest * scale + half) >> unit.shift);
}

std::string formatIn(std::uint64_t bytes, const Unit& unit) {
    const std::uint64_t steps = stepsOf(bytes, unit);
    if (!unit.decimal)
        return SYLocaleInfo::FormatUnsigned(steps) + " " + unit.name;
    return SYLocaleInfo::FormatUnsigned(steps / 10) + "." + std::to_string(steps % 10) + " " +
           unit.name;
}

// True if the size shows as 1024 or more of the unit after rounding.
bool overflowsUnit(std::uint64_t bytes, const Unit& unit) {
    return stepsOf(bytes, unit) >= (unit.decimal ? 10240u : 1024u);
}

} // namespace

std::string SYDiskSize::MakeAutoString(std::uint64_t bytes) {
    if (bytes < 1024)
        return MakeBytesString(bytes);
    const std::size_t last = std::size(units) - 1;
    for (std::size_t i = 0; i < last; ++i) {
        if (!overflowsUnit(bytes, units[i]))
            return formatIn(bytes, units[i]);
    }
    return formatIn(bytes, units[last]);
}

std::string SYDiskSize::MakeBytesString(std::uint64_t bytes) {
    return SYLocaleInfo::FormatUnsigned(bytes) + (bytes == 1 ? " byte" : " bytes");
}
