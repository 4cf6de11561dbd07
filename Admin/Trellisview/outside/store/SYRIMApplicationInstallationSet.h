#pragma once

#include <optional>
#include <string>

#include "outside/store/SYRecordset.h"

// BlackBerry applications on devices, in order of device. JoinDevices adds the client's
// name, JoinApplications the application's name and version. Opening throws CDBException
// on a store without the BlackBerry tables.
class SYRIMApplicationInstallationSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForAppID(long appID);
    void FilterForDeviceID(unsigned long deviceID);
    void JoinDevices();
    void JoinApplications();

    long AppID() const;
    unsigned long DeviceID() const;
    // With JoinDevices; empty for a device that is gone.
    std::string ClientName() const;
    // With JoinApplications; empty for an application that is gone.
    std::string AppName() const;
    std::string AppVersion() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<long> m_appID;
    std::optional<unsigned long> m_deviceID;
    bool m_joinDevices = false;
    bool m_joinApplications = false;
};
