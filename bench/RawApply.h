#pragma once

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "RawStatement.h"
#include "outside/store/SYDatabase.h"
#include "rules/SYSWRule.h"

// An identification rule for all versions of a PC file, as the raw twins write it: the
// application by its shown and internal names.
struct RawIdRule {
    std::string fileName;
    std::string app;
    std::string appInternal;
    std::string version;
    std::string company;
    std::string companyInternal;
};

// The identification the engine makes, done with raw statements: the rule row in a
// transaction of its own, then in one more the files of that name decided by the most
// specific active user rule, the application found, each file's verdict stored, an
// installation made in every folder it lies in and the application marked installed. The
// application must exist already.
class RawApply {
public:
    explicit RawApply(sqlite3* db)
        : m_db(db), m_rules(db, "SELECT RuleID FROM SWRules WHERE InvDataType = 0"),
          m_insertRule(db, "INSERT INTO SWRules (InvDataType, RuleState, RuleType, FileName, "
                           "FileSize, FileTime, AppName, AppVersion, AppCompany, Comment) VALUES "
                           "(0, 1, 0, ?1, NULL, NULL, ?2, ?3, ?4, '')"),
          m_ruleName(db, "SELECT FileName FROM SWRules WHERE RuleID = ?1 AND InvDataType = 0"),
          m_files(db, "SELECT FileID, FileName, FileSize, FileTime, VerAppName, VerAppVersion, "
                      "VerAppCompany, FileState, RuleID, RuleSource, AppID FROM Files WHERE "
                      "InvDataType = 0 AND FileName = ?1"),
          m_user(db, "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppVersion, "
                     "AppCompany FROM SWRules WHERE InvDataType = 0 AND FileName = ?1 AND "
                     "RuleState <> 3 AND (FileSize IS NULL OR FileSize = ?2)"),
          m_app(db, "SELECT AppID FROM [Applications] WHERE AppCompanyInternal = ?1 AND "
                    "AppNameInternal = ?2 AND AppVersion = ?3"),
          m_verdict(db, "UPDATE Files SET FileState = 2, RuleID = ?1, RuleSource = 0, AppID = ?2 "
                        "WHERE FileID = ?3"),
          m_install(db, "INSERT OR IGNORE INTO Installations (InvDataType, AppID, MachineID, "
                        "Location) SELECT 0, ?1, MachineID, Location FROM FileLocations WHERE "
                        "FileID = ?2"),
          m_flag(db, "UPDATE [Applications] SET AppInstalled = EXISTS (SELECT 1 FROM "
                     "Installations WHERE InvDataType = 0 AND AppID = ?1) WHERE AppID = ?1") {}

    // Gives the rule's id, 0 on a failure.
    std::int64_t Apply(const RawIdRule& rule) {
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        Run(m_rules.get(), true);
        Text(m_insertRule, 1, rule.fileName);
        Text(m_insertRule, 2, rule.app);
        Text(m_insertRule, 3, rule.version);
        Text(m_insertRule, 4, rule.company);
        Run(m_insertRule.get(), false);
        const std::int64_t ruleID = sqlite3_last_insert_rowid(m_db);
        if (sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            return 0;
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        m_ruleName.Bind(1, ruleID);
        Run(m_ruleName.get(), false);
        Text(m_files, 1, rule.fileName);
        std::vector<std::pair<std::int64_t, std::int64_t>> files;
        while (m_files.Step())
            files.emplace_back(sqlite3_column_int64(m_files.get(), 0),
                               sqlite3_column_int64(m_files.get(), 2));
        m_files.Reset();
        std::int64_t appID = 0;
        for (const auto& [fileID, size] : files) {
            Text(m_user, 1, rule.fileName);
            m_user.Bind(2, size);
            Run(m_user.get(), true);
            Text(m_app, 1, rule.companyInternal);
            Text(m_app, 2, rule.appInternal);
            Text(m_app, 3, rule.version);
            if (m_app.Step())
                appID = sqlite3_column_int64(m_app.get(), 0);
            m_app.Reset();
            m_verdict.Bind(1, ruleID).Bind(2, appID).Bind(3, fileID);
            Run(m_verdict.get(), false);
            m_install.Bind(1, appID).Bind(2, fileID);
            Run(m_install.get(), false);
        }
        m_flag.Bind(1, appID);
        Run(m_flag.get(), false);
        return sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK && appID != 0
                   ? ruleID
                   : 0;
    }

private:
    static void Text(RawStatement& statement, int index, const std::string& text) {
        sqlite3_bind_text(statement.get(), index, text.c_str(), -1, SQLITE_TRANSIENT);
    }
    static void Run(sqlite3_stmt* statement, bool readAll) {
        while (sqlite3_step(statement) == SQLITE_ROW && readAll)
            for (int c = 0; c < sqlite3_column_count(statement); ++c)
                benchmark::DoNotOptimize(sqlite3_column_text(statement, c));
        sqlite3_reset(statement);
    }

    sqlite3* m_db;
    RawStatement m_rules, m_insertRule, m_ruleName, m_files, m_user, m_app, m_verdict, m_install,
        m_flag;
};

// Takes a rule away again through the engine, committed.
inline void removeRule(SYDatabase& db, const std::string& install, std::uint32_t ruleID) {
    SYSWRule undo;
    undo.Database = &db;
    undo.InvDataType = 0;
    undo.SetInstallPath(install);
    undo.RemoveRule(ruleID, 1);
    undo.UpdateSamData();
}
