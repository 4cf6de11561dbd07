#include "outside/store/SYMachineDataSet.h"

#include <cstdint>

void SYMachineDataSet::FilterForMachine(unsigned long machineID) {
    m_machineID = machineID;
}

void SYMachineDataSet::FilterForResource(unsigned long resourceID) {
    m_resourceID = resourceID;
}

void SYMachineDataSet::BuildQuery(SYSelect& select) const {
    select.Columns("MachineID, ResourceID, CreationTime");
    select.From("MachineData");
    if (m_machineID)
        select.Where("MachineID = ?", static_cast<std::int64_t>(*m_machineID));
    if (m_resourceID)
        select.Where("ResourceID = ?", static_cast<std::int64_t>(*m_resourceID));
}

unsigned long SYMachineDataSet::MachineID() const {
    return static_cast<unsigned long>(FieldInt("MachineID"));
}

unsigned long SYMachineDataSet::ResourceID() const {
    return static_cast<unsigned long>(FieldInt("ResourceID"));
}

CTime SYMachineDataSet::CreationTime() const {
    return CTime(static_cast<std::int32_t>(FieldInt("CreationTime")));
}
