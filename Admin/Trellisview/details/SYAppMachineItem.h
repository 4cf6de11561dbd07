#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/framework/SYListItem.h"

// One installation of an application on one client, a row of the Clients page.
class SYAppMachineItem : public SYListItem {
public:
    explicit SYAppMachineItem(SYListItemArray* array = nullptr) : SYListItem(array) {}
    SYAppMachineItem(const SYAppMachineItem& other) = default;
    SYAppMachineItem& operator=(const SYAppMachineItem& other) = default;
    ~SYAppMachineItem() override = default;

    // Columns 0-2 are the list's (client, last scan, location), each with its tie-breaks in
    // ascending order whatever the direction; 3-5 are the same keys alone.
    int CompareTo(const SYListItem* item, int column, int ascending) const override;

    // "client<TAB>last scan date<TAB>location"; no date for a client never scanned.
    void MakeString(std::string& text) const;

    std::uint32_t MachineID() const { return m_machineID; }
    void SetMachineID(std::uint32_t id) { m_machineID = id; }
    std::uint32_t InstallationID() const { return m_installationID; }
    void SetInstallationID(std::uint32_t id) { m_installationID = id; }
    const std::string& MachineName() const { return m_machineName; }
    void SetMachineName(const std::string& name) { m_machineName = name; }
    const std::string& Location() const { return m_location; }
    void SetLocation(const std::string& location) { m_location = location; }
    CTime LastScan() const { return m_lastScan; }
    void SetLastScan(const CTime& time) { m_lastScan = time; }
    // 1 for a Windows CE device; 255 until set.
    unsigned char InvDataType() const { return m_invDataType; }
    void SetInvDataType(unsigned char invDataType) { m_invDataType = invDataType; }

private:
    std::uint32_t m_machineID = 0;
    std::uint32_t m_installationID = 0;
    std::string m_machineName;
    std::string m_location;
    CTime m_lastScan;
    unsigned char m_invDataType = 255;
};
