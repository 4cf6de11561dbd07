#include "outside/services/SYLocaleInfo.h"

#include <cstdio>

std::string SYLocaleInfo::FormatUnsigned(std::uint64_t value)
{
    std::string digits = std::to_string(value);
    std::string result;
    result.reserve(digits.size() + digits.size() / 3);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        // A comma goes before every digit that has a multiple of three digits behind it.
        if (i != 0 && (digits.size() - i) % 3 == 0)
            result.push_back(',');
        result.push_back(digits[i]);
    }
    return result;
}

std::string SYLocaleInfo::FormatSigned(std::int64_t value)
{
    if (value >= 0)
        return FormatUnsigned(static_cast<std::uint64_t>(value));
    // Negate in unsigned arithmetic so the smallest value stays defined.
    const std::uint64_t magnitude = 0 - static_cast<std::uint64_t>(value);
    return "-" + FormatUnsigned(magnitude);
}

std::string SYLocaleInfo::FormatDate(const CTime& time, int /*flags*/)
{
    if (time.IsNull())
        return {};
    char text[32];
    std::snprintf(text, sizeof text, "%d/%d/%04d", time.GetMonth(), time.GetDay(), time.GetYear());
    return text;
}

std::string SYLocaleInfo::FormatTime(const CTime& time, int /*flags*/)
{
    if (time.IsNull())
        return {};
    const int hour = time.GetHour();
    const int hour12 = hour % 12 == 0 ? 12 : hour % 12;
    char text[32];
    std::snprintf(text, sizeof text, "%d:%02d:%02d %s", hour12, time.GetMinute(), time.GetSecond(),
                  hour < 12 ? "AM" : "PM");
    return text;
}

std::string SYLocaleInfo::FormatDateAndTime(const CTime& time, int dateFlags, int timeFlags)
{
    if (time.IsNull())
        return {};
    return FormatDate(time, dateFlags) + " " + FormatTime(time, timeFlags);
}
