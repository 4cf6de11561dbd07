#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>

#include "outside/framework/CTime.h"

// The console's one locale: digits grouped by three with ",", dates as M/D/YYYY and times
// as h:mm:ss AM/PM, all in local time.
class SYLocaleInfo {
public:
    // Any integer; 64-bit values keep every digit.
    template <std::integral T> static std::string FormatNumber(T value) {
        if constexpr (std::is_signed_v<T>)
            return FormatSigned(static_cast<std::int64_t>(value));
        else
            return FormatUnsigned(static_cast<std::uint64_t>(value));
    }
    static std::string FormatSigned(std::int64_t value);
    static std::string FormatUnsigned(std::uint64_t value);

    // An absent time (0) gives an empty text. Flags are accepted for the callers' sake; the
    // console has one date form and one time form.
    static std::string FormatDate(const CTime& time, int flags = 0);
    static std::string FormatTime(const CTime& time, int flags = 0);
    static std::string FormatDateAndTime(const CTime& time, int dateFlags = 0, int timeFlags = 0);
};
