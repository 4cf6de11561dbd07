#include "outside/services/SYLocaleInfo.h"

#include <cstdio>

std::string SYLocaleInfo::FormatUnsigned(std::uint64_t value) {
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

std::string SYLocaleInfo::FormatSigned(std::int64_t value) {
    if (value >= 0)
        return FormatUnsigned(static_cast<std::uint64_t>(value));
    // Negate in unsigned arithmetic so the smallest value stays defined.
    const std::uint64_t magnitude = 0 - static_cast<std::uint64_t>(value);
    return "-" + FormatUnsigned(magnitude);
}

namespace {

std::string dateText(const CTime::LocalFields& local) {
    char text[32];
    std::snprintf(text, sizeof text, "%d/%d/%04d", local.month, local.day, local.year);
    return text;
}

std::string timeText(const CTime::LocalFields& local) {
    const int hour12 = local.hour % 12 == 0 ? 12 : local.hour % 12;
    char text[32];
    std::snprintf(text, sizeof text, "%d:%02d:%02d %s", hour12, local.minute, local.second,
                  local.hour < 12 ? "AM" : "PM");
    return text;
}

} // namespace

std::string SYLocaleInfo::FormatDate(const CTime& time, int /*flags*/) {
    return time.IsNull() ? std::string() : dateText(time.GetLocalFields());
}

std::string SYLocaleInfo::FormatTime(const CTime& time, int /*flags*/) {
    return time.IsNull() ? std::string() : timeText(time.GetLocalFields());
}

// One local-time conversion per call: lists format a date for every row.
std::string SYLocaleInfo::FormatDateAndTime(const CTime& time, int /*dateFlags*/,
                                            int /*timeFlags*/) {
    if (time.IsNull())
        return {};
    const CTime::LocalFields local = time.GetLocalFields();
    return dateText(local) + " " + timeText(local);
}
