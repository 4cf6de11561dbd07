#pragma once

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "RawStatement.h"
#include "outside/store/SYDatabase.h"
#include "rules/SYSWRule.h"

// The statements both raw twins read and write alike.
inline constexpr const char* kRawRuleName =
    "SELECT FileName FROM SWRules WHERE RuleID = ?1 AND InvDataType = 0";
inline constexpr const char* kRawFilesOfName =
    "SELECT FileID, FileName, FileSize, FileTime, VerAppName, VerAppVersion, "
    "VerAppCompany, FileState, RuleID, RuleSource, AppID FROM Files WHERE "
    "InvDataType = 0 AND FileName = ?1";
inline constexpr const char* kRawUserRules =
    "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppVersion, "
    "AppCompany FROM SWRules WHERE InvDataType = 0 AND FileName = ?1 AND "
    "RuleState <> 3 AND (FileSize IS NULL OR FileSize = ?2)";
inline constexpr const char* kRawInstalledFlag =
    "UPDATE [Applications] SET AppInstalled = EXISTS (SELECT 1 FROM "
    "Installations WHERE InvDataType = 0 AND AppID = ?1) WHERE AppID = ?1";

// Steps a statement to its end, reading every column when asked, and resets it.
inline void rawRun(sqlite3_stmt* statement, bool readAll) {
    while (sqlite3_step(statement) == SQLITE_ROW && readAll)
        for (int c = 0; c < sqlite3_column_count(statement); ++c)
            benchmark::DoNotOptimize(sqlite3_column_text(statement, c));
    sqlite3_reset(statement);
}

