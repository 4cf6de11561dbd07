#include "outside/framework/CTime.h"

#include <ctime>
#include <limits>

CTime::CTime(int year, int month, int day, int hour, int minute, int second) {
    std::tm tm{};
    tm.tm_year = year - 1900;
    tm.tm_mon = month - 1;
    tm.tm_mday = day;
    tm.tm_hour = hour;
    tm.tm_min = minute;
    tm.tm_sec = second;
    tm.tm_isdst = -1;
    const std::time_t t = std::mktime(&tm);
    if (t == static_cast<std::time_t>(-1) && !(year == 1969 && month == 12 && day == 31))
        return;
    if (t < std::numeric_limits<std::int32_t>::min() ||
        t > std::numeric_limits<std::int32_t>::max())
        return;
    m_time = static_cast<std::int32_t>(t);
}

CTime::LocalFields CTime::GetLocalFields() const {
    const std::time_t t = m_time;
    std::tm tm{};
    localtime_r(&t, &tm);
    return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

int CTime::GetYear() const {
    return GetLocalFields().year;
}
int CTime::GetMonth() const {
    return GetLocalFields().month;
}
int CTime::GetDay() const {
    return GetLocalFields().day;
}
int CTime::GetHour() const {
    return GetLocalFields().hour;
}
int CTime::GetMinute() const {
    return GetLocalFields().minute;
}
int CTime::GetSecond() const {
    return GetLocalFields().second;
}

std::int64_t CTime::LocalMinute() const {
    return static_cast<std::int64_t>(m_time) - GetLocalFields().second;
}
