#include "outside/store/SYInventoryClassifier.h"

#include "outside/store/SYAppNames.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYStoreValue.h"

namespace {

const char* const kFilesByName =
    "SELECT FileID, FileName, FileSize, FileTime, VerAppName, VerAppVersion, VerAppCompany, "
    "FileState, RuleID, RuleSource, AppID FROM Files WHERE InvDataType = ?1 AND FileName = ?2";

const char* const kUpdateVerdict = "UPDATE Files SET FileState = ?1, RuleID = ?2, RuleSource = ?3, "
                                   "AppID = ?4 WHERE FileID = ?5";

const char* const kMovedTable =
    "CREATE TEMP TABLE IF NOT EXISTS SYMovedFiles (FileID INTEGER "
    "PRIMARY KEY, OldAppID INTEGER NOT NULL, NewAppID INTEGER NOT NULL)";

const char* const kAddMovedInstallations =
    "INSERT OR IGNORE INTO Installations (InvDataType, AppID, MachineID, Location) "
    "SELECT ?1, m.NewAppID, l.MachineID, l.Location FROM temp.SYMovedFiles m "
    "CROSS JOIN FileLocations l ON l.FileID = m.FileID WHERE m.NewAppID <> 0";

// CROSS JOIN keeps the planner on the few moved files instead of a scan of all locations.
// An installation of the old application goes when no file of it lies in that place any more.
const char* const kDropEmptyInstallations =
    "DELETE FROM Installations WHERE InstallationID IN (SELECT i.InstallationID FROM "
    "temp.SYMovedFiles m CROSS JOIN FileLocations l ON l.FileID = m.FileID CROSS JOIN "
    "Installations i ON "
    "i.InvDataType = ?1 AND i.AppID = m.OldAppID AND i.MachineID = l.MachineID AND "
    "i.Location = l.Location WHERE m.OldAppID <> 0 AND NOT EXISTS (SELECT 1 FROM FileLocations "
    "l2 JOIN Files f2 ON f2.FileID = l2.FileID WHERE l2.MachineID = i.MachineID AND "
    "l2.Location = i.Location AND f2.InvDataType = ?1 AND f2.AppID = i.AppID))";

std::int64_t toInt(unsigned long value) {
    return static_cast<std::int64_t>(value);
}

SYDbValue sourceValue(int source) {
    return source < 0 ? SYDbValue{} : SYDbValue{std::int64_t{source}};
}

} // namespace

SYInventoryClassifier::SYInventoryClassifier(SYDatabase& database, unsigned char invDataType,
                                             bool useSystemRules)
    : m_database(database), m_invDataType(invDataType),
      m_appTable(SYInventorySchema::AppTable(invDataType)),
      m_resolver(database, invDataType, useSystemRules) {}

SYInventoryClassifier::Stored SYInventoryClassifier::Classify(const SYScanFile& file) {
    const auto verdict = m_resolver.Decide(file);
    Stored stored{verdict.state, verdict.ruleID, verdict.source, 0};
    if (verdict.identified)
        stored.appID = FindOrCreateApp(verdict.appCompany, verdict.appName, verdict.appVersion);
    return stored;
}

unsigned long SYInventoryClassifier::FindOrCreateApp(const std::string& company,
                                                     const std::string& name,
                                                     const std::string& version) {
    const std::string companyDisplay = SYAppNames::Trim(company);
    const std::string nameDisplay = SYAppNames::Trim(name);
    const std::string versionText = SYAppNames::Trim(version);
    auto key = std::make_tuple(SYAppNames::CompanyKey(companyDisplay),
                               SYAppNames::NameKey(nameDisplay), versionText);
    if (const auto found = m_apps.find(key); found != m_apps.end())
        return found->second;
    unsigned long appID = 0;
    {
        auto find = m_database.Cached("SELECT AppID FROM " + m_appTable +
                                      " WHERE AppCompanyInternal = ?1 AND AppNameInternal = ?2 "
                                      "AND AppVersion = ?3");
        find->Bind(1, std::get<0>(key)).Bind(2, std::get<1>(key)).Bind(3, versionText);
        if (find->Step())
            appID = static_cast<unsigned long>(find->Int64(0));
    }
    if (appID == 0) {
        auto insert = m_database.Cached(
            "INSERT INTO " + m_appTable +
            " (AppName, AppNameInternal, AppVersion, AppCompany, AppCompanyInternal, "
            "AppInstalled) VALUES (?1, ?2, ?3, ?4, ?5, 0)");
        insert->Bind(1, nameDisplay)
            .Bind(2, std::get<1>(key))
            .Bind(3, versionText)
            .Bind(4, companyDisplay)
            .Bind(5, std::get<0>(key));
        insert->Execute();
        appID = static_cast<unsigned long>(m_database.LastInsertID());
    }
    m_apps.emplace(std::move(key), appID);
    return appID;
}

