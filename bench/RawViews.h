#pragma once

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdint>
#include <string>

#include "RawStatement.h"

// Reads every column of the current row as a view would, by its type.
inline void touchRow(sqlite3_stmt* stmt) {
    for (int c = 0; c < sqlite3_column_count(stmt); ++c) {
        if (sqlite3_column_type(stmt, c) == SQLITE_TEXT)
            benchmark::DoNotOptimize(sqlite3_column_text(stmt, c));
        else
            benchmark::DoNotOptimize(sqlite3_column_int64(stmt, c));
    }
}

// What the Windows PC views read, as raw SQL.
namespace rawview {

// The unidentified files with every column the store's file set reads for them.
inline constexpr const char* UnidFilesAsStored =
    "SELECT f.FileID AS FileID, f.FileName AS FileName, f.FileSize AS FileSize, "
    "f.FileTime AS FileTime, f.VerAppName AS VerAppName, f.VerAppVersion AS "
    "VerAppVersion, f.VerAppCompany AS VerAppCompany, f.FileState AS FileState, "
    "f.RuleID AS RuleID, f.RuleSource AS RuleSource, f.AppID AS AppID, "
    "COALESCE(a.AppName, '') AS AppName, COALESCE(a.AppVersion, '') AS AppVersion, "
    "COALESCE(a.AppCompany, '') AS AppCompany FROM Files f LEFT JOIN [Applications] a "
    "ON f.AppID <> 0 AND a.AppID = f.AppID WHERE f.InvDataType = 0 AND f.FileState = 0";
// The order the list shows them in: its sort column, the file name, with the time and then
// the size breaking ties.
inline constexpr const char* UnidFilesOrder =
    " ORDER BY f.FileName COLLATE NOCASE, f.FileTime, f.FileSize";

// The installed applications of one company (its internal name), for its node and its list.
inline constexpr const char* CompanyApps =
    "SELECT AppID, AppName, AppNameInternal, AppVersion, AppCompany FROM [Applications] WHERE "
    "AppInstalled = 1 AND AppCompanyInternal = ?1 COLLATE NOCASE";

// The Windows companies of the tree, each internal name with its spellings.
inline constexpr const char* Companies =
    "SELECT AppCompanyInternal, AppCompany FROM [Applications] WHERE AppInstalled = 1 GROUP BY "
    "AppCompanyInternal, AppCompany ORDER BY AppCompanyInternal COLLATE NOCASE, COUNT(*) DESC, "
    "AppCompany";

// The application installed on the most PCs.
inline constexpr const char* MostInstalledApp =
    "SELECT AppID FROM Installations WHERE InvDataType = 0 GROUP BY AppID ORDER BY "
    "COUNT(DISTINCT MachineID) DESC LIMIT 1";

// The reads of the application view: the application, its files once each, and its
// installations with each PC's last scan. Rows() gives the files and installations read,
// and counts the PCs among them.
struct AppData {
    AppData(sqlite3* db, std::int64_t id)
        : appID(id), app(db, "SELECT AppName, AppVersion, AppCompany FROM [Applications] WHERE "
                             "AppID = ?1"),
          files(db, "SELECT f.FileID, f.FileName, f.FileSize, f.FileTime FROM Files f JOIN "
                    "FileLocations l ON l.FileID = f.FileID WHERE f.InvDataType = 0 AND "
                    "f.AppID = ?1 ORDER BY f.FileID"),
          installations(db, "SELECT i.InstallationID, i.MachineID, i.Location, m.MachineName "
                            "FROM Installations i LEFT JOIN Machines m ON m.MachineID = "
                            "i.MachineID WHERE i.InvDataType = 0 AND i.AppID = ?1 ORDER BY "
                            "i.MachineID, i.Location"),
          scan(db, "SELECT CreationTime FROM MachineData WHERE MachineID = ?1 AND ResourceID = 1") {
    }

    std::int64_t Rows() {
        std::int64_t rows = 0;
        app.Bind(1, appID);
        if (app.Step())
            touchRow(app.get());
        app.Reset();
        files.Bind(1, appID);
        std::int64_t lastFile = 0;
        while (files.Step()) {
            const std::int64_t fileID = sqlite3_column_int64(files.get(), 0);
            if (fileID == lastFile)
                continue;
            touchRow(files.get());
            lastFile = fileID;
            ++rows;
        }
        files.Reset();
        installations.Bind(1, appID);
        machines = 0;
        std::int64_t lastMachine = 0;
        while (installations.Step()) {
            touchRow(installations.get());
            const std::int64_t machine = sqlite3_column_int64(installations.get(), 1);
            machines += machine != lastMachine ? 1 : 0;
            lastMachine = machine;
            scan.Bind(1, sqlite3_column_int64(installations.get(), 1));
            if (scan.Step())
                touchRow(scan.get());
            scan.Reset();
            ++rows;
        }
        installations.Reset();
        return rows;
    }

    std::int64_t appID;
    std::int64_t machines = 0;
    RawStatement app, files, installations, scan;
};

} // namespace rawview
