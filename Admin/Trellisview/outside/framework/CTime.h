#pragma once

#include <cstdint>

// A point in time: signed 32-bit seconds since 1970-01-01 UTC; 0 means "no time".
// Every conversion to and from local time goes through this class.
class CTime {
public:
    CTime() = default;
    CTime(std::int32_t seconds) : m_time(seconds) {} // NOLINT: times pass as plain values
    // Local time; gives 0 when the fields do not name a representable time.
    CTime(int year, int month, int day, int hour, int minute, int second);

    std::int32_t GetTime() const { return m_time; }
    bool IsNull() const { return m_time == 0; }

    int GetYear() const;
    int GetMonth() const;
    int GetDay() const;
    int GetHour() const;
    int GetMinute() const;
    int GetSecond() const;

    // Seconds since 1970 of the same local wall clock minute, for comparisons that leave out
    // the seconds.
    std::int64_t LocalMinute() const;

    // All local fields from one conversion, for callers that need several.
    struct LocalFields {
        int year, month, day, hour, minute, second;
    };
    LocalFields GetLocalFields() const;

    auto operator<=>(const CTime&) const = default;

private:
    std::int32_t m_time = 0;
};
