#include "outside/store/SYAppFileSet.h"

#include "outside/store/SYDatabase.h"
#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYInventorySchema.h"

void SYAppFileSet::FilterForFileID(unsigned long fileID) {
    m_fileID = fileID;
}

void SYAppFileSet::FilterForAppID(unsigned long appID) {
    m_appID = appID;
}

void SYAppFileSet::FilterForUnidFiles() {
    m_unidFiles = true;
}

void SYAppFileSet::FilterForExcludedFiles() {
    m_excludedFiles = true;
}

void SYAppFileSet::FilterForFileName(const std::string& name) {
    m_fileName = name;
}

void SYAppFileSet::FilterForFileSize(unsigned long sizeLo, unsigned long sizeHi) {
    m_fileSize = SYStoreValue::Size(sizeLo, sizeHi);
}

void SYAppFileSet::FilterForFileTime(const CTime& time) {
    m_fileTime = SYStoreValue::SameMinute(time);
}

void SYAppFileSet::FilterForMachineID(unsigned long machineID) {
    m_machineID = machineID;
    m_joinLocations = true;
}

void SYAppFileSet::FilterForInstallationID(unsigned long installationID) {
    m_installationID = installationID;
    m_joinLocations = true;
}

void SYAppFileSet::JoinLocations() {
    m_joinLocations = true;
}

void SYAppFileSet::SortByID(int descending) {
    m_sortDescending = descending;
}

void SYAppFileSet::ReadFileFieldsOnly() {
    m_fileFieldsOnly = true;
}

void SYAppFileSet::BuildQuery(SYSelect& select) const {
    std::string columns = "f.FileID AS FileID, f.FileName AS FileName, f.FileSize AS FileSize, "
                          "f.FileTime AS FileTime";
    if (m_fileFieldsOnly) {
        select.From("Files f");
    } else {
        columns += ", f.VerAppName AS VerAppName, f.VerAppVersion AS VerAppVersion, "
                   "f.VerAppCompany AS VerAppCompany, f.FileState AS FileState, f.RuleID AS "
                   "RuleID, f.RuleSource AS RuleSource, f.AppID AS AppID, COALESCE(a.AppName, "
                   "'') AS AppName, COALESCE(a.AppVersion, '') AS AppVersion, "
                   "COALESCE(a.AppCompany, '') AS AppCompany";
        select.From(std::string("Files f LEFT JOIN ") + SYInventorySchema::AppTable(InvDataType) +
                    " a ON f.AppID <> 0 AND a.AppID = f.AppID");
    }
    if (m_joinLocations) {
        if (!m_fileFieldsOnly)
            columns += ", l.MachineID AS MachineID, l.Location AS FileLocation";
        select.Join("JOIN FileLocations l ON l.FileID = f.FileID");
    }
    if (m_installationID) {
        select.Join("JOIN Installations i ON i.InvDataType = f.InvDataType AND i.AppID = "
                    "f.AppID AND i.MachineID = l.MachineID AND i.Location = l.Location");
        select.Where("i.InstallationID = ?",
                     std::int64_t{static_cast<std::int64_t>(*m_installationID)});
    }
    select.Columns(columns);
    select.Where("f.InvDataType = ?", std::int64_t{InvDataType});
    if (m_fileID)
        select.Where("f.FileID = ?", std::int64_t{static_cast<std::int64_t>(*m_fileID)});
    if (m_appID)
        select.Where("f.AppID = ?", std::int64_t{static_cast<std::int64_t>(*m_appID)});
    if (m_unidFiles)
        select.Where(SYUnidentifiedFileSql("f.FileState"));
    if (m_excludedFiles)
        select.Where(SYIgnoredFileSql("f.FileState"));
    if (m_fileName)
        select.Where("f.FileName = ?", *m_fileName);
    if (m_fileSize)
        select.Where("f.FileSize = ?", SYStoreValue::FromSize(*m_fileSize));
    if (m_fileTime && m_fileTime->last == 0)
        select.Where("f.FileTime = 0");
    else if (m_fileTime)
        select.Where("f.FileTime BETWEEN ? AND ? AND f.FileTime <> 0", m_fileTime->first,
                     m_fileTime->last);
    if (m_machineID)
        select.Where("l.MachineID = ?", std::int64_t{static_cast<std::int64_t>(*m_machineID)});
    if (m_sortDescending) {
        const std::string direction = *m_sortDescending != 0 ? " DESC" : "";
        select.OrderBy("f.FileID" + direction +
                       (m_joinLocations ? ", l.MachineID, l.Location" : std::string()));
    }
}

unsigned long SYAppFileSet::FileID() const {
    return static_cast<unsigned long>(FieldInt("FileID"));
}

std::string SYAppFileSet::FileName() const {
    return FieldText("FileName");
}

CTime SYAppFileSet::FileTime() const {
    return CTime(static_cast<std::int32_t>(FieldInt("FileTime")));
}

std::uint64_t SYAppFileSet::FileSize() const {
    return SYStoreValue::ToSize(FieldInt("FileSize"));
}

unsigned long SYAppFileSet::FileSizeLo() const {
    return SYStoreValue::Lo(FileSize());
}

unsigned long SYAppFileSet::FileSizeHi() const {
    return SYStoreValue::Hi(FileSize());
}

unsigned long SYAppFileSet::AppID() const {
    return static_cast<unsigned long>(FieldInt("AppID"));
}

std::string SYAppFileSet::AppName() const {
    return FieldText("AppName");
}

std::string SYAppFileSet::AppVersion() const {
    return FieldText("AppVersion");
}

std::string SYAppFileSet::AppCompany() const {
    return FieldText("AppCompany");
}

std::string SYAppFileSet::VersionAppName() const {
    return FieldText("VerAppName");
}

std::string SYAppFileSet::VersionAppVersion() const {
    return FieldText("VerAppVersion");
}

std::string SYAppFileSet::VersionAppCompany() const {
    return FieldText("VerAppCompany");
}

int SYAppFileSet::FileState() const {
    return static_cast<int>(FieldInt("FileState"));
}

unsigned long SYAppFileSet::RuleID() const {
    return static_cast<unsigned long>(FieldInt("RuleID"));
}

int SYAppFileSet::RuleSource() const {
    return FieldIsNull("RuleSource") ? RuleSourceNone : static_cast<int>(FieldInt("RuleSource"));
}

unsigned long SYAppFileSet::MachineID() const {
    return static_cast<unsigned long>(FieldInt("MachineID"));
}

std::string SYAppFileSet::FileLocation() const {
    return FieldText("FileLocation");
}

// Looked up on demand: most readers of joined rows never ask, and a column would cost a
// lookup on every row.
unsigned long SYAppFileSet::InstallationID() const {
    const std::int64_t machineID = FieldInt("MachineID");
    const std::int64_t appID = FieldInt("AppID");
    if (appID == 0)
        return 0;
    // Every row of a set filtered for an installation belongs to it.
    if (m_installationID)
        return *m_installationID;
    auto find = GetDatabase().Cached("SELECT InstallationID FROM Installations WHERE "
                                     "InvDataType = ?1 AND AppID = ?2 AND MachineID = ?3 AND "
                                     "Location = ?4");
    find->Bind(1, std::int64_t{InvDataType})
        .Bind(2, appID)
        .Bind(3, machineID)
        .Bind(4, FileLocation());
    return find->Step() ? static_cast<unsigned long>(find->Int64(0)) : 0;
}
