#include "outside/store/SYAppFileLocSet.h"

#include <cstdint>

#include "outside/store/SYSelect.h"

void SYAppFileLocSet::BuildQuery(SYSelect& select) const {
    std::string columns = "l.MachineID AS MachineID, l.Location AS Location";
    select.From("FileLocations l JOIN Files f ON f.FileID = l.FileID");
    if (m_joinMachines && InvDataType == 0) {
        columns += ", m.MachineName AS MachineName, m.MachineUser AS MachineUser";
        select.Join("JOIN Machines m ON m.MachineID = l.MachineID");
    } else if (m_joinMachines) {
        columns += ", m.DeviceName AS MachineName, m.DeviceUser AS MachineUser";
        select.Join("JOIN Devices m ON m.DeviceID = l.MachineID");
    }
    select.Columns(columns);
    select.Where("f.InvDataType = ?", std::int64_t{InvDataType});
    if (m_fileID)
        select.Where("l.FileID = ?", std::int64_t{static_cast<std::int64_t>(*m_fileID)});
    if (m_sorted)
        select.OrderBy(m_joinMachines ? "MachineName, l.MachineID, l.Location"
                                      : "l.MachineID, l.Location");
}

unsigned long SYAppFileLocSet::MachineID() const {
    return static_cast<unsigned long>(FieldInt("MachineID"));
}

std::string_view SYAppFileLocSet::MachineName() const {
    return FieldTextView("MachineName");
}

std::string_view SYAppFileLocSet::MachineUser() const {
    return FieldTextView("MachineUser");
}

std::string SYAppFileLocSet::Location() const {
    return FieldText("Location");
}
