#include "outside/store/SYInventorySchema.h"

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/store/SYTransaction.h"

namespace {

const char* const kCoreSchema = R"sql(
CREATE TABLE Machines (
    MachineID INTEGER PRIMARY KEY,
    MachineName TEXT NOT NULL,
    MachineUser TEXT NOT NULL DEFAULT '');
CREATE TABLE MachineData (
    MachineID INTEGER NOT NULL,
    ResourceID INTEGER NOT NULL,
    CreationTime INTEGER NOT NULL,
    PRIMARY KEY (MachineID, ResourceID));
CREATE TABLE Devices (
    DeviceID INTEGER PRIMARY KEY,
    Platform INTEGER NOT NULL,
    DeviceName TEXT NOT NULL,
    DeviceUser TEXT NOT NULL DEFAULT '',
    LastSWInvTime INTEGER);
CREATE INDEX DevicesByPlatform ON Devices (Platform);
CREATE TABLE Files (
    FileID INTEGER PRIMARY KEY,
    InvDataType INTEGER NOT NULL,
    FileName TEXT NOT NULL COLLATE NOCASE,
    FileSize INTEGER NOT NULL,
    FileTime INTEGER NOT NULL,
    VerAppName TEXT NOT NULL DEFAULT '',
    VerAppVersion TEXT NOT NULL DEFAULT '',
    VerAppCompany TEXT NOT NULL DEFAULT '',
    FileState INTEGER NOT NULL DEFAULT 0,
    RuleID INTEGER NOT NULL DEFAULT 0,
    RuleSource INTEGER,
    AppID INTEGER NOT NULL DEFAULT 0);
CREATE UNIQUE INDEX FilesByName ON Files (InvDataType, FileName, FileSize, FileTime);
CREATE INDEX FilesByState ON Files (InvDataType, FileState);
CREATE INDEX FilesByApp ON Files (InvDataType, AppID);
CREATE INDEX FilesBySize ON Files (InvDataType, FileSize);
CREATE INDEX FilesByTime ON Files (InvDataType, FileTime);
CREATE TABLE FileLocations (
    LocationID INTEGER PRIMARY KEY,
    FileID INTEGER NOT NULL,
    MachineID INTEGER NOT NULL,
    Location TEXT NOT NULL);
CREATE UNIQUE INDEX LocationsByFile ON FileLocations (FileID, MachineID, Location);
CREATE INDEX LocationsByMachine ON FileLocations (MachineID, Location);
CREATE TABLE [Applications] (
    AppID INTEGER PRIMARY KEY,
    AppName TEXT NOT NULL,
    AppNameInternal TEXT NOT NULL,
    AppVersion TEXT NOT NULL,
    AppCompany TEXT NOT NULL,
    AppCompanyInternal TEXT NOT NULL,
    AppInstalled INTEGER NOT NULL DEFAULT 0);
CREATE UNIQUE INDEX ApplicationsByName
    ON [Applications] (AppCompanyInternal, AppNameInternal, AppVersion);
CREATE TABLE [PPC Applications] (
    AppID INTEGER PRIMARY KEY,
    AppName TEXT NOT NULL,
    AppNameInternal TEXT NOT NULL,
    AppVersion TEXT NOT NULL,
    AppCompany TEXT NOT NULL,
    AppCompanyInternal TEXT NOT NULL,
    AppInstalled INTEGER NOT NULL DEFAULT 0);
CREATE UNIQUE INDEX PPCApplicationsByName
    ON [PPC Applications] (AppCompanyInternal, AppNameInternal, AppVersion);
CREATE TABLE [Palm Applications] (
    AppID INTEGER PRIMARY KEY,
    AppName TEXT NOT NULL,
    AppVersion TEXT NOT NULL,
    DatabaseName TEXT NOT NULL,
    CreatorID TEXT NOT NULL,
    IconName TEXT NOT NULL DEFAULT '');
CREATE UNIQUE INDEX PalmApplicationsByDatabase
    ON [Palm Applications] (DatabaseName, CreatorID, AppVersion);
CREATE TABLE [Palm Application Installations] (
    InstallationID INTEGER PRIMARY KEY,
    AppID INTEGER NOT NULL,
    DeviceID INTEGER NOT NULL,
    InROM INTEGER NOT NULL DEFAULT 0,
    AppSize INTEGER NOT NULL DEFAULT 0,
    TotalSize INTEGER NOT NULL DEFAULT 0,
    CreateDate INTEGER NOT NULL DEFAULT 0,
    ModifyDate INTEGER NOT NULL DEFAULT 0,
    BackupDate INTEGER NOT NULL DEFAULT 0,
    DatabaseCount INTEGER NOT NULL DEFAULT 0,
    RecordCount INTEGER NOT NULL DEFAULT 0,
    StorageCardPath TEXT NOT NULL DEFAULT '');
CREATE INDEX PalmInstallationsByApp ON [Palm Application Installations] (AppID, DeviceID);
CREATE INDEX PalmInstallationsByDevice ON [Palm Application Installations] (DeviceID);
CREATE TABLE SWRules (
    RuleID INTEGER PRIMARY KEY AUTOINCREMENT,
    InvDataType INTEGER NOT NULL,
    RuleState INTEGER NOT NULL,
    RuleType INTEGER NOT NULL,
    FileName TEXT NOT NULL COLLATE NOCASE,
    FileSize INTEGER,
    FileTime INTEGER,
    AppName TEXT NOT NULL DEFAULT '',
    AppVersion TEXT NOT NULL DEFAULT '',
    AppCompany TEXT NOT NULL DEFAULT '',
    Comment TEXT NOT NULL DEFAULT '');
CREATE INDEX SWRulesByName ON SWRules (InvDataType, FileName, FileSize);
CREATE INDEX SWRulesByState ON SWRules (InvDataType, RuleState);
CREATE INDEX SWRulesBySize ON SWRules (InvDataType, FileSize);
CREATE INDEX SWRulesByTime ON SWRules (InvDataType, FileTime);
)sql";

