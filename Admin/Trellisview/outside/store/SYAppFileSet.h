#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/store/SYRecordset.h"
#include "outside/store/SYStoreValue.h"

// Files of the Windows PC or Windows CE inventory (InvDataType 0 or 1) with their verdict
// and the application the inventory assigned them to. JoinLocations gives one row per
// place a file lies on a client; the filters on client and installation imply it.
// File names compare without regard to ASCII case.
class SYAppFileSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForFileID(unsigned long fileID);
    void FilterForAppID(unsigned long appID);
    // Files no rule governs (AppFileNoRule).
    void FilterForUnidFiles();
    // Files an ignore rule governs, of the user or of the system.
    void FilterForExcludedFiles();
    void FilterForFileName(const std::string& name);
    void FilterForFileSize(unsigned long sizeLo, unsigned long sizeHi);
    // Files whose time lies in the same minute as time.
    void FilterForFileTime(const CTime& time);
    void FilterForMachineID(unsigned long machineID);
    // The files of one installation (see SYInventorySchema): its application's files in
    // its folder on its client. An id that is no installation's gives no row.
    void FilterForInstallationID(unsigned long installationID);
    void JoinLocations();
    // Ascending by FileID, or descending; joined rows of one file stay together.
    void SortByID(int descending = 0);
    // Reads the file's id, name, size and time only: a set over many joined rows then does
    // not work out the other columns on each row. Reading another field throws CDBException.
    void ReadFileFieldsOnly();

    unsigned long FileID() const;
    std::string FileName() const;
    CTime FileTime() const;
    std::uint64_t FileSize() const;
    unsigned long FileSizeLo() const;
    unsigned long FileSizeHi() const;
    // The assigned application; empty when the file has none.
    unsigned long AppID() const;
    std::string AppName() const;
    std::string AppVersion() const;
    std::string AppCompany() const;
    // What the scan found in the file's own version information.
    std::string VersionAppName() const;
    std::string VersionAppVersion() const;
    std::string VersionAppCompany() const;
    // The stored verdict: AppFileState, the effective rule (0 if none) and its source
    // (SYRuleSource, RuleSourceNone if no rule governs the file).
    int FileState() const;
    unsigned long RuleID() const;
    int RuleSource() const;

    // With JoinLocations: the client, the folder the file lies in, and the installation
    // that place belongs to (0 when the file has no application; looked up on each call).
    unsigned long MachineID() const;
    std::string FileLocation() const;
    unsigned long InstallationID() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<unsigned long> m_fileID;
    std::optional<unsigned long> m_appID;
    std::optional<unsigned long> m_machineID;
    std::optional<unsigned long> m_installationID;
    std::optional<std::string> m_fileName;
    std::optional<std::uint64_t> m_fileSize;
    std::optional<SYStoreValue::Range> m_fileTime;
    bool m_unidFiles = false;
    bool m_excludedFiles = false;
    bool m_joinLocations = false;
    bool m_fileFieldsOnly = false;
    std::optional<int> m_sortDescending;
};
