#include "outside/store/SYRuleChangeReport.h"

#include <map>

#include "outside/store/SYAppSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYTransaction.h"

namespace {

const char* const kVerdictSql =
    "SELECT FileID, FileState, AppID FROM Files WHERE InvDataType = ? AND FileName = ?";

// Every installation in a folder that holds a file of the name: only there can a change of
// that file's application start or end one. CROSS JOIN keeps the join in this order, from
// the few files of the name outwards; the planner would otherwise start from all files.
const char* const kInstallationSql =
    "SELECT DISTINCT o.AppID, n.MachineID, n.Location FROM Files nf "
    "CROSS JOIN FileLocations n ON n.FileID = nf.FileID "
    "CROSS JOIN FileLocations ol ON ol.MachineID = n.MachineID AND ol.Location = n.Location "
    "CROSS JOIN Files o ON o.FileID = ol.FileID "
    "WHERE nf.InvDataType = ? AND nf.FileName = ? AND o.InvDataType = nf.InvDataType "
    "AND o.AppID <> 0";

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
    Compare(database, before, Take(database, invDataType));
    // Applications a write made exist only inside the transaction: named before it ends.
    NameApps(database, invDataType);
    if (commit)
        transaction.Commit();
    return true;
}

SYRuleChangeReport::Snapshot SYRuleChangeReport::Take(SYDatabase& database,
                                                      unsigned char invDataType) const {
    Snapshot snapshot;
    for (const std::string& name : m_names) {
        auto verdicts = database.Cached(kVerdictSql);
        verdicts->Bind(1, std::int64_t{invDataType}).Bind(2, name);
        while (verdicts->Step())
            snapshot.verdicts.insert({static_cast<std::uint32_t>(verdicts->Int64(0)),
                                      verdicts->Int64(1), verdicts->Int64(2)});
        verdicts->Reset();
        auto installations = database.Cached(kInstallationSql);
        installations->Bind(1, std::int64_t{invDataType}).Bind(2, name);
        while (installations->Step())
            snapshot.installations.insert(
                {installations->Int64(0), installations->Int64(1), installations->Text(2)});
        installations->Reset();
    }
    return snapshot;
}

void SYRuleChangeReport::Compare(SYDatabase& database, const Snapshot& before,
                                 const Snapshot& after) {
    std::set<std::uint32_t> changed;
    for (const Verdict& verdict : after.verdicts) {
        if (!before.verdicts.contains(verdict))
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

    std::map<std::int64_t, AppChange> apps;
    for (const Installation& installation : after.installations) {
        if (!before.installations.contains(installation))
            ++apps[installation.appID].Gained;
    }
    for (const Installation& installation : before.installations) {
        if (!after.installations.contains(installation))
            ++apps[installation.appID].Lost;
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