// What version 2 adds to the tables above. Retired rules pile up under the names they had;
// the active ones are found without passing them. Company keys compare without regard to
// case, so their indexes carry that collation.
std::string version2Schema() {
    return R"sql(
DROP INDEX IF EXISTS ApplicationsInstalled;
CREATE INDEX ApplicationsInstalled
    ON [Applications] (AppInstalled, AppCompanyInternal COLLATE NOCASE);
DROP INDEX IF EXISTS PPCApplicationsInstalled;
CREATE INDEX PPCApplicationsInstalled
    ON [PPC Applications] (AppInstalled, AppCompanyInternal COLLATE NOCASE);
DROP INDEX IF EXISTS SWRulesActiveByName;
CREATE INDEX SWRulesActiveByName ON SWRules (InvDataType, FileName, FileSize)
    WHERE )sql" +
           SYActiveRuleSql("RuleState") + ";\n";
}

// Version 3 stores installations, so that an installation keeps its id while files move
// around it and reads by id or application are index lookups. AUTOINCREMENT keeps an ended
// installation's id from naming a later one. A rule on a file that lies on every client
// writes one run of rows in each of these b-trees; version 3 also had an index by client,
// which took one insert per client spread over all its pages and served no read.
const char* const kInstallationsTable = R"sql(
CREATE TABLE Installations (
    InstallationID INTEGER PRIMARY KEY AUTOINCREMENT,
    InvDataType INTEGER NOT NULL,
    AppID INTEGER NOT NULL,
    MachineID INTEGER NOT NULL,
    Location TEXT NOT NULL);
CREATE UNIQUE INDEX InstallationsByApp
    ON Installations (InvDataType, AppID, MachineID, Location);
)sql";

// The installations a store of version 1 or 2 implies: one per application and folder on a
// client, under the lowest location of its files there, the id version 2 showed.
const char* const kDeriveInstallations = R"sql(
INSERT INTO Installations (InstallationID, InvDataType, AppID, MachineID, Location)
SELECT MIN(l.LocationID), f.InvDataType, f.AppID, l.MachineID, l.Location
FROM Files f JOIN FileLocations l ON l.FileID = f.FileID
WHERE f.AppID <> 0
GROUP BY f.InvDataType, f.AppID, l.MachineID, l.Location;
)sql";

const char* const kRIMSchema = R"sql(
CREATE TABLE [RIM Applications] (
    AppID INTEGER PRIMARY KEY,
    AppName TEXT NOT NULL,
    AppVersion TEXT NOT NULL);
CREATE UNIQUE INDEX RIMApplicationsByName ON [RIM Applications] (AppName, AppVersion);
CREATE TABLE [RIM Application Installations] (
    InstallationID INTEGER PRIMARY KEY,
    AppID INTEGER NOT NULL,
    DeviceID INTEGER NOT NULL);
CREATE INDEX RIMInstallationsByApp ON [RIM Application Installations] (AppID, DeviceID);
CREATE INDEX RIMInstallationsByDevice ON [RIM Application Installations] (DeviceID);
)sql";

