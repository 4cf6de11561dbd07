#include "outside/store/SYInventoryClassifier.h"

#include "outside/services/SYProgress.h"
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

// An application is installed while it has an installation anywhere.
const char* const kInstalledFlag = " SET AppInstalled = EXISTS (SELECT 1 FROM Installations "
                                   "WHERE InvDataType = ?1 AND AppID = ?2) WHERE AppID = ?2";

const char* const kAddInstallation = "INSERT OR IGNORE INTO Installations (InvDataType, AppID, "
                                     "MachineID, Location) VALUES (?1, ?2, ?3, ?4)";

// A file that joins an application makes its installation in every folder it lies in where
// the application had none; the others keep theirs.
const char* const kAddInstallationsOfFile =
    "INSERT OR IGNORE INTO Installations (InvDataType, AppID, MachineID, Location) "
    "SELECT ?1, ?2, MachineID, Location FROM FileLocations WHERE FileID = ?3";

// A file that leaves an application ends the installations of the folders where it was the
// application's last file. Runs after the file's verdict is stored. The file's own folders
// lead: an application left on every client may have more installations than the file has
// folders, and most of its folders keep another file of it, so few installations are read.
const char* const kEndInstallationsOfFile =
    "DELETE FROM Installations WHERE InstallationID IN (SELECT i.InstallationID FROM "
    "FileLocations l CROSS JOIN Installations i ON i.InvDataType = ?1 AND i.AppID = ?2 AND "
    "i.MachineID = l.MachineID AND i.Location = l.Location WHERE l.FileID = ?3 AND NOT EXISTS "
    "(SELECT 1 FROM FileLocations o JOIN Files g ON g.FileID = o.FileID WHERE o.MachineID = "
    "l.MachineID AND o.Location = l.Location AND g.InvDataType = ?1 AND g.AppID = ?2))";

// An application left without any file has no installation left either: they end in one
// run of its index, without looking into each folder.
const char* const kAppKeepsFiles =
    "SELECT EXISTS (SELECT 1 FROM Files WHERE InvDataType = ?1 AND AppID = ?2)";
const char* const kEndInstallationsOfApp =
    "DELETE FROM Installations WHERE InvDataType = ?1 AND AppID = ?2";

std::int64_t toInt(unsigned long value) {
    return static_cast<std::int64_t>(value);
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

void SYInventoryClassifier::Install(unsigned long appID, unsigned long clientID,
                                    const std::string& location) {
    auto add = m_database.Cached(kAddInstallation);
    add->Bind(1, std::int64_t{m_invDataType})
        .Bind(2, toInt(appID))
        .Bind(3, toInt(clientID))
        .Bind(4, location);
    add->Execute();
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
        row.stored.state = static_cast<AppFileState>(select->Int64(7));
        row.stored.ruleID = static_cast<unsigned long>(select->Int64(8));
        row.stored.source =
            select->IsNull(9) ? RuleSourceNone : static_cast<SYRuleSource>(select->Int64(9));
        row.stored.appID = static_cast<unsigned long>(select->Int64(10));
        rows.push_back(std::move(row));
    }
}

void SYInventoryClassifier::ReclassifyNames(const std::vector<std::string>& names) {
    std::set<unsigned long> seen;
    std::vector<FileRow> rows;
    for (const auto& name : names)
        CollectFiles(name, seen, rows);
    std::set<unsigned long> movedApps;
    SYProgress progress(SYProgress::ApplyingRules, rows.size());
    for (const auto& row : rows) {
        progress.Step();
        const Stored stored = Classify(row.file);
        if (stored == row.stored)
            continue;
        StoreVerdict(row.fileID, stored);
        if (stored.appID == row.stored.appID)
            continue;
        MoveInstallations(row.fileID, row.stored.appID, stored.appID);
        movedApps.insert(row.stored.appID);
        movedApps.insert(stored.appID);
    }
    movedApps.erase(0);
    RefreshInstalled(movedApps);
}

SYDbValue SYInventoryClassifier::SourceValue(SYRuleSource source) {
    return source == RuleSourceNone ? SYDbValue{} : SYDbValue{std::int64_t{source}};
}

void SYInventoryClassifier::StoreVerdict(unsigned long fileID, const Stored& stored) {
    auto update = m_database.Cached(kUpdateVerdict);
    update->Bind(1, std::int64_t{stored.state})
        .Bind(2, toInt(stored.ruleID))
        .Bind(3, SourceValue(stored.source))
        .Bind(4, toInt(stored.appID))
        .Bind(5, toInt(fileID));
    update->Execute();
}

void SYInventoryClassifier::MoveInstallations(unsigned long fileID, unsigned long fromAppID,
                                              unsigned long toAppID) {
    const auto run = [&](const char* sql, unsigned long appID) {
        auto statement = m_database.Cached(sql);
        statement->Bind(1, std::int64_t{m_invDataType})
            .Bind(2, toInt(appID))
            .Bind(3, toInt(fileID));
        statement->Execute();
    };
    if (toAppID != 0)
        run(kAddInstallationsOfFile, toAppID);
    if (fromAppID == 0)
        return;
    if (KeepsFiles(fromAppID)) {
        run(kEndInstallationsOfFile, fromAppID);
        return;
    }
    auto end = m_database.Cached(kEndInstallationsOfApp);
    end->Bind(1, std::int64_t{m_invDataType}).Bind(2, toInt(fromAppID));
    end->Execute();
}

bool SYInventoryClassifier::KeepsFiles(unsigned long appID) {
    auto find = m_database.Cached(kAppKeepsFiles);
    find->Bind(1, std::int64_t{m_invDataType}).Bind(2, toInt(appID));
    return find->Step() && find->Int64(0) != 0;
}

void SYInventoryClassifier::RefreshInstalled(const std::set<unsigned long>& appIDs) {
    for (const unsigned long appID : appIDs) {
        auto flag = m_database.Cached("UPDATE " + m_appTable + kInstalledFlag);
        flag->Bind(1, std::int64_t{m_invDataType}).Bind(2, toInt(appID));
        flag->Execute();
        // It may have lost its last file; the next file of it must set the flag again.
        m_installedApps.erase(appID);
    }
}