// The files of a name, with their sizes, through kRawFilesOfName.
inline std::vector<std::pair<std::int64_t, std::int64_t>> rawFilesOfName(RawStatement& files,
                                                                         const std::string& name) {
    sqlite3_bind_text(files.get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
    std::vector<std::pair<std::int64_t, std::int64_t>> found;
    while (files.Step())
        found.emplace_back(sqlite3_column_int64(files.get(), 0),
                           sqlite3_column_int64(files.get(), 2));
    files.Reset();
    return found;
}

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
          m_ruleName(db, kRawRuleName), m_files(db, kRawFilesOfName), m_user(db, kRawUserRules),
          m_app(db, "SELECT AppID FROM [Applications] WHERE AppCompanyInternal = ?1 AND "
                    "AppNameInternal = ?2 AND AppVersion = ?3"),
          m_verdict(db, "UPDATE Files SET FileState = 2, RuleID = ?1, RuleSource = 0, AppID = ?2 "
                        "WHERE FileID = ?3"),
          m_install(db, "INSERT OR IGNORE INTO Installations (InvDataType, AppID, MachineID, "
                        "Location) SELECT 0, ?1, MachineID, Location FROM FileLocations WHERE "
                        "FileID = ?2"),
          m_flag(db, kRawInstalledFlag) {}

    // Gives the rule's id, 0 on a failure.
    std::int64_t Apply(const RawIdRule& rule) {
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        rawRun(m_rules.get(), true);
        Text(m_insertRule, 1, rule.fileName);
        Text(m_insertRule, 2, rule.app);
        Text(m_insertRule, 3, rule.version);
        Text(m_insertRule, 4, rule.company);
        rawRun(m_insertRule.get(), false);
        const std::int64_t ruleID = sqlite3_last_insert_rowid(m_db);
        if (sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            return 0;
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        m_ruleName.Bind(1, ruleID);
        rawRun(m_ruleName.get(), false);
        const auto files = rawFilesOfName(m_files, rule.fileName);
        std::int64_t appID = 0;
        for (const auto& [fileID, size] : files) {
            Text(m_user, 1, rule.fileName);
            m_user.Bind(2, size);
            rawRun(m_user.get(), true);
            Text(m_app, 1, rule.companyInternal);
            Text(m_app, 2, rule.appInternal);
            Text(m_app, 3, rule.version);
            if (m_app.Step())
                appID = sqlite3_column_int64(m_app.get(), 0);
            m_app.Reset();
            m_verdict.Bind(1, ruleID).Bind(2, appID).Bind(3, fileID);
            rawRun(m_verdict.get(), false);
            m_install.Bind(1, appID).Bind(2, fileID);
            rawRun(m_install.get(), false);
        }
        m_flag.Bind(1, appID);
        rawRun(m_flag.get(), false);
        return sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK && appID != 0
                   ? ruleID
                   : 0;
    }

private:
    static void Text(RawStatement& statement, int index, const std::string& text) {
        sqlite3_bind_text(statement.get(), index, text.c_str(), -1, SQLITE_TRANSIENT);
    }

    sqlite3* m_db;
    RawStatement m_rules, m_insertRule, m_ruleName, m_files, m_user, m_app, m_verdict, m_install,
        m_flag;
};

// Taking an identification rule away with raw statements, the engine's mirror: the rule row
// retired in a transaction of its own, then in one more each file of its name decided by no
// user nor system rule, so back to the verdict the given file had before (read once here),
// and the installations ended: all of them when the application keeps no file, else those
// where it was the application's last file.
class RawRemove {
public:
    RawRemove(sqlite3* db, std::int64_t fileID)
        : m_db(db),
          m_rule(db, "SELECT RuleID, InvDataType, RuleState, RuleType, FileName, FileSize, "
                     "FileTime, AppName, AppVersion, AppCompany, Comment FROM SWRules WHERE "
                     "InvDataType = 0 AND RuleID = ?1"),
          m_retire(db, "UPDATE SWRules SET RuleState = 3 WHERE RuleID = ?1"),
          m_ruleName(db, kRawRuleName), m_files(db, kRawFilesOfName), m_user(db, kRawUserRules),
          m_system(db, "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, "
                       "AppVersion, Comment FROM sysrules.SystemRules WHERE InvDataType = 0 AND "
                       "FileName = ?1 AND (FileSize IS NULL OR FileSize = ?2)"),
          m_before(db, "SELECT FileState, RuleID, RuleSource FROM Files WHERE FileID = ?1"),
          m_unverdict(db, "UPDATE Files SET FileState = ?1, RuleID = ?2, RuleSource = ?3, AppID "
                          "= 0 WHERE FileID = ?4"),
          m_end(db, "DELETE FROM Installations WHERE InstallationID IN (SELECT i.InstallationID "
                    "FROM FileLocations l CROSS JOIN Installations i ON i.InvDataType = 0 AND "
                    "i.AppID = ?1 AND i.MachineID = l.MachineID AND i.Location = l.Location "
                    "WHERE l.FileID = ?2 AND NOT EXISTS (SELECT 1 FROM FileLocations o JOIN "
                    "Files g ON g.FileID = o.FileID WHERE o.MachineID = l.MachineID AND "
                    "o.Location = l.Location AND g.InvDataType = 0 AND g.AppID = ?1))"),
          m_keeps(db, "SELECT EXISTS (SELECT 1 FROM Files WHERE InvDataType = 0 AND AppID = ?1)"),
          m_endApp(db, "DELETE FROM Installations WHERE InvDataType = 0 AND AppID = ?1"),
          m_flag(db, kRawInstalledFlag) {
        m_before.Bind(1, fileID);
        if (!m_before.Step())
            throw std::runtime_error("the file has no verdict");
        for (int c = 0; c < 3; ++c)
            sqlite3_bind_value(m_unverdict.get(), c + 1, sqlite3_column_value(m_before.get(), c));
        m_before.Reset();
    }

    // Gives whether both transactions committed.
    bool Remove(const std::string& fileName, std::int64_t ruleID, std::int64_t appID) {
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        m_rule.Bind(1, ruleID);
        rawRun(m_rule.get(), true);
        m_retire.Bind(1, ruleID);
        rawRun(m_retire.get(), false);
        if (sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            return false;
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        m_ruleName.Bind(1, ruleID);
        rawRun(m_ruleName.get(), false);
        const auto files = rawFilesOfName(m_files, fileName);
        for (const auto& [fileID, size] : files) {
            for (RawStatement* rules : {&m_user, &m_system}) {
                sqlite3_bind_text(rules->get(), 1, fileName.c_str(), -1, SQLITE_TRANSIENT);
                rules->Bind(2, size);
                rawRun(rules->get(), true);
            }
            m_unverdict.Bind(4, fileID);
            rawRun(m_unverdict.get(), false);
            m_keeps.Bind(1, appID);
            const bool keeps = m_keeps.Step() && sqlite3_column_int64(m_keeps.get(), 0) != 0;
            m_keeps.Reset();
            RawStatement& end = keeps ? m_end : m_endApp;
            end.Bind(1, appID);
            if (keeps)
                end.Bind(2, fileID);
            rawRun(end.get(), false);
        }
        m_flag.Bind(1, appID);
        rawRun(m_flag.get(), false);
        return sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
    }

private:
    sqlite3* m_db;
    RawStatement m_rule, m_retire, m_ruleName, m_files, m_user, m_system, m_before, m_unverdict,
        m_end, m_keeps, m_endApp, m_flag;
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