const char* const kSystemRulesSchema = R"sql(
CREATE TABLE SystemRules (
    RuleID INTEGER PRIMARY KEY,
    InvDataType INTEGER NOT NULL,
    RuleType INTEGER NOT NULL,
    FileName TEXT NOT NULL COLLATE NOCASE,
    FileSize INTEGER,
    FileTime INTEGER,
    AppName TEXT NOT NULL DEFAULT '',
    AppVersion TEXT NOT NULL DEFAULT '',
    AppCompany TEXT NOT NULL DEFAULT '',
    Comment TEXT NOT NULL DEFAULT '');
CREATE INDEX SystemRulesByName ON SystemRules (InvDataType, FileName, FileSize);
)sql";

std::int64_t pragmaValue(SYDatabase& database, const std::string& schema, const char* pragma) {
    SYStatement statement(database, "PRAGMA " + schema + "." + pragma);
    return statement.Step() ? statement.Int64(0) : 0;
}

void stamp(SYDatabase& database, std::int32_t applicationID, int version) {
    database.Exec("PRAGMA application_id = " + std::to_string(applicationID) +
                  "; PRAGMA user_version = " + std::to_string(version) + ";");
}

// Reading the header of a file that is no database fails inside the engine; that failure
// is turned into the same plain message as a foreign database.
void checkStamp(SYDatabase& database, const std::string& schema, const std::string& path,
                std::int32_t applicationID, int version, const char* kind) {
    std::int64_t foundID = 0;
    std::int64_t foundVersion = 0;
    try {
        foundID = pragmaValue(database, schema, "application_id");
        foundVersion = pragmaValue(database, schema, "user_version");
    } catch (const CDBException& e) {
        throw CDBException(e.Code(), "\"" + path + "\" is not " + kind + ": " + e.ErrorMessage());
    }
    if (foundID != applicationID)
        throw CDBException(26, "\"" + path + "\" is not " + kind + ".");
    if (foundVersion > version)
        throw CDBException(26, "\"" + path + "\" is " + kind + " of schema version " +
                                   std::to_string(foundVersion) +
                                   ", newer than this program reads (" + std::to_string(version) +
                                   ").");
    if (foundVersion < 1)
        throw CDBException(26, "\"" + path + "\" is " + kind + " without a schema version.");
}

// Version 1 kept installations in a table its writers did not keep in line with rules,
// version 2 derived them in a view; both are made again from the files.
void deriveInstallations(SYDatabase& database, std::int64_t version) {
    database.Exec(version == 1 ? "DROP TABLE IF EXISTS Installations"
                               : "DROP VIEW IF EXISTS Installations");
    database.Exec(version2Schema());
    database.Exec(kInstallationsTable);
    database.Exec(kDeriveInstallations);
}

} // namespace

void SYInventorySchema::Create(SYDatabase& database, bool withRIMTables) {
    database.Exec(kCoreSchema);
    database.Exec(version2Schema());
    database.Exec(kInstallationsTable);
    if (withRIMTables)
        database.Exec(kRIMSchema);
    stamp(database, ApplicationID, Version);
}

void SYInventorySchema::Check(SYDatabase& database, const std::string& path) {
    checkStamp(database, "main", path, ApplicationID, Version, "a Trellisview inventory");
}

void SYInventorySchema::Upgrade(SYDatabase& database) {
    const std::int64_t version = pragmaValue(database, "main", "user_version");
    if (version >= Version)
        return;
    SYTransaction transaction(database);
    if (version < 3)
        deriveInstallations(database, version);
    // Version 3's stored installations keep their ids; only the index by client goes.
    database.Exec("DROP INDEX IF EXISTS InstallationsByMachine");
    stamp(database, ApplicationID, Version);
    transaction.Commit();
}

void SYInventorySchema::CreateSystemRules(SYDatabase& database) {
    database.Exec(kSystemRulesSchema);
    stamp(database, SystemRulesApplicationID, SystemRulesVersion);
}

void SYInventorySchema::CheckSystemRules(SYDatabase& database, const std::string& schema,
                                         const std::string& path) {
    checkStamp(database, schema, path, SystemRulesApplicationID, SystemRulesVersion,
               "a system rules database");
}

const char* SYInventorySchema::AppTable(unsigned char invDataType) {
    CheckFileInventory(invDataType);
    return invDataType == InvDataWindows ? "[Applications]" : "[PPC Applications]";
}

void SYInventorySchema::CheckFileInventory(unsigned char invDataType) {
    if (invDataType > InvDataPPC)
        throw CInvalidArgException("Inventory " + std::to_string(invDataType) +
                                   " has no files or rules; only 0 (Windows PCs) and 1 "
                                   "(Windows CE) do.");
}
