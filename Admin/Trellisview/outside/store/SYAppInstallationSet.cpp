#include "outside/store/SYAppInstallationSet.h"

#include <cstdint>

#include "outside/store/SYInventorySchema.h"

namespace {

std::int64_t idValue(unsigned long id) {
    return static_cast<std::int64_t>(id);
}

} // namespace

void SYAppInstallationSet::FilterForAppID(unsigned long appID) {
    m_appID = appID;
}

void SYAppInstallationSet::FilterForMachineID(unsigned long machineID) {
    m_machineID = machineID;
}

void SYAppInstallationSet::FilterForInstallationID(unsigned long installationID) {
    m_installationID = installationID;
}

void SYAppInstallationSet::JoinMachines() {
    m_joinMachines = true;
}

void SYAppInstallationSet::SortByMachineID() {
    m_sortByMachine = true;
}

void SYAppInstallationSet::BuildQuery(SYSelect& select) const {
    SYInventorySchema::CheckFileInventory(InvDataType);
    std::string columns =
        "i.InstallationID AS InstallationID, i.AppID AS AppID, i.MachineID AS MachineID, "
        "i.Location AS Location";
    select.From("Installations i");
    if (m_joinMachines) {
        const bool pcs = InvDataType == InvDataWindows;
        columns += pcs ? ", COALESCE(c.MachineName, '') AS MachineName"
                       : ", COALESCE(c.DeviceName, '') AS MachineName";
        select.Join(pcs ? "LEFT JOIN Machines c ON c.MachineID = i.MachineID"
                        : "LEFT JOIN Devices c ON c.DeviceID = i.MachineID");
    }
    select.Columns(columns);
    select.Where("i.InvDataType = ?", std::int64_t{InvDataType});
    if (m_appID)
        select.Where("i.AppID = ?", idValue(*m_appID));
    if (m_machineID)
        select.Where("i.MachineID = ?", idValue(*m_machineID));
    if (m_installationID)
        select.Where("i.InstallationID = ?", idValue(*m_installationID));
    if (m_sortByMachine)
        select.OrderBy("i.MachineID, i.Location");
}

unsigned long SYAppInstallationSet::InstallationID() const {
    return static_cast<unsigned long>(FieldInt("InstallationID"));
}

unsigned long SYAppInstallationSet::AppID() const {
    return static_cast<unsigned long>(FieldInt("AppID"));
}

unsigned long SYAppInstallationSet::MachineID() const {
    return static_cast<unsigned long>(FieldInt("MachineID"));
}

std::string SYAppInstallationSet::Location() const {
    return FieldText("Location");
}

std::string SYAppInstallationSet::MachineName() const {
    return FieldText("MachineName");
}
