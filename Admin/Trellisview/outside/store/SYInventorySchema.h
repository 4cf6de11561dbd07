#pragma once

#include <cstdint>
#include <string>

class SYDatabase;

// The inventory schema, version 4 (PRAGMA user_version; PRAGMA application_id marks the
// file as an inventory). Clients, files and rules:
//
//   Machines        MachineID, MachineName, MachineUser: Windows PCs.
//   MachineData     MachineID, ResourceID, CreationTime: records a PC's scans leave;
//                   resource 1 is the software scan, so its CreationTime is the last scan.
//   Devices         DeviceID, Platform (InvDataType 1, 2, 3), DeviceName, DeviceUser,
//                   LastSWInvTime (NULL before the first software scan): handhelds.
//   Files           FileID, InvDataType (0 or 1), FileName (NOCASE), FileSize, FileTime,
//                   VerAppName, VerAppVersion, VerAppCompany (the file's version
//                   information), and its verdict: FileState (AppFileState), RuleID (the
//                   effective rule, 0 for version information or none), RuleSource
//                   (SYRuleSource, NULL if none) and AppID (0 if none).
//                   One row per name, size and time.
//   FileLocations   LocationID, FileID, MachineID (a Machines row for inventory 0, a
//                   Devices row for 1), Location: the folder the file lies in.
//   Installations   InstallationID, InvDataType, AppID, MachineID, Location: one row per
//                   application and folder on a client where a file of that application
//                   lies, kept by the inventory writer and the rule service as files come
//                   and move. Its id stays while the application keeps a file there and is
//                   never given again. Version 1 had the table unmaintained, version 2 a
//                   view under the lowest LocationID of those files, version 3 an index
//                   by client as well.
//   SWRules         the user rules. RuleID never comes back once used. A row in
//                   RuleStateRemoved is retired for good: kept for history, never active,
//                   never deleted by the store (see SYSWRuleSet); an index of the active
//                   rows by name keeps lookups clear of the retired ones.
//
// Applications: "Applications" and "PPC Applications" (AppID, AppName, AppNameInternal,
// AppVersion, AppCompany, AppCompanyInternal, AppInstalled: 1 while an installation
// exists); "Palm Applications" (AppID, AppName, AppVersion, DatabaseName, CreatorID,
// IconName) with "Palm Application Installations"; "RIM Applications" (AppID, AppName,
// AppVersion) with "RIM Application Installations", both absent from older stores.
//
// The system rules database is a file of its own (application_id "TVSR") with one table,
// SystemRules: RuleID, InvDataType, RuleType, FileName, FileSize, FileTime, AppName,
// AppVersion, AppCompany, Comment.
class SYInventorySchema {
public:
    static constexpr int Version = 4;
    static constexpr std::int32_t ApplicationID = 0x5456494E;
    static constexpr int SystemRulesVersion = 1;
    static constexpr std::int32_t SystemRulesApplicationID = 0x54565352;

    static void Create(SYDatabase& database, bool withRIMTables);
    // Throws CDBException, naming the file, unless the open file is an inventory of a
    // version this program reads. Reads only.
    static void Check(SYDatabase& database, const std::string& path);
    // Brings a checked inventory of an older version to this one, in one transaction.
    static void Upgrade(SYDatabase& database);

    static void CreateSystemRules(SYDatabase& database);
    // The same check for the system rules database under a schema name ("main",
    // "sysrules").
    static void CheckSystemRules(SYDatabase& database, const std::string& schema,
                                 const std::string& path);

    // The bracketed application table of inventory 0 or 1; throws CInvalidArgException
    // for any other.
    static const char* AppTable(unsigned char invDataType);
    static void CheckFileInventory(unsigned char invDataType);
};
