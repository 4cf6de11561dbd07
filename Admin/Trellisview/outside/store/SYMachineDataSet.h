#pragma once

#include <optional>

#include "outside/framework/CTime.h"
#include "outside/store/SYRecordset.h"

// Records a PC's scans leave, one per client and resource; resource 1 is the software
// inventory, whose CreationTime is the client's last scan.
class SYMachineDataSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForMachine(unsigned long machineID);
    void FilterForResource(unsigned long resourceID);

    unsigned long MachineID() const;
    unsigned long ResourceID() const;
    CTime CreationTime() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<unsigned long> m_machineID;
    std::optional<unsigned long> m_resourceID;
};
