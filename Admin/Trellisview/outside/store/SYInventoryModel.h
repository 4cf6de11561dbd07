#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "outside/framework/CTime.h"

class SYDatabase;

// What the inventory views and the command line show, read without any widget: companies
// grouped by internal name, the applications of a company, the installed applications, the
// Palm and BlackBerry applications, the unidentified and the ignored files, and the counts
// of the application roots. Every read goes through the store's record sets and
// enumerators, and rows come in their order.
//
// A ForEach walk hands each row to its visitor and stops when the visitor gives false, so a
// search reads no further than its first hit. A Load appends every row to an array. Both
// throw what the store throws; a Load keeps the rows it read before the failure.
class SYInventoryModel {
public:
    // One company: all rows of one internal name, compared without regard to case.
    struct CompanyRow {
        std::string internalName;
        // Every spelling the inventory uses, the commonest first; the first is the one shown.
        std::vector<std::string> spellings;

        const std::string& DisplayName() const { return spellings.front(); }
    };

    // One application of any platform. Palm and BlackBerry ids are signed values carried
    // unchanged; those applications have no internal name of their own, so nameInternal
    // repeats name.
    struct AppRow {
        std::uint32_t appID = 0;
        std::string name;
        std::string version;
        std::string nameInternal;
        // Palm only: the name under the application's icon, may be empty.
        std::string iconName;
        // LoadInstalledApps only: the company's display name.
        std::string company;
    };

    struct FileRow {
        std::uint32_t fileID = 0;
        std::string name;
        std::uint64_t size = 0;
        CTime time;
    };

    // The two file lists of a Windows inventory.
    enum class FileList { unidentified, ignored };

    // The files of a list that a rule names: the name, and size and time where it has them
    // (the time to the minute).
    struct FileMatch {
        std::string name;
        std::optional<std::uint64_t> size;
        std::optional<CTime> time;
    };

    template <class Row> using Visitor = std::function<bool(const Row&)>;

    explicit SYInventoryModel(SYDatabase* database) : m_database(database) {}

    // Companies of the installed applications of inventory 0 or 1, in ascending order of the
    // internal name without regard to case.
    void ForEachCompany(std::uint8_t invDataType, const Visitor<CompanyRow>& visit) const;
    void LoadCompanies(std::uint8_t invDataType, std::vector<CompanyRow>& rows) const;

    // Installed applications of one company, by its internal name, in order of AppID: the
    // views sort them by name.
    void ForEachCompanyApp(std::uint8_t invDataType, const std::string& company,
                           const Visitor<AppRow>& visit) const;
    void LoadCompanyApps(std::uint8_t invDataType, const std::string& company,
                         std::vector<AppRow>& rows) const;

    // Every installed application of inventory 0 or 1, with its company, in order of
    // internal company name, internal name and version.
    void LoadInstalledApps(std::uint8_t invDataType, std::vector<AppRow>& rows) const;

    void ForEachPalmApp(const Visitor<AppRow>& visit) const;
    void LoadPalmApps(std::vector<AppRow>& rows) const;
    // Throws on a store without the BlackBerry table; see HaveRIMTable.
    void ForEachRIMApp(const Visitor<AppRow>& visit) const;
    void LoadRIMApps(std::vector<AppRow>& rows) const;
    bool HaveRIMTable() const;

    void ForEachFile(std::uint8_t invDataType, FileList list, const Visitor<FileRow>& visit) const;
    void LoadFiles(std::uint8_t invDataType, FileList list, std::vector<FileRow>& rows) const;
    void LoadMatchingFiles(std::uint8_t invDataType, FileList list, const FileMatch& match,
                           std::vector<FileRow>& rows) const;
    // The files assigned to an application, one row per place a file lies on a client.
    void ForEachAppFile(std::uint8_t invDataType, std::uint32_t appID,
                        const Visitor<FileRow>& visit) const;

    // The number the root of an inventory's applications shows, as the store gives it:
    // installed Windows and Windows CE applications, all Palm and BlackBerry ones.
    std::string AppCount(std::uint8_t invDataType) const;

private:
    SYDatabase* m_database;
};
