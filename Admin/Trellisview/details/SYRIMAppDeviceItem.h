#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/SYListItem.h"

// One BlackBerry application on one device, a row of the BlackBerry view's Clients page.
class SYRIMAppDeviceItem : public SYListItem {
public:
    explicit SYRIMAppDeviceItem(SYListItemArray* array = nullptr) : SYListItem(array) {}
    SYRIMAppDeviceItem(const SYRIMAppDeviceItem& other) = default;
    SYRIMAppDeviceItem& operator=(const SYRIMAppDeviceItem& other) = default;
    ~SYRIMAppDeviceItem() override = default;

    // Column 0 only: the client's name without regard to case, then DeviceID; both run in
    // the direction asked.
    int CompareTo(const SYListItem* item, int column, int ascending) const override;
    void MakeString(std::string& text) const { text = m_clientName; }

    std::uint32_t DeviceID() const { return m_deviceID; }
    void SetDeviceID(std::uint32_t id) { m_deviceID = id; }
    const std::string& ClientName() const { return m_clientName; }
    void SetClientName(const std::string& name) { m_clientName = name; }

private:
    std::uint32_t m_deviceID = 0;
    std::string m_clientName;
};
