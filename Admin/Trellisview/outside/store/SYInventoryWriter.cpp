#include "outside/store/SYInventoryWriter.h"

#include "outside/framework/CException.h"
#include "outside/framework/SYString.h"
#include "outside/services/SYPath.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryClassifier.h"
#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYStoreValue.h"
#include "outside/store/SYTransaction.h"

namespace {

std::int64_t toInt(unsigned long value) {
    return static_cast<std::int64_t>(value);
}

SYDbValue timeValue(const CTime& time) {
    return time.IsNull() ? SYDbValue{} : SYDbValue{std::int64_t{time.GetTime()}};
}

std::string fileKey(unsigned char invDataType, const SYScanFile& file) {
    return std::to_string(invDataType) + '\n' + SYToLower(file.name) + '\n' +
           std::to_string(file.size) + '\n' + std::to_string(file.time.GetTime());
}

} // namespace

SYInventoryWriter::SYInventoryWriter(SYDatabase& database, const std::string& installPath)
    : m_database(database) {
    if (!installPath.empty()) {
        SYPath path(installPath);
        path.Append(SYSamData::SystemRulesFileName);
        m_systemRules = database.AttachSystemRules(path.NativePath());
    }
    m_transaction = std::make_unique<SYTransaction>(database);
}

SYInventoryWriter::~SYInventoryWriter() {
    m_classifiers[0].reset();
    m_classifiers[1].reset();
    m_transaction.reset();
}

void SYInventoryWriter::CheckOpen() const {
    if (!m_transaction)
        throw CDBException(21, "The inventory writer has already committed.");
}

void SYInventoryWriter::Commit() {
    CheckOpen();
    m_transaction->Commit();
    m_transaction.reset();
}

SYInventoryClassifier& SYInventoryWriter::Classifier(unsigned char invDataType) {
    SYInventorySchema::CheckFileInventory(invDataType);
    auto& classifier = m_classifiers[invDataType];
    if (!classifier)
        classifier =
            std::make_unique<SYInventoryClassifier>(m_database, invDataType, m_systemRules);
    return *classifier;
}

unsigned long SYInventoryWriter::AddMachine(const std::string& name, const std::string& user,
                                            const CTime& lastScan) {
    CheckOpen();
    {
        auto insert =
            m_database.Cached("INSERT INTO Machines (MachineName, MachineUser) VALUES (?1, ?2)");
        insert->Bind(1, name).Bind(2, user);
        insert->Execute();
    }
    const auto machineID = static_cast<unsigned long>(m_database.LastInsertID());
    if (!lastScan.IsNull()) {
        auto scan = m_database.Cached(
            "INSERT INTO MachineData (MachineID, ResourceID, CreationTime) VALUES (?1, 1, ?2)");
        scan->Bind(1, toInt(machineID)).Bind(2, std::int64_t{lastScan.GetTime()});
        scan->Execute();
    }
    m_clients[0].insert(machineID);
    return machineID;
}

unsigned long SYInventoryWriter::AddDevice(unsigned char platform, const std::string& name,
                                           const std::string& user, const CTime& lastScan) {
    CheckOpen();
    if (platform < 1 || platform > 3)
        throw CInvalidArgException("A handheld is of platform 1, 2 or 3, not " +
                                   std::to_string(platform) + ".");
    auto insert = m_database.Cached("INSERT INTO Devices (Platform, DeviceName, DeviceUser, "
                                    "LastSWInvTime) VALUES (?1, ?2, ?3, ?4)");
    insert->Bind(1, std::int64_t{platform})
        .Bind(2, name)
        .Bind(3, user)
        .Bind(4, timeValue(lastScan));
    insert->Execute();
    const auto deviceID = static_cast<unsigned long>(m_database.LastInsertID());
    if (platform == 1)
        m_clients[1].insert(deviceID);
    return deviceID;
}

