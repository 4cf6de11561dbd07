#pragma once

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>

// One raw statement for the benchmarks' twins: prepared once, reset after every use.
class RawStatement {
public:
    RawStatement(sqlite3* db, const std::string& sql) {
        if (sqlite3_prepare_v3(db, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &m_stmt, nullptr) !=
            SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db));
    }
    RawStatement(const RawStatement&) = delete;
    RawStatement& operator=(const RawStatement&) = delete;
    ~RawStatement() { sqlite3_finalize(m_stmt); }

    sqlite3_stmt* get() const { return m_stmt; }
    RawStatement& Bind(int index, std::int64_t value) {
        sqlite3_bind_int64(m_stmt, index, value);
        return *this;
    }
    RawStatement& Bind(int index, const unsigned char* text) {
        sqlite3_bind_text(m_stmt, index, reinterpret_cast<const char*>(text), -1, SQLITE_TRANSIENT);
        return *this;
    }
    bool Step() { return sqlite3_step(m_stmt) == SQLITE_ROW; }
    void Reset() { sqlite3_reset(m_stmt); }
    // Steps through every row, reading each column as a record would.
    int Drain() {
        int rows = 0;
        while (sqlite3_step(m_stmt) == SQLITE_ROW) {
            for (int c = 0; c < sqlite3_column_count(m_stmt); ++c)
                benchmark::DoNotOptimize(sqlite3_column_text(m_stmt, c));
            ++rows;
        }
        sqlite3_reset(m_stmt);
        return rows;
    }

private:
    sqlite3_stmt* m_stmt = nullptr;
};

// What a file's record reads, as raw SQL on the PC inventory: the file with its
// application, the active rules of its name, and the user and system rules that may
// govern it (name and size); and what its properties sheet reads beside.
namespace rawfile {

inline constexpr const char* File =
    "SELECT f.FileName, f.FileTime, f.FileSize, a.AppName, a.AppVersion, a.AppCompany FROM "
    "Files f LEFT JOIN [Applications] a ON a.AppID = f.AppID WHERE f.FileID = ?1 AND "
    "f.InvDataType = 0";
inline constexpr const char* Rules =
    "SELECT RuleID, RuleType, FileName, FileSize, FileTime, AppName, AppVersion, AppCompany, "
    "Comment FROM SWRules WHERE InvDataType = 0 AND FileName = ?1 AND RuleState <> 3 ORDER BY "
    "RuleID";
inline constexpr const char* UserRules =
    "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, AppVersion, Comment "
    "FROM main.SWRules WHERE InvDataType = 0 AND FileName = ?1 AND RuleState <> 3 AND "
    "(FileSize IS NULL OR FileSize = ?2)";
inline constexpr const char* SystemRules =
    "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, AppVersion, Comment "
    "FROM sysrules.SystemRules WHERE InvDataType = 0 AND FileName = ?1 AND (FileSize IS NULL "
    "OR FileSize = ?2)";
// Where the file lies, with its clients, in the order the properties sheet lists them.
inline constexpr const char* Places =
    "SELECT l.MachineID, l.Location, m.MachineName, m.MachineUser FROM FileLocations l JOIN "
    "Files f ON f.FileID = l.FileID JOIN Machines m ON m.MachineID = l.MachineID WHERE "
    "f.InvDataType = 0 AND l.FileID = ?1 ORDER BY m.MachineName, l.MachineID, l.Location";

} // namespace rawfile