void SYInventoryClassifier::AddInstallation(unsigned long appID, unsigned long machineID,
                                            const std::string& location) {
    {
        auto insert = m_database.Cached("INSERT OR IGNORE INTO Installations (InvDataType, AppID, "
                                        "MachineID, Location) VALUES (?1, ?2, ?3, ?4)");
        insert->Bind(1, std::int64_t{m_invDataType})
            .Bind(2, toInt(appID))
            .Bind(3, toInt(machineID))
            .Bind(4, location);
        insert->Execute();
    }
    if (!m_installedApps.insert(appID).second)
        return;
    auto mark = m_database.Cached("UPDATE " + m_appTable +
                                  " SET AppInstalled = 1 WHERE AppID = ?1 AND AppInstalled <> 1");
    mark->Bind(1, toInt(appID));
    mark->Execute();
}

void SYInventoryClassifier::CollectFiles(const std::string& name, std::set<unsigned long>& seen,
                                         std::vector<FileRow>& rows) {
    auto select = m_database.Cached(kFilesByName);
    select->Bind(1, std::int64_t{m_invDataType}).Bind(2, name);
    while (select->Step()) {
        FileRow row;
        row.fileID = static_cast<unsigned long>(select->Int64(0));
        if (!seen.insert(row.fileID).second)
            continue;
        row.file.name = select->Text(1);
        row.file.size = SYStoreValue::ToSize(select->Int64(2));
        row.file.time = CTime(static_cast<std::int32_t>(select->Int64(3)));
        row.file.appName = select->Text(4);
        row.file.appVersion = select->Text(5);
        row.file.appCompany = select->Text(6);
        row.stored.state = static_cast<int>(select->Int64(7));
        row.stored.ruleID = static_cast<unsigned long>(select->Int64(8));
        row.stored.source = select->IsNull(9) ? -1 : static_cast<int>(select->Int64(9));
        row.stored.appID = static_cast<unsigned long>(select->Int64(10));
        rows.push_back(std::move(row));
    }
}

void SYInventoryClassifier::ReclassifyNames(const std::vector<std::string>& names) {
    std::set<unsigned long> seen;
    std::vector<FileRow> rows;
    for (const auto& name : names)
        CollectFiles(name, seen, rows);
    m_database.Exec(kMovedTable);
    m_database.Exec("DELETE FROM temp.SYMovedFiles");
    bool moved = false;
    for (const auto& row : rows) {
        const Stored stored = Classify(row.file);
        if (stored == row.stored)
            continue;
        {
            auto update = m_database.Cached(kUpdateVerdict);
            update->Bind(1, std::int64_t{stored.state})
                .Bind(2, toInt(stored.ruleID))
                .Bind(3, sourceValue(stored.source))
                .Bind(4, toInt(stored.appID))
                .Bind(5, toInt(row.fileID));
            update->Execute();
        }
        if (stored.appID == row.stored.appID)
            continue;
        auto note = m_database.Cached("INSERT INTO temp.SYMovedFiles VALUES (?1, ?2, ?3)");
        note->Bind(1, toInt(row.fileID))
            .Bind(2, toInt(row.stored.appID))
            .Bind(3, toInt(stored.appID));
        note->Execute();
        moved = true;
    }
    if (moved)
        CarryMoves();
}

void SYInventoryClassifier::CarryMoves() {
    for (const char* sql : {kAddMovedInstallations, kDropEmptyInstallations}) {
        auto statement = m_database.Cached(sql);
        statement->Bind(1, std::int64_t{m_invDataType});
        statement->Execute();
    }
    auto flags = m_database.Cached(
        "UPDATE " + m_appTable + " SET AppInstalled = EXISTS (SELECT 1 FROM Installations i " +
        "WHERE i.InvDataType = ?1 AND i.AppID = " + m_appTable + ".AppID) WHERE AppID IN " +
        "(SELECT OldAppID FROM temp.SYMovedFiles UNION SELECT NewAppID FROM temp.SYMovedFiles)");
    flags->Bind(1, std::int64_t{m_invDataType});
    flags->Execute();
    m_installedApps.clear();
}
