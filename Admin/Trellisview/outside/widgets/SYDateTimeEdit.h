#pragma once

#include <string>

#include "outside/framework/CTime.h"
#include "outside/widgets/SYWnd.h"

// A date or time-of-day picker. It holds a whole local date and time (year, month, day,
// hour, minute, second); the time-format style only decides which part it shows, so a
// dialog takes the date from one editor and the time of day from another.
class SYDateTimeEdit : public SYWnd {
public:
    SYDateTimeEdit();

    bool ShowsTime() const { return (Style() & SYStyleTimeFormat) != 0; }

    // A null time gives 0 and leaves the fields alone.
    int SetTime(const CTime& time);
    // The fields as one time; 0 (with a null time) if they name no representable time.
    int GetTime(CTime& time) const;
    // Gives 0 and changes nothing for fields out of range.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second);

    int Year() const { return m_year; }
    int Month() const { return m_month; }
    int Day() const { return m_day; }
    int Hour() const { return m_hour; }
    int Minute() const { return m_minute; }
    int Second() const { return m_second; }

    // The date of one editor with the time of day of another.
    static CTime Combine(const SYDateTimeEdit& date, const SYDateTimeEdit& time);

    // What the user's pick does: sets the fields and tells the parent. Gives 0 when the
    // user could not pick here or the fields are out of range.
    int PickDateTime(int year, int month, int day, int hour, int minute, int second);

    // What the editor shows: the date or the time of day in the console's locale.
    std::string DisplayText() const;

private:
    int m_year = 1970;
    int m_month = 1;
    int m_day = 1;
    int m_hour = 0;
    int m_minute = 0;
    int m_second = 0;
};