void SYInventoryWriter::CheckClient(unsigned char invDataType, unsigned long clientID) {
    if (m_clients[invDataType].count(clientID) != 0)
        return;
    auto find =
        m_database.Cached(invDataType == InvDataWindows
                              ? "SELECT 1 FROM Machines WHERE MachineID = ?1"
                              : "SELECT 1 FROM Devices WHERE DeviceID = ?1 AND Platform = 1");
    find->Bind(1, toInt(clientID));
    if (!find->Step())
        throw CInvalidArgException("No client " + std::to_string(clientID) + " of inventory " +
                                   std::to_string(invDataType) + " to hold a file.");
    m_clients[invDataType].insert(clientID);
}

SYInventoryWriter::KnownFile SYInventoryWriter::FindOrAddFile(unsigned char invDataType,
                                                              const SYScanFile& file) {
    const std::string key = fileKey(invDataType, file);
    if (const auto known = m_files.find(key); known != m_files.end())
        return known->second;
    KnownFile entry{0, 0};
    {
        auto find = m_database.Cached("SELECT FileID, AppID FROM Files WHERE InvDataType = ?1 AND "
                                      "FileName = ?2 AND FileSize = ?3 AND FileTime = ?4");
        find->Bind(1, std::int64_t{invDataType})
            .Bind(2, file.name)
            .Bind(3, SYStoreValue::FromSize(file.size))
            .Bind(4, std::int64_t{file.time.GetTime()});
        if (find->Step())
            entry = {static_cast<unsigned long>(find->Int64(0)),
                     static_cast<unsigned long>(find->Int64(1))};
    }
    if (entry.fileID == 0) {
        const auto stored = Classifier(invDataType).Classify(file);
        auto insert = m_database.Cached(
            "INSERT INTO Files (InvDataType, FileName, FileSize, FileTime, VerAppName, "
            "VerAppVersion, VerAppCompany, FileState, RuleID, RuleSource, AppID) VALUES "
            "(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)");
        insert->Bind(1, std::int64_t{invDataType})
            .Bind(2, file.name)
            .Bind(3, SYStoreValue::FromSize(file.size))
            .Bind(4, std::int64_t{file.time.GetTime()})
            .Bind(5, file.appName)
            .Bind(6, file.appVersion)
            .Bind(7, file.appCompany)
            .Bind(8, std::int64_t{stored.state})
            .Bind(9, toInt(stored.ruleID))
            .Bind(10, SYInventoryClassifier::SourceValue(stored.source))
            .Bind(11, toInt(stored.appID));
        insert->Execute();
        entry = {static_cast<unsigned long>(m_database.LastInsertID()), stored.appID};
    }
    m_files.emplace(key, entry);
    return entry;
}

unsigned long SYInventoryWriter::AddFile(unsigned char invDataType, unsigned long clientID,
                                         const std::string& location, const SYScanFile& file) {
    CheckOpen();
    SYInventorySchema::CheckFileInventory(invDataType);
    if (file.name.empty())
        throw CInvalidArgException("A scanned file needs a name.");
    CheckClient(invDataType, clientID);
    const KnownFile known = FindOrAddFile(invDataType, file);
    {
        auto insert = m_database.Cached("INSERT OR IGNORE INTO FileLocations (FileID, MachineID, "
                                        "Location) VALUES (?1, ?2, ?3)");
        insert->Bind(1, toInt(known.fileID)).Bind(2, toInt(clientID)).Bind(3, location);
        insert->Execute();
    }
    if (known.appID != 0 && m_database.Changes() > 0)
        Classifier(invDataType).Install(known.appID, clientID, location);
    return known.fileID;
}

