#include "outside/widgets/SYDateTimeEdit.h"

#include "outside/services/SYLocaleInfo.h"

namespace {

bool validFields(int year, int month, int day, int hour, int minute, int second) {
    static constexpr int monthDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (year < 1601 || year > 9999 || month < 1 || month > 12 || day < 1)
        return false;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int days = month == 2 && !leap ? 28 : monthDays[month - 1];
    return day <= days && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 &&
           second < 60;
}

} // namespace

SYDateTimeEdit::SYDateTimeEdit() = default;

int SYDateTimeEdit::SetTime(const CTime& time) {
    if (time.IsNull())
        return 0;
    return SetDateTime(time.GetYear(), time.GetMonth(), time.GetDay(), time.GetHour(),
                       time.GetMinute(), time.GetSecond());
}

int SYDateTimeEdit::GetTime(CTime& time) const {
    time = CTime(m_year, m_month, m_day, m_hour, m_minute, m_second);
    return time.IsNull() ? 0 : 1;
}

int SYDateTimeEdit::SetDateTime(int year, int month, int day, int hour, int minute, int second) {
    if (!validFields(year, month, day, hour, minute, second))
        return 0;
    m_year = year;
    m_month = month;
    m_day = day;
    m_hour = hour;
    m_minute = minute;
    m_second = second;
    NoteChange();
    return 1;
}

CTime SYDateTimeEdit::Combine(const SYDateTimeEdit& date, const SYDateTimeEdit& time) {
    return CTime(date.m_year, date.m_month, date.m_day, time.m_hour, time.m_minute, time.m_second);
}

int SYDateTimeEdit::PickDateTime(int year, int month, int day, int hour, int minute, int second) {
    if (!IsWindow() || !IsWindowEnabled() || !IsWindowVisible())
        return 0;
    if (!SetDateTime(year, month, day, hour, minute, second))
        return 0;
    SendNotifyToParent(DTN_DATETIMECHANGE);
    return 1;
}

std::string SYDateTimeEdit::DisplayText() const {
    CTime time;
    if (!GetTime(time))
        return {};
    return ShowsTime() ? SYLocaleInfo::FormatTime(time) : SYLocaleInfo::FormatDate(time);
}
