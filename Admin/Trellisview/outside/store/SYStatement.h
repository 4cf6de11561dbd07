#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;
class SYDatabase;

// A value handed to or read from the store: none (SQL NULL), an integer or a text.
using SYDbValue = std::variant<std::monostate, std::int64_t, std::string>;

// One prepared statement of the store's engine. Parameters are numbered from 1, columns
// from 0. Every failure arrives as a CDBException that names the statement.
class SYStatement {
public:
    SYStatement(SYDatabase& database, const std::string& sql);
    SYStatement(const SYStatement&) = delete;
    SYStatement& operator=(const SYStatement&) = delete;
    ~SYStatement();

    SYStatement& Bind(int index, std::int64_t value);
    SYStatement& Bind(int index, const std::string& value);
    SYStatement& Bind(int index, const SYDbValue& value);
    SYStatement& BindNull(int index);

    // Runs the statement up to its next row: true if a row stands, false at the end.
    bool Step();
    // Runs a statement that gives no rows.
    void Execute();
    // Back to the start, parameters cleared, ready for the next run.
    void Reset();

    int ColumnCount() const;
    std::string ColumnName(int column) const;
    // The first column of this name, -1 if none. The names are read once per prepared
    // statement, so a statement kept for reuse answers without asking SQLite again.
    int ColumnIndex(std::string_view name) const;
    bool IsNull(int column) const;
    std::int64_t Int64(int column) const;
    std::string Text(int column) const;
    // The same text without a copy, valid until the statement steps or resets.
    std::string_view TextView(int column) const;
    SYDbValue Value(int column) const;

    const std::string& Sql() const { return m_sql; }
    bool BelongsTo(const sqlite3* connection) const;

private:
    [[noreturn]] void Fail(int code) const;

    SYDatabase& m_database;
    sqlite3_stmt* m_stmt = nullptr;
    std::string m_sql;
    // In column order; a record set has a handful, so a walk beats hashing the name.
    std::vector<std::string> m_columns;
    bool m_running = false;
};
