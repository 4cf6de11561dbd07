#include "outside/store/SYHandheldSet.h"

#include <cstdint>

void SYHandheldSet::FilterForDeviceID(unsigned long deviceID) {
    m_deviceID = deviceID;
}

void SYHandheldSet::BuildQuery(SYSelect& select) const {
    select.Columns("DeviceID, DeviceName, LastSWInvTime");
    select.From("Devices");
    if (m_deviceID)
        select.Where("DeviceID = ?", static_cast<std::int64_t>(*m_deviceID));
}

unsigned long SYHandheldSet::DeviceID() const {
    return static_cast<unsigned long>(FieldInt("DeviceID"));
}

std::string SYHandheldSet::DeviceName() const {
    return FieldText("DeviceName");
}

// A device scanned without a software inventory has no time, and one of 0 counts as none.
int SYHandheldSet::HaveLastSWInvTime() const {
    return !FieldIsNull("LastSWInvTime") && FieldInt("LastSWInvTime") != 0 ? 1 : 0;
}

CTime SYHandheldSet::LastSWInvTime() const {
    return CTime(static_cast<std::int32_t>(FieldInt("LastSWInvTime")));
}
