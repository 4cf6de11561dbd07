#pragma once

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYRuleResolver.h"
#include "outside/store/SYStatement.h"

class SYDatabase;

// Keeps the stored verdicts, applications, installations and AppInstalled flags of one
// inventory (0 or 1) in line with the rules. Used by
// the inventory writer for new files and by the rule service for rule changes, so both decide
// alike. Runs inside the caller's transaction.
class SYInventoryClassifier {
public:
    // What the Files row holds about a file's verdict.
    struct Stored {
        AppFileState state = AppFileNoRule;
        unsigned long ruleID = 0;
        SYRuleSource source = RuleSourceNone;
        unsigned long appID = 0;

        bool operator==(const Stored&) const = default;
    };

    SYInventoryClassifier(SYDatabase& database, unsigned char invDataType, bool useSystemRules);

    // The verdict on a file, with its application made when the verdict names a new one.
    Stored Classify(const SYScanFile& file);
    // Decides every file bearing one of the names again, stores the verdicts that changed,
    // and brings the installations and AppInstalled flags of the applications that lost or
    // gained files in line. Work grows with the places those files lie in.
    void ReclassifyNames(const std::vector<std::string>& names);
    // The application with these internal names and version; made (not installed) if new.
    unsigned long FindOrCreateApp(const std::string& company, const std::string& name,
                                  const std::string& version);
    // A file of application appID now lies in folder location on a client: the application
    // is installed there, under the installation it has there or a new one.
    void Install(unsigned long appID, unsigned long clientID, const std::string& location);
    // The RuleSource column's value: NULL when no rule governs the file.
    static SYDbValue SourceValue(SYRuleSource source);

private:
    struct FileRow {
        unsigned long fileID = 0;
        SYScanFile file;
        Stored stored;
    };

    void CollectFiles(const std::string& name, std::set<unsigned long>& seen,
                      std::vector<FileRow>& rows);
    void StoreVerdict(unsigned long fileID, const Stored& stored);
    void MoveInstallations(unsigned long fileID, unsigned long fromAppID, unsigned long toAppID);
    // Whether a file of the application is left, under its stored verdict.
    bool KeepsFiles(unsigned long appID);
    void RefreshInstalled(const std::set<unsigned long>& appIDs);

    SYDatabase& m_database;
    unsigned char m_invDataType;
    std::string m_appTable;
    SYRuleResolver m_resolver;
    std::map<std::tuple<std::string, std::string, std::string>, unsigned long> m_apps;
    // Applications whose flag Install has set, so that each is written once.
    std::set<unsigned long> m_installedApps;
};
