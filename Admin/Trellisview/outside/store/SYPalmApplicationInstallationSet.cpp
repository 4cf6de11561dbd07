#include "outside/store/SYPalmApplicationInstallationSet.h"

#include <cstdint>

void SYPalmApplicationInstallationSet::FilterForAppID(long appID) {
    m_appID = appID;
}

void SYPalmApplicationInstallationSet::FilterForDeviceID(unsigned long deviceID) {
    m_deviceID = deviceID;
}

void SYPalmApplicationInstallationSet::JoinDevices() {
    m_joinDevices = true;
}

void SYPalmApplicationInstallationSet::JoinApplications() {
    m_joinApplications = true;
}

void SYPalmApplicationInstallationSet::BuildQuery(SYSelect& select) const {
    std::string columns = "p.AppID AS AppID, p.DeviceID AS DeviceID, p.InROM AS InROM, "
                          "p.AppSize AS AppSize, p.TotalSize AS TotalSize, "
                          "p.CreateDate AS CreateDate, p.ModifyDate AS ModifyDate, "
                          "p.BackupDate AS BackupDate, p.DatabaseCount AS DatabaseCount, "
                          "p.RecordCount AS RecordCount, p.StorageCardPath AS StorageCardPath";
    select.From("[Palm Application Installations] p");
    if (m_joinDevices) {
        columns += ", COALESCE(d.DeviceName, '') AS ClientName";
        select.Join("LEFT JOIN Devices d ON d.DeviceID = p.DeviceID");
    }
    if (m_joinApplications) {
        columns += ", COALESCE(a.AppName, '') AS AppName, COALESCE(a.AppVersion, '') AS "
                   "AppVersion, COALESCE(a.DatabaseName, '') AS DatabaseName, "
                   "COALESCE(a.CreatorID, '') AS CreatorID";
        select.Join("LEFT JOIN [Palm Applications] a ON a.AppID = p.AppID");
    }
    select.Columns(columns);
    if (m_appID)
        select.Where("p.AppID = ?", static_cast<std::int64_t>(*m_appID));
    if (m_deviceID)
        select.Where("p.DeviceID = ?", static_cast<std::int64_t>(*m_deviceID));
    select.OrderBy("p.DeviceID, p.InstallationID");
}

CTime SYPalmApplicationInstallationSet::TimeField(const char* name) const {
    return CTime(static_cast<std::int32_t>(FieldInt(name)));
}

long SYPalmApplicationInstallationSet::AppID() const {
    return static_cast<long>(FieldInt("AppID"));
}

unsigned long SYPalmApplicationInstallationSet::DeviceID() const {
    return static_cast<unsigned long>(FieldInt("DeviceID"));
}

int SYPalmApplicationInstallationSet::InROM() const {
    return FieldInt("InROM") != 0 ? 1 : 0;
}

unsigned long SYPalmApplicationInstallationSet::AppSize() const {
    return static_cast<unsigned long>(FieldInt("AppSize"));
}

unsigned long SYPalmApplicationInstallationSet::TotalSize() const {
    return static_cast<unsigned long>(FieldInt("TotalSize"));
}

CTime SYPalmApplicationInstallationSet::CreateDate() const {
    return TimeField("CreateDate");
}

CTime SYPalmApplicationInstallationSet::ModifyDate() const {
    return TimeField("ModifyDate");
}

CTime SYPalmApplicationInstallationSet::BackupDate() const {
    return TimeField("BackupDate");
}

unsigned long SYPalmApplicationInstallationSet::DatabaseCount() const {
    return static_cast<unsigned long>(FieldInt("DatabaseCount"));
}

unsigned long SYPalmApplicationInstallationSet::RecordCount() const {
    return static_cast<unsigned long>(FieldInt("RecordCount"));
}

std::string SYPalmApplicationInstallationSet::StorageCardPath() const {
    return FieldText("StorageCardPath");
}

std::string SYPalmApplicationInstallationSet::ClientName() const {
    return FieldText("ClientName");
}

std::string SYPalmApplicationInstallationSet::AppName() const {
    return FieldText("AppName");
}

std::string SYPalmApplicationInstallationSet::AppVersion() const {
    return FieldText("AppVersion");
}

std::string SYPalmApplicationInstallationSet::DatabaseName() const {
    return FieldText("DatabaseName");
}

std::string SYPalmApplicationInstallationSet::CreatorID() const {
    return FieldText("CreatorID");
}
