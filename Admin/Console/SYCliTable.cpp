#include "SYCliTable.h"

#include <cstdio>

#include "outside/services/SYLocaleInfo.h"
#include "outside/widgets/SYFontMetrics.h"

SYCliTable::Cell SYCliTable::Number(std::int64_t value) {
    return {SYLocaleInfo::FormatNumber(value), std::to_string(value), true};
}

SYCliTable::Cell SYCliTable::Size(std::uint64_t size, bool have) {
    if (!have)
        return {};
    return {SYLocaleInfo::FormatNumber(size), std::to_string(size), true};
}

SYCliTable::Cell SYCliTable::Time(const CTime& time) {
    return {SYLocaleInfo::FormatDateAndTime(time, 0, 0), IsoTime(time), false};
}

std::string SYCliTable::IsoTime(const CTime& time) {
    if (time.IsNull())
        return {};
    const CTime::LocalFields f = time.GetLocalFields();
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", f.year, f.month, f.day,
                  f.hour, f.minute, f.second);
    return text;
}

bool SYCliTable::ParseIsoTime(const std::string& text, CTime& time) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    char tail = 0;
    const int read = std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d%c", &year, &month, &day,
                                 &hour, &minute, &second, &tail);
    const bool shape = read == 3 ? text.size() == 10 : read == 5 || read == 6;
    if (!shape)
        return false;
    time = CTime(year, month, day, hour, minute, second);
    return !time.IsNull();
}

void SYCliTable::AddColumn(const std::string& title, const std::string& key, int format) {
    m_columns.push_back({title, key, format});
}

std::vector<SYPrintableList::Column> SYCliTable::PrintColumns() const {
    std::vector<SYPrintableList::Column> columns;
    for (const Column& column : m_columns)
        columns.push_back({column.title, SYFontMetrics::TextWidth(column.title), column.format});
    return columns;
}

std::vector<std::vector<std::string>> SYCliTable::PrintRows() const {
    std::vector<std::vector<std::string>> rows;
    for (const auto& row : m_rows) {
        std::vector<std::string> texts;
        for (const Cell& cell : row)
            texts.push_back(cell.shown);
        rows.push_back(std::move(texts));
    }
    return rows;
}
