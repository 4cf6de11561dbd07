#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "outside/framework/CTime.h"
#include "outside/store/SYPalmApp.h"
#include "outside/store/SYPalmInstall.h"
#include "outside/store/SYRuleRow.h"
#include "outside/store/SYScanFile.h"

class SYDatabase;
class SYInventoryClassifier;
class SYTransaction;

// Writes scan results into an inventory, in one transaction that Commit ends (destroying
// an uncommitted writer undoes everything it wrote). Files are decided as they arrive,
// by the same rules and code as the rule service, so verdicts, applications,
// installations and AppInstalled flags stay consistent.
class SYInventoryWriter {
public:
    // installPath: the installation folder whose system rules take part (may be empty).
    explicit SYInventoryWriter(SYDatabase& database, const std::string& installPath = {});
    SYInventoryWriter(const SYInventoryWriter&) = delete;
    SYInventoryWriter& operator=(const SYInventoryWriter&) = delete;
    ~SYInventoryWriter();

    // A Windows PC; lastScan 0 when it has not been scanned. Gives its MachineID.
    unsigned long AddMachine(const std::string& name, const std::string& user,
                             const CTime& lastScan);
    // A handheld of platform 1 (Windows CE), 2 (Palm) or 3 (BlackBerry). Gives its DeviceID.
    unsigned long AddDevice(unsigned char platform, const std::string& name,
                            const std::string& user, const CTime& lastScan);
    // A file found in folder location on a client: a machine for inventory 0, a Windows CE
    // device for 1. Gives the file's id; the same name, size and time is one file.
    unsigned long AddFile(unsigned char invDataType, unsigned long clientID,
                          const std::string& location, const SYScanFile& file);
    // Palm and BlackBerry applications; the same application is found again, not doubled.
    long AddPalmApplication(const SYPalmApp& app);
    void AddPalmInstallation(long appID, unsigned long deviceID, const SYPalmInstall& install);
    // Throw CDBException on a store without the "RIM Applications" table.
    long AddRIMApplication(const std::string& name, const std::string& version);
    void AddRIMInstallation(long appID, unsigned long deviceID);
    // A user rule (RuleStateAdded), applied at once to the files already written.
    unsigned long AddUserRule(const SYRuleRow& rule);

    void Commit();

private:
    struct KnownFile {
        unsigned long fileID;
        unsigned long appID;
    };

    SYInventoryClassifier& Classifier(unsigned char invDataType);
    void CheckClient(unsigned char invDataType, unsigned long clientID);
    KnownFile FindOrAddFile(unsigned char invDataType, const SYScanFile& file);
    void CheckOpen() const;

    SYDatabase& m_database;
    bool m_systemRules = false;
    std::unique_ptr<SYTransaction> m_transaction;
    std::unique_ptr<SYInventoryClassifier> m_classifiers[2];
    std::unordered_map<std::string, KnownFile> m_files;
    std::unordered_set<unsigned long> m_clients[2];
};
