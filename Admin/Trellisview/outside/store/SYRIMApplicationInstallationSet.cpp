#include "outside/store/SYRIMApplicationInstallationSet.h"

#include <cstdint>

void SYRIMApplicationInstallationSet::FilterForAppID(long appID) {
    m_appID = appID;
}

void SYRIMApplicationInstallationSet::FilterForDeviceID(unsigned long deviceID) {
    m_deviceID = deviceID;
}

void SYRIMApplicationInstallationSet::JoinDevices() {
    m_joinDevices = true;
}

void SYRIMApplicationInstallationSet::JoinApplications() {
    m_joinApplications = true;
}

void SYRIMApplicationInstallationSet::BuildQuery(SYSelect& select) const {
    std::string columns = "r.AppID AS AppID, r.DeviceID AS DeviceID";
    select.From("[RIM Application Installations] r");
    if (m_joinDevices) {
        columns += ", COALESCE(d.DeviceName, '') AS ClientName";
        select.Join("LEFT JOIN Devices d ON d.DeviceID = r.DeviceID");
    }
    if (m_joinApplications) {
        columns += ", COALESCE(a.AppName, '') AS AppName, COALESCE(a.AppVersion, '') AS "
                   "AppVersion";
        select.Join("LEFT JOIN [RIM Applications] a ON a.AppID = r.AppID");
    }
    select.Columns(columns);
    if (m_appID)
        select.Where("r.AppID = ?", static_cast<std::int64_t>(*m_appID));
    if (m_deviceID)
        select.Where("r.DeviceID = ?", static_cast<std::int64_t>(*m_deviceID));
    select.OrderBy("r.DeviceID, r.InstallationID");
}

long SYRIMApplicationInstallationSet::AppID() const {
    return static_cast<long>(FieldInt("AppID"));
}

unsigned long SYRIMApplicationInstallationSet::DeviceID() const {
    return static_cast<unsigned long>(FieldInt("DeviceID"));
}

std::string SYRIMApplicationInstallationSet::ClientName() const {
    return FieldText("ClientName");
}

std::string SYRIMApplicationInstallationSet::AppName() const {
    return FieldText("AppName");
}

std::string SYRIMApplicationInstallationSet::AppVersion() const {
    return FieldText("AppVersion");
}