long SYInventoryWriter::AddPalmApplication(const SYPalmApp& app) {
    CheckOpen();
    {
        auto find = m_database.Cached("SELECT AppID FROM [Palm Applications] WHERE DatabaseName = "
                                      "?1 AND CreatorID = ?2 AND AppVersion = ?3");
        find->Bind(1, app.databaseName).Bind(2, app.creatorID).Bind(3, app.appVersion);
        if (find->Step())
            return static_cast<long>(find->Int64(0));
    }
    auto insert =
        m_database.Cached("INSERT INTO [Palm Applications] (AppName, AppVersion, "
                          "DatabaseName, CreatorID, IconName) VALUES (?1, ?2, ?3, ?4, ?5)");
    insert->Bind(1, app.appName)
        .Bind(2, app.appVersion)
        .Bind(3, app.databaseName)
        .Bind(4, app.creatorID)
        .Bind(5, app.iconName);
    insert->Execute();
    return static_cast<long>(m_database.LastInsertID());
}

void SYInventoryWriter::AddPalmInstallation(long appID, unsigned long deviceID,
                                            const SYPalmInstall& install) {
    CheckOpen();
    auto insert = m_database.Cached(
        "INSERT INTO [Palm Application Installations] (AppID, DeviceID, InROM, AppSize, "
        "TotalSize, CreateDate, ModifyDate, BackupDate, DatabaseCount, RecordCount, "
        "StorageCardPath) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)");
    insert->Bind(1, std::int64_t{appID})
        .Bind(2, toInt(deviceID))
        .Bind(3, std::int64_t{install.inROM ? 1 : 0})
        .Bind(4, toInt(install.appSize))
        .Bind(5, toInt(install.totalSize))
        .Bind(6, std::int64_t{install.createDate.GetTime()})
        .Bind(7, std::int64_t{install.modifyDate.GetTime()})
        .Bind(8, std::int64_t{install.backupDate.GetTime()})
        .Bind(9, toInt(install.databaseCount))
        .Bind(10, toInt(install.recordCount))
        .Bind(11, install.storageCardPath);
    insert->Execute();
}

long SYInventoryWriter::AddRIMApplication(const std::string& name, const std::string& version) {
    CheckOpen();
    {
        auto find = m_database.Cached(
            "SELECT AppID FROM [RIM Applications] WHERE AppName = ?1 AND AppVersion = ?2");
        find->Bind(1, name).Bind(2, version);
        if (find->Step())
            return static_cast<long>(find->Int64(0));
    }
    auto insert =
        m_database.Cached("INSERT INTO [RIM Applications] (AppName, AppVersion) VALUES (?1, ?2)");
    insert->Bind(1, name).Bind(2, version);
    insert->Execute();
    return static_cast<long>(m_database.LastInsertID());
}

void SYInventoryWriter::AddRIMInstallation(long appID, unsigned long deviceID) {
    CheckOpen();
    auto insert = m_database.Cached(
        "INSERT INTO [RIM Application Installations] (AppID, DeviceID) VALUES (?1, ?2)");
    insert->Bind(1, std::int64_t{appID}).Bind(2, toInt(deviceID));
    insert->Execute();
}

unsigned long SYInventoryWriter::AddUserRule(const SYRuleRow& rule) {
    CheckOpen();
    SYSWRuleSet rules(m_database);
    rules.InvDataType = rule.invDataType;
    rules.AddNew();
    rules.SetRuleState(RuleStateAdded);
    rules.SetRuleType(rule.ruleType);
    rules.SetFileName(rule.fileName);
    if (rule.size)
        rules.SetFileSize(SYStoreValue::Lo(*rule.size), SYStoreValue::Hi(*rule.size));
    rules.SetFileTime(rule.time);
    rules.SetAppName(rule.appName);
    rules.SetAppVersion(rule.appVersion);
    rules.SetAppCompany(rule.appCompany);
    rules.SetComment(rule.comment);
    rules.Update(1);
    Classifier(rule.invDataType).ReclassifyNames({rule.fileName});
    // Files decided before the rule may have moved; their application is read again.
    m_files.clear();
    return rules.NewID();
}
