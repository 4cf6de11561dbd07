#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

class SYDatabase;

// What a rule change does to one inventory (InvDataType 0 or 1): the files whose verdict
// (state or application) changes, the clients that hold them, and the applications that gain
// or lose installations. Run wraps the write and its apply in one transaction and compares
// the verdicts of the named files before and after; a preview rolls the same transaction
// back, so it reports exactly what the write does. Installations are compared where they can
// change, not read whole: the apply only makes new ones (their ids come after every earlier
// id) and ends those of the named files' applications in the folders the files lie in.
class SYRuleChangeReport {
public:
    struct AppChange {
        std::uint32_t AppID = 0;
        std::string AppName;
        std::string AppVersion;
        std::string AppCompany;
        int Gained = 0;
        int Lost = 0;
    };

    // The file names the write concerns; the apply only reclassifies files of these names.
    void AddName(const std::string& name) { m_names.insert(name); }
    // The installation folder whose system rules the apply consults (see SYSamData).
    void SetInstallPath(const std::string& path) { m_installPath = path; }
    // write runs the change and its apply; false means it failed and nothing is kept.
    // Gives write's result; commits only when it succeeded and commit is set. Store
    // failures pass to the caller, with the transaction undone.
    bool Run(SYDatabase& database, unsigned char invDataType, bool commit,
             const std::function<bool()>& write);

    int Files() const { return m_files; }
    int Clients() const { return m_clients; }
    const std::vector<AppChange>& Apps() const { return m_apps; }

private:
    struct Verdict {
        std::uint32_t fileID;
        std::int64_t state;
        std::int64_t appID;
        auto operator<=>(const Verdict&) const = default;
    };
    // An application in a folder on a client: where an installation stands.
    struct Place {
        std::int64_t appID;
        std::int64_t machineID;
        std::string location;
        auto operator<=>(const Place&) const = default;
    };
    struct Snapshot {
        std::set<Verdict> verdicts;
        // The installations the apply could end, by id.
        std::map<std::int64_t, Place> endable;
        // Every installation made after it has a greater id.
        std::int64_t lastInstallationID = 0;
    };

    std::set<Verdict> Verdicts(SYDatabase& database, unsigned char invDataType) const;
    Snapshot Take(SYDatabase& database, unsigned char invDataType) const;
    void CountFiles(SYDatabase& database, const std::set<Verdict>& before,
                    const std::set<Verdict>& after);
    void CountInstallations(SYDatabase& database, unsigned char invDataType,
                            const Snapshot& before);
    void NameApps(SYDatabase& database, unsigned char invDataType);

    std::string m_installPath;
    std::set<std::string> m_names;
    int m_files = 0;
    int m_clients = 0;
    std::vector<AppChange> m_apps;
};
