#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "outside/framework/CTime.h"
#include "outside/widgets/SYPrintableList.h"

// One table of a command's output. Each cell keeps the text a view shows and the value a
// script reads: whole bytes and ISO 8601 times instead of grouped digits and local dates.
class SYCliTable : public SYPrintableList {
public:
    struct Cell {
        std::string shown;
        std::string value;
        bool number = false;
    };
    struct Column {
        std::string title; // as the view heads it
        std::string key;   // snake_case, for CSV and JSON
        int format = 0;    // 0 left, 1 right
    };

    static Cell Text(const std::string& text) { return {text, text, false}; }
    static Cell Number(std::int64_t value);
    // Ids stay ungrouped, so a person can copy them into the next command.
    static Cell Id(std::int64_t value) {
        return {std::to_string(value), std::to_string(value), true};
    }
    // A size as the views show it; an absent size stays empty.
    static Cell Size(std::uint64_t size, bool have = true);
    static Cell Time(const CTime& time);
    // "2026-11-23T14:05:00" in local time, empty for no time.
    static std::string IsoTime(const CTime& time);
    // Reads "YYYY-MM-DD[THH:MM[:SS]]" in local time; false for anything else.
    static bool ParseIsoTime(const std::string& text, CTime& time);

    SYCliTable() = default;
    SYCliTable(std::string key, std::string title)
        : m_key(std::move(key)), m_title(std::move(title)) {}

    void AddColumn(const std::string& title, const std::string& key, int format = 0);
    void AddRow(std::vector<Cell> row) { m_rows.push_back(std::move(row)); }

    const std::string& Key() const { return m_key; }
    const std::string& Title() const { return m_title; }
    const std::vector<Column>& Columns() const { return m_columns; }
    const std::vector<std::vector<Cell>>& Rows() const { return m_rows; }

    std::vector<SYPrintableList::Column> PrintColumns() const override;
    std::vector<std::vector<std::string>> PrintRows() const override;

private:
    std::string m_key;
    std::string m_title;
    std::vector<Column> m_columns;
    std::vector<std::vector<Cell>> m_rows;
};
