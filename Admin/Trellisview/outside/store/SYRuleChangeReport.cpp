#include "outside/store/SYRuleChangeReport.h"

#include "outside/store/SYAppSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYTransaction.h"

namespace {

const char* const kVerdictSql =
    "SELECT FileID, FileState, AppID FROM Files WHERE InvDataType = ? AND FileName = ?";

// The installations of the named files' applications in the folders the files lie in: only
// these can end when the files leave their applications. CROSS JOIN keeps the join in this
// order, from the few files of the name outwards.
const char* const kEndableSql =
    "SELECT i.InstallationID, i.AppID, i.MachineID, i.Location FROM Files f "
    "CROSS JOIN FileLocations l ON l.FileID = f.FileID "
    "CROSS JOIN Installations i ON i.InvDataType = f.InvDataType AND i.AppID = f.AppID "
    "AND i.MachineID = l.MachineID AND i.Location = l.Location "
    "WHERE f.InvDataType = ? AND f.FileName = ? AND f.AppID <> 0";

// Ids of installations only grow (AUTOINCREMENT): the ones made later lie above this.
const char* const kLastInstallationSql =
    "SELECT COALESCE(MAX(InstallationID), 0) FROM Installations";

// The unary + keeps the search on the id range; by the type alone it would walk every
// installation of the inventory.
const char* const kMadeSql = "SELECT AppID, MachineID, Location FROM Installations "
                             "WHERE InstallationID > ? AND +InvDataType = ?";

const char* const kInstallationSql = "SELECT 1 FROM Installations WHERE InstallationID = ?";

const char* const kClientsSql = "SELECT DISTINCT MachineID FROM FileLocations WHERE FileID = ?";

} // namespace

bool SYRuleChangeReport::Run(SYDatabase& database, unsigned char invDataType, bool commit,
                             const std::function<bool()>& write) {
    // System rules can be attached only outside a transaction: here, the way the apply
    // attaches them, so that it finds them in place.
    SYSamData sam(database);
    sam.InvDataType = invDataType;
    sam.EstablishSystemRulesDb(m_installPath);
    SYTransaction transaction(database);
    const Snapshot before = Take(database, invDataType);
    if (!write())
        return false;
    CountFiles(database, before.verdicts, Verdicts(database, invDataType));
    CountInstallations(database, invDataType, before);
    // Applications a write made exist only inside the transaction: named before it ends.
    NameApps(database, invDataType);
    if (commit)
        transaction.Commit();
    return true;
}

std::set<SYRuleChangeReport::Verdict>
SYRuleChangeReport::Verdicts(SYDatabase& database, unsigned char invDataType) const {
    std::set<Verdict> verdicts;
    for (const std::string& name : m_names) {
        auto statement = database.Cached(kVerdictSql);
        statement->Bind(1, std::int64_t{invDataType}).Bind(2, name);
        while (statement->Step())
            verdicts.insert({static_cast<std::uint32_t>(statement->Int64(0)), statement->Int64(1),
                             statement->Int64(2)});
        statement->Reset();
    }
    return verdicts;
}

SYRuleChangeReport::Snapshot SYRuleChangeReport::Take(SYDatabase& database,
                                                      unsigned char invDataType) const {
    Snapshot snapshot;
    snapshot.verdicts = Verdicts(database, invDataType);
    for (const std::string& name : m_names) {
        auto endable = database.Cached(kEndableSql);
        endable->Bind(1, std::int64_t{invDataType}).Bind(2, name);
        // Files of many names share folders: each installation is read once.
        while (endable->Step()) {
            const auto [slot, added] = snapshot.endable.try_emplace(endable->Int64(0));
            if (added)
                slot->second = {endable->Int64(1), endable->Int64(2), endable->Text(3)};
        }
        endable->Reset();
    }
    auto last = database.Cached(kLastInstallationSql);
    if (last->Step())
        snapshot.lastInstallationID = last->Int64(0);
    last->Reset();
    return snapshot;
}

void SYRuleChangeReport::CountFiles(SYDatabase& database, const std::set<Verdict>& before,
                                    const std::set<Verdict>& after) {
    std::set<std::uint32_t> changed;
    for (const Verdict& verdict : after) {
        if (!before.contains(verdict))
            changed.insert(verdict.fileID);
    }
    m_files = static_cast<int>(changed.size());
    std::set<std::int64_t> clients;
    for (std::uint32_t fileID : changed) {
        auto statement = database.Cached(kClientsSql);
        statement->Bind(1, std::int64_t{fileID});
        while (statement->Step())
            clients.insert(statement->Int64(0));
        statement->Reset();
    }
    m_clients = static_cast<int>(clients.size());
}

void SYRuleChangeReport::CountInstallations(SYDatabase& database, unsigned char invDataType,
                                            const Snapshot& before) {
    std::set<Place> made;
    auto newer = database.Cached(kMadeSql);
    newer->Bind(1, before.lastInstallationID).Bind(2, std::int64_t{invDataType});
    while (newer->Step())
        made.insert({newer->Int64(0), newer->Int64(1), newer->Text(2)});
    newer->Reset();
    std::set<Place> ended;
    for (const auto& [installationID, place] : before.endable) {
        auto still = database.Cached(kInstallationSql);
        still->Bind(1, installationID);
        if (!still->Step())
            ended.insert(place);
        still->Reset();
    }

    // A place that lost its installation and got a new one is where it was.
    std::map<std::int64_t, AppChange> apps;
    for (const Place& place : made) {
        if (!ended.contains(place))
            ++apps[place.appID].Gained;
    }
    for (const Place& place : ended) {
        if (!made.contains(place))
            ++apps[place.appID].Lost;
    }
    m_apps.clear();
    for (auto& [appID, change] : apps) {
        change.AppID = static_cast<std::uint32_t>(appID);
        m_apps.push_back(change);
    }
}

void SYRuleChangeReport::NameApps(SYDatabase& database, unsigned char invDataType) {
    for (AppChange& change : m_apps) {
        SYAppSet set(&database);
        set.InvDataType = invDataType;
        set.FilterForAppID(change.AppID);
        set.Open();
        if (!set.IsEOF()) {
            change.AppName = set.AppName();
            change.AppVersion = set.AppVersion();
            change.AppCompany = set.AppCompany();
        }
        set.Close();
    }
}
